#include <mota/strings/replace.hpp>

#include <mota/strings/_private/replace_all.hpp>

namespace MOTA_2_18 {
namespace strings {

int replace_all(ustring8& text, const ustring8& what, const ustring8& with) {
  return _private::replace_all<std::string>(text, what, with);
}
int replace_all(ustring16& text, const ustring16& what, const ustring16& with) {
  return _private::replace_all<ustring16_base>(text, what, with);
}
int replace_all(ustring32& text, const ustring32& what, const ustring32& with) {
  return _private::replace_all<std::wstring>(text, what, with);
}
int replace_all(std::string& text, const std::string& what, const std::string& with) {
  return _private::replace_all<std::string>(text, what, with);
}
int replace_all(std::wstring& text, const std::wstring& what, const std::wstring& with) {
  return _private::replace_all<std::wstring>(text, what, with);
}

}  // namespace strings
}  // namespace MOTA_2_18
