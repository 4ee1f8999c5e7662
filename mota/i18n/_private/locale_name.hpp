// Not part of the public interface.
//
// How catalogs compare locale names: "." and "-" read as "_", so de-DE.UTF-8 and de_DE_UTF_8
// name the same locale.
#ifndef MOTA_I18N_PRIVATE_LOCALE_NAME_HPP
#define MOTA_I18N_PRIVATE_LOCALE_NAME_HPP

#include <mota/strings/ustring.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// `locale` with every "." and "-" replaced by "_".
inline strings::ustring8 underscored_locale(strings::ustring8 locale) {
  for (char& c : locale) {
    if (c == '.' || c == '-') c = '_';
  }
  return locale;
}

// The form the loader weighs and stores: as underscored_locale, except that a one-byte locale
// such as the language-neutral "." is kept as written.
inline strings::ustring8 normalise_locale(const strings::ustring8& locale) {
  return locale.size() == 1 ? locale : underscored_locale(locale);
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_LOCALE_NAME_HPP
