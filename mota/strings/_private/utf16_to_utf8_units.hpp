// Not part of the public interface.
//
// UTF-16 units to UTF-8 bytes, two ways that give the same bytes and the same failures:
// - encode_units_plain: one case per kind of unit, the reference;
// - encode_units_branchless (and its step, encode_unit_branchless): the one-, two- and
//   three-byte forms of a unit are all built and the right one picked with masks, then stored as
//   one word. Text that mixes ASCII, accented letters and CJK character by character makes the
//   plain loop's branches unpredictable; here only surrogate pairs branch.
// Both write at most three bytes per unit (four per pair of units) into `out`, which must hold
// three bytes per unit plus one spare byte for the word stores, and return false on a lone or
// final high surrogate or a lone low surrogate. Plain integer code: every target runs it.
#ifndef MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_UNITS_HPP
#define MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_UNITS_HPP

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "word stores expect little-endian");

// The code point of a high and a low surrogate: (high << 10) + low - 0x35FDC00.
inline std::uint32_t utf16_pair_code_point(std::uint32_t high, std::uint32_t low) {
  return (high << 10) + low - 0x35FDC00u;
}

inline bool encode_units_plain(const unsigned short* src, std::size_t n, unsigned char* out,
                               std::size_t& written) {
  std::size_t k = written;
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint32_t u = src[i];
    if (u < 0x80) {
      out[k++] = static_cast<unsigned char>(u);
    } else if (u < 0x800) {
      out[k++] = static_cast<unsigned char>(0xC0 | (u >> 6));
      out[k++] = static_cast<unsigned char>(0x80 | (u & 0x3F));
    } else if (u < 0xD800 || u >= 0xE000) {
      out[k++] = static_cast<unsigned char>(0xE0 | (u >> 12));
      out[k++] = static_cast<unsigned char>(0x80 | ((u >> 6) & 0x3F));
      out[k++] = static_cast<unsigned char>(0x80 | (u & 0x3F));
    } else {
      if (u >= 0xDC00 || i + 1 >= n || (src[i + 1] & 0xFC00) != 0xDC00) return false;
      const std::uint32_t cp = utf16_pair_code_point(u, src[++i]);
      out[k++] = static_cast<unsigned char>(0xF0 | (cp >> 18));
      out[k++] = static_cast<unsigned char>(0x80 | ((cp >> 12) & 0x3F));
      out[k++] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
      out[k++] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    }
  }
  written = k;
  return true;
}

// All ones when `condition` holds, else 0.
inline std::uint32_t mask_if(bool condition) {
  return 0u - static_cast<std::uint32_t>(condition);
}

// The bytes of one unit that is not part of a pair (below 0xD800 or from 0xE000 up), first
// byte lowest, and their count.
inline std::uint32_t unit_word(std::uint32_t u, std::uint32_t& length) {
  const std::uint32_t two = (0xC0 | (u >> 6)) | ((0x80 | (u & 0x3F)) << 8);
  const std::uint32_t three =
      (0xE0 | (u >> 12)) | ((0x80 | ((u >> 6) & 0x3F)) << 8) | ((0x80 | (u & 0x3F)) << 16);
  const std::uint32_t wide = mask_if(u >= 0x80);
  const std::uint32_t wider = mask_if(u >= 0x800);
  length = 1 + (wide & 1) + (wider & 1);
  return (u & ~wide) | (two & wide & ~wider) | (three & wider);
}

// Encodes the unit at `p`, or the pair starting there, at `d` and moves both past it; needs two
// units at `p`. False on a bad surrogate. Only the surrogate test branches: a unit outside the
// surrogates advances by one whatever its bytes, so the next unit's address never waits for
// this one's value.
inline bool encode_unit_branchless(const unsigned short*& p, unsigned char*& d) {
  const std::uint32_t u = p[0];
  if ((u & 0xF800) != 0xD800) {
    std::uint32_t length = 0;
    const std::uint32_t word = unit_word(u, length);
    std::memcpy(d, &word, 4);
    d += length;
    p += 1;
    return true;
  }
  const std::uint32_t next = p[1];
  if (u >= 0xDC00 || (next & 0xFC00) != 0xDC00) return false;
  const std::uint32_t cp = utf16_pair_code_point(u, next);
  const std::uint32_t four = (0xF0 | (cp >> 18)) | ((0x80 | ((cp >> 12) & 0x3F)) << 8) |
                             ((0x80 | ((cp >> 6) & 0x3F)) << 16) | ((0x80 | (cp & 0x3F)) << 24);
  std::memcpy(d, &four, 4);
  d += 4;
  p += 2;
  return true;
}

inline bool encode_units_branchless(const unsigned short* src, std::size_t n, unsigned char* out,
                                    std::size_t& written) {
  unsigned char* d = out + written;
  const unsigned short* p = src;
  const unsigned short* const end = src + n;
  while (end - p >= 2) {
    if (!encode_unit_branchless(p, d)) return false;
  }
  // The last unit, if one is left, goes the plain way.
  std::size_t k = static_cast<std::size_t>(d - out);
  if (!encode_units_plain(p, static_cast<std::size_t>(end - p), out, k)) return false;
  written = k;
  return true;
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_UTF16_TO_UTF8_UNITS_HPP
