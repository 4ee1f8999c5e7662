// mota catalog lint and the every-file report of mota catalog check, run in-process on the
// example catalogs and on the broken set made for the lint.
#include "commands.hpp"

#include <mota_test.hpp>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct run_result {
  int code = -1;
  std::string out, err;
};

run_result run(const std::vector<std::string>& words) {
  std::istringstream in;
  std::ostringstream out, err;
  const char* const envp[] = {nullptr};
  const int code = mota_tool::run_mota(words, in, out, err, envp);
  return {code, out.str(), err.str()};
}

std::string example(const std::string& relative) {
  return mota_test::source_dir() + "/examples/" + relative;
}

std::size_t occurrences(const std::string& text, const std::string& part) {
  std::size_t n = 0;
  for (std::size_t pos = text.find(part); pos != std::string::npos; pos = text.find(part, pos + 1))
    ++n;
  return n;
}

}  // namespace

TEST(ToolCatalogCheck, ReportsEveryBrokenFileAndStillListsTheGoodCatalogs) {
  const run_result r =
      run({"catalog", "check", example("broken"), example("catalogs"), "--locale", "en"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(
      "kinds: 20 messages; languages: .\nshop: 6 messages; languages: en\n"
      "store: 10 messages; languages: en\n",
      r.out);
  // Every broken example but no_language.xmc (which loads nothing without failing), and the
  // lint set's bad version; its bad attribute sits in an Italian section that a load for en
  // passes over.
  const char* const broken[] = {"br_with_content",     "include_cycle",     "mismatched_end_tag",
                                "missing_include",     "unknown_attribute", "unknown_element",
                                "unsupported_version", "wrong_root",        "lint/faults/version"};
  EXPECT_EQ(std::size(broken), occurrences(r.err, "message_catalogs::result_type - ")) << r.err;
  for (const char* name : broken) {
    EXPECT_NE(std::string::npos, r.err.find("in file: \"" + example("broken/") + name + ".xmc\""))
        << name;
  }
}

TEST(ToolCatalogCheck, JsonHoldsTheCatalogsAndEveryFailure) {
  const std::string bad = example("broken/unknown_attribute.xmc");
  const run_result r = run({"catalog", "check", bad, example("catalogs/fr/shop.xmc"), "--locale",
                            "fr", "--json", "--messages"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("", r.err);
  EXPECT_EQ(
      "{\n  \"catalogs\": [\n    {\"name\": \"shop\", \"messages\": 4, \"languages\": "
      "[\"fr\"], \"message_languages\": {\"cart\": \"fr\", \"distance\": \"fr\", "
      "\"download\": \"fr\", \"greeting\": \"fr\"}}\n  ],\n  \"errors\": [\"message_catalogs::"
      "result_type - XMC file is not valid\\n xmc_file_loader::load_error - Invalid attibute "
      "\\\"typ\\\"\\n in message element: \\\"cart\\\"\\n in catalog element: \\\"shop\\\"\\n "
      "in file: \\\"" +
          bad + "\\\"\"],\n  \"status\": 1\n}\n",
      r.out);
}

TEST(ToolCatalogLint, ExampleCatalogsHaveOnlyTheWarningsTheyShowOnPurpose) {
  const std::string d = example("catalogs");
  // kinds.xmc shows every type keyword, the odd ones included; German and French lack two
  // messages, which fall back to English.
  const std::string kinds = d + "/kinds.xmc: catalog \"kinds\" [.] message ";
  const std::string expected =
      "kinds [.]: 20 messages (reference)\n"
      "shop [en]: 6 messages (reference)\n"
      "shop [de]: 4 messages, 2 missing, 0 extra against [en]\n"
      "shop [fr]: 4 messages, 2 missing, 0 extra against [en]\n" +
      kinds +
      "\"unknown_word\": warning: argument \"v\" has type \"colour\", which the loader reads "
      "as string [unknown-type]\n" +
      kinds + "\"number\": " +
      "warning: argument \"v\" has kind \"number\", which always "
      "renders \"?invalid?\" [invalid-kind]\n" +
      kinds +
      "\"time\": warning: argument \"v\" has kind \"time\", which always renders "
      "\"?invalid?\" [invalid-kind]\n" +
      kinds +
      "\"date\": warning: argument \"v\" has kind \"date\", which always renders "
      "\"?invalid?\" [invalid-kind]\n"
      "catalog \"shop\" [de]: warning: 2 messages not translated, shown in \"en\": "
      "\"farewell\", \"receipt\" [missing-messages]\n"
      "catalog \"shop\" [fr]: warning: 2 messages not translated, shown in \"en\": "
      "\"farewell\", \"receipt\" [missing-messages]\n"
      "catalog lint: 4 files, 2 catalogs, 4 languages: 0 errors, 6 warnings\n";
  run_result r = run({"catalog", "lint", d});
  EXPECT_EQ(3, r.code);
  EXPECT_EQ(expected, r.out);
  EXPECT_EQ("", r.err);
  // --strict: the same findings, as errors.
  r = run({"catalog", "lint", d, "--strict"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(6u, occurrences(r.out, ": error: "));
  EXPECT_NE(std::string::npos, r.out.find("6 errors, 0 warnings\n"));
}

TEST(ToolCatalogLint, ACompleteTranslationIsClean) {
  mota_test::temp_dir dir;
  std::ofstream(dir.str() + "/app.xmc")
      << "<?xml version=\"1.0\"?>\n<xmc version=\"1.1\"><catalog name=\"app\" lang=\"en\">"
         "<msg name=\"hi\">Hello <arg name=\"who\"/></msg></catalog><catalog name=\"app\" "
         "lang=\"de\"><msg name=\"hi\">Hallo <arg name=\"who\" type=\"string\"/></msg>"
         "</catalog></xmc>";
  const run_result r = run({"catalog", "lint", dir.str(), "--strict"});
  EXPECT_EQ(0, r.code) << r.out;
  EXPECT_EQ(
      "app [en]: 1 message (reference)\napp [de]: 1 message, 0 missing, 0 extra against "
      "[en]\ncatalog lint: 1 file, 1 catalog, 2 languages: 0 errors, 0 warnings\n",
      r.out);
}

TEST(ToolCatalogLint, BrokenSetShowsEveryFinding) {
  const std::string d = example("broken/lint"), app = d + "/app.xmc: ", de = d + "/de.xmc: ";
  const std::string store = "catalog \"store\" [de] message ";
  const std::string expected =
      "store [en]: 10 messages (reference)\n"
      "store [de]: 8 messages, 3 missing, 1 extra against [en]\n"
      "error: message_catalogs::result_type - XMC file is not valid\n"
      "    xmc_file_loader::load_error - XMC version \"1.2\" is not supported\n"
      "    in file: \"" +
      d +
      "/faults/version.xmc\" [load-error]\n"
      "error: message_catalogs::result_type - XMC file is not valid\n"
      "    xmc_file_loader::load_error - Invalid attibute \"typ\"\n"
      "    in message element: \"greeting\"\n"
      "    in catalog element: \"store\"\n"
      "    in file: \"" +
      d + "/faults/attribute.xmc\" [load-error]\n" + app +
      "catalog \"store\" [en] message \"due\": warning: argument \"when\" has kind "
      "\"time\", which always renders \"?invalid?\" [invalid-kind]\n" +
      app +
      "catalog \"store\" [en] message \"colour\": warning: argument \"shade\" has type "
      "\"colour\", which the loader reads as string [unknown-type]\n" +
      app +
      "catalog \"store\" [en]: warning: message without a name is stored under the empty "
      "name [unnamed-message]\n" +
      app +
      "catalog \"legal\": warning: catalog section has no language and is never loaded "
      "[no-language]\n" +
      de + store +
      "\"colour\": warning: argument \"shade\" has type \"colour\", which the "
      "loader reads as string [unknown-type]\n"
      "catalog \"store\" [de]: warning: catalog section written 2 times in " +
      d +
      "/de.xmc; their messages merge [duplicate-section]\n"
      "catalog \"store\" [en] message \"about\": warning: message written 2 times in " +
      d + "/app.xmc; the loader keeps the first (in " + d +
      "/app.xmc) [duplicate-message]\n"
      "catalog \"help\": warning: catalog has no English (en) or language-neutral (.) messages; "
      "its languages are not compared [no-reference]\n" +
      store +
      "\"receipt\": error: message holds bytes that are not UTF-8 [invalid-utf8]\n"
      "catalog \"store\" [de]: warning: 3 messages not translated, shown in \"en\": \"\", "
      "\"about\", \"due\" [missing-messages]\n"
      "catalog \"store\" [de]: warning: 1 message that \"en\" does not have: \"bonus\" "
      "[extra-messages]\n" +
      store +
      "\"cart\": error: argument \"total\" is double in \"en\" but int in \"de\" "
      "[argument-kind]\n" +
      store +
      "\"checkout\": warning: text is the same as in \"en\" (not translated?) "
      "[untranslated]\n" +
      store + "\"colour\": error: argument \"tone\" is not in \"en\" [argument-extra]\n" + store +
      "\"greeting\": error: argument \"user\" of \"en\" is called \"name\" "
      "[argument-renamed]\n" +
      store +
      "\"paid\": warning: argument \"amount\" is formatted \"precision=2\" in \"en\" "
      "but \"precision=3\" in \"de\" [argument-format]\n" +
      store +
      "\"saved\": error: argument \"size\" of \"en\" is missing [argument-missing]\n"
      "catalog lint: 4 files, 2 catalogs, 4 languages: 7 errors, 12 warnings\n";
  const run_result r = run({"catalog", "lint", d});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(expected, r.out);
}

TEST(ToolCatalogLint, JsonIsOneDocumentWithStableKeys) {
  const run_result r = run({"catalog", "lint", example("broken/lint"), "--json"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(0u, r.out.find("{\n  \"statistics\": [\n    {\"catalog\": \"store\", \"language\": "
                           "\"en\", \"reference\": \"en\", \"present\": 10, \"missing\": [], "
                           "\"extra\": []},\n"));
  EXPECT_NE(std::string::npos,
            r.out.find("{\"severity\": \"error\", \"check\": \"argument-kind\", \"file\": \"\", "
                       "\"catalog\": \"store\", \"language\": \"de\", \"message\": \"cart\", "
                       "\"text\": \"argument \\\"total\\\" is double in \\\"en\\\" but int in "
                       "\\\"de\\\"\"}"));
  // Load failures keep their lines as \n inside one string.
  EXPECT_NE(std::string::npos,
            r.out.find("not valid\\n xmc_file_loader::load_error - XMC version"));
  const std::string tail =
      "\n  ],\n  \"summary\": {\"files\": 4, \"catalogs\": 2, \"languages\": 4, \"errors\": 7, "
      "\"warnings\": 12, \"status\": 1}\n}\n";
  ASSERT_GE(r.out.size(), tail.size());
  EXPECT_EQ(tail, r.out.substr(r.out.size() - tail.size()));
}

TEST(ToolCatalogLint, UsageFaultsAndMissingPaths) {
  run_result r = run({"catalog", "lint"});
  EXPECT_EQ(64, r.code);
  EXPECT_EQ(0u, r.err.find("mota: catalog lint needs a PATH\n")) << r.err;
  EXPECT_EQ(64, run({"catalog", "lint", example("catalogs"), "--locale", "en"}).code);
  r = run({"catalog", "lint", example("no/such/place")});
  EXPECT_EQ(1, r.code);
  EXPECT_NE(std::string::npos,
            r.out.find("error: message_catalogs::result_type - Entity (file or directory) \"" +
                       example("no/such/place") + "\" was not found on disk [load-error]\n"));
}

// The file read first (de/ sorts before shop.xmc) can hold the variant that is kept: the later
// file includes it before writing its own variant, and within one load the first one wins.
TEST(ToolCatalogLint, DuplicateReportNamesTheVariantTheLoaderKept) {
  mota_test::temp_dir dir;
  std::filesystem::create_directory(dir.path() / "de");
  const std::string head = "<?xml version=\"1.0\"?>\n<xmc version=\"1.1\">";
  std::ofstream(dir.str() + "/de/app.xmc")
      << head << "<catalog name=\"c\" lang=\"de\"><msg name=\"hi\">A</msg></catalog></xmc>";
  std::ofstream(dir.str() + "/shop.xmc")
      << head << "<include file=\"de/app.xmc\"/><catalog name=\"c\" lang=\"de\">"
      << "<msg name=\"hi\">B</msg></catalog></xmc>";
  const run_result r = run({"catalog", "lint", dir.str()});
  EXPECT_NE(std::string::npos,
            r.out.find("message written 2 times in " + dir.str() + "/de/app.xmc, " + dir.str() +
                       "/shop.xmc; the loader keeps the first (in " + dir.str() + "/de/app.xmc)"))
      << r.out;
}
