// Every integer parser at every width with both range flags and the radix taken from the
// input, plus the floating-point parsers, over arbitrary bytes. Checks that only the three
// documented exceptions escape, that all character widths agree on the same text, and that the
// throwing form throws exactly when the quiet form had to clamp.
#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>
#include <mota/generic/convert/str_to_float.hpp>
#include <mota/generic/convert/str_to_x.hpp>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace convert = mota::generic::convert;
namespace ex = mota::exceptions;
using mota::types::radix_t;

namespace {

enum class outcome { value, bad_radix, overflow, underflow };

template <typename T>
struct result_t {
  outcome kind = outcome::value;
  T value = 0;
  bool operator==(const result_t& o) const { return kind == o.kind && value == o.value; }
};

template <typename T, typename F>
result_t<T> run(F parse) {
  result_t<T> r;
  try {
    r.value = parse();
  } catch (const ex::invalid_argument_value&) {
    r.kind = outcome::bad_radix;
  } catch (const ex::overflow_error&) {
    r.kind = outcome::overflow;
  } catch (const ex::underflow_error&) {
    r.kind = outcome::underflow;
  }
  return r;
}

void check(bool condition) {
  if (!condition) std::abort();
}

template <typename T, typename Parser>
void exercise(Parser parse, const std::string& narrow, unsigned int size, radix_t::base radix) {
  const std::basic_string<unsigned short> utf16(narrow.begin(), narrow.end());
  std::wstring utf32;
  for (char c : narrow)
    utf32.push_back(static_cast<unsigned char>(c));
  std::basic_string<unsigned short> utf16_bytes;
  for (char c : narrow)
    utf16_bytes.push_back(static_cast<unsigned char>(c));

  for (bool flag : {false, true}) {
    const auto a = run<T>([&] { return parse(narrow.c_str(), size, radix, flag); });
    const auto b = run<T>([&] { return parse(utf16_bytes.c_str(), size, radix, flag); });
    const auto c = run<T>([&] { return parse(utf32.c_str(), size, radix, flag); });
    // Bytes are widened as unsigned values; in the C locale no byte above 0x7F is a blank or a
    // digit, so all widths must agree.
    check(a == b && b == c);
  }
  const auto quiet = run<T>([&] { return parse(narrow.c_str(), size, radix, false); });
  const auto loud = run<T>([&] { return parse(narrow.c_str(), size, radix, true); });
  if (quiet.kind == outcome::bad_radix) {
    check(loud.kind == outcome::bad_radix);
    return;
  }
  check(quiet.kind == outcome::value);
  if (loud.kind == outcome::value) {
    check(loud.value == quiet.value);
  } else if (loud.kind == outcome::overflow) {
    check(quiet.value == std::numeric_limits<T>::max());
  } else {
    check(loud.kind == outcome::underflow);
    check(quiet.value == (std::is_signed<T>::value ? std::numeric_limits<T>::min() : T(0)));
  }
}

#define MOTA_PARSER(name) \
  [](auto t, unsigned int s, radix_t::base r, bool f) { return convert::name(t, s, r, f); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const auto radix = static_cast<radix_t::base>(data[0] % 40);
  const bool measured = (data[1] & 1) != 0;
  const std::string text(reinterpret_cast<const char*>(data + 2), size - 2);
  // A size of 0 makes the signed parsers measure up to the first zero element; otherwise the
  // whole text is offered (embedded zeros included).
  const unsigned int length = measured ? 0u : static_cast<unsigned int>(text.size());
  // With a size of 0 the unsigned parsers read only the first element: the terminator of the
  // string keeps that in bounds even for empty input.

  exercise<std::int32_t>(MOTA_PARSER(str_to_long), text, length, radix);
  exercise<int>(MOTA_PARSER(str_to_int), text, length, radix);
  exercise<int>(MOTA_PARSER(str_to_signed), text, length, radix);
  exercise<std::int32_t>(MOTA_PARSER(str_to_int32), text, length, radix);
  exercise<short>(MOTA_PARSER(str_to_short), text, length, radix);
  exercise<short>(MOTA_PARSER(str_to_int16), text, length, radix);
  exercise<signed char>(MOTA_PARSER(str_to_int8), text, length, radix);
  exercise<long long>(MOTA_PARSER(str_to_int64), text, length, radix);
  exercise<unsigned int>(MOTA_PARSER(str_to_unsigned), text, length, radix);
  exercise<std::uint32_t>(MOTA_PARSER(str_to_uint32), text, length, radix);
  exercise<unsigned char>(MOTA_PARSER(str_to_uint8), text, length, radix);
  exercise<unsigned short>(MOTA_PARSER(str_to_uint16), text, length, radix);
  exercise<unsigned long long>(MOTA_PARSER(str_to_uint64), text, length, radix);

  // Exactly-sized heap copies without a terminator: the parsers must stay inside `size`.
  if (!text.empty()) {
    std::vector<char> exact(text.begin(), text.end());
    const auto n = static_cast<unsigned int>(exact.size());
    try {
      convert::str_to_int64(exact.data(), n, radix, data[1] & 2);
      convert::str_to_uint64(exact.data(), n, radix, data[1] & 2);
    } catch (const ex::invalid_argument_value&) {
    } catch (const ex::overflow_error&) {
    } catch (const ex::underflow_error&) {
    }
  }

  volatile double sink = 0;
  sink = sink + convert::str_to_float(text);
  sink = sink + convert::str_to_double(text);
  sink = sink + static_cast<double>(convert::str_to_long_double(text));
  sink = sink + convert::str_to_double(text, std::locale::classic());
  (void)sink;
  return 0;
}
