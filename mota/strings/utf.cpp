#include <mota/strings/utf.hpp>

#include <mota/debug/assert.hpp>
#include <mota/strings/bom.hpp>

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

// --- ASCII runs ------------------------------------------------------------------------------
// Each copier converts the ASCII run that starts at src[i] (src[i] itself is ASCII) and moves i
// and k past it. The block loops may store a few elements beyond the run; every caller sizes
// its output so that such stores stay inside it and are overwritten afterwards.

// UTF-8 bytes to 16- or 32-bit units. Needs out to hold at least n - i + k elements.
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

// UTF-16 units below 0x80 to bytes. Stores only whole ASCII blocks.
inline void narrow_ascii_run16(const unsigned short* src, std::size_t n, std::size_t& i,
                               unsigned char* out, std::size_t& k) {
#if defined(MOTA_UTF_SSE2)
  const __m128i mask = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i zero = _mm_setzero_si128();
  while (i + 16 <= n) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i + 8));
    const __m128i any = _mm_and_si128(_mm_or_si128(a, b), mask);
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(any, zero)) != 0xFFFF) break;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k), _mm_packus_epi16(a, b));
    i += 16;
    k += 16;
  }
#else
  while (i + 4 <= n) {
    std::uint64_t w;
    std::memcpy(&w, src + i, 8);
    if (w & 0xFF80FF80FF80FF80ull) break;
    for (unsigned int j = 0; j < 4; ++j)
      out[k + j] = static_cast<unsigned char>(src[i + j]);
    i += 4;
    k += 4;
  }
#endif
  while (i < n && src[i] < 0x80)
    out[k++] = static_cast<unsigned char>(src[i++]);
}

// UTF-32 code points below 0x80 to bytes. Stores only whole ASCII blocks.
inline void narrow_ascii_run32(const wchar_t* src, std::size_t n, std::size_t& i,
                               unsigned char* out, std::size_t& k) {
#if defined(MOTA_UTF_SSE2)
  const __m128i mask = _mm_set1_epi32(static_cast<int>(0xFFFFFF80u));
  const __m128i zero = _mm_setzero_si128();
  while (i + 16 <= n) {
    const __m128i* p = reinterpret_cast<const __m128i*>(src + i);
    const __m128i a = _mm_loadu_si128(p);
    const __m128i b = _mm_loadu_si128(p + 1);
    const __m128i c = _mm_loadu_si128(p + 2);
    const __m128i d = _mm_loadu_si128(p + 3);
    const __m128i any = _mm_and_si128(_mm_or_si128(_mm_or_si128(a, b), _mm_or_si128(c, d)), mask);
    if (_mm_movemask_epi8(_mm_cmpeq_epi32(any, zero)) != 0xFFFF) break;
    const __m128i ab = _mm_packs_epi32(a, b);
    const __m128i cd = _mm_packs_epi32(c, d);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k), _mm_packus_epi16(ab, cd));
    i += 16;
    k += 16;
  }
#endif
  while (i < n && static_cast<std::uint32_t>(src[i]) < 0x80)
    out[k++] = static_cast<unsigned char>(src[i++]);
}

// --- UTF-16 source -----------------------------------------------------------------------------

// Exact UTF-8 size of well-formed UTF-16; for malformed text still an upper bound of what the
// encoder writes before it stops (a pair counts 3 + 1).
std::size_t utf8_size_of(const unsigned short* src, std::size_t n) {
  std::size_t total = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned int u = src[i];
    total += 1u + (u >= 0x80) + (u >= 0x800) - 2u * ((u & 0xFC00) == 0xDC00);
  }
  return total;
}

