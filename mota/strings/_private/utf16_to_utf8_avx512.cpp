#include <mota/strings/_private/utf16_to_utf8_avx512.hpp>

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
// GCC 12 takes the deliberately undefined source of the AVX-512 broadcasts in its own header for
// an uninitialised variable once they are inlined here.
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>
#define MOTA_UTF_AVX512 1
#endif

namespace MOTA_2_18 {
namespace strings {
namespace _private {

#if defined(MOTA_UTF_AVX512)

bool avx512_encoder_available() {
  static const bool available = __builtin_cpu_supports("avx512f") &&
                                __builtin_cpu_supports("avx512bw") &&
                                __builtin_cpu_supports("avx512vbmi2");
  return available;
}

// Only a processor with these instructions runs the kernel, so its lines are left out of the
// coverage figure, which must not depend on the machine measuring it; its test compares it with
// the plain encoder wherever it runs.
// GCOVR_EXCL_START
__attribute__((target("avx512f,avx512bw,avx512vbmi2"))) bool encode_blocks_avx512(
    const unsigned short* src, std::size_t n, unsigned char* out, std::size_t& written,
    std::size_t& consumed) {
  const __m512i surrogate_bits = _mm512_set1_epi32(0xFC00);
  const __m512i high_tag = _mm512_set1_epi32(0xD800);
  const __m512i low_tag = _mm512_set1_epi32(0xDC00);
  const __m512i six_bits = _mm512_set1_epi32(0x3F);
  // Byte k of every lane holds k: a lane's byte is written when k is below the lane's length.
  const __m512i byte_index = _mm512_set1_epi32(0x03020100);
  const __m512i lengths_to_bytes = _mm512_set1_epi32(0x01010101);
  unsigned char* d = out + written;
  std::size_t i = 0;
  __m512i before = _mm512_setzero_si512();  // the previous block's units; none at the start
  // Each store writes 64 bytes; with more than block_reserve units left the output has room
  // for them, and the unit after the block (read as `next`) exists.
  while (n - i > block_reserve) {
    const __m512i u =
        _mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + i)));
    const __m512i next =
        _mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + i + 1)));
    const __m512i prev = _mm512_alignr_epi32(u, before, 15);
    before = u;

    const __m512i kind = _mm512_and_si512(u, surrogate_bits);
    const __mmask16 high = _mm512_cmpeq_epi32_mask(kind, high_tag);
    const __mmask16 low = _mm512_cmpeq_epi32_mask(kind, low_tag);
    const __mmask16 next_low =
        _mm512_cmpeq_epi32_mask(_mm512_and_si512(next, surrogate_bits), low_tag);
    const __mmask16 prev_high =
        _mm512_cmpeq_epi32_mask(_mm512_and_si512(prev, surrogate_bits), high_tag);
    if (((high & ~next_low) | (low & ~prev_high)) != 0) return false;

    const __mmask16 one_byte = _mm512_cmplt_epu32_mask(u, _mm512_set1_epi32(0x80));
    const __mmask16 two_bytes = _mm512_cmplt_epu32_mask(u, _mm512_set1_epi32(0x800));

    // Continuation bytes: 0x80 with six bits of the value.
    const __m512i last6 = _mm512_or_si512(_mm512_and_si512(u, six_bits), _mm512_set1_epi32(0x80));
    const __m512i mid6 = _mm512_or_si512(_mm512_and_si512(_mm512_srli_epi32(u, 6), six_bits),
                                         _mm512_set1_epi32(0x80));
    // Three bytes: 0xE0 | u >> 12, then the middle and last six bits.
    __m512i word =
        _mm512_or_si512(_mm512_or_si512(_mm512_srli_epi32(u, 12), _mm512_set1_epi32(0xE0)),
                        _mm512_or_si512(_mm512_slli_epi32(mid6, 8), _mm512_slli_epi32(last6, 16)));
    // Two bytes: 0xC0 | u >> 6, then the last six bits.
    word = _mm512_mask_mov_epi32(
        word, two_bytes,
        _mm512_or_si512(_mm512_or_si512(_mm512_srli_epi32(u, 6), _mm512_set1_epi32(0xC0)),
                        _mm512_slli_epi32(last6, 8)));
    word = _mm512_mask_mov_epi32(word, one_byte, u);
    // A high surrogate: the code point shifted right by 10 is (u & 0x3FF) + 0x40; its top
    // three bits after 0xF0, then its next six bits.
    const __m512i top =
        _mm512_add_epi32(_mm512_and_si512(u, _mm512_set1_epi32(0x3FF)), _mm512_set1_epi32(0x40));
    word = _mm512_mask_mov_epi32(
        word, high,
        _mm512_or_si512(
            _mm512_or_si512(_mm512_srli_epi32(top, 8), _mm512_set1_epi32(0xF0)),
            _mm512_slli_epi32(_mm512_or_si512(_mm512_and_si512(_mm512_srli_epi32(top, 2), six_bits),
                                              _mm512_set1_epi32(0x80)),
                              8)));
    // A low surrogate: the high unit's last two bits and four of its own, then its last six.
    const __m512i third = _mm512_or_si512(
        _mm512_or_si512(_mm512_slli_epi32(_mm512_and_si512(prev, _mm512_set1_epi32(3)), 4),
                        _mm512_and_si512(_mm512_srli_epi32(u, 6), _mm512_set1_epi32(0xF))),
        _mm512_set1_epi32(0x80));
    word = _mm512_mask_mov_epi32(word, low, _mm512_or_si512(third, _mm512_slli_epi32(last6, 8)));

    __m512i length = _mm512_set1_epi32(3);
    length = _mm512_mask_mov_epi32(length, two_bytes | high | low, _mm512_set1_epi32(2));
    length = _mm512_mask_mov_epi32(length, one_byte, _mm512_set1_epi32(1));
    const __mmask64 keep =
        _mm512_cmplt_epu8_mask(byte_index, _mm512_mullo_epi32(length, lengths_to_bytes));
    _mm512_storeu_si512(d, _mm512_maskz_compress_epi8(keep, word));
    d += __builtin_popcountll(keep);
    i += 16;
  }
  // A block that ends with a high surrogate has written its two bytes of the pair; take them
  // back so that the pair is encoded whole by whoever goes on.
  if (i != 0 && (src[i - 1] & 0xFC00) == 0xD800) {
    --i;
    d -= 2;
  }
  written = static_cast<std::size_t>(d - out);
  consumed = i;
  return true;
}
// GCOVR_EXCL_STOP

#else

bool avx512_encoder_available() {
  return false;
}

bool encode_blocks_avx512(const unsigned short*, std::size_t, unsigned char*, std::size_t&,
                          std::size_t& consumed) {
  consumed = 0;
  return true;
}

#endif

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18
