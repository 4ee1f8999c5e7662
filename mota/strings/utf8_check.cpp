#include <mota/strings/utf8_check.hpp>

namespace MOTA_2_18 {
namespace strings {

std::size_t invalid_utf8_offset(const std::string& text) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  std::size_t i = 0;
  while (i < text.size()) {
    const unsigned char lead = byte(i);
    std::size_t length = 1;
    unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
    if (lead < 0x80) {
      ++i;
      continue;
    }
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
      return i;
    }
    if (text.size() - i < length || byte(i + 1) < low || byte(i + 1) > high) return i;
    for (std::size_t k = 2; k < length; ++k) {
      if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return i;
    }
    i += length;
  }
  return std::string::npos;
}

}  // namespace strings
}  // namespace MOTA_2_18
