// Feeds arbitrary bytes to a variant as each text type, and numbers made from the same bytes
// as each number type, and checks every conversion against the routine it is defined by:
// a held text reads as a number exactly as the str_to_x parser of that width reads the same
// units (radix detected, no range exceptions), as a boolean by the word rule or str_to_bool,
// and as other text through the UTF converters; a held number writes the decimal text that
// std::to_chars writes (the stream's default text for floating values) and converts to the
// other number types by the ordinary arithmetic conversions.
#include <mota/generic/convert/str_to_bool.hpp>
#include <mota/generic/convert/str_to_float.hpp>
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/strings/utf.hpp>
#include <mota/types/variant.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <typeinfo>

namespace {

namespace convert = mota::generic::convert;
namespace s = mota::strings;
using mota::types::radix_t;
using mota::types::variant;

void check(bool condition) {
  if (!condition) std::abort();
}

// A conversion's result, or the fact that it threw: both sides must agree on either.
template <typename T>
struct outcome {
  bool threw = false;
  T value{};
};

template <typename F>
auto run(F f) -> outcome<decltype(f())> {
  outcome<decltype(f())> r;
  try {
    r.value = f();
  } catch (...) {
    r.threw = true;
  }
  return r;
}

template <typename A, typename B>
void same(A variant_side, B reference_side) {
  const auto a = run(variant_side);
  const auto b = run(reference_side);
  check(a.threw == b.threw);
  if (!a.threw) check(a.value == b.value);
}

template <typename T>
bool same_floating(T a, T b) {
  // By value, never by bytes: a long double's padding is never written.
  return (std::isnan(a) && std::isnan(b)) || a == b;
}

// The integer slots of a variant holding text of units C, each against its parser.
template <typename C>
void integers_as_parsed(const variant& v, const C* p, unsigned int n) {
  const auto d = radix_t::detect;
  same([&] { return v.as_int(); }, [&] { return convert::str_to_int(p, n, d, false); });
  same([&] { return v.as_short(); }, [&] { return convert::str_to_short(p, n, d, false); });
  same([&] { return v.as_long(); }, [&] { return convert::str_to_long(p, n, d, false); });
  same([&] { return v.as_int8(); }, [&] { return convert::str_to_int8(p, n, d, false); });
  same([&] { return v.as_int16(); }, [&] { return convert::str_to_int16(p, n, d, false); });
  same([&] { return v.as_int32(); }, [&] { return convert::str_to_int32(p, n, d, false); });
  same([&] { return v.as_int64(); }, [&] { return convert::str_to_int64(p, n, d, false); });
  same([&] { return v.as_uint8(); }, [&] { return convert::str_to_uint8(p, n, d, false); });
  same([&] { return v.as_uint16(); }, [&] { return convert::str_to_uint16(p, n, d, false); });
  same([&] { return v.as_uint32(); }, [&] { return convert::str_to_uint32(p, n, d, false); });
  same([&] { return v.as_uint64(); }, [&] { return convert::str_to_uint64(p, n, d, false); });
  // The unsigned aliases go through the signed slots on purpose.
  check(v.as_uint() == static_cast<unsigned int>(v.as_int()));
  check(v.as_unsigned() == static_cast<unsigned int>(v.as_int()));
  check(v.as_ulong() == static_cast<std::uint32_t>(v.as_long()));
  check(v.as_ushort() == static_cast<unsigned short>(v.as_short()));
  check(v.as_signed() == v.as_int());
}

void floating_as_parsed(const variant& v, const s::ustring8& utf8) {
  check(same_floating(v.as_float(), convert::str_to_float(utf8)));
  check(same_floating(v.as_double(), convert::str_to_double(utf8)));
  check(same_floating(v.as_long_double(), convert::str_to_long_double(utf8)));
}

// A held ustring8 or std::string: "yes", "on" and "true" in any case, else a non-zero number.
bool narrow_bool(const std::string& text) {
  std::string lower = text;
  for (char& c : lower)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower == "yes" || lower == "on" || lower == "true") return true;
  return convert::str_to_long(text.c_str(), static_cast<unsigned int>(text.size()), radix_t::detect,
                              false) != 0;
}

std::string streamed(const variant& v) {
  std::ostringstream os;
  os << v;
  return os.str();
}

