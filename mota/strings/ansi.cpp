#include <mota/strings/ansi.hpp>

#include <mota/strings/code_page.hpp>

namespace MOTA_2_18 {
namespace strings {
namespace gh2 {

std::string to_ansi(const std::string& text) {
  return code_page(code_page::system).encode(ustring8(text));
}

std::string from_ansi(const std::string& text) {
  return code_page(code_page::system).as_utf8(text);
}

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18
