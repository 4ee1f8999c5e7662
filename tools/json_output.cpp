#include "json_output.hpp"

#include "text_output.hpp"

#include <cstdio>

namespace mota_tool {

std::string json_string(const std::string& raw) {
  const std::string text = printable(raw);
  std::string out = "\"";
  for (const char c : text) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else if (byte < 0x20) {
      char buffer[8];
      std::snprintf(buffer, sizeof buffer, "\\u%04x", byte);
      out += buffer;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

std::string json_strings(const std::vector<std::string>& names) {
  std::string out = "[";
  for (std::size_t i = 0; i < names.size(); ++i)
    out += (i ? ", " : "") + json_string(names[i]);
  return out + "]";
}

}  // namespace mota_tool
