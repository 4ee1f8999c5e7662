// Case mapping of the string classes, element by element with the C library's tolower and
// toupper in the current C locale. Only single-unit characters the C library maps change;
// the bytes of multi-byte UTF-8 sequences and units beyond its table stay as they are.
//
//   mota::strings::ustring8 low = mota::strings::to_lower("MiXed");      // "mixed"
//   mota::strings::ustring8 part = mota::strings::lower_case("ABCD", 1);  // "Abcd"
#ifndef MOTA_STRINGS_CASE_HPP
#define MOTA_STRINGS_CASE_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

namespace MOTA_2_18 {
namespace strings {

//@{
// A copy with every element mapped by tolower (a char element is passed as a signed value).
MOTA_API ustring8 to_lower(const ustring8& text);
MOTA_API ustring16 to_lower(const ustring16& text);
MOTA_API ustring32 to_lower(const ustring32& text);
//@}

//@{
// A copy with every element mapped by toupper (a char element is passed as a signed value).
MOTA_API ustring8 to_upper(const ustring8& text);
MOTA_API ustring16 to_upper(const ustring16& text);
MOTA_API ustring32 to_upper(const ustring32& text);
//@}

//@{
// A copy in which the elements from `start` up to, not including, `end` are mapped by tolower.
// An end of 0xFFFFFFFF means the text's size; an end not greater than start changes nothing.
// An end beyond the size is treated as the size.
MOTA_API ustring8 lower_case(const ustring8& text, unsigned int start = 0,
                             unsigned int end = 0xFFFFFFFFu);
MOTA_API ustring16 lower_case(const ustring16& text, unsigned int start = 0,
                              unsigned int end = 0xFFFFFFFFu);
MOTA_API ustring32 lower_case(const ustring32& text, unsigned int start = 0,
                              unsigned int end = 0xFFFFFFFFu);
//@}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_CASE_HPP
