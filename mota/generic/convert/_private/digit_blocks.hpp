// Not part of the public interface.
//
// Decimal digits read a block at a time: eight or four bytes are loaded as one word, checked to
// be all "0" to "9" with masks, and combined into their value with three (or two) multiplies
// instead of a chain of one multiply-add per digit. Plain integer arithmetic, so every target
// runs it; the words are read least significant byte first, which every x86 target does.
#ifndef MOTA_GENERIC_CONVERT_PRIVATE_DIGIT_BLOCKS_HPP
#define MOTA_GENERIC_CONVERT_PRIVATE_DIGIT_BLOCKS_HPP

#include <cstdint>
#include <cstring>

namespace MOTA_2_18 {
namespace generic {
namespace convert {
namespace _private {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "digit blocks read little-endian words");

// True, with their value in `value`, when the eight bytes at `text` are all decimal digits.
inline bool eight_digits(const char* text, std::uint32_t& value) {
  std::uint64_t w;
  std::memcpy(&w, text, 8);
  // Each byte must be 0x30..0x39: high nibble 3, and adding 6 must not carry into it.
  if (((w & 0xF0F0F0F0F0F0F0F0ull) | ((w + 0x0606060606060606ull) & 0xF0F0F0F0F0F0F0F0ull) >> 4) !=
      0x3333333333333333ull) {
    return false;
  }
  w -= 0x3030303030303030ull;
  // Pairs, then fours, then all eight; the first byte is the most significant digit.
  w = (w * 10 + (w >> 8)) & 0x00FF00FF00FF00FFull;
  w = (w * 100 + (w >> 16)) & 0x0000FFFF0000FFFFull;
  w = (w * 10000 + (w >> 32)) & 0xFFFFFFFFull;
  value = static_cast<std::uint32_t>(w);
  return true;
}

// The same for four bytes.
inline bool four_digits(const char* text, std::uint32_t& value) {
  std::uint32_t w;
  std::memcpy(&w, text, 4);
  if (((w & 0xF0F0F0F0u) | ((w + 0x06060606u) & 0xF0F0F0F0u) >> 4) != 0x33333333u) return false;
  w -= 0x30303030u;
  w = (w * 10 + (w >> 8)) & 0x00FF00FFu;
  w = (w * 100 + (w >> 16)) & 0x0000FFFFu;
  value = w;
  return true;
}

}  // namespace _private
}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_PRIVATE_DIGIT_BLOCKS_HPP
