#include <mota/i18n/_private/language_list.hpp>

#include <mota/i18n/_private/locale_name.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

// Whether `entry` equals `locale` with "." and "-" read as "_" (a one-byte locale is compared
// as written), without building the normalised copy.
bool same_locale(const strings::ustring8& entry, std::string_view locale) {
  if (entry.size() != locale.size()) return false;
  if (locale.size() == 1) return entry[0] == locale[0];
  for (std::size_t i = 0; i < locale.size(); ++i) {
    const char c = locale[i] == '.' || locale[i] == '-' ? '_' : locale[i];
    if (entry[i] != c) return false;
  }
  return true;
}

}  // namespace

void language_list::add(const strings::ustring8& locale) {
  const strings::ustring8 normal = normalise_locale(locale);
  m_entries.emplace_back(".");
  m_entries.emplace_back("en");
  if (normal.empty()) return;
  // The pieces between "_" (an empty piece where two touch or at the start; none after a
  // trailing "_"), each appended to the growing prefix.
  strings::ustring8 prefix;
  std::size_t pos = 0;
  bool first = true;
  while (pos < normal.size()) {
    std::size_t cut = normal.find('_', pos);
    if (cut == strings::ustring8::npos) cut = normal.size();
    if (first) {
      prefix.assign(normal, pos, cut - pos);
      if (prefix != "en") m_entries.push_back(prefix);
      first = false;
    } else {
      prefix.push_back('_');
      prefix.append(normal, pos, cut - pos);
      m_entries.push_back(prefix);
    }
    pos = cut + 1;
  }
}

std::uint32_t language_list::weight(std::string_view locale) const {
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    if (same_locale(m_entries[i], locale)) return static_cast<std::uint32_t>(i + 1);
  }
  return 0;
}

bool language_list::replaces(const message_t& stored, std::uint32_t candidate_weight,
                             on_tie tie) const {
  if (stored == types::nil) return true;
  const std::uint32_t stored_weight = weight(stored._orginal_locale());
  return tie == on_tie::take_new ? stored_weight <= candidate_weight
                                 : stored_weight < candidate_weight;
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
