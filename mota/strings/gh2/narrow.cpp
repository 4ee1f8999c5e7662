#include <mota/strings/gh2/narrow.hpp>

#include <mota/strings/_private/char_case.hpp>
#include <mota/strings/_private/replace_all.hpp>

namespace MOTA_2_18 {
namespace strings {
namespace gh2 {

unsigned int get_utf8_length(const unsigned char* data, unsigned int size) {
  if (data == nullptr || size == 0) return 0;
  const unsigned char b = data[0];
  if (b < 0x80) return 1;
  if (b < 0xC0) return 0;
  if (b < 0xE0) return 2;
  if (b < 0xF0) return 3;
  if (b < 0xF8) return 4;
  return 0;
}

unsigned int get_utf8_length(const char* data, unsigned int size) {
  return get_utf8_length(reinterpret_cast<const unsigned char*>(data), size);
}

bool validate_utf8(const unsigned char* data, unsigned int size) {
  const unsigned int length = get_utf8_length(data, size);
  if (length == 0 || length > size) return false;
  for (unsigned int i = 1; i < length; ++i)
    if ((data[i] & 0xC0) != 0x80) return false;
  return true;
}

bool validate_utf8(const char* data, unsigned int size) {
  return validate_utf8(reinterpret_cast<const unsigned char*>(data), size);
}

std::string tolower(const std::string& text) {
  std::string result(text);
  for (char& c : result)
    c = _private::lower_unit(c);
  return result;
}

std::string toupper(const std::string& text) {
  std::string result(text);
  for (char& c : result)
    c = _private::upper_unit(c);
  return result;
}

int replace_all(std::string& text, const std::string& what, const std::string& with) {
  return _private::replace_all(text, what, with);
}

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18
