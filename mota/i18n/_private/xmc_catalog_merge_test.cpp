#include <mota/i18n/_private/xmc_catalog_merge.hpp>

#include <gtest/gtest.h>

#include <string>

using mota::i18n::catalog_t;
using mota::i18n::message_t;
using mota::i18n::_private::merge_catalogs;
using mota::i18n::_private::xmc_file_loader;

namespace {

message_t variant(const char* name, const char* text, const char* locale) {
  message_t m(name, {mota::i18n::message_item(text)});
  m._orginal_locale(locale);
  return m;
}

std::string dump(const xmc_file_loader::catalog_map& catalogs) {
  std::string out;
  for (const auto& c : catalogs) {
    out += "[" + c.second->name() + " langs:";
    for (auto it = c.second->languages_begin(); it != c.second->languages_end(); ++it)
      out += *it + ",";
    for (const auto& m : *c.second)
      out += " " + m.first + "=" + m.second.begin()->data() + "/" + m.second._orginal_locale();
    out += "]";
  }
  return out;
}

}  // namespace

// Moving map nodes (or a whole map into an empty catalog) must give what copying message by
// message gives: the same winners and a language set rebuilt from the merged messages.
TEST(XmcCatalogMerge, MovingMergeEqualsCopyingMerge) {
  mota::i18n::_private::language_list languages;
  languages.add("de");  // ".", "en", "de"
  xmc_file_loader::data_map loaded;
  loaded["full"]["a"] = variant("a", "en a", "en");  // vs de: kept out
  loaded["full"]["b"] = variant("b", "de b", "de");  // vs de: equal, the later load wins
  loaded["full"]["c"] = variant("c", "de c", "de");  // vs en: replaces
  loaded["full"]["new"] = variant("new", "en new", "en");
  loaded["fresh"]["x"] = variant("x", "de x", "de");

  auto before = [] {
    xmc_file_loader::catalog_map catalogs;
    catalogs["full"].reset(new catalog_t);
    catalogs["full"]->message("a", variant("a", "old a", "de"));
    catalogs["full"]->message("b", variant("b", "old b", "de"));
    catalogs["full"]->message("c", variant("c", "old c", "en"));
    catalogs["fresh"];                                        // a null entry gets a catalog
    EXPECT_TRUE(catalogs["full"]->is_language_loaded("en"));  // builds the language cache
    return catalogs;
  };
  xmc_file_loader::catalog_map copied = before();
  merge_catalogs(loaded, copied, languages);
  xmc_file_loader::catalog_map moved = before();
  xmc_file_loader::data_map taken = loaded;
  merge_catalogs(std::move(taken), moved, languages);

  EXPECT_EQ(dump(copied), dump(moved));
  EXPECT_EQ(
      "[fresh langs:de, x=de x/de][full langs:de,en, a=old a/de b=de b/de c=de c/de new=en new/en]",
      dump(moved));
  EXPECT_TRUE(taken.empty());
}
