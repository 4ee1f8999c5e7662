#include <mota/strings/bom.hpp>

#include <mota/strings/utf.hpp>

namespace MOTA_2_18 {
namespace strings {

namespace {

// The marks in each encoding, made once from the UTF-8 form. Function-local so that callers
// running during static initialisation of other files still see them built.
const ustring8& bom8() {
  static const ustring8 mark = "\xEF\xBB\xBF";
  return mark;
}
const ustring16& bom16() {
  static const ustring16 mark = utf8_to_utf16(bom8());
  return mark;
}
const ustring32& bom32() {
  static const ustring32 mark = utf8_to_utf32(bom8());
  return mark;
}

constexpr unsigned short swapped_bom = 0xFFFE;

inline unsigned short swap_unit(unsigned short u) {
  return static_cast<unsigned short>((u << 8) | (u >> 8));
}

template <typename String>
String without_prefix(const String& text, const String& prefix) {
  if (text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0)
    return String(text.substr(prefix.size()));
  return text;
}

}  // namespace

ustring16 swap_string_bytes_order(const ustring16& text) {
  ustring16 result(text);
  modify_swap_string_bytes_order(result);
  return result;
}

void modify_swap_string_bytes_order(ustring16& text) {
  for (unsigned short& u : text)
    u = swap_unit(u);
}

ustring16 check_BOM_and_swap(const ustring16& text) {
  if (!text.empty() && text[0] == swapped_bom) return swap_string_bytes_order(text);
  return text;
}

void check_BOM_and_modify_swap(ustring16& text) {
  if (!text.empty() && text[0] == swapped_bom) modify_swap_string_bytes_order(text);
}

ustring8 remove_BOM(const ustring8& text) {
  return without_prefix(text, bom8());
}
ustring16 remove_BOM(const ustring16& text) {
  return without_prefix(text, bom16());
}
ustring32 remove_BOM(const ustring32& text) {
  return without_prefix(text, bom32());
}

}  // namespace strings
}  // namespace MOTA_2_18
