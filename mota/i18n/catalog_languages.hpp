// Message catalogs read once per language, so that a checker can set every language of a
// catalog beside its reference language. For each language the files are loaded as an
// application loading them for that locale would, each file on its own so that every broken
// file is seen; a message then belongs to the language it was written in.
//
//   mota::i18n::catalog_languages languages;
//   languages.load({"app.xmc"}, {"en", "de"});
//   for (const auto& e : languages.errors()) report(e);
//   auto german = languages.own_messages("app", "de");
#ifndef MOTA_I18N_CATALOG_LANGUAGES_HPP
#define MOTA_I18N_CATALOG_LANGUAGES_HPP

#include <mota/export.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/strings/ustring.hpp>

#include <map>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {

// How one language of a catalog covers the messages of the reference language.
struct MOTA_API language_coverage {
  std::vector<strings::ustring8> present;  ///< written in this very language
  std::vector<strings::ustring8> missing;  ///< in the reference, served from "." or "en" here
  std::vector<strings::ustring8> extra;    ///< written in this language, absent from the reference
};

// One catalog set loaded once per language, for comparing the languages with each other.
class MOTA_API catalog_languages {
 public:
  // Message name to the message loaded for one language.
  using message_map = std::map<strings::ustring8, const message_t*>;

  // Loads every file for every language of `languages` (an empty language is skipped). Each
  // load failure is kept once in errors(), with the loader's wording and trail; a failing file
  // adds nothing for that language, the other files still load.
  void load(const std::vector<strings::ustring8>& files,
            const std::vector<strings::ustring8>& languages);

  // The distinct load failures, in the order they were met.
  const std::vector<strings::ustring8>& errors() const { return m_errors; }
  // The languages loaded, in byte order.
  std::vector<strings::ustring8> languages() const;
  // The catalogs loaded in any language, in byte order.
  std::vector<strings::ustring8> catalogs() const;

  // The messages of `catalog` written in exactly `lang` (as the files spell it), by name.
  message_map own_messages(const strings::ustring8& catalog, const strings::ustring8& lang) const;

  // The reference language of `catalog`: "en" when it has English messages, else "." when it
  // has language-neutral ones, else empty.
  strings::ustring8 reference_language(const strings::ustring8& catalog) const;

  // How `lang` covers `reference`'s messages of `catalog`. A message counts as missing when a
  // load for `lang` serves it from "." or "en" (the fall-backs every load has) rather than from
  // `lang` or a less specific form of it (de serves de_DE).
  language_coverage coverage(const strings::ustring8& catalog, const strings::ustring8& lang,
                             const strings::ustring8& reference) const;

 private:
  std::map<strings::ustring8, message_catalogs> m_loaded;
  std::vector<strings::ustring8> m_errors;
};

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_CATALOG_LANGUAGES_HPP
