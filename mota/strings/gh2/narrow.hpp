// Narrow-string helpers: classifying and checking one UTF-8 sequence in a byte buffer, per-byte
// case mapping and replacement over std::string.
//
//   unsigned int len = mota::strings::gh2::get_utf8_length("\xC3\xA9", 2);  // 2
//   bool ok = mota::strings::gh2::validate_utf8("\xC3\xA9", 2);             // true
//   std::string up = mota::strings::gh2::toupper("abc");                    // "ABC"
#ifndef MOTA_STRINGS_GH2_NARROW_HPP
#define MOTA_STRINGS_GH2_NARROW_HPP

#include <mota/export.hpp>

#include <string>

namespace MOTA_2_18 {
namespace strings {
// Helpers for narrow (std::string) text: UTF-8 sequence checks, case, the system character
// set and the UTF-8 standard streams.
namespace gh2 {

//@{
// The length of the UTF-8 sequence that the first byte announces: 1 below 0x80, 2 for
// 0xC0..0xDF, 3 for 0xE0..0xEF, 4 for 0xF0..0xF7, and 0 for anything else (a continuation
// byte, 0xF8..0xFF), a null pointer or a zero size. Only the first byte is looked at.
MOTA_API unsigned int get_utf8_length(const char* data, unsigned int size);
MOTA_API unsigned int get_utf8_length(const unsigned char* data, unsigned int size);
//@}

//@{
// True when the first byte starts a sequence (as get_utf8_length classifies it), `size` holds
// the whole sequence and every following byte of it is a continuation byte (0x80..0xBF).
// False for a null pointer or a zero size. Overlong forms are not looked for.
MOTA_API bool validate_utf8(const char* data, unsigned int size);
MOTA_API bool validate_utf8(const unsigned char* data, unsigned int size);
//@}

// A copy with every byte mapped by the C library's tolower (passed as a signed char value).
MOTA_API std::string tolower(const std::string& text);

// A copy with every byte mapped by the C library's toupper (passed as a signed char value).
MOTA_API std::string toupper(const std::string& text);

// Replaces every occurrence of `what` by `with` left to right, resuming after each inserted
// replacement; returns the number made. An empty `what` changes nothing and returns 0.
MOTA_API int replace_all(std::string& text, const std::string& what, const std::string& with);

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_GH2_NARROW_HPP
