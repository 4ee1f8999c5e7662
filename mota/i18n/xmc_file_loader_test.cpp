#include <mota/i18n/_private/xmc_file_loader.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

using mota::i18n::message_t;
using mota::i18n::_private::xmc_file_loader;
using load_error = xmc_file_loader::load_error;

namespace {

const std::string kPrefix = "xmc_file_loader::load_error - ";
const std::string kSep(1, '\x01');

const std::string kData = mota_test::source_dir() + "/mota/i18n/testdata/";

std::string in_file(const std::string& file) {
  return "\n in file: \"" + file + "\"";
}

// The items of a loaded message as "type:data" strings.
std::vector<std::string> items_of(const message_t& m) {
  std::vector<std::string> out;
  for (const mota::i18n::message_item& item : m)
    out.push_back(std::to_string(item.type()) + ":" + item.data());
  return out;
}

std::string xmc(const std::string& body) {
  return "<?xml version=\"1.0\"?>\n<xmc version=\"1.0\">" + body + "</xmc>";
}

}  // namespace

// The other kinds and context lines are worded by the file-driven tests below. Values outside
// the enumerations are named by type and value.
TEST(XmcLoadError, TextsNoFileYieldsAndUnknownValues) {
  EXPECT_EQ(kPrefix + "No catalog was loaded in file: \"f.xmc\"",
            load_error(xmc_file_loader::no_catalog_loaded, "f.xmc").message);
  const std::string unknown = load_error(static_cast<xmc_file_loader::error_type>(99), "").message;
  EXPECT_EQ(0u, unknown.find("< "));
  EXPECT_NE(std::string::npos, unknown.find(" value of 99 >"));
  load_error e(xmc_file_loader::no_error, "");
  e.append_error_stack(static_cast<load_error::append_type>(9), "ignored");
  EXPECT_EQ(0u, e.message.find(kPrefix + "No Error< "));
  EXPECT_NE(std::string::npos,
            e.message.find(" value of 9 >\n unknown, or unhandle case happened!"));
}

TEST(XmcLoader, LanguageListAndEmptyLocale) {
  const std::tuple<const char*, std::vector<mota::strings::ustring8>> cases[] = {
      {"de-DE.UTF-8", {".", "en", "de", "de_DE", "de_DE_UTF", "de_DE_UTF_8"}},
      {"", {".", "en"}},
      {".", {".", "en", "."}},
      {"de__AT_", {".", "en", "de", "de_", "de__AT"}},
  };
  for (const auto& [locale, expected] : cases) {
    xmc_file_loader loader;
    loader.handle_language(locale);
    EXPECT_EQ(expected, loader.languages()) << locale;
  }
  // parse() refuses an empty locale before it looks for the file
  xmc_file_loader loader;
  load_error e = loader.parse("/no/such/file.xmc", "");
  EXPECT_EQ(2, e.type);
  EXPECT_EQ(kPrefix + "Default locale lookup not supported yet", e.message);
  EXPECT_EQ(3, loader.parse("/no/such/file.xmc", "en").type);
}

