#include <mota/strings/utf.hpp>

#include <mota/debug/assert.hpp>
#include <mota/strings/_private/utf16_to_utf8_avx512.hpp>
#include <mota/strings/_private/utf16_to_utf8_units.hpp>
#include <mota/strings/bom.hpp>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <cwchar>

#if defined(__SSE2__)
#include <emmintrin.h>
#define MOTA_UTF_SSE2 1
#endif

namespace MOTA_2_18 {
namespace strings {

namespace {

constexpr std::uint32_t replacement = 63;  // "?"
constexpr unsigned int failed_count = 0xFFFFFFFFu;

// Byte-swapped UTF-16 starts with this unit.
constexpr unsigned short swapped_bom = 0xFFFE;

inline bool is_continuation(unsigned char b) {
  return (b & 0xC0) == 0x80;
}
inline bool is_high_surrogate(std::uint32_t u) {
  return (u & 0xFC00) == 0xD800;
}
inline bool is_low_surrogate(std::uint32_t u) {
  return (u & 0xFC00) == 0xDC00;
}

// The pair formula of the decoders: (high << 10) + low - 0x35FDC00 is the standard
// 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00).
inline std::uint32_t combine_pair(std::uint32_t high, std::uint32_t low) {
  return (high << 10) + low - 0x35FDC00u;
}

// Decodes the UTF-8 character at p, with `r` (at least 1) bytes available. Returns the bytes
// it spans, or 0 when it cannot be decoded; overlong forms and surrogates pass.
inline unsigned int decode_utf8(const unsigned char* p, std::size_t r, std::uint32_t& cp) {
  const std::uint32_t b0 = p[0];
  if (b0 < 0x80) {
    cp = b0;
    return 1;
  }
  if (b0 < 0xC0) return 0;
  if (b0 < 0xE0) {
    if (r < 2 || !is_continuation(p[1])) return 0;
    cp = ((b0 & 0x1F) << 6) | (p[1] & 0x3Fu);
    return 2;
  }
  if (b0 < 0xF0) {
    if (r < 3 || !is_continuation(p[1]) || !is_continuation(p[2])) return 0;
    cp = ((b0 & 0x0F) << 12) | ((p[1] & 0x3Fu) << 6) | (p[2] & 0x3Fu);
    return 3;
  }
  if (b0 < 0xF8) {
    if (r < 4 || !is_continuation(p[1]) || !is_continuation(p[2]) || !is_continuation(p[3]))
      return 0;
    cp = ((b0 & 0x07) << 18) | ((p[1] & 0x3Fu) << 12) | ((p[2] & 0x3Fu) << 6) | (p[3] & 0x3Fu);
    return 4;
  }
  return 0;
}

ustring8 failure8() {
  return ustring8("-1");
}

ustring16 failure16() {
  ustring16 result;
  result.push_back(static_cast<unsigned short>('-'));
  result.push_back(static_cast<unsigned short>('1'));
  return result;
}

ustring32 failure32() {
  return ustring32(L"-1");
}

// --- block helpers ---------------------------------------------------------------------------
// Runs of plain elements (ASCII, or units without surrogates) go through SSE2 blocks (64-bit
// words or plain loops without SSE2); everything else element by element.

inline void store16(unsigned char* out, std::uint32_t v) {
  const std::uint16_t w = static_cast<std::uint16_t>(v);
  std::memcpy(out, &w, 2);
}
inline void store32(unsigned char* out, std::uint32_t v) {
  std::memcpy(out, &v, 4);
}

// The encoders build the bytes of a character into a word, first byte lowest, and store the
// word whole: that needs a little-endian machine (every x86 target is one).
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "word stores expect little-endian");

inline std::uint32_t utf8_word_supplementary(std::uint32_t cp) {
  return (0xF0 | (cp >> 18)) | ((0x80 | ((cp >> 12) & 0x3F)) << 8) |
         ((0x80 | ((cp >> 6) & 0x3F)) << 16) | ((0x80 | (cp & 0x3F)) << 24);
}

// Length of the run of units below 0x80 at the start.
inline std::size_t ascii_prefix(const unsigned short* src, std::size_t n) {
  std::size_t i = 0;
#if defined(MOTA_UTF_SSE2)
  const __m128i mask = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  while (i + 16 <= n) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i + 8));
    const __m128i any = _mm_and_si128(_mm_or_si128(a, b), mask);
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(any, zero)) != 0xFFFF) break;
    i += 16;
  }
