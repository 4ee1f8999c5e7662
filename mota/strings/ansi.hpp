// Conversion between UTF-8 and the process's own narrow character set (the one nl_langinfo
// reports for the current C locale), for text exchanged with the operating system.
//
//   std::string native = mota::strings::gh2::to_ansi("caf\xC3\xA9");
//   std::string utf8 = mota::strings::gh2::from_ansi(native);
#ifndef MOTA_STRINGS_ANSI_HPP
#define MOTA_STRINGS_ANSI_HPP

#include <mota/export.hpp>

#include <string>

namespace MOTA_2_18 {
namespace strings {
namespace gh2 {

// UTF-8 `text` in the process's character set; characters it cannot represent and bytes that
// are not UTF-8 become "?" (one per byte), an incomplete sequence at the end is dropped.
// Throws exceptions::runtime_error only when iconv itself fails (see code_page::encode).
MOTA_API std::string to_ansi(const std::string& text);

// `text` in the process's character set as UTF-8; undecodable bytes become "?".
// Throws exceptions::runtime_error only when iconv itself fails (see code_page::as_utf8).
MOTA_API std::string from_ansi(const std::string& text);

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_ANSI_HPP
