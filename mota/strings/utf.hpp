// Conversions among the three Unicode string classes, decoding of one character at a position,
// and character counting and indexing. Conversions never throw for malformed text: the result
// tells instead ("-1" in the target encoding, or "?" (63) for an undecodable UTF-8 byte).
//
//   mota::strings::ustring16 wide = mota::strings::utf8_to_utf16("caf\xC3\xA9");
//   mota::strings::ustring8 back = mota::strings::utf16_to_utf8(wide);  // "caf\xC3\xA9"
//   int at = mota::strings::character_index(back, 3);                   // 3
#ifndef MOTA_STRINGS_UTF_HPP
#define MOTA_STRINGS_UTF_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace strings {

// --- one character -------------------------------------------------------------------------

// Decodes the UTF-8 character that starts at data[index] of an array of `size` bytes. Returns
// its code point and sets `count` to the bytes it spans (1 to 4). Overlong forms and encoded
// surrogates are decoded without complaint. On failure (index not below size, a continuation
// byte or 0xF8..0xFF as lead byte, a truncated sequence, a bad continuation byte) returns 63
// and sets `count` to 0xFFFFFFFF.
MOTA_API std::uint32_t unichar(const char* data, unsigned int size, unsigned int index,
                               unsigned int& count);

// Decodes the UTF-16 character at data[index]: a non-surrogate unit (count 1) or a high
// surrogate followed, within `size`, by a low one (count 2). A lone low surrogate, a final high
// surrogate, a high surrogate followed by anything else or an index not below size return 63
// with count 0xFFFFFFFF.
MOTA_API std::uint32_t unichar(const unsigned short* data, unsigned int size, unsigned int index,
                               unsigned int& count);

// Returns data[index] as is with count 1, or 63 with count 0xFFFFFFFF when index is not below
// size.
MOTA_API std::uint32_t unichar(const wchar_t* data, unsigned int size, unsigned int index,
                               unsigned int& count);

// --- whole strings -------------------------------------------------------------------------

// UTF-8 to UTF-16; code points from 0x10000 up become standard surrogate pairs. Any
// undecodable sequence makes the result "-1".
MOTA_API ustring16 utf8_to_utf16(const ustring8& text);

// UTF-8 to UTF-32; each undecodable byte becomes 63 ("?") and decoding resumes at the next
// byte.
MOTA_API ustring32 utf8_to_utf32(const ustring8& text);

// UTF-16 to UTF-8. A leading 0xFFFE means byte-swapped input: the swapped text is converted
// (its leading 0xFEFF included). A lone or final high surrogate or a lone low surrogate makes
// the result "-1".
MOTA_API ustring8 utf16_to_utf8(const ustring16& text);

// UTF-16 to UTF-32, with the same byte-swap rule and "-1" on a bad surrogate.
MOTA_API ustring32 utf16_to_utf32(const ustring16& text);

// UTF-32 to UTF-8. A surrogate code point (0xD800..0xDFFF) makes the result "-1"; a code point
// above 0x10FFFF is dropped and conversion continues.
MOTA_API ustring8 utf32_to_utf8(const ustring32& text);

// UTF-32 to UTF-16 in the library's own pairing: code points from 0xFFFF up to 0x10FFFF become
// the units (cp >> 10) + 0xD800 and 0xDC00 | (cp & 0x3FF), without subtracting 0x10000 first
// (intended; it does not round-trip with the decoders). Values are compared as signed. A
// surrogate code point or one above 0x10FFFF makes the result "-1".
MOTA_API ustring16 utf32_to_utf16(const ustring32& text);

// --- counting and indexing -----------------------------------------------------------------

//@{
// Elements before the terminating zero; 0 for a null pointer.
MOTA_API unsigned int string_length(const char* text);
MOTA_API unsigned int string_length(const unsigned short* text);
MOTA_API unsigned int string_length(const wchar_t* text);
//@}

//@{
// The element count (the size of the underlying string).
MOTA_API unsigned int string_length(const ustring8& text);
MOTA_API unsigned int string_length(const ustring16& text);
MOTA_API unsigned int string_length(const ustring32& text);
//@}

// The byte offset at which the n-th character (from 0) starts. Returns -1 when n is not below
// the byte count or a character on the way is malformed (or the text ends first), 0 for n = 0.
MOTA_API int character_index(const ustring8& text, unsigned int n);

// The unit offset at which the n-th character (from 0) starts. Returns -1 when n is not below
// the unit count, when a high surrogate on the way is not followed by a low one, when the text
// ends first, or, for every n >= 1, when the text starts with a low surrogate. A lone low
// surrogate further on counts as one character (intended).
MOTA_API int character_index(const ustring16& text, unsigned int n);

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_UTF_HPP