#endif
  while (i < n && src[i] < 0x80)
    ++i;
  return i;
}

inline std::size_t ascii_prefix(const wchar_t* src, std::size_t n) {
  std::size_t i = 0;
#if defined(MOTA_UTF_SSE2)
  const __m128i mask = _mm_set1_epi32(static_cast<int>(0xFFFFFF80u));
  const __m128i zero = _mm_setzero_si128();
  while (i + 16 <= n) {
    const __m128i* p = reinterpret_cast<const __m128i*>(src + i);
    const __m128i any =
        _mm_and_si128(_mm_or_si128(_mm_or_si128(_mm_loadu_si128(p), _mm_loadu_si128(p + 1)),
                                   _mm_or_si128(_mm_loadu_si128(p + 2), _mm_loadu_si128(p + 3))),
                      mask);
    if (_mm_movemask_epi8(_mm_cmpeq_epi32(any, zero)) != 0xFFFF) break;
    i += 16;
  }
#endif
  while (i < n && static_cast<std::uint32_t>(src[i]) < 0x80)
    ++i;
  return i;
}

// Narrows `count` units or code points known to be below 0x80.
template <typename Unit>
inline void narrow_ascii(const Unit* src, std::size_t count, unsigned char* out) {
  std::size_t i = 0;
#if defined(MOTA_UTF_SSE2)
  for (; i + 16 <= count; i += 16) {
    const __m128i* p = reinterpret_cast<const __m128i*>(src + i);
    __m128i packed;
    if (sizeof(Unit) == 2) {
      packed = _mm_packus_epi16(_mm_loadu_si128(p), _mm_loadu_si128(p + 1));
    } else {
      const __m128i ab = _mm_packs_epi32(_mm_loadu_si128(p), _mm_loadu_si128(p + 1));
      const __m128i cd = _mm_packs_epi32(_mm_loadu_si128(p + 2), _mm_loadu_si128(p + 3));
      packed = _mm_packus_epi16(ab, cd);
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), packed);
  }
#endif
  for (; i < count; ++i)
    out[i] = static_cast<unsigned char>(src[i]);
}

// True when the 16 units at src are all below 0x80.
inline bool ascii_block(const unsigned short* src) {
#if defined(MOTA_UTF_SSE2)
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + 8));
  const __m128i any = _mm_and_si128(_mm_or_si128(a, b), _mm_set1_epi16(static_cast<short>(0xFF80)));
  return _mm_movemask_epi8(_mm_cmpeq_epi16(any, _mm_setzero_si128())) == 0xFFFF;
#else
  unsigned int any = 0;
  for (unsigned int j = 0; j < 16; ++j)
    any |= src[j];
  return any < 0x80;
#endif
}

inline bool ascii_block(const wchar_t* src) {
#if defined(MOTA_UTF_SSE2)
  const __m128i* p = reinterpret_cast<const __m128i*>(src);
  const __m128i any =
      _mm_and_si128(_mm_or_si128(_mm_or_si128(_mm_loadu_si128(p), _mm_loadu_si128(p + 1)),
                                 _mm_or_si128(_mm_loadu_si128(p + 2), _mm_loadu_si128(p + 3))),
                    _mm_set1_epi32(static_cast<int>(0xFFFFFF80u)));
  return _mm_movemask_epi8(_mm_cmpeq_epi32(any, _mm_setzero_si128())) == 0xFFFF;
#else
  std::uint32_t any = 0;
  for (unsigned int j = 0; j < 16; ++j)
    any |= static_cast<std::uint32_t>(src[j]);
  return any < 0x80;
#endif
}

// UTF-8 bytes to 16- or 32-bit units: converts the ASCII run at src[i] and moves i and k past
// it. The block loop stores all 16 elements of a block before it knows where the run ends;
// the caller's output holds at least n - i + k elements (k never passes i), so those stores
// stay inside it and the elements past the run are overwritten afterwards.
template <typename Unit>
inline void widen_ascii_run(const unsigned char* src, std::size_t n, std::size_t& i, Unit* out,
                            std::size_t& k) {
#if defined(MOTA_UTF_SSE2)
  const __m128i zero = _mm_setzero_si128();
  while (i + 16 <= n) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i));
    const unsigned int high = static_cast<unsigned int>(_mm_movemask_epi8(v));
    const __m128i lo = _mm_unpacklo_epi8(v, zero);
    const __m128i hi = _mm_unpackhi_epi8(v, zero);
    if (sizeof(Unit) == 2) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k), lo);
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k + 8), hi);
    } else {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k), _mm_unpacklo_epi16(lo, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k + 4), _mm_unpackhi_epi16(lo, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k + 8), _mm_unpacklo_epi16(hi, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k + 12), _mm_unpackhi_epi16(hi, zero));
    }
    if (high != 0) {
      const unsigned int run = static_cast<unsigned int>(__builtin_ctz(high));
      i += run;
      k += run;
      return;
    }
    i += 16;
    k += 16;
  }
