// Named character sets ("code pages") and conversion between them and the library's Unicode
// strings. A code_page holds one numeric code, the familiar code-page number (1252, 936, ...);
// conversion goes through iconv under the name iconv knows the set by. Code 0 is the empty
// (nil) code page, which no conversion accepts; 1, 2 and 3 all mean the process's own
// character set.
//
//   mota::strings::code_page latin(mota::strings::code_page::windows_1252);
//   mota::strings::ustring8 text = latin.as_utf8("caf\xE9");  // "caf\xC3\xA9"
//   std::string bytes = latin.encode(text);                     // "caf\xE9"
#ifndef MOTA_STRINGS_CODE_PAGE_HPP
#define MOTA_STRINGS_CODE_PAGE_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#include <cstdint>
#include <string>

namespace MOTA_2_18 {
namespace strings {

// A character set named by its code-page number, and the conversions between it and UTF-8,
// UTF-16 and UTF-32 text. Cheap to copy: it holds only the code.
class MOTA_API code_page {
 public:
  // The valid codes; every other value, 0 included, is rejected by the conversions.
  enum encoding_type : std::int32_t {
    nil_code = 0,
    system = 1,  // the process's own character set (nl_langinfo(CODESET))
    system_ansi = 2,
    system_oem = 3,
    utf_8 = 4,
    windows_31j = 932,  // Shift JIS as used on Windows
    gbk = 936,
    cp949 = 949,
    big5 = 950,
    windows_1250 = 1250,
    windows_1251 = 1251,
    windows_1252 = 1252,
    windows_1253 = 1253,
    windows_1254 = 1254,
    windows_1255 = 1255,
    windows_1256 = 1256,
    windows_1257 = 1257,
    windows_1258 = 1258,
    koi8_r = 20866,
    koi8_u = 21866,
    iso_8859_1 = 28591,
    iso_8859_2 = 28592,
    iso_8859_3 = 28593,
    iso_8859_4 = 28594,
    iso_8859_5 = 28595,
    iso_8859_6 = 28596,
    iso_8859_7 = 28597,
    iso_8859_8 = 28598,
    iso_8859_9 = 28599,
    iso_8859_15 = 28605,
    ascii = 125100,
  };

  //@{
  // The default and the nil_t forms give the nil code page (code 0); the encoding_type form
  // holds `type`, which is not checked until a conversion uses it; the copy holds the other's.
  code_page();
  code_page(const types::nil_t&);        // NOLINT: implicit on purpose
  code_page(const encoding_type& type);  // NOLINT: implicit on purpose
  code_page(const code_page& other);
  //@}

  //@{
  // Takes the other's code or `type` (unchecked); nil sets code 0. Each returns *this.
  code_page& assign(const code_page& other);
  code_page& assign(const encoding_type& type);
  code_page& assign(const types::nil_t&);
  code_page& operator=(const code_page& other);
  code_page& operator=(const encoding_type& type);
  code_page& operator=(const types::nil_t&);
  //@}

  //@{
  // Equality of codes; against nil, true when the code is 0. operator!= is the negation.
  bool equal(const code_page& other) const;
  bool equal(const encoding_type& type) const;
  bool equal(const types::nil_t&) const;
  bool operator==(const code_page& other) const;
  bool operator==(const encoding_type& type) const;
  bool operator==(const types::nil_t&) const;
  bool operator!=(const code_page& other) const;
  bool operator!=(const encoding_type& type) const;
  bool operator!=(const types::nil_t&) const;
  //@}

  // The code.
  encoding_type type() const;
  // Sets the code; it is not checked until a conversion uses it.
  void type(const encoding_type& type);

  // The name iconv knows `type` by ("GBK", "CP1252", "ISO-8859-15", the process's own set for
  // 1 to 3). Throws exceptions::invalid_argument_value "Not valid code_page type" for a code
  // outside the table.
  std::string to_system_type(encoding_type type) const;

  // UTF-8 `text` converted to this code page. Characters the code page cannot represent and
  // bytes that are not UTF-8 become one "?" per undecodable byte; an incomplete sequence at
  // the end is dropped. Throws exceptions::invalid_argument_value "Not valid code_page type"
  // for an invalid code, exceptions::runtime_error "convertions not supported" when iconv
  // cannot convert between the two sets, "Unknown failure on iconv open" or "Unknown iconv
  // error" for other iconv failures. The iconv descriptor stays open for the next conversion
  // between the same sets in the same thread (each thread has its own).
  std::string encode(const ustring8& text) const;
  //@{
  // UTF-16 / UTF-32 `text` made UTF-8 by utf16_to_utf8 / utf32_to_utf8, then as above (text
  // those reject arrives here as "-1").
  std::string encode(const ustring16& text) const;
  std::string encode(const ustring32& text) const;
  //@}

  // `text` in this code page converted to UTF-8; undecodable bytes become "?", an incomplete
  // sequence at the end is dropped. Throws as encode.
  ustring8 as_utf8(const std::string& text) const;
  //@{
  // as_utf8 followed by utf8_to_utf16 / utf8_to_utf32.
  ustring16 as_utf16(const std::string& text) const;
  ustring32 as_utf32(const std::string& text) const;
  //@}
  // The same as as_utf8.
  ustring8 as_ustring(const std::string& text) const;

 private:
  encoding_type m_type;
};

}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_CODE_PAGE_HPP
