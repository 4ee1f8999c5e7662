// Not part of the public interface.
//
// The locales one catalog load accepts, least specific first, and the rule that decides which
// of two language variants of a message is kept.
//
//   language_list langs;
//   langs.add("de-DE");            // ".", "en", "de", "de_DE"
//   langs.weight("de_DE");         // 4: the most specific entry weighs most
#ifndef MOTA_I18N_PRIVATE_LANGUAGE_LIST_HPP
#define MOTA_I18N_PRIVATE_LANGUAGE_LIST_HPP

#include <mota/export.hpp>
#include <mota/i18n/message.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <string_view>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

class language_list {
 public:
  // What happens when both variants weigh the same.
  enum class on_tie { keep_stored, take_new };

  // Appends the fall-back entries "." and "en", then the locale's prefixes: de-DE.UTF-8 adds
  // de, de_DE, de_DE_UTF, de_DE_UTF_8 ("." and "-" read as "_"; "en" itself is not repeated).
  void add(const strings::ustring8& locale);
  void clear() { m_entries.clear(); }
  const std::vector<strings::ustring8>& entries() const { return m_entries; }

  // The 1-based position of the first entry equal to `locale` read the way add() reads it
  // (a one-byte locale such as "." as written); 0 when the locale is not accepted.
  std::uint32_t weight(std::string_view locale) const;

  // Whether `candidate` takes the place of `stored`: always when `stored` is empty (nil),
  // otherwise when its locale weighs more, or as much and `tie` says so. Within one load the
  // first of two equal variants stays; a later load replaces an equal one.
  bool replaces(const message_t& stored, const message_t& candidate, on_tie tie) const {
    return replaces(stored, weight(candidate._orginal_locale()), tie);
  }
  // The same for a candidate whose weight is already known.
  bool replaces(const message_t& stored, std::uint32_t candidate_weight, on_tie tie) const;

 private:
  std::vector<strings::ustring8> m_entries;
};

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_LANGUAGE_LIST_HPP
