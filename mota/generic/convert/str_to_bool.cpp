#include <mota/generic/convert/str_to_bool.hpp>

#include <mota/generic/convert/str_to_x.hpp>

#include <cctype>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

// True when `text`, lower-cased element by element, equals the ASCII `word`.
template <typename S>
bool equals_lowered(const S& text, const char* word) {
  typename S::size_type i = 0;
  for (; word[i] != 0; ++i) {
    if (i == text.size()) return false;
    const auto c = static_cast<std::int32_t>(text[i]);
    // tolower is only defined for byte values; anything wider cannot match an ASCII word.
    if (c < 0 || c > 0xFF || std::tolower(static_cast<int>(c)) != word[i]) return false;
  }
  return i == text.size();
}

template <typename S>
bool to_bool(const S& text) {
  if (equals_lowered(text, "yes") || equals_lowered(text, "on") || equals_lowered(text, "true")) {
    return true;
  }
  return str_to_long(text.c_str(), static_cast<unsigned int>(text.size()), types::radix_t::detect,
                     false) != 0;
}

}  // namespace

bool str_to_bool(const strings::ustring16& text) {
  return to_bool(text);
}
bool str_to_bool(const strings::ustring32& text) {
  return to_bool(text);
}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18