// Which language wins, and includes relative to their file, are rendered by the examples of
// docs/xmc-format.md; here the stored locale, what the document only says in words, the items
// a body is stored as (the last one with the blank a line break leaves), the catalog filter,
// and the first of two equal-weight variants winning within one load.
TEST(XmcLoader, LanguagesIncludesBodiesCatalogFilterAndCombineData) {
  xmc_file_loader loader;
  ASSERT_EQ(0, loader.parse(kData + "catalogs/app.xmc", "de_DE").type);
  EXPECT_EQ(kData + "catalogs/", loader.base_directory());
  EXPECT_EQ("de_DE", loader.data().at("app").at("hello")._orginal_locale());
  EXPECT_EQ("de", loader.data().at("app").at("only_de")._orginal_locale());
  EXPECT_EQ(".", loader.data().at("more").at("m1")._orginal_locale());  // sub/deeper/more.xmc

  xmc_file_loader en;
  ASSERT_EQ(0, en.parse(kData + "catalogs/app.xmc", "en").type);
  const message_t& files = en.data().at("app").at("files");
  EXPECT_EQ("count of files", files.meta());
  EXPECT_EQ((std::vector<std::string>{"0:You have ", "3:n" + kSep + "fieldsize" + kSep + "4",
                                      "0: files of ", "7:size" + kSep + "precision" + kSep + "1",
                                      "0: ", "8:size", "0:. "}),
            items_of(files));

  xmc_file_loader fr;
  ASSERT_EQ(0, fr.parse(kData + "catalogs/app.xmc", "fr", "extra").type);
  EXPECT_FALSE(fr.is_catalog_matched("app"));
  EXPECT_EQ(1u, fr.data().size());
  EXPECT_EQ(1u, fr.data().count("extra"));
  // the second language pass adds "." and "en" again
  EXPECT_EQ((std::vector<mota::strings::ustring8>{".", "en", "fr", ".", "en"}), fr.languages());

  // Within one load the first of two equal-weight variants wins. The merge rules are the
  // catalog merge's; this shows that combine_data copies into the map.
  xmc_file_loader::catalog_map catalogs;
  catalogs["dup"];
  xmc_file_loader first;
  ASSERT_EQ(0, first.parse(kData + "catalogs/first_wins.xmc", "de").type);
  first.combine_data(catalogs);
  ASSERT_TRUE(catalogs["dup"]);
  EXPECT_EQ("first", catalogs["dup"]->message("m").begin()->data());
  EXPECT_EQ("first", first.data().at("dup").at("m").begin()->data());  // the loader keeps its copy
}

// The kind of each type name is xmc_outline's test (against the loader) and the document's
// "Argument kinds" example; here the format attributes kept with an argument, and a section of
// another language skipped whatever it holds.
TEST(XmcLoader, FormatAttributesFollowTheNameAndSkippedSectionsMayHoldAnything) {
  xmc_file_loader loader;
  loader.handle_language("en");
  load_error e =
      loader.parse_string(xmc("<catalog name=\"c\" lang=\"en\"><msg name=\"m\">"
                              "<arg precision=\"2\" name=\"lost\"/>"
                              "<arg name=\"kept\" precision=\"2\" hex=\"\" type=\"int\"/>"
                              "<arg/></msg></catalog>"
                              "<catalog name=\"d\" lang=\"de\"><junk><br>x</br></junk></catalog>"),
                          "t.xmc");
  ASSERT_EQ(0, e.type) << e.message;
  EXPECT_EQ((std::vector<std::string>{
                "1:lost", "3:kept" + kSep + "precision" + kSep + "2" + kSep + "hex" + kSep, "1:"}),
            items_of(loader.data().at("c").at("m")));
  EXPECT_EQ(1u, loader.data().size());
}

