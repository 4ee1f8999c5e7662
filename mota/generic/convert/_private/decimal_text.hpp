// Not part of the public interface.
//
// Decimal text of an integer, written from its far end two digits at a time into an element
// buffer of char, unsigned short or wchar_t.
#ifndef MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_TEXT_HPP
#define MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_TEXT_HPP

#include <mota/generic/convert/_private/decimal_length.hpp>

#include <type_traits>

namespace MOTA_2_18 {
namespace generic {
namespace convert {
namespace _private {

// "00" to "99", two characters per pair.
inline constexpr char decimal_pairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Writes the digits of `value` and a terminating zero at `out`; returns the terminator's place.
// `out` must hold decimal_length(value) + 1 elements.
template <typename U, typename C>
inline C* write_decimal(U value, C* out) {
  C* const end = out + decimal_length(value);
  *end = 0;
  C* p = end;
  while (value >= 100) {
    const unsigned int pair = static_cast<unsigned int>(value % 100) * 2;
    value = static_cast<U>(value / 100);
    *--p = static_cast<C>(decimal_pairs[pair + 1]);
    *--p = static_cast<C>(decimal_pairs[pair]);
  }
  if (value >= 10) {
    const unsigned int pair = static_cast<unsigned int>(value) * 2;
    p[-1] = static_cast<C>(decimal_pairs[pair + 1]);
    p[-2] = static_cast<C>(decimal_pairs[pair]);
  } else {
    p[-1] = static_cast<C>('0' + static_cast<unsigned int>(value));
  }
  return end;
}

// Writes "-" when `value` is negative, then its digits and a terminating zero at `out`; returns
// the terminator's place. No branch on the sign: the "-" is always stored and then overwritten
// by the first digit of a value that is not negative. `out` must hold the digits, the sign and
// the terminator.
template <typename S, typename C>
inline C* write_signed_decimal(S value, C* out) {
  using U = std::make_unsigned_t<S>;
  const U negative = value < 0 ? 1 : 0;
  const U mask = static_cast<U>(U(0) - negative);  // all ones for a negative value
  const U magnitude = static_cast<U>((static_cast<U>(value) ^ mask) - mask);
  *out = static_cast<C>('-');
  return write_decimal(magnitude, out + negative);
}

}  // namespace _private
}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_TEXT_HPP