void held_narrow(const variant& v, const std::string& bytes) {
  integers_as_parsed(v, bytes.c_str(), static_cast<unsigned int>(bytes.size()));
  floating_as_parsed(v, s::ustring8(bytes));
  check(v.as_bool() == narrow_bool(bytes));
  check(v.as_string() == bytes && v.as_ustring() == bytes && v.as_utf8() == bytes);
  check(v.as_utf16() == s::utf8_to_utf16(s::ustring8(bytes)));
  const s::ustring32 utf32 = s::utf8_to_utf32(s::ustring8(bytes));
  check(v.as_utf32() == utf32);
  check(v.as_wstring() == std::wstring(utf32.begin(), utf32.end()));
  check(streamed(v) == bytes);
}

void held_utf16(const variant& v, const s::ustring16& units) {
  integers_as_parsed(v, units.c_str(), static_cast<unsigned int>(units.size()));
  const s::ustring8 utf8 = s::utf16_to_utf8(units);
  floating_as_parsed(v, utf8);
  check(v.as_bool() == convert::str_to_bool(units));
  check(v.as_string() == utf8 && v.as_utf8() == utf8 && v.as_ustring() == utf8);
  check(v.as_utf16() == units);
  const s::ustring32 utf32 = s::utf16_to_utf32(units);
  check(v.as_utf32() == utf32);
  check(v.as_wstring() == std::wstring(utf32.begin(), utf32.end()));
  check(streamed(v) == std::string(utf8.c_str()));  // stops at the first NUL
}

void held_utf32(const variant& v, const std::wstring& points, bool standard_string) {
  integers_as_parsed(v, points.c_str(), static_cast<unsigned int>(points.size()));
  const s::ustring32 utf32(points.begin(), points.end());
  const s::ustring8 utf8 = s::utf32_to_utf8(utf32);
  floating_as_parsed(v, utf8);
  check(v.as_bool() == convert::str_to_bool(utf32));
  check(v.as_string() == utf8 && v.as_utf8() == utf8 && v.as_ustring() == utf8);
  check(v.as_utf16() == s::utf32_to_utf16(utf32));
  check(v.as_utf32() == utf32);
  check(v.as_wstring() == points);
  const std::string out = streamed(v);
  if (standard_string) {
    // Not the text: a note naming the type and where the string lives.
    const std::string head = std::string("< ") + typeid(std::wstring).name() + " instance at ";
    check(out.compare(0, head.size(), head) == 0);
    check(out.size() > head.size() + 2 && out.compare(out.size() - 2, 2, " >") == 0);
  } else {
    check(out == std::string(utf8.c_str()));
  }
}

template <typename T>
std::string decimal(T value) {
  char buffer[32];
  const auto r = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, r.ptr);
}

template <typename T>
std::string stream_text(T value) {
  std::ostringstream os;
  os << value;
  return os.str();
}

// The text slots of a variant whose narrow text is `text` (all ASCII): every width carries
// the same characters.
void text_everywhere(const variant& v, const std::string& text) {
  check(v.as_string() == text && v.as_utf8() == text && v.as_ustring() == text);
  check(v.as_wstring() == std::wstring(text.begin(), text.end()));
  check(v.as_utf16() == s::ustring16(text.begin(), text.end()));
  check(v.as_utf32() == s::ustring32(text.begin(), text.end()));
}

template <typename T>
void held_integer(T x) {
  const variant v(x);
  check(v.as_int() == static_cast<int>(x) && v.as_short() == static_cast<short>(x));
  check(v.as_long() == static_cast<std::int32_t>(x) && v.as_int8() == static_cast<std::int8_t>(x));
  check(v.as_int16() == static_cast<std::int16_t>(x) &&
        v.as_int32() == static_cast<std::int32_t>(x));
  check(v.as_int64() == static_cast<std::int64_t>(x) &&
        v.as_uint8() == static_cast<std::uint8_t>(x));
  check(v.as_uint16() == static_cast<std::uint16_t>(x) &&
        v.as_uint32() == static_cast<std::uint32_t>(x));
  check(v.as_uint64() == static_cast<std::uint64_t>(x));
  check(v.as_uint() == static_cast<unsigned int>(static_cast<int>(x)));
  check(v.as_bool() == (x != 0));
  check(same_floating(v.as_float(), static_cast<float>(x)));
  check(same_floating(v.as_double(), static_cast<double>(x)));
  check(same_floating(v.as_long_double(), static_cast<long double>(x)));
  text_everywhere(v, decimal(x));  // a char-sized value is a number, never a character
  check(streamed(v) == decimal(x));
}

