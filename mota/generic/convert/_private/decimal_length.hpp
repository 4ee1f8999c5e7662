// Not part of the public interface.
//
// The number of decimal digits of an unsigned value, so that text can be written from its far
// end or sized before it is written.
#ifndef MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP
#define MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP

namespace MOTA_2_18 {
namespace generic {
namespace convert {
namespace _private {

// 1 for 0 to 9, 2 for 10 to 99, and so on; four digits are dropped per loop.
template <typename U>
unsigned int decimal_length(U value) {
  unsigned int n = 1;
  for (;;) {
    if (value < 10) return n;
    if (value < 100) return n + 1;
    if (value < 1000) return n + 2;
    if (value < 10000) return n + 3;
    value = static_cast<U>(value / 10000);
    n += 4;
  }
}

}  // namespace _private
}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP
