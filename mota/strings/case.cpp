#include <mota/strings/case.hpp>

#include <mota/strings/_private/char_case.hpp>

#include <algorithm>

namespace MOTA_2_18 {
namespace strings {

namespace {

template <typename String, typename Map>
String mapped(const String& text, std::size_t start, std::size_t end, Map map) {
  String result(text);
  end = std::min(end, result.size());
  for (std::size_t i = start; i < end; ++i)
    result[i] = map(result[i]);
  return result;
}

template <typename String>
String lowered(const String& text, unsigned int start, unsigned int end) {
  const std::size_t stop = end == 0xFFFFFFFFu ? text.size() : end;
  if (stop <= start) return text;
  return mapped(text, start, stop,
                [](typename String::value_type c) { return _private::lower_unit(c); });
}

}  // namespace

ustring8 to_lower(const ustring8& text) {
  return lowered(text, 0, 0xFFFFFFFFu);
}
ustring16 to_lower(const ustring16& text) {
  return lowered(text, 0, 0xFFFFFFFFu);
}
ustring32 to_lower(const ustring32& text) {
  return lowered(text, 0, 0xFFFFFFFFu);
}

ustring8 to_upper(const ustring8& text) {
  return mapped(text, 0, text.size(), [](char c) { return _private::upper_unit(c); });
}
ustring16 to_upper(const ustring16& text) {
  return mapped(text, 0, text.size(), [](unsigned short c) { return _private::upper_unit(c); });
}
ustring32 to_upper(const ustring32& text) {
  return mapped(text, 0, text.size(), [](wchar_t c) { return _private::upper_unit(c); });
}

ustring8 lower_case(const ustring8& text, unsigned int start, unsigned int end) {
  return lowered(text, start, end);
}
ustring16 lower_case(const ustring16& text, unsigned int start, unsigned int end) {
  return lowered(text, start, end);
}
ustring32 lower_case(const ustring32& text, unsigned int start, unsigned int end) {
  return lowered(text, start, end);
}

}  // namespace strings
}  // namespace MOTA_2_18
