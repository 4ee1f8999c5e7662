// Not part of the public interface.
//
// The UTF-8 form of a text held in any of the string classes, so that the overloads a public
// function offers for each width share one body written for UTF-8.
#ifndef MOTA_STRINGS_PRIVATE_TO_UTF8_HPP
#define MOTA_STRINGS_PRIVATE_TO_UTF8_HPP

#include <mota/strings/ustring.hpp>
#include <mota/strings/utf.hpp>

#include <string>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

inline const ustring8& to_utf8(const ustring8& text) {
  return text;
}
inline ustring8 to_utf8(const std::string& text) {
  return ustring8(text);
}
inline ustring8 to_utf8(const ustring16& text) {
  return utf16_to_utf8(text);
}
inline ustring8 to_utf8(const ustring32& text) {
  return utf32_to_utf8(text);
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_TO_UTF8_HPP