// Encodes UTF-16 as UTF-8 into out; false on a bad surrogate.
bool encode_utf16_as_utf8(const unsigned short* src, std::size_t n, unsigned char* out,
                          std::size_t& k) {
  std::size_t i = 0;
  while (i < n) {
    const std::uint32_t u = src[i];
    if (u < 0x80) {
      narrow_ascii_run16(src, n, i, out, k);
      continue;
    }
    if (u < 0x800) {
      out[k] = static_cast<unsigned char>(0xC0 | (u >> 6));
      out[k + 1] = static_cast<unsigned char>(0x80 | (u & 0x3F));
      k += 2;
      ++i;
    } else if (u < 0xD800 || u >= 0xE000) {
      out[k] = static_cast<unsigned char>(0xE0 | (u >> 12));
      out[k + 1] = static_cast<unsigned char>(0x80 | ((u >> 6) & 0x3F));
      out[k + 2] = static_cast<unsigned char>(0x80 | (u & 0x3F));
      k += 3;
      ++i;
    } else {
      if (u >= 0xDC00 || i + 1 >= n || !is_low_surrogate(src[i + 1])) return false;
      const std::uint32_t cp = combine_pair(u, src[i + 1]);
      out[k] = static_cast<unsigned char>(0xF0 | (cp >> 18));
      out[k + 1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
      out[k + 2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
      out[k + 3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
      k += 4;
      i += 2;
    }
  }
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
    const unsigned int used = decode_utf8(src + i, n - i, cp);
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
    const unsigned int used = decode_utf8(src + i, n - i, cp);
    if (used == 0) {
      out[k++] = static_cast<wchar_t>(replacement);
      ++i;
    } else {
      out[k++] = static_cast<wchar_t>(cp);
      i += used;
    }
  }
  output.resize(k);
  return output;
}

ustring8 utf16_to_utf8(const ustring16& text) {
  const unsigned short* src = text.data();
  const std::size_t n = text.size();
  ustring16 swapped;
  if (n != 0 && src[0] == swapped_bom) {
    swapped = swap_string_bytes_order(text);
    src = swapped.data();
  }
  // Sized exactly rather than at four bytes per unit: less to clear and no slack kept.
  ustring8 output;
  output.resize(utf8_size_of(src, n));
  std::size_t k = 0;
  if (!encode_utf16_as_utf8(src, n, reinterpret_cast<unsigned char*>(&output[0]), k))
    return failure8();
  MOTA_ASSERT(k <= output.size());
  output.resize(k);
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
  wchar_t* out = &output[0];
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < n) {
#if defined(MOTA_UTF_SSE2)
    // Runs without surrogates widen eight units at a time; k never passes i, so the stores
    // stay inside the output.
    const __m128i zero = _mm_setzero_si128();
    const __m128i mask = _mm_set1_epi16(static_cast<short>(0xF800));
    const __m128i surrogate = _mm_set1_epi16(static_cast<short>(0xD800));
    while (i + 8 <= n) {
      const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i));
      if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(v, mask), surrogate)) != 0) break;
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k), _mm_unpacklo_epi16(v, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + k + 4), _mm_unpackhi_epi16(v, zero));
      i += 8;
      k += 8;
    }
    if (i >= n) break;
#endif
    const std::uint32_t u = src[i];
    if (u < 0xD800 || u >= 0xE000) {
      out[k++] = static_cast<wchar_t>(u);
      ++i;
    } else {
      if (u >= 0xDC00 || i + 1 >= n || !is_low_surrogate(src[i + 1])) return failure32();
      out[k++] = static_cast<wchar_t>(combine_pair(u, src[i + 1]));
      i += 2;
    }
  }
  output.resize(k);
  return output;
}

ustring8 utf32_to_utf8(const ustring32& text) {
  const wchar_t* src = text.data();
  const std::size_t n = text.size();
  // First pass: exact size, and any surrogate fails the whole text.
  std::size_t total = 0;
  std::uint32_t surrogates = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint32_t cp = static_cast<std::uint32_t>(src[i]);
    surrogates |= static_cast<std::uint32_t>((cp & 0xFFFFF800u) == 0xD800);
    total += (1u + (cp >= 0x80) + (cp >= 0x800) + (cp >= 0x10000)) * (cp <= 0x10FFFF);
  }
  if (surrogates != 0) return failure8();
  ustring8 output;
  output.resize(total);
  unsigned char* out = reinterpret_cast<unsigned char*>(&output[0]);
  std::size_t i = 0;
  std::size_t k = 0;
  while (i < n) {
    const std::uint32_t cp = static_cast<std::uint32_t>(src[i]);
    if (cp < 0x80) {
      narrow_ascii_run32(src, n, i, out, k);
      continue;
    }
    ++i;
    if (cp < 0x800) {
      out[k] = static_cast<unsigned char>(0xC0 | (cp >> 6));
      out[k + 1] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
      k += 2;
    } else if (cp < 0x10000) {
      out[k] = static_cast<unsigned char>(0xE0 | (cp >> 12));
      out[k + 1] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
      out[k + 2] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
      k += 3;
    } else if (cp <= 0x10FFFF) {
      out[k] = static_cast<unsigned char>(0xF0 | (cp >> 18));
      out[k + 1] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
      out[k + 2] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
      out[k + 3] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
      k += 4;
    }
    // Above 0x10FFFF: dropped.
  }
  return output;
}

ustring16 utf32_to_utf16(const ustring32& text) {
  const wchar_t* src = text.data();
  const std::size_t n = text.size();
  // First pass: exact size; a surrogate or a value above 0x10FFFF fails the whole text. The
  // comparisons are on the signed value, so a negative one is stored as one (cut) unit.
  std::size_t total = n;
  for (std::size_t i = 0; i < n; ++i) {
    const std::int32_t cp = static_cast<std::int32_t>(src[i]);
    if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) return failure16();
    total += (cp >= 0xFFFF);
  }
  ustring16 output;
  output.resize(total);
  unsigned short* out = &output[0];
  std::size_t k = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::int32_t cp = static_cast<std::int32_t>(src[i]);
    if (cp < 0xFFFF) {
      out[k++] = static_cast<unsigned short>(cp);
    } else {
      // The library's own pairing: no 0x10000 is subtracted before the split (intended).
      out[k] = static_cast<unsigned short>((cp >> 10) + 0xD800);
      out[k + 1] = static_cast<unsigned short>(0xDC00 | (cp & 0x3FF));
      k += 2;
    }
  }
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
