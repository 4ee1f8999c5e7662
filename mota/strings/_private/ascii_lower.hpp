// Not part of the public interface.
//
// Lower-casing of the ASCII letters only, whatever the C library's locale: file suffixes and
// keywords of data files compare this way.
#ifndef MOTA_STRINGS_PRIVATE_ASCII_LOWER_HPP
#define MOTA_STRINGS_PRIVATE_ASCII_LOWER_HPP

#include <string>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

// A copy of `text` with "A" to "Z" mapped to "a" to "z"; every other byte is kept.
inline std::string ascii_lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_ASCII_LOWER_HPP
