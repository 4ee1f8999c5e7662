// Code pages by the names people type: the code-page number ("1252"), the iconv name
// ("CP1252", "ISO-8859-15") or a common alias ("utf8", "latin1", "windows-1252", "ascii",
// "sjis"). Case, "-" and "_" do not matter in names.
//
//   mota::strings::code_page::encoding_type code;
//   if (mota::strings::code_page_from_name("latin1", code)) ...   // code == iso_8859_1
#ifndef MOTA_STRINGS_CODE_PAGE_NAMES_HPP
#define MOTA_STRINGS_CODE_PAGE_NAMES_HPP

#include <mota/export.hpp>
#include <mota/strings/code_page.hpp>

#include <string>
#include <vector>

namespace MOTA_2_18 {
namespace strings {

// Every code the conversions accept, the process's own set once (as code_page::system) and
// then in increasing order. Codes 2 and 3 are further numbers of the process's own set.
MOTA_API const std::vector<code_page::encoding_type>& code_page_codes();

// The name a code is listed under: "SYSTEM" for the process's own set, else its iconv name.
MOTA_API std::string code_page_display_name(code_page::encoding_type code);

// Reads a code-page number, iconv name or alias into `code`; false (and `code` unchanged) when
// the text names no code the conversions accept. "SYSTEM" names the process's own set.
MOTA_API bool code_page_from_name(const std::string& text, code_page::encoding_type& code);

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_CODE_PAGE_NAMES_HPP
