#include <mota/i18n/catalog_languages.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <tuple>
#include <vector>

using mota::i18n::catalog_languages;
using mota::strings::ustring8;

namespace {

const std::string kHead = "<?xml version=\"1.0\"?>\n<xmc version=\"1.1\">";

std::string section(const std::string& lang, const std::vector<std::string>& names) {
  std::string text = "<catalog name=\"app\" lang=\"" + lang + "\">";
  for (const std::string& name : names)
    text += "<msg name=\"" + name + "\">" + name + " " + lang + "</msg>";
  return text + "</catalog>";
}

std::vector<ustring8> keys(const catalog_languages::message_map& messages) {
  std::vector<ustring8> names;
  for (const auto& entry : messages)
    names.push_back(entry.first);
  return names;
}

}  // namespace

TEST(CatalogLanguages, EachLanguageHoldsWhatWasWrittenInIt) {
  mota_test::temp_dir dir;
  const std::string app = dir / "app.xmc", de = dir / "de.xmc", bad = dir / "bad.xmc";
  std::ofstream(bad) << "<?xml version=\"1.0\"?>\n<xmc version=\"2.0\"></xmc>";
  std::ofstream(app) << kHead << section("en", {"a", "b", "c"}) << section(".", {"n"})
                     << section("fr", {"a", "z"}) << "</xmc>";
  std::ofstream(de) << kHead << section("de", {"a", "b"}) << section("de_DE", {"a"}) << "</xmc>";
  catalog_languages languages;
  // A broken file is reported once, not once per language, and the others still load.
  languages.load({bad, app, de}, {"en", ".", "fr", "de", "de_DE", ""});
  ASSERT_EQ(1u, languages.errors().size());
  EXPECT_NE(std::string::npos,
            languages.errors()[0].find("\"2.0\" is not supported\n in file: \"" + bad));
  EXPECT_EQ((std::vector<ustring8>{".", "de", "de_DE", "en", "fr"}), languages.languages());
  EXPECT_EQ(std::vector<ustring8>{"app"}, languages.catalogs());
  EXPECT_EQ((std::vector<ustring8>{"a", "b", "c"}), keys(languages.own_messages("app", "en")));
  EXPECT_EQ(std::vector<ustring8>{"a"}, keys(languages.own_messages("app", "de_DE")));
  EXPECT_EQ("de_DE", languages.own_messages("app", "de_DE").at("a")->_orginal_locale());
  EXPECT_TRUE(languages.own_messages("app", "it").empty());
  EXPECT_EQ("en", languages.reference_language("app"));
  EXPECT_EQ("", languages.reference_language("none"));

  // de_DE gets b from de, so only c falls back to English.
  const std::tuple<const char*, std::vector<ustring8>, std::vector<ustring8>, std::vector<ustring8>>
      cases[] = {{"de", {"a", "b"}, {"c"}, {}},
                 {"de_DE", {"a"}, {"c"}, {}},
                 {"fr", {"a", "z"}, {"b", "c"}, {"z"}}};
  for (const auto& [lang, present, missing, extra] : cases) {
    const mota::i18n::language_coverage coverage = languages.coverage("app", lang, "en");
    EXPECT_EQ(present, coverage.present) << lang;
    EXPECT_EQ(missing, coverage.missing) << lang;
    EXPECT_EQ(extra, coverage.extra) << lang;
  }
}
