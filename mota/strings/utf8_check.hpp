// Checks that bytes are well-formed UTF-8, for data files whose text must be shown as it is:
// the conversions elsewhere replace bad sequences silently.
//
//   if (mota::strings::invalid_utf8_offset(text) != std::string::npos) reject(text);
#ifndef MOTA_STRINGS_UTF8_CHECK_HPP
#define MOTA_STRINGS_UTF8_CHECK_HPP

#include <mota/export.hpp>

#include <cstddef>
#include <string>

namespace MOTA_2_18 {
namespace strings {

// The offset of the first byte that does not start a well-formed UTF-8 sequence (a stray
// continuation byte, an overlong form, a surrogate, a value above U+10FFFF, a sequence cut
// short), or std::string::npos when all of `text` is well-formed.
MOTA_API std::size_t invalid_utf8_offset(const std::string& text);

// The length (1 to 4) of the well-formed UTF-8 sequence that starts at `text[at]`, or 0 when
// none starts there (by the same rules); `at` must be inside `text`.
MOTA_API std::size_t utf8_sequence_length(const std::string& text, std::size_t at);

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_UTF8_CHECK_HPP
