// Integers taken from the input written by the ltoa family and to_str in every radix, into
// char, UTF-16 and UTF-32 buffers of exactly the needed size, and checked against
// std::to_chars; then the text is read back by the str_to_x parser of each width, which must
// give the value again, or clamp and throw exactly when the value does not fit the width.
// The raw byte forms too: each namespace's bytes are the expected order (the machine's own,
// or most significant first for both little_endian and big_endian), read back by both
// endian namespaces, and a byte string shorter than the width reads as 0.
#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>
#include <mota/generic/convert/bin_str.hpp>
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/generic/convert/x_to_str.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace convert = mota::generic::convert;
namespace ex = mota::exceptions;
using mota::types::radix_t;

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

template <typename T>
std::string reference(T value, int radix) {
  char buffer[80];
  const auto r = std::to_chars(buffer, buffer + sizeof buffer, value, radix);
  check(r.ec == std::errc());
  return std::string(buffer, r.ptr);
}

// Calls `write` into a buffer of exactly `room` elements (so a write past it is caught) and
// returns what it wrote up to the terminator, widened to char for comparison.
template <typename C, typename Write>
std::string written(std::size_t room, Write write) {
  std::vector<C> buffer(room, C(0x55));
  C* const result = write(buffer.data());
  check(result == buffer.data());
  std::string text;
  std::size_t i = 0;
  for (; i < room && buffer[i] != C(0); ++i) {
    check(static_cast<std::uint32_t>(buffer[i]) < 0x80);
    text.push_back(static_cast<char>(buffer[i]));
  }
  check(i < room);  // terminated inside the buffer
  return text;
}

// The writer for one value type at every character width: ltoa for int, ultoa for unsigned
// int, lltoa for long long, ulltoa for unsigned long long.
template <typename T>
struct writer;
#define MOTA_WRITER(type, fn)                                \
  template <>                                                \
  struct writer<type> {                                      \
    template <typename C>                                    \
    static C* write(type v, C* buffer, unsigned int radix) { \
      return convert::fn(v, buffer, radix);                  \
    }                                                        \
  };
MOTA_WRITER(int, ltoa)
MOTA_WRITER(unsigned int, ultoa)
MOTA_WRITER(long long, lltoa)
MOTA_WRITER(unsigned long long, ulltoa)
#undef MOTA_WRITER

enum class outcome { value, overflow, underflow, other };

template <typename T>
struct parsed {
  outcome kind = outcome::value;
  T value = 0;
};

template <typename T, typename F>
parsed<T> run(F parse) {
  parsed<T> r;
  try {
    r.value = parse();
  } catch (const ex::overflow_error&) {
    r.kind = outcome::overflow;
  } catch (const ex::underflow_error&) {
    r.kind = outcome::underflow;
  } catch (...) {
    r.kind = outcome::other;
  }
  return r;
}

// Text of `wide` in the element type C, exactly sized and not terminated.
template <typename C>
std::vector<C> as_units(const std::string& text) {
  return std::vector<C>(text.begin(), text.end());
}

// Reads `text`, the rendering of the long long or unsigned long long `wide` (signedness in
// `negative`), with the parser of T; the result must be the value when it fits T, and the
// clamped value or the range exception otherwise.
template <typename T, typename C, typename Parse>
void read_back(Parse parse, const std::vector<C>& text, radix_t::base radix, bool negative,
               unsigned long long magnitude) {
  using limits = std::numeric_limits<T>;
  const auto size = static_cast<unsigned int>(text.size());
  const auto quiet = run<T>([&] { return parse(text.data(), size, radix, false); });
  const auto loud = run<T>([&] { return parse(text.data(), size, radix, true); });
  check(quiet.kind == outcome::value);

  const unsigned long long max_magnitude = static_cast<unsigned long long>(limits::max());
  // Magnitude of T's minimum, computed without overflowing.
  const unsigned long long min_magnitude =
      limits::is_signed ? static_cast<unsigned long long>(-(limits::min() + 1)) + 1u : 0u;
  if (!negative) {
    if (magnitude <= max_magnitude) {
      check(quiet.value == static_cast<T>(magnitude));
      check(loud.kind == outcome::value && loud.value == quiet.value);
    } else {
      check(quiet.value == limits::max());
      check(loud.kind == outcome::overflow);
    }
  } else if (limits::is_signed) {
    if (magnitude <= min_magnitude) {
      const T expected = magnitude == 0 ? T(0) : static_cast<T>(-static_cast<T>(magnitude - 1) - 1);
      check(quiet.value == expected);
      check(loud.kind == outcome::value && loud.value == expected);
    } else {
      check(quiet.value == limits::min());
      check(loud.kind == outcome::underflow);
    }
  } else {
    // An unsigned parser gives 0 for any "-" text; with the flag only "-0" passes.
    check(quiet.value == T(0));
    if (magnitude == 0)
      check(loud.kind == outcome::value && loud.value == T(0));
    else
      check(loud.kind == outcome::underflow);
  }
}

