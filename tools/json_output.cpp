#include "json_output.hpp"

#include "text_output.hpp"

namespace mota_tool {

std::string json_string(const std::string& text) {
  static const char digits[] = "0123456789abcdef";
  std::string out = "\"";
  for (const char c : printable(text)) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else if (byte < 0x20) {
      out += "\\u00";
      out += digits[byte >> 4];
      out += digits[byte & 0x0F];
    } else {
      out += c;
    }
  }
  return out + "\"";
}

}  // namespace mota_tool
