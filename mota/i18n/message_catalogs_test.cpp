#include <mota/i18n/message_catalogs.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

using mota::generic::varg_list;
using mota::i18n::message_catalogs;
using mota::i18n::_private::xmc_file_loader;
using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;
using mota::types::variant;
using result_type = message_catalogs::result_type;

namespace {

const std::string kHead = "message_catalogs::result_type - ";

const std::string kData = mota_test::source_dir() + "/mota/i18n/testdata/";

ustring16 u16(const std::string& ascii) {
  return ustring16(ascii.begin(), ascii.end());
}
ustring32 u32(const std::string& ascii) {
  return ustring32(ascii.begin(), ascii.end());
}

// Writes a catalog file with one section, by default one message.
void write(const std::string& path, const std::string& catalog, const std::string& lang = "en",
           const std::string& body = "<msg name=\"m\">x</msg>") {
  std::ofstream(path) << "<?xml version=\"1.0\"?>\n<xmc version=\"1.0\"><catalog name=\"" << catalog
                      << "\" lang=\"" << lang << "\">" << body << "</catalog></xmc>";
}

// The names of the catalogs held, in order.
std::vector<std::string> names(const message_catalogs& cats) {
  std::vector<std::string> out;
  for (const auto& entry : cats)
    out.push_back(entry.first);
  return out;
}

}  // namespace

TEST(MessageCatalogsResult, MessagesByKindAndLoaderHeadlines) {
  const std::tuple<int, std::string> cases[] = {
      {3, kHead + "File \"d\" was not found on disk"},
      {4, kHead + "Directory \"d\" was not found on disk"},
      {5, kHead + "Entity (file or directory) \"d\" was not found on disk"},
  };
  for (const auto& [kind, expected] : cases)
    EXPECT_EQ(expected, result_type(static_cast<message_catalogs::error_type>(kind), "d").message);
  // kind 1 is shown in docs/xmc-format.md; a result prints as its message
  EXPECT_EQ(kHead + "No Error",
            testing::PrintToString(result_type(message_catalogs::no_error, "")));
  // A kind without a text of its own is named by its type and value (no head line).
  const std::string unknown =
      result_type(static_cast<message_catalogs::error_type>(2), "d").message;
  EXPECT_EQ(0u, unknown.find("< "));
  EXPECT_NE(std::string::npos,
            unknown.find(" value of 2 >\n unknown, or unhandle case happened!  str data=d"));

  // a loader's error under a headline; those of the kinds a file can give are shown in
  // docs/xmc-format.md
  const std::tuple<int, const char*> loads[] = {
      {0, "No Error\n "},
      {1, "No catalog was loaded\n "},
      {2, "Default locale lookup not supported yet\n "},
      {4, "XML parse error, XML file not well formed\n "},  // the loader's text for no parser fault
      {15, "Unhandled case\n "},
  };
  for (const auto& [kind, headline] : loads) {
    xmc_file_loader::load_error e(static_cast<xmc_file_loader::error_type>(kind), "x");
    EXPECT_EQ(kHead + headline + e.message, result_type(e).message);
  }
}

TEST(MessageCatalogs, LoadFileLookUpAndCatalogsForALocale) {
  message_catalogs cats;
  EXPECT_TRUE(cats == mota::types::nil);
  ASSERT_EQ(0, cats.load(kData + "catalogs/app.xmc", "de_DE").type);
  EXPECT_EQ(4u, cats.size());
  EXPECT_EQ(7u, cats.count(u16("app")));
  EXPECT_EQ(0u, cats.size(u32("nope")));

  varg_list args;
  args.push_back("who", variant(ustring8("Welt")));
  EXPECT_EQ("Guten Tag, Welt!", cats.message(u16("app"), u16("hello")).as_string(args));
  EXPECT_TRUE(cats.has_message("app", "only_en"));
  EXPECT_FALSE(cats.has_message(u32("app"), u32("only_fr")));
  EXPECT_FALSE(cats.has_message("nope", "hello"));
  EXPECT_EQ(&message_catalogs::s_nil_message, &cats.message("nope", "hello"));
  EXPECT_TRUE(cats.message("app", "nope") == mota::types::nil);
  EXPECT_FALSE(cats.has_catalog(u32("nolang")));  // no lang attribute: never loaded
  EXPECT_EQ(&message_catalogs::s_nil_catalog, &cats.catalog("nolang"));
  EXPECT_EQ("units", cats.catalog(u16("units")).name());

  EXPECT_EQ((std::vector<std::string>{"app", "extra", "more", "units"}), names(cats));
  EXPECT_EQ(7, std::distance(cats.begin("app"), cats.end("app")));
  EXPECT_EQ(cats.begin(u16("none")), cats.end(u32("none")));

  // catalogs for a locale
  EXPECT_TRUE(cats.has_catalog("app", "de-DE"));  // normalised like the loader does
  EXPECT_TRUE(cats.has_catalog(u16("app"), u16("de.DE")));
  EXPECT_TRUE(cats.has_catalog("units", "."));
  EXPECT_FALSE(cats.has_catalog("app", "fr"));
  EXPECT_FALSE(cats.has_catalog("nope", "en"));

  // the set holds locales as written: a file that writes de-AT never matches
  mota_test::temp_dir tmp;
  write(tmp / "at.xmc", "at", "de-AT");
  ASSERT_EQ(0, cats.load(tmp / "at.xmc", "de_AT").type);
  EXPECT_TRUE(cats.has_catalog("at"));
  EXPECT_FALSE(cats.has_catalog("at", "de-AT"));
  EXPECT_FALSE(cats.has_catalog("at", "de_AT"));
}