#define MOTA_PARSER(name) \
  [](auto t, unsigned int s, radix_t::base r, bool f) { return convert::name(t, s, r, f); }

// Every parser width at one character type.
template <typename C>
void read_back_all(const std::string& narrow, radix_t::base radix, bool negative,
                   unsigned long long magnitude) {
  const std::vector<C> text = as_units<C>(narrow);
  read_back<int>(MOTA_PARSER(str_to_int), text, radix, negative, magnitude);
  read_back<std::int32_t>(MOTA_PARSER(str_to_long), text, radix, negative, magnitude);
  read_back<short>(MOTA_PARSER(str_to_short), text, radix, negative, magnitude);
  read_back<signed char>(MOTA_PARSER(str_to_int8), text, radix, negative, magnitude);
  read_back<long long>(MOTA_PARSER(str_to_int64), text, radix, negative, magnitude);
  read_back<unsigned int>(MOTA_PARSER(str_to_uint32), text, radix, negative, magnitude);
  read_back<unsigned char>(MOTA_PARSER(str_to_uint8), text, radix, negative, magnitude);
  read_back<unsigned short>(MOTA_PARSER(str_to_uint16), text, radix, negative, magnitude);
  read_back<unsigned long long>(MOTA_PARSER(str_to_uint64), text, radix, negative, magnitude);
}

template <typename T>
void exercise(T value, unsigned int radix) {
  const bool in_contract = radix >= 2 && radix <= 36;
  const std::string expected = in_contract ? reference(value, static_cast<int>(radix)) : "";
  const std::size_t room = expected.size() + 1;
  auto write = [&](auto* buffer) { return writer<T>::write(value, buffer, radix); };
  check(written<char>(room, write) == expected);
  check(written<unsigned short>(room, write) == expected);
  check(written<wchar_t>(room, write) == expected);
  if (!in_contract) return;

  const bool negative = expected[0] == '-';
  const unsigned long long magnitude = negative ? 0ull - static_cast<unsigned long long>(value)
                                                : static_cast<unsigned long long>(value);
  const auto r = static_cast<radix_t::base>(radix);
  read_back_all<char>(expected, r, negative, magnitude);
  read_back_all<unsigned short>(expected, r, negative, magnitude);
  read_back_all<wchar_t>(expected, r, negative, magnitude);

  // The detected radixes read their own prefixes back; the sign goes before the prefix.
  if (radix == 10 || radix == 16 || radix == 8 || radix == 2) {
    const std::string digits = negative ? expected.substr(1) : expected;
    const char* prefix = radix == 16 ? "0x" : radix == 2 ? "0B" : radix == 8 ? "0" : "";
    const std::string detected = (negative ? "-" : "") + std::string(prefix) + digits;
    read_back_all<char>(detected, radix_t::detect, negative, magnitude);
  }
}

template <typename T>
void to_str_matches(T value) {
  check(convert::to_str(value) == reference(value, 10));
}