// Whether truncating `value` toward zero gives a value of T (the conversion is defined).
template <typename T>
bool fits(long double value) {
  return value > static_cast<long double>(std::numeric_limits<T>::min()) - 1 &&
         value < static_cast<long double>(std::numeric_limits<T>::max()) + 1;
}

template <typename T>
void held_floating(T x) {
  const variant v(x);
  const long double wide = static_cast<long double>(x);
  if (fits<int>(wide)) check(v.as_int() == static_cast<int>(x));
  if (fits<short>(wide)) check(v.as_short() == static_cast<short>(x));
  if (fits<std::int8_t>(wide)) check(v.as_int8() == static_cast<std::int8_t>(x));
  if (fits<std::int64_t>(wide)) check(v.as_int64() == static_cast<std::int64_t>(x));
  if (fits<std::uint8_t>(wide)) check(v.as_uint8() == static_cast<std::uint8_t>(x));
  if (fits<std::uint16_t>(wide)) check(v.as_uint16() == static_cast<std::uint16_t>(x));
  if (fits<std::uint32_t>(wide)) check(v.as_uint32() == static_cast<std::uint32_t>(x));
  if (fits<std::uint64_t>(wide)) check(v.as_uint64() == static_cast<std::uint64_t>(x));
  check(v.as_bool() == (x != 0));
  if (std::isnan(wide) || std::fabs(wide) <= std::numeric_limits<float>::max() || std::isinf(wide))
    check(same_floating(v.as_float(), static_cast<float>(x)));
  if (std::isnan(wide) || std::fabs(wide) <= std::numeric_limits<double>::max() || std::isinf(wide))
    check(same_floating(v.as_double(), static_cast<double>(x)));
  check(same_floating(v.as_long_double(), wide));
  text_everywhere(v, stream_text(x));
  check(streamed(v) == stream_text(x));
}

void held_numbers(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const auto bits = in.ConsumeIntegral<std::uint64_t>();
  held_integer(static_cast<signed char>(bits));
  held_integer(static_cast<short>(bits));
  held_integer(static_cast<int>(static_cast<std::uint32_t>(bits)));
  held_integer(static_cast<long long>(bits));
  held_integer(static_cast<unsigned char>(bits));
  held_integer(static_cast<unsigned short>(bits));
  held_integer(static_cast<unsigned int>(bits));
  held_integer(static_cast<unsigned long long>(bits));

  double d;
  std::memcpy(&d, &bits, sizeof d);
  float f;
  const auto low = static_cast<std::uint32_t>(bits);
  std::memcpy(&f, &low, sizeof f);
  held_floating(f);
  held_floating(d);
  held_floating(static_cast<long double>(d) * 3.0L);

  for (bool b : {false, true}) {
    const variant v(b);
    check(v.as_int() == b && v.as_uint64() == b && v.as_bool() == b);
    check(v.as_double() == (b ? 1.0 : 0.0));
    text_everywhere(v, b ? "1" : "0");
    check(streamed(v) == (b ? "1" : "0"));
  }
  const variant nil;
  check(nil.as_int() == 0 && !nil.as_bool() && nil.as_double() == 0.0);
  check(nil.as_string().empty() && nil.as_wstring().empty() && nil.as_utf16().empty());
  check(streamed(nil) == "0");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  held_narrow(variant(bytes), bytes);
  held_narrow(variant(s::ustring8(bytes)), bytes);

  s::ustring16 units;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    units.push_back(static_cast<unsigned short>(data[i] | data[i + 1] << 8));
  }
  held_utf16(variant(units), units);
  // The same bytes one per unit: numbers written in ASCII must read the same at every width.
  const s::ustring16 widened(bytes.begin(), bytes.end());
  held_utf16(variant(widened), widened);

  std::wstring points;
  for (std::size_t i = 0; i + 3 < size; i += 4) {
    const std::uint32_t cp = static_cast<std::uint32_t>(data[i]) |
                             static_cast<std::uint32_t>(data[i + 1]) << 8 |
                             static_cast<std::uint32_t>(data[i + 2]) << 16 |
                             static_cast<std::uint32_t>(data[i + 3]) << 24;
    points.push_back(static_cast<wchar_t>(cp));
  }
  held_utf32(variant(points), points, true);
  held_utf32(variant(s::ustring32(points)), points, false);
  const std::wstring wide_bytes(bytes.begin(), bytes.end());
  held_utf32(variant(s::ustring32(wide_bytes)), wide_bytes, false);

  held_numbers(data, size);
  return 0;
}
