#include <mota/i18n/_private/xmc_tokens.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

using mota::strings::ustring8;

namespace {

// Both token forms of one document, written as "kind:text" lines, with the scan's outcome.
std::string from_stream(const std::string& text) {
  mota::parser::xml_token_stream stream;
  auto result = stream.parse(ustring8(text));
  std::string out = std::to_string(result.type) + "@" + std::to_string(result.line) + "\n";
  for (const auto& t : stream)
    out += std::to_string(t.type()) + ":" + t.value() + "\n";
  return out;
}

std::string from_buffer(const std::string& text) {
  mota::i18n::_private::xmc_token_buffer buffer;
  auto result = buffer.parse(ustring8(text));
  std::string out = std::to_string(result.type) + "@" + std::to_string(result.line) + "\n";
  for (const mota::i18n::_private::xmc_token& t : buffer.tokens())
    out += std::to_string(t.kind) + ":" + std::string(buffer.text(t)) + "\n";
  return out;
}

}  // namespace

// The loader's compact tokens must be the token stream's tokens: same kinds, texts and order,
// also up to a scan failure.
TEST(XmcTokenBuffer, MatchesTheTokenStream) {
  const char* const kDocuments[] = {
      "<?xml?><r a='1'><!--c--> x</r>",
      "<?xml?><r><a b=\"&lt;&#65;\"/><!--x--><b>one  two<br/>&amp;</b>\n <![CDATA[<z>]]></r>",
      "<?xml?><r><aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa/></r>",  // name stored twice
      "<?xml?><r><a></b></r>",                              // fails after some tokens
      "<?xml?><r x='1' x='2'/>",
      "<?xml?><r>text &zz; more</r>",
      "<?xml?>",
      "",
  };
  for (const char* doc : kDocuments)
    EXPECT_EQ(from_stream(doc), from_buffer(doc)) << doc;

  // And every catalog file the loader's tests read, which hold the elements catalogs use.
  const std::string root = mota_test::source_dir() + "/mota/i18n/testdata";
  int files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(from_stream(text), from_buffer(text)) << entry.path();
    ++files;
  }
  EXPECT_GT(files, 20);
}
