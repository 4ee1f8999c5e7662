#include "text_output.hpp"

#include <mota/strings/utf8_check.hpp>

namespace mota_tool {

std::string printable(const std::string& text) {
  static const char digits[] = "0123456789ABCDEF";
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const std::size_t length = mota::strings::utf8_sequence_length(text, i);
    const bool control = c < 0x20 ? (c != '\n' && c != '\t') : c == 0x7F;
    if (length == 0 || control) {
      out += "\\x";
      out += digits[c >> 4];
      out += digits[c & 0x0F];
      ++i;
    } else {
      out.append(text, i, length);
      i += length;
    }
  }
  return out;
}

}  // namespace mota_tool