TEST(MessageCatalogs, LoadResultsForMissingEmptyAndFailedLoads) {
  message_catalogs cats;
  const std::string missing = kData + "no_such_entry";
  EXPECT_EQ(5, cats.load(missing, "en").type);
  EXPECT_EQ(4, cats.load_directory(missing, "en").type);
  EXPECT_EQ(3, cats.load_file(missing, "en").type);

  // every section filtered out: kind 1 while nothing is held, kind 0 afterwards
  const std::string file = kData + "dir/nested/c.xml";  // lang de only
  EXPECT_EQ(1, cats.load(file, "fr").type);
  EXPECT_EQ(0u, cats.size());
  ASSERT_EQ(0, cats.load(kData + "dir/a.xmc", "fr").type);  // en is always acceptable
  EXPECT_EQ(0, cats.load(file, "fr").type);
  EXPECT_EQ(1u, cats.size());

  // a failure stops the walk and keeps the catalogs loaded before it
  mota_test::temp_dir tmp;
  write(tmp / "good.xmc", "good");
  write(tmp / "bad.xmc", "bad", "en", "<oops/>");
  write(tmp / "later.xmc", "later");
  std::vector<std::string> paths{tmp / "good.xmc", tmp / "bad.xmc", tmp / "later.xmc"};
  EXPECT_EQ(13, cats.load(paths, "en").type);
  EXPECT_EQ((std::vector<std::string>{"a", "good"}), names(cats));
  message_catalogs dir_cats;
  EXPECT_EQ(13, dir_cats.load_directory(tmp.str(), "en").type);
  EXPECT_FALSE(dir_cats.has_catalog("bad"));
  paths = {tmp / "good.xmc", tmp / "gone.xmc"};
  EXPECT_EQ(5, message_catalogs().load(paths, "en").type);
}

TEST(MessageCatalogs, LoadDirectoryTakesCatalogFilesOnlyAndEndsLinkCycles) {
  message_catalogs cats;
  result_type r = cats.load(kData + "dir", "de");
  EXPECT_EQ(0, r.type) << r.message;
  // B.XMC (the suffix test ignores case) and nested/c.xml, but not notes.txt
  EXPECT_EQ((std::vector<std::string>{"a", "b", "c"}), names(cats));

  message_catalogs wide;
  EXPECT_EQ(0, wide.load_directory(u16(kData + "dir"), u16("en"), u16("b")).type);
  EXPECT_EQ(std::vector<std::string>{"b"}, names(wide));

  // a link back up the tree ends the walk
  mota_test::temp_dir tmp;
  std::filesystem::create_directory(tmp.path() / "d");
  write(tmp / "d/x.xmc", "x");
  std::filesystem::create_directory_symlink(tmp.path(), tmp.path() / "d" / "loop");
  EXPECT_EQ(0, wide.load(tmp.str(), "en").type);
  EXPECT_TRUE(wide.has_catalog("x"));
}

TEST(MessageCatalogs, LaterFilesOfEqualWeightReplaceMessages) {
  message_catalogs cats;
  ASSERT_EQ(0, cats.load_file(kData + "catalogs/first_wins.xmc", "de").type);
  ASSERT_EQ(0, cats.load_file(kData + "catalogs/later.xmc", "de").type);
  varg_list none;
  EXPECT_EQ("later file", cats.message("dup", "m").as_string(none));
  // weights are those of the new load's locale: for en, the stored de variant weighs 0
  ASSERT_EQ(0, cats.load_file(kData + "catalogs/later.xmc", "en", "dup").type);
  EXPECT_EQ("english", cats.message("dup", "m").as_string(none));
}

TEST(MessageCatalogs, CopiesShareCatalogsAndEraseRemoves) {
  message_catalogs cats;
  ASSERT_EQ(0, cats.load(kData + "dir", "de").type);
  cats.set_resolve_container({{"a", "b"}});
  message_catalogs copy(cats);
  EXPECT_EQ(&cats.catalog("a"), &copy.catalog("a"));
  cats.erase("a");
  cats.erase(u16("b"));
  EXPECT_EQ(1u, cats.size());
  EXPECT_EQ(3u, copy.size());
  cats.erase(u32("c"));
  EXPECT_TRUE(cats == mota::types::nil);
  cats = copy;
  EXPECT_EQ(&cats.catalog("b"), &copy.catalog("b"));
  copy.erase();
  EXPECT_EQ(0u, copy.size());
  copy = mota::types::nil;
  EXPECT_TRUE(copy.equal(mota::types::nil));
}
