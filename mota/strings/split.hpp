// Splitting a text at a separator, for the string classes and the standard strings they derive
// from.
//
//   auto parts = mota::strings::split_string(mota::strings::ustring8("a,b,,c"), ",", 0);
//   // parts: "a", "b", "", "c"
#ifndef MOTA_STRINGS_SPLIT_HPP
#define MOTA_STRINGS_SPLIT_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <string>
#include <vector>

namespace MOTA_2_18 {
namespace strings {

//@{
// The pieces between separators, left to right. An empty separator gives the whole text as
// the one piece (an empty text included). Otherwise a positive `limit` n splits at no more than
// n separators and 0 or a negative limit splits at all; two touching separators or a leading
// one give an empty piece; the rest after the last split is the last piece unless it is empty,
// so a trailing separator gives no trailing empty piece and an empty text no piece at all.
MOTA_API std::vector<ustring8> split_string(const ustring8& text, const ustring8& separator,
                                            int limit = 0);
MOTA_API std::vector<ustring16> split_string(const ustring16& text, const ustring16& separator,
                                             int limit = 0);
MOTA_API std::vector<ustring32> split_string(const ustring32& text, const ustring32& separator,
                                             int limit = 0);
MOTA_API std::vector<std::string> split_string(const std::string& text,
                                               const std::string& separator, int limit = 0);
MOTA_API std::vector<std::wstring> split_string(const std::wstring& text,
                                                const std::wstring& separator, int limit = 0);
//@}

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_SPLIT_HPP
