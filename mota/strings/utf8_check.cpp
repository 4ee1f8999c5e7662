#include <mota/strings/utf8_check.hpp>

namespace MOTA_2_18 {
namespace strings {

std::size_t utf8_sequence_length(const std::string& text, std::size_t at) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(at);
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
  if (text.size() - at < length) return 0;
  if (byte(at + 1) < low || byte(at + 1) > high) return 0;
  for (std::size_t k = 2; k < length; ++k) {
    if (byte(at + k) < 0x80 || byte(at + k) > 0xBF) return 0;
  }
  return length;
}

std::size_t invalid_utf8_offset(const std::string& text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const std::size_t length = utf8_sequence_length(text, i);
    if (length == 0) return i;
    i += length;
  }
  return std::string::npos;
}

}  // namespace strings
}  // namespace MOTA_2_18
