// In-place replacement of every occurrence of a pattern, for the string classes and the
// standard strings they derive from.
//
//   mota::strings::ustring8 text = "a-b-c";
//   int n = mota::strings::replace_all(text, "-", "+");  // text "a+b+c", n 2
#ifndef MOTA_STRINGS_REPLACE_HPP
#define MOTA_STRINGS_REPLACE_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <string>

namespace MOTA_2_18 {
namespace strings {

//@{
// Replaces every occurrence of `what` by `with`, scanning left to right and resuming just after
// each inserted replacement (a replacement containing the pattern is not replaced again).
// Returns the number of replacements; an empty `what` changes nothing and returns 0.
MOTA_API int replace_all(ustring8& text, const ustring8& what, const ustring8& with);
MOTA_API int replace_all(ustring16& text, const ustring16& what, const ustring16& with);
MOTA_API int replace_all(ustring32& text, const ustring32& what, const ustring32& with);
MOTA_API int replace_all(std::string& text, const std::string& what, const std::string& with);
MOTA_API int replace_all(std::wstring& text, const std::wstring& what, const std::wstring& with);
//@}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_REPLACE_HPP