#else
  while (i + 8 <= n) {
    std::uint64_t w;
    std::memcpy(&w, src + i, 8);
    if (w & 0x8080808080808080ull) break;
    for (unsigned int j = 0; j < 8; ++j)
      out[k + j] = static_cast<Unit>(src[i + j]);
    i += 8;
    k += 8;
  }
#endif
  while (i < n && src[i] < 0x80)
    out[k++] = static_cast<Unit>(src[i++]);
}

// Decodes the UTF-8 character at p like decode_utf8, testing lead and continuation bytes of a
// sequence with one mask when four bytes are at hand.
inline unsigned int decode_utf8_fast(const unsigned char* p, std::size_t r, std::uint32_t& cp) {
  if (r < 4) return decode_utf8(p, r, cp);
  const std::uint32_t w =
      static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
      (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
  if ((w & 0xC0C0F0u) == 0x8080E0u) {
    cp = ((w & 0x0F) << 12) | ((w >> 2) & 0xFC0) | ((w >> 16) & 0x3F);
    return 3;
  }
  if ((w & 0xC0E0u) == 0x80C0u) {
    cp = ((w & 0x1F) << 6) | ((w >> 8) & 0x3F);
    return 2;
  }
  if ((w & 0xC0C0C0F8u) == 0x808080F0u) {
    cp = ((w & 0x07) << 18) | ((w << 4) & 0x3F000) | ((w >> 10) & 0xFC0) | ((w >> 24) & 0x3F);
    return 4;
  }
  if (p[0] < 0x80) {
    cp = p[0];
    return 1;
  }
  return 0;
}

// --- UTF-16 source -----------------------------------------------------------------------------

// The UTF-8 encoders size their output for the worst case; a result that uses less than half
// of it gives the rest back rather than keep it for the string's lifetime.
inline void release_slack(ustring8& output) {
  if (output.capacity() > 2 * output.size() + 64) output.shrink_to_fit();
}

// Encodes UTF-16 as UTF-8 into out, which holds three bytes per unit plus one, so that whole
// words can be stored; false on a bad surrogate.
bool encode_utf16_as_utf8(const unsigned short* src, std::size_t n, unsigned char* out,
                          std::size_t& written) {
  if (n > _private::block_reserve && _private::avx512_encoder_available()) {
    std::size_t consumed = 0;
    if (!_private::encode_blocks_avx512(src, n, out, written, consumed)) return false;
    src += consumed;
    n -= consumed;
  }
  unsigned char* d = out + written;
  const unsigned short* p = src;
  const unsigned short* const end = src + n;
  while (end - p >= 2) {
    // At every 32-byte boundary an ASCII unit may start a run of whole ASCII blocks; testing at
    // each unit would cost more than it saves in mixed text.
    if ((reinterpret_cast<std::uintptr_t>(p) & 31) == 0 && *p < 0x80) {
      while (end - p >= 16 && ascii_block(p)) {
        narrow_ascii(p, 16, d);
        p += 16;
        d += 16;
      }
      if (end - p < 2) break;
    }
    if (!_private::encode_unit_branchless(p, d)) return false;
  }
  std::size_t k = static_cast<std::size_t>(d - out);
  if (!_private::encode_units_plain(p, static_cast<std::size_t>(end - p), out, k)) return false;
  written = k;
  return true;
}

}  // namespace

// --- one character -----------------------------------------------------------------------------

std::uint32_t unichar(const char* data, unsigned int size, unsigned int index,
                      unsigned int& count) {
  std::uint32_t cp = replacement;
  const unsigned int n =
      (data == nullptr || index >= size)
          ? 0
          : decode_utf8(reinterpret_cast<const unsigned char*>(data) + index, size - index, cp);
  if (n == 0) {
    count = failed_count;
    return replacement;
  }
  count = n;
  return cp;
}

