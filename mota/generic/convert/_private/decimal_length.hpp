// Not part of the public interface.
//
// The number of decimal digits of an unsigned value, so that text can be written from its far
// end or sized before it is written.
#ifndef MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP
#define MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP

#include <type_traits>

namespace MOTA_2_18 {
namespace generic {
namespace convert {
namespace _private {

// 1, 10, 100, ... 10^19: the smallest value of each digit count.
inline constexpr unsigned long long powers_of_ten[20] = {1ull,
                                                         10ull,
                                                         100ull,
                                                         1000ull,
                                                         10000ull,
                                                         100000ull,
                                                         1000000ull,
                                                         10000000ull,
                                                         100000000ull,
                                                         1000000000ull,
                                                         10000000000ull,
                                                         100000000000ull,
                                                         1000000000000ull,
                                                         10000000000000ull,
                                                         100000000000000ull,
                                                         1000000000000000ull,
                                                         10000000000000000ull,
                                                         100000000000000000ull,
                                                         1000000000000000000ull,
                                                         10000000000000000000ull};

// 1 for 0 to 9, 2 for 10 to 99, and so on. No branch on the value: the bit length times
// log10(2) (1233/4096) gives the count or one less, and a compare with the power of ten
// settles which, so numbers of random length cost no mispredicted branch.
template <typename U>
unsigned int decimal_length(U value) {
  static_assert(std::is_unsigned<U>::value && sizeof(U) <= 8,
                "unsigned integers of 64 bits or less");
  if constexpr (sizeof(U) <= sizeof(unsigned int)) {
    const unsigned int v = static_cast<unsigned int>(value) | 1u;
    const unsigned int bits = 32u - static_cast<unsigned int>(__builtin_clz(v));
    const unsigned int guess = (bits * 1233u) >> 12;
    return guess + (v >= static_cast<unsigned int>(powers_of_ten[guess]) ? 1u : 0u);
  } else {
    const unsigned long long v = static_cast<unsigned long long>(value) | 1ull;
    const unsigned int bits = 64u - static_cast<unsigned int>(__builtin_clzll(v));
    const unsigned int guess = (bits * 1233u) >> 12;
    return guess + (v >= powers_of_ten[guess] ? 1u : 0u);
  }
}

}  // namespace _private
}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_PRIVATE_DECIMAL_LENGTH_HPP
