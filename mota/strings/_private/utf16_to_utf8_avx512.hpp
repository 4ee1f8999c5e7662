// Not part of the public interface.
//
// UTF-16 to UTF-8 sixteen units at a time, for processors with AVX-512 byte instructions
// (AVX512BW and VBMI2); the check is made at run time, so every build carries it and other
// processors keep the word-at-a-time encoder. Each unit is encoded on its own into a 32-bit
// lane, a surrogate too: a pair's four bytes are two from the high unit and two from the low
// one, which takes the high unit's last two bits from the lane before. The lanes' valid bytes
// are then packed together with one compress and stored at once. Gives the same bytes and the
// same failures as encode_units_plain.
#ifndef MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_AVX512_HPP
#define MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_AVX512_HPP

#include <cstddef>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

// True when this processor runs encode_blocks_avx512.
bool avx512_encoder_available();

// Encodes the units at `src` block by block while more than `block_reserve` of the `n` units
// remain, starting a fresh text (the unit before `src` pairs with nothing). Writes at
// `out + written`, which must hold three bytes per unit of `src` plus one, and adds the bytes
// written to `written`; sets `consumed` to the units encoded, never ending between the two
// units of a pair, so the rest can go to another encoder as a fresh text. False on a lone or
// misplaced surrogate among the units it looked at. Must only be called when
// avx512_encoder_available().
constexpr std::size_t block_reserve = 21;
bool encode_blocks_avx512(const unsigned short* src, std::size_t n, unsigned char* out,
                          std::size_t& written, std::size_t& consumed);

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_AVX512_HPP