std::uint32_t unichar(const unsigned short* data, unsigned int size, unsigned int index,
                      unsigned int& count) {
  if (data != nullptr && index < size) {
    const std::uint32_t u = data[index];
    if (u < 0xD800 || u >= 0xE000) {
      count = 1;
      return u;
    }
    if (u < 0xDC00 && size - index >= 2 && is_low_surrogate(data[index + 1])) {
      count = 2;
      return combine_pair(u, data[index + 1]);
    }
  }
  count = failed_count;
  return replacement;
}

std::uint32_t unichar(const wchar_t* data, unsigned int size, unsigned int index,
                      unsigned int& count) {
  if (data == nullptr || index >= size) {
    count = failed_count;
    return replacement;
  }
  count = 1;
  return static_cast<std::uint32_t>(data[index]);
}

// --- whole strings -----------------------------------------------------------------------------

ustring16 utf8_to_utf16(const ustring8& text) {
  const unsigned char* src = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t n = text.size();
  // Every unit comes from at least one byte, a pair from four.
  ustring16 output;
  output.resize(n);
  unsigned short* out = &output[0];
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < n) {
    if (src[i] < 0x80) {
      widen_ascii_run(src, n, i, out, k);
      continue;
    }
    std::uint32_t cp = 0;
    const unsigned int used = decode_utf8_fast(src + i, n - i, cp);
    if (used == 0) return failure16();
    i += used;
    if (cp < 0x10000) {
      out[k++] = static_cast<unsigned short>(cp);
    } else {
      out[k] = static_cast<unsigned short>(0xD800 + ((cp - 0x10000) >> 10));
      out[k + 1] = static_cast<unsigned short>(0xDC00 + (cp & 0x3FF));
      k += 2;
    }
  }
  output.resize(k);
  return output;
}

ustring32 utf8_to_utf32(const ustring8& text) {
  const unsigned char* src = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t n = text.size();
  ustring32 output;
  output.resize(n);
  wchar_t* out = &output[0];
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < n) {
    if (src[i] < 0x80) {
      widen_ascii_run(src, n, i, out, k);
      continue;
    }
    std::uint32_t cp = replacement;
    const unsigned int used = decode_utf8_fast(src + i, n - i, cp);
    // An undecodable byte becomes the replacement and decoding resumes at the next byte.
    out[k++] = static_cast<wchar_t>(used == 0 ? replacement : cp);
    i += used == 0 ? 1 : used;
  }
  output.resize(k);
  return output;
}

// Up to this many units utf16_to_utf8 works in a buffer on the stack.
constexpr std::size_t short_text_units = 64;

ustring8 utf16_to_utf8(const ustring16& text) {
  const unsigned short* src = text.data();
  const std::size_t n = text.size();
  ustring16 swapped;
  if (n != 0 && src[0] == swapped_bom) {
    swapped = swap_string_bytes_order(text);
    src = swapped.data();
  }
  if (n <= short_text_units) {
    // Short text is encoded on the stack and copied once at its exact length, which needs no
    // allocation at all when it fits the string's own small buffer.
    unsigned char bytes[3 * short_text_units + 1];
    std::size_t k = 0;
    if (!encode_utf16_as_utf8(src, n, bytes, k)) return failure8();
    MOTA_ASSERT(k <= sizeof bytes);
    return ustring8(std::string(reinterpret_cast<const char*>(bytes), k));
  }
  // An ASCII prefix takes one byte per unit; every other unit at most three (a pair four for
  // two units). One spare byte lets the encoder store whole words.
  const std::size_t ascii = ascii_prefix(src, n);
  ustring8 output;
  output.resize(ascii + 3 * (n - ascii) + 1);
  unsigned char* out = reinterpret_cast<unsigned char*>(&output[0]);
  narrow_ascii(src, ascii, out);
  std::size_t k = ascii;
  if (!encode_utf16_as_utf8(src + ascii, n - ascii, out, k)) return failure8();
  MOTA_ASSERT(k <= output.size());
  output.resize(k);
  release_slack(output);
  return output;
}

