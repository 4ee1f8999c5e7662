// Not part of the public interface.
//
// The integer tokens of the text encoding are nearly always what its writer produced: a plain
// decimal number. Those are read here, inline and up to eight digits at a time; every other token
// (blanks, a "+", a radix prefix or a leading "0", a trailing rest, a value that may leave the
// type's range) is refused and left to generic::convert, which gives the same value for every
// token taken here.
#ifndef MOTA_SERIALIZATION_PRIVATE_DECIMAL_TOKEN_HPP
#define MOTA_SERIALIZATION_PRIVATE_DECIMAL_TOKEN_HPP

#include <mota/generic/convert/_private/digit_blocks.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace MOTA_2_18 {
namespace serialization {
namespace _private {

// True, with the value in `value`, when the `length` bytes at `token` are "0", "-0" or an
// optional "-" (signed types only) and digits that do not start with "0", within T's range.
template <typename T>
inline bool read_decimal_token(const char* token, std::size_t length, T& value) {
  static_assert(std::is_integral<T>::value && sizeof(T) <= 8, "integer tokens only");
  // One digit more than every value of T has; the range is checked after.
  constexpr std::size_t max_digits = std::numeric_limits<T>::digits10 + 1;
  std::size_t i = 0;
  bool negative = false;
  if (std::is_signed<T>::value && length > 1 && token[0] == '-') {
    negative = true;
    i = 1;
  }
  const std::size_t digits = length - i;
  if (digits == 0 || digits > max_digits) return false;
  // Only 64-bit unsigned values reach 20 digits, and not every 20 digits fit the accumulator;
  // with as many digits on both sides, text order is number order.
  if (digits == 20 && std::memcmp(token + i, "18446744073709551615", 20) > 0) return false;
  if (token[i] == '0') {
    // A leading "0" selects octal for the generic parser; a lone one is 0 either way.
    if (digits > 1) return false;
    value = 0;
    return true;
  }
  std::uint64_t magnitude = 0;
  std::uint32_t block = 0;
  while (length - i >= 8 && generic::convert::_private::eight_digits(token + i, block)) {
    magnitude = magnitude * 100000000u + block;
    i += 8;
  }
  if (length - i >= 4 && generic::convert::_private::four_digits(token + i, block)) {
    magnitude = magnitude * 10000u + block;
    i += 4;
  }
  for (; i < length; ++i) {
    const unsigned int digit = static_cast<unsigned char>(token[i]) - 48u;
    if (digit > 9) return false;
    magnitude = magnitude * 10 + digit;
  }
  const std::uint64_t bound =
      static_cast<std::uint64_t>(std::numeric_limits<T>::max()) + (negative ? 1 : 0);
  if (magnitude > bound) return false;
  // Negated in unsigned arithmetic, so that T's minimum needs no signed overflow.
  value = static_cast<T>(negative ? 0 - magnitude : magnitude);
  return true;
}

}  // namespace _private
}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_PRIVATE_DECIMAL_TOKEN_HPP
