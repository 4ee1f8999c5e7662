#include <mota/i18n/_private/language_list.hpp>

#include <mota/i18n/_private/locale_name.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::i18n::_private::language_list;
using mota::strings::ustring8;

namespace {

// The plain rule: normalise a copy, then find its first position in the list.
std::uint32_t reference_weight(const language_list& list, const ustring8& locale) {
  const ustring8 normal = mota::i18n::_private::normalise_locale(locale);
  const auto& entries = list.entries();
  auto found = std::find(entries.begin(), entries.end(), normal);
  return found == entries.end() ? 0 : static_cast<std::uint32_t>(found - entries.begin() + 1);
}

message_t in_locale(const char* locale) {
  message_t m("m", {message_item(locale)});
  m._orginal_locale(locale);
  return m;
}

}  // namespace

// weight() compares without building the normalised copy; it must agree with the plain rule
// for every locale of up to five bytes over the bytes that matter.
TEST(LanguageList, WeightAgreesWithNormaliseAndFind) {
  language_list list;
  list.add("de-DE.UTF-8");
  list.add("_e.");
  list.add("");
  std::vector<std::string> locales = {""};
  for (std::size_t i = 0; i < locales.size(); ++i)
    if (locales[i].size() < 5)
      for (char c : std::string("._-dDeEn"))
        locales.push_back(locales[i] + c);
  int weighed = 0;
  for (const std::string& locale : locales) {
    ASSERT_EQ(reference_weight(list, locale), list.weight(locale)) << locale;
    weighed += list.weight(locale) != 0;
  }
  EXPECT_GE(weighed, 10);  // "", ".", "en", "de", "_e" and "de_DE" in their spellings
}

// The one rule for two variants of a message, in both of its tie forms.
TEST(LanguageList, ReplacesByWeightThenTie) {
  language_list list;
  list.add("de_DE");  // ".", "en", "de", "de_DE"
  using tie = language_list::on_tie;
  const message_t nil;
  const std::tuple<message_t, const char*, bool, bool> kCases[] = {
      {nil, "fr", true, true},  // an empty slot takes anything, even an unwanted locale
      {in_locale("en"), "de", true, true},
      {in_locale("de"), "en", false, false},
      {in_locale("de"), "de", false, true},
      {in_locale("de"), "de-DE", true, true},
      {in_locale("fr"), "fr", false, true},  // both weigh 0
  };
  for (const auto& [stored, locale, keep_stored, take_new] : kCases) {
    const message_t candidate = in_locale(locale);
    EXPECT_EQ(keep_stored, list.replaces(stored, candidate, tie::keep_stored)) << locale;
    EXPECT_EQ(take_new, list.replaces(stored, candidate, tie::take_new)) << locale;
  }
}