ustring32 utf16_to_utf32(const ustring16& text) {
  const unsigned short* src = text.data();
  const std::size_t n = text.size();
  ustring16 swapped;
  if (n != 0 && src[0] == swapped_bom) {
    swapped = swap_string_bytes_order(text);
    src = swapped.data();
  }
  ustring32 output;
  output.resize(n);
  wchar_t* const out = &output[0];
  wchar_t* d = out;
  const unsigned short* p = src;
  const unsigned short* const end = src + n;
  while (p < end) {
#if defined(MOTA_UTF_SSE2)
    // At every 16-byte boundary a run of blocks of eight units without surrogates widens at
    // once; d never passes the matching input position, so the stores stay inside the output.
    if ((reinterpret_cast<std::uintptr_t>(p) & 15) == 0) {
      const __m128i zero = _mm_setzero_si128();
      const __m128i mask = _mm_set1_epi16(static_cast<short>(0xF800));
      const __m128i surrogate = _mm_set1_epi16(static_cast<short>(0xD800));
      while (end - p >= 8) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(v, mask), surrogate)) != 0) break;
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm_unpacklo_epi16(v, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + 4), _mm_unpackhi_epi16(v, zero));
        p += 8;
        d += 8;
      }
      if (p == end) break;
    }
#endif
    const std::uint32_t u = *p;
    if (u < 0xD800 || u >= 0xE000) {
      *d++ = static_cast<wchar_t>(u);
      ++p;
    } else {
      if (u >= 0xDC00 || end - p < 2 || !is_low_surrogate(p[1])) return failure32();
      *d++ = static_cast<wchar_t>(combine_pair(u, p[1]));
      p += 2;
    }
  }
  output.resize(static_cast<std::size_t>(d - out));
  return output;
}

ustring8 utf32_to_utf8(const ustring32& text) {
  const wchar_t* src = text.data();
  const std::size_t n = text.size();
  // An ASCII prefix takes one byte per code point, every other one at most four.
  const std::size_t ascii = ascii_prefix(src, n);
  ustring8 output;
  output.resize(ascii + 4 * (n - ascii));
  unsigned char* out = reinterpret_cast<unsigned char*>(&output[0]);
  narrow_ascii(src, ascii, out);
  const wchar_t* p = src + ascii;
  const wchar_t* const end = src + n;
  unsigned char* d = out + ascii;
  while (p < end) {
    // At every 64-byte boundary an ASCII code point may start a run of whole ASCII blocks.
    if ((reinterpret_cast<std::uintptr_t>(p) & 63) == 0 && static_cast<std::uint32_t>(*p) < 0x80) {
      while (end - p >= 16 && ascii_block(p)) {
        narrow_ascii(p, 16, d);
        p += 16;
        d += 16;
      }
      if (p == end) break;
    }
    // d + 4 never passes the size here (at most four bytes per code point), so whole words can
    // be stored.
    const std::uint32_t cp = static_cast<std::uint32_t>(*p++);
    if (cp < 0x800) {
      // One or two bytes, chosen without a branch: mixed Latin text alternates unpredictably.
      const std::uint32_t two = (0xC0 | (cp >> 6)) | ((0x80 | (cp & 0x3F)) << 8);
      const std::uint32_t wide = cp >= 0x80;
      const std::uint32_t mask = 0u - wide;
      store16(d, (cp & ~mask) | (two & mask));
      d += 1 + wide;
    } else if (cp < 0x10000) {
      if ((cp & 0xF800) == 0xD800) return failure8();
      store32(d, (0xE0 | (cp >> 12)) | ((0x80 | ((cp >> 6) & 0x3F)) << 8) |
                     ((0x80 | (cp & 0x3F)) << 16));
      d += 3;
    } else {
      // Above 0x10FFFF the code point is dropped: the word is stored but not kept.
      store32(d, utf8_word_supplementary(cp));
      d += cp <= 0x10FFFF ? 4 : 0;
    }
  }
  const std::size_t k = static_cast<std::size_t>(d - out);
  output.resize(k);
  release_slack(output);
  return output;
}

namespace {

#if defined(MOTA_UTF_SSE2)
// True when the eight code points at src all lie in 0..0xD7FF (one unit each, no check due).
inline bool plain_bmp_block(const wchar_t* src, __m128i& a, __m128i& b) {
  const __m128i* p = reinterpret_cast<const __m128i*>(src);
  a = _mm_loadu_si128(p);
  b = _mm_loadu_si128(p + 1);
  const __m128i limit = _mm_set1_epi32(0xD800);
  const __m128i below = _mm_set1_epi32(-1);
  const __m128i ok =
      _mm_and_si128(_mm_and_si128(_mm_cmplt_epi32(a, limit), _mm_cmpgt_epi32(a, below)),
                    _mm_and_si128(_mm_cmplt_epi32(b, limit), _mm_cmpgt_epi32(b, below)));
  return _mm_movemask_epi8(ok) == 0xFFFF;
}

// Stores the eight code points of a plain block as units (biased by 0x8000 for the signed
// pack).
inline void store_plain_bmp_block(unsigned short* out, __m128i a, __m128i b) {
  const __m128i bias = _mm_set1_epi32(0x8000);
  const __m128i packed = _mm_packs_epi32(_mm_sub_epi32(a, bias), _mm_sub_epi32(b, bias));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(out),
                   _mm_add_epi16(packed, _mm_set1_epi16(static_cast<short>(0x8000))));
}
#endif

}  // namespace