// The texts that docs/xmc-format.md shows in full (a bad root, version, element, end tag or
// entity, an include cycle, a missing include) are checked there; the rows here are the others.
TEST(XmcLoader, EveryErrorKindFromAFileHeaderRulesAndXmlFaults) {
  const std::string dir = kData + "errors/";
  const std::tuple<const char*, int, std::string> cases[] = {
      // file, kind, text before the file line
      {"e03_empty_include.xmc", 3, "File \"\" was not found on disk"},
      {"e05_catalog_attribute.xmc", 5, "Invalid attibute \"size\""},
      {"e05_include_attribute.xmc", 5, "Invalid attibute \"path\""},
      {"e05_no_version.xmc", 5, "Invalid attibute \"release\""},
      {"e06_root_child.xmc", 6, "Invalid element \"strings\""},
      {"e10_msg_end.xmc", 10,
       "Expected msg (message) end tag not found for message \"m\"\n in catalog element: "
       "\"c\""},
      {"e12_include_content.xmc", 12, "Expected \"include\" end tag not found"},
      {"e14_no_element.xmc", 14, "Unexpected parse error happen!"},
  };
  for (const auto& [file, kind, text] : cases) {
    xmc_file_loader loader;
    load_error e = loader.parse(dir + file, "en");
    EXPECT_EQ(kind, e.type) << file;
    EXPECT_EQ(kPrefix + text + in_file(dir + file), e.message) << file;
  }

  // the header rules, then each XML fault (kind 4) as the loader words it
  const std::tuple<std::string, int, std::string> contents[] = {
      {"<?xml?><xmc/>", 5, "Invalid attibute \"\""},
      {"<?xml?><xmc version=\"1.1\" extra=\"ok\"><!-- c --> text </xmc>", 0, "No Error"},
      {"<?xml?><!-- only --><root/>", 7, "Not XMC file, root element is not XMC but \"root\""},
      {"<?xml?><xmc version=\"1.0\">", 4,
       "Unexpected end of file during XML parsing\n at line: \"0\""},
      {"<?xml version=\"1.0\"?>\n\n", 4, "No root element was found\n at line: \"2\""},
      {"<xmc version=\"1.0\"/>", 4, "Valid XML header not found\n at line: \"0\""},
      {"<?xml?><xmc version=\"1.0\"><1/></xmc>", 4,
       "Unexpected character \"1\" found while parsing\n at line: \"0\""},
      {"<?xml?>\n\n\n<xmc version \"1.0\"/>", 4,
       "Missing = sign for attribute \"version\"\n at line: \"3\""},
      {"<?xml?><xmc version=\"1.0\" version=\"1.1\"/>", 4,
       "attribute \"version\" is being redefined\n at line: \"0\""},
      {"<?xml?><xmc version=\"1.0\"/>\n<b/>", 4, "Data found after root element\n at line: \"1\""},
  };
  for (const auto& [content, kind, text] : contents) {
    xmc_file_loader loader;
    load_error e = loader.parse_string(content, "h.xmc");
    EXPECT_EQ(kind, e.type) << content;
    EXPECT_EQ(kPrefix + text + (kind ? in_file("h.xmc") : ""), e.message) << content;
  }
}

TEST(XmcLoader, IncludeDepthIsBoundedAndAFileIsReadOnce) {
  mota_test::temp_dir tmp;
  const unsigned int files = xmc_file_loader::max_include_depth + 5;
  const auto name = [](unsigned int i) { return "f" + std::to_string(i) + ".xmc"; };
  for (unsigned int i = 0; i < files; ++i)
    std::ofstream(tmp / name(i)) << xmc(i + 1 < files ? "<include file=\"" + name(i + 1) + "\"/>"
                                                      : "");
  load_error e = xmc_file_loader().parse(tmp / name(0), "en");
  EXPECT_EQ(14, e.type);
  const std::string deepest = tmp / name(xmc_file_loader::max_include_depth);
  EXPECT_EQ(0u, e.message.find(kPrefix + "Unexpected parse error happen!" + in_file(deepest)));
  // a chain within the bound loads
  EXPECT_EQ(0, xmc_file_loader().parse(tmp / name(files - 10), "en").type);

  // a link to a file read before is still refused
  std::ofstream(tmp / "x.xmc") << xmc(
      "<catalog name=\"c\" lang=\"en\"><msg name=\"m\">x</msg></catalog>");
  std::filesystem::create_symlink(tmp / "x.xmc", tmp / "link.xmc");
  std::ofstream(tmp / "top.xmc") << xmc(
      "<include file=\"x.xmc\"/><include file=\"./x.xmc\"/><include file=\"link.xmc\"/>");
  e = xmc_file_loader().parse(tmp / "top.xmc", "en");
  EXPECT_EQ(3, e.type);
  EXPECT_EQ(kPrefix + "File \"" + tmp / "link.xmc" + "\" was not found on disk" +
                in_file(tmp / "top.xmc"),
            e.message);
}
