#include <mota/strings/split.hpp>

#include <cstddef>

namespace MOTA_2_18 {
namespace strings {

namespace {

template <typename String>
std::vector<String> split(const String& text, const String& separator, int limit) {
  std::vector<String> pieces;
  if (separator.empty()) {
    pieces.push_back(text);
    return pieces;
  }
  // The countdown starts at limit and the loop stops once it has passed 1; starting at 0 or
  // below it never does. Counting splits made against a positive limit is the same rule
  // without the signed wrap-around.
  const bool limited = limit > 0;
  const std::size_t most = limited ? static_cast<std::size_t>(limit) : 0;
  std::size_t made = 0;
  std::size_t at = 0;
  for (;;) {
    const std::size_t found = text.find(separator, at);
    if (found == String::npos) break;
    pieces.push_back(String(text.substr(at, found - at)));
    at = found + separator.size();
    if (limited && ++made == most) break;
  }
  if (at < text.size()) pieces.push_back(String(text.substr(at)));
  return pieces;
}

}  // namespace

std::vector<ustring8> split_string(const ustring8& text, const ustring8& separator, int limit) {
  return split(text, separator, limit);
}
std::vector<ustring16> split_string(const ustring16& text, const ustring16& separator, int limit) {
  return split(text, separator, limit);
}
std::vector<ustring32> split_string(const ustring32& text, const ustring32& separator, int limit) {
  return split(text, separator, limit);
}
std::vector<std::string> split_string(const std::string& text, const std::string& separator,
                                      int limit) {
  return split(text, separator, limit);
}
std::vector<std::wstring> split_string(const std::wstring& text, const std::wstring& separator,
                                       int limit) {
  return split(text, separator, limit);
}

}  // namespace strings
}  // namespace MOTA_2_18