template <typename T>
std::string native_bytes(T value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename T>
std::string high_first(T value) {
  std::string out = native_bytes(value);  // the target stores the least significant byte first
  return std::string(out.rbegin(), out.rend());
}

// Equal bit patterns; two NaNs count as equal, since a float returned through the x87 stack
// on the 32-bit target has its signalling NaNs quietened on the way.
template <typename T>
bool same_bits(T a, T b) {
  return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);  // a != a: a NaN
}

// One width: `to` and `from` are the writer and the std::string reader of the plain, the
// little_endian and the big_endian namespace, in that order.
template <typename T>
void raw_bytes(T value, std::string (*to_plain)(const T&), std::string (*to_little)(const T&),
               std::string (*to_big)(const T&), T (*from_plain)(const std::string&),
               T (*from_little)(const std::string&), T (*from_big)(const std::string&)) {
  const std::string plain = to_plain(value);
  const std::string little = to_little(value);
  const std::string big = to_big(value);
  check(plain == native_bytes(value));
  check(little == high_first(value) && big == little);
  check(same_bits(from_plain(plain), value));
  check(same_bits(from_little(big), value) && same_bits(from_big(little), value));
  for (std::size_t n = 0; n < sizeof(T); ++n) {
    check(same_bits(from_plain(plain.substr(0, n)), T(0)));
    check(same_bits(from_little(big.substr(0, n)), T(0)));
    check(same_bits(from_big(little.substr(0, n)), T(0)));
  }
  check(same_bits(from_plain(plain + "x"), value));  // extra bytes are ignored
}

#define MOTA_RAW(type, to, from, value)                                                    \
  raw_bytes<type>(value, convert::to, convert::little_endian::to, convert::big_endian::to, \
                  convert::from, convert::little_endian::from, convert::big_endian::from)

void all_raw_bytes(unsigned long long bits) {
  float f;
  const auto low = static_cast<std::uint32_t>(bits);
  std::memcpy(&f, &low, sizeof f);
  double d;
  std::memcpy(&d, &bits, sizeof d);
  MOTA_RAW(short, int16_to_bin_str, bin_str_to_int16, static_cast<short>(bits));
  MOTA_RAW(int, int32_to_bin_str, bin_str_to_int32, static_cast<int>(low));
  MOTA_RAW(long long, int64_to_bin_str, bin_str_to_int64, static_cast<long long>(bits));
  MOTA_RAW(unsigned short, uint16_to_bin_str, bin_str_to_uint16, static_cast<unsigned short>(bits));
  MOTA_RAW(unsigned int, uint32_to_bin_str, bin_str_to_uint32, low);
  MOTA_RAW(unsigned long long, uint64_to_bin_str, bin_str_to_uint64, bits);
  MOTA_RAW(float, float_to_bin_str, bin_str_to_float, f);
  MOTA_RAW(double, double_to_bin_str, bin_str_to_double, d);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 96) return 0;  // a few values per input keep the runs fast; more adds nothing
  FuzzedDataProvider in(data, size);
  while (in.remaining_bytes() > 0) {
    // Mostly radixes in the contract, now and then one outside it.
    const std::uint8_t pick = in.ConsumeIntegral<std::uint8_t>();
    const unsigned int radix = pick < 240 ? 2u + pick % 35u : pick % 40u;
    const auto bits = in.ConsumeIntegral<unsigned long long>();
    exercise(static_cast<int>(static_cast<unsigned int>(bits)), radix);
    exercise(static_cast<unsigned int>(bits), radix);
    exercise(static_cast<long long>(bits), radix);
    exercise(bits, radix);

    to_str_matches(static_cast<long long>(bits));
    to_str_matches(static_cast<int>(static_cast<unsigned int>(bits)));
    to_str_matches(static_cast<short>(bits));
    to_str_matches(static_cast<signed char>(bits));
    to_str_matches(static_cast<unsigned char>(bits));
    to_str_matches(static_cast<unsigned short>(bits));
    to_str_matches(static_cast<unsigned int>(bits));
    to_str_matches(bits);
    const char c = static_cast<char>(bits);
    const mota::strings::ustring8 one = convert::to_str<char>(c);
    check(one.size() == 1 && one[0] == c);
    all_raw_bytes(bits);
  }
  return 0;
}
