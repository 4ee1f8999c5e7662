#include <mota/i18n/catalog_languages.hpp>

#include <algorithm>
#include <set>

namespace MOTA_2_18 {
namespace i18n {

void catalog_languages::load(const std::vector<strings::ustring8>& files,
                             const std::vector<strings::ustring8>& languages) {
  for (const strings::ustring8& lang : languages) {
    if (lang.empty()) continue;
    message_catalogs& loaded = m_loaded[lang];
    for (const strings::ustring8& file : files) {
      const message_catalogs::result_type result = loaded.load_file(file, lang);
      if (result.type == message_catalogs::no_error) continue;
      if (std::find(m_errors.begin(), m_errors.end(), result.message) == m_errors.end()) {
        m_errors.push_back(result.message);
      }
    }
  }
}

std::vector<strings::ustring8> catalog_languages::languages() const {
  std::vector<strings::ustring8> result;
  for (const auto& entry : m_loaded)
    result.push_back(entry.first);
  return result;
}

std::vector<strings::ustring8> catalog_languages::catalogs() const {
  std::set<strings::ustring8> names;
  for (const auto& entry : m_loaded) {
    for (const auto& catalog : entry.second)
      names.insert(catalog.first);
  }
  return std::vector<strings::ustring8>(names.begin(), names.end());
}

catalog_languages::message_map catalog_languages::own_messages(
    const strings::ustring8& catalog, const strings::ustring8& lang) const {
  message_map result;
  const auto loaded = m_loaded.find(lang);
  if (loaded == m_loaded.end()) return result;
  for (const auto& entry : loaded->second.catalog(catalog)) {
    if (entry.second._orginal_locale() == lang) result[entry.first] = &entry.second;
  }
  return result;
}

strings::ustring8 catalog_languages::reference_language(const strings::ustring8& catalog) const {
  if (!own_messages(catalog, "en").empty()) return "en";
  if (!own_messages(catalog, ".").empty()) return ".";
  return strings::ustring8();
}

language_coverage catalog_languages::coverage(const strings::ustring8& catalog,
                                              const strings::ustring8& lang,
                                              const strings::ustring8& reference) const {
  language_coverage result;
  const message_map own = own_messages(catalog, lang);
  const message_map wanted = own_messages(catalog, reference);
  for (const auto& entry : own) {
    result.present.push_back(entry.first);
    if (!wanted.count(entry.first)) result.extra.push_back(entry.first);
  }
  const auto loaded = m_loaded.find(lang);
  for (const auto& entry : wanted) {
    const message_t* served = nullptr;
    if (loaded != m_loaded.end() && loaded->second.has_message(catalog, entry.first)) {
      served = &loaded->second.message(catalog, entry.first);
    }
    const strings::ustring8 from = served ? served->_orginal_locale() : strings::ustring8();
    if (from.empty() || from == "." || from == "en") result.missing.push_back(entry.first);
  }
  return result;
}

}  // namespace i18n
}  // namespace MOTA_2_18