ustring16 utf32_to_utf16(const ustring32& text) {
  const wchar_t* src = text.data();
  const std::size_t n = text.size();
  // The leading run of code points below 0xD800 takes one unit each; the rest is checked and
  // its pairs counted first, so that the output is sized once. The comparisons are on the
  // signed value, so a negative one is stored as one (cut) unit.
  std::size_t plain = 0;
#if defined(MOTA_UTF_SSE2)
  __m128i a;
  __m128i b;
  while (plain + 8 <= n && plain_bmp_block(src + plain, a, b))
    plain += 8;
#endif
  std::size_t pairs = 0;
  bool bad = false;
  for (std::size_t i = plain; i < n; ++i) {
    const std::int32_t cp = static_cast<std::int32_t>(src[i]);
    bad |= (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF;
    pairs += cp >= 0xFFFF;
  }
  if (bad) return failure16();
  ustring16 output;
  output.resize(n + pairs + 1);  // one spare unit: both units of a pair are always stored
  unsigned short* out = &output[0];
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < n) {
#if defined(MOTA_UTF_SSE2)
    if (i + 8 <= n && plain_bmp_block(src + i, a, b)) {
      store_plain_bmp_block(out + k, a, b);
      i += 8;
      k += 8;
      continue;
    }
#endif
    const std::size_t block_end = std::min(n, i + 8);
    for (; i < block_end; ++i) {
      const std::uint32_t cp = static_cast<std::uint32_t>(src[i]);
      const std::uint32_t pair = static_cast<std::int32_t>(cp) >= 0xFFFF;
      const std::uint32_t mask = 0u - pair;
      // The library's own pairing: no 0x10000 is subtracted before the split (intended).
      out[k] = static_cast<unsigned short>((cp & ~mask) | (((cp >> 10) + 0xD800) & mask));
      out[k + 1] = static_cast<unsigned short>(0xDC00 | (cp & 0x3FF));
      k += 1 + pair;
    }
  }
  output.resize(k);
  return output;
}

// --- counting and indexing ---------------------------------------------------------------------

unsigned int string_length(const char* text) {
  return text == nullptr ? 0 : static_cast<unsigned int>(std::strlen(text));
}

unsigned int string_length(const unsigned short* text) {
  if (text == nullptr) return 0;
  const unsigned short* p = text;
  while (*p != 0)
    ++p;
  return static_cast<unsigned int>(p - text);
}

unsigned int string_length(const wchar_t* text) {
  return text == nullptr ? 0 : static_cast<unsigned int>(std::wcslen(text));
}

unsigned int string_length(const ustring8& text) {
  return static_cast<unsigned int>(text.size());
}
unsigned int string_length(const ustring16& text) {
  return static_cast<unsigned int>(text.size());
}
unsigned int string_length(const ustring32& text) {
  return static_cast<unsigned int>(text.size());
}

int character_index(const ustring8& text, unsigned int n) {
  const std::size_t size = text.size();
  if (n >= size) return -1;
  const unsigned char* src = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t at = 0;
  for (unsigned int c = 0; c < n; ++c) {
    if (at >= size) return -1;
    std::uint32_t cp = 0;
    const unsigned int used = decode_utf8(src + at, size - at, cp);
    if (used == 0) return -1;
    at += used;
  }
  return static_cast<int>(at);
}

int character_index(const ustring16& text, unsigned int n) {
  const std::size_t size = text.size();
  if (n >= size) return -1;
  if (n == 0) return 0;
  // Only the first unit is tested for a lone low surrogate (intended).
  if (is_low_surrogate(text[0])) return -1;
  std::size_t at = 0;
  for (unsigned int c = 0; c < n; ++c) {
    if (at >= size) return -1;
    if (is_high_surrogate(text[at])) {
      if (at + 1 >= size || !is_low_surrogate(text[at + 1])) return -1;
      at += 2;
    } else {
      ++at;
    }
  }
  return static_cast<int>(at);
}

}  // namespace strings
}  // namespace MOTA_2_18
