#include <mota/i18n/xmc_outline.hpp>

#include <mota/i18n/argument_comparison.hpp>
#include <mota/i18n/message_catalogs.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using mota::i18n::message_item;
using mota::i18n::read_xmc_outline;
using mota::i18n::xmc_outline;

namespace {

const std::string kHead = "<?xml version=\"1.0\"?>\n<xmc version=\"1.1\">";

// "include FILE;" per include, then per section "CATALOG[LANG]:" (no brackets without a lang)
// and its messages as " NAME{KEY}(ARG:TYPE)...", "~" marking a message without a name.
std::string describe(const xmc_outline& outline) {
  std::string text = outline.well_formed ? "" : "ill-formed ";
  for (const auto& file : outline.includes)
    text += "include " + file + "; ";
  for (const auto& section : outline.sections) {
    text += section.catalog + (section.has_lang ? "[" + section.lang + "]" : "") + ":";
    for (const auto& m : section.messages) {
      text += " " + (m.named ? m.name : "~") + "{" + m.key + "}";
      for (const auto& a : m.arguments)
        text += "(" + a.name + ":" + a.type + ")";
    }
    text += "; ";
  }
  return text;
}

}  // namespace

TEST(XmcOutline, KeepsEverySectionMessageAndArgumentAsWrittenUpToAFault) {
  // Keys ignore white space and formats, so that a written and a loaded variant compare.
  EXPECT_EQ(
      "include de.xmc; app[en]: a{xn}(n:Colour) ~{noname}; app[en]: a{}; app: b{t}(t:); c[de]:; ",
      describe(read_xmc_outline(
          kHead + "<include file=\"de.xmc\"/><catalog name=\"app\" lang=\"en\"><msg name=\"a\">x "
                  "<arg name=\"n\" type=\"Colour\"/><br/></msg><msg>no name</msg></catalog>"
                  "<catalog name=\"app\" lang=\"en\"><msg name=\"a\"/></catalog>"
                  "<catalog name=\"app\"><msg name=\"b\"><argument name=\"t\"/></msg></catalog>"
                  // Not where the loader takes them: a msg under the root, a catalog in a catalog.
                  "<msg name=\"stray\"/><catalog name=\"c\" lang=\"de\"><catalog name=\"inner\"/>"
                  "</catalog></xmc>")));
  EXPECT_EQ("xn", mota::i18n::message_key(mota::i18n::message_t(
                      "a", {message_item(" x\n"),
                            message_item(std::string("n\x01hex\x01") + "1", message_item::int_)})));
  // what was read before an XML fault is kept
  EXPECT_EQ("ill-formed app[en]: a{x}; ",
            describe(read_xmc_outline(
                kHead + "<catalog name=\"app\" lang=\"en\"><msg name=\"a\">x</mgs>")));
  EXPECT_EQ("ill-formed ", describe(read_xmc_outline("")));
}

// The keyword table must agree with the loader's: each keyword, in odd case, is loaded and
// the kind the loader gave is compared with the table's.
TEST(XmcOutline, KeywordKindsAgreeWithTheLoader) {
  mota_test::temp_dir dir;
  const char* const words[] = {"date",        "Duration", "MEMORY",      "mem",    "mem_unit",
                               "memory_unit", "metric",   "metric_unit", "number", "int",
                               "double",      "string",   "time",        "colour", "memory unit"};
  for (const char* word : words) {
    const std::string path = dir.str() + "/k.xmc";
    std::ofstream(path) << kHead
                        << "<catalog name=\"k\" lang=\"en\"><msg name=\"m\"><arg name=\"v\" type=\""
                        << word << "\"/></msg></catalog></xmc>";
    mota::i18n::message_catalogs catalogs;
    ASSERT_EQ(0, catalogs.load_file(path, "en").type) << word;
    const mota::i18n::message_t& m = catalogs.message("k", "m");
    ASSERT_EQ(1u, m.size()) << word;
    EXPECT_EQ(m.begin()->type(), mota::i18n::kind_of_keyword(word)) << word;
    EXPECT_EQ(std::string(word) != "colour" && std::string(word) != "memory unit",
              mota::i18n::is_type_keyword(word))
        << word;
  }
  // Every kind's keyword, as the tools print it, reads back as that kind.
  for (int k = message_item::string; k <= message_item::duration; ++k) {
    const auto kind = static_cast<message_item::type_t>(k);
    EXPECT_EQ(kind, mota::i18n::kind_of_keyword(mota::i18n::kind_keyword(kind))) << k;
  }
  EXPECT_STREQ("unknown", mota::i18n::kind_keyword(static_cast<message_item::type_t>(12)));
  EXPECT_TRUE(mota::i18n::always_renders_invalid(message_item::time));
  EXPECT_FALSE(mota::i18n::always_renders_invalid(message_item::duration));
}
