#include "text_output.hpp"

namespace mota_tool {
namespace {

// Length of the well-formed UTF-8 sequence starting at text[i], or 0 when it is not one
// (stray continuation byte, overlong form, surrogate, value above U+10FFFF, cut short).
std::size_t sequence_length(const std::string& text, std::size_t i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(i);
  std::size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;   // overlong
    if (lead == 0xED) high = 0x9F;  // surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;   // overlong
    if (lead == 0xF4) high = 0x8F;  // above U+10FFFF
  } else {
    return 0;
  }
  if (text.size() - i < length) return 0;
  if (byte(i + 1) < low || byte(i + 1) > high) return 0;
  for (std::size_t k = 2; k < length; ++k) {
    if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return 0;
  }
  return length;
}

}  // namespace

std::string printable(const std::string& text) {
  static const char digits[] = "0123456789ABCDEF";
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const std::size_t length = sequence_length(text, i);
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
