// Conversions reuse iconv descriptors kept per thread: results must not depend on which
// conversions ran before, in this thread or in another one.
#include <mota/strings/code_page.hpp>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>

using mota::strings::code_page;

namespace {

// The byte 0xE9 in several single-byte sets, and its UTF-8 form in each.
const std::pair<code_page::encoding_type, std::string> e9_cases[] = {
    {code_page::windows_1252, "\xC3\xA9"}, {code_page::windows_1251, "\xD0\xB9"},
    {code_page::windows_1253, "\xCE\xB9"}, {code_page::iso_8859_5, "\xD1\x89"},
    {code_page::koi8_r, "\xD0\x98"},       {code_page::iso_8859_15, "\xC3\xA9"},
};

// Converts 0xE9 both ways with every page in turn, `rounds` times; more pages than the cache
// keeps, so descriptors are closed and opened again on the way. Returns the number of wrong
// results.
int wrong_results(int rounds) {
  int wrong = 0;
  for (int round = 0; round < rounds; ++round) {
    for (const auto& [type, utf8] : e9_cases) {
      const code_page page(type);
      if (page.as_utf8("x\xE9") != "x" + utf8) ++wrong;
      if (page.encode(mota::strings::ustring8("x" + utf8)) != "x\xE9") ++wrong;
    }
  }
  return wrong;
}

}  // namespace

TEST(CodePageCache, NoStateCarriesOverBetweenCallsOrThreads) {
  const code_page page(code_page::windows_1252);
  // A sequence cut short at the end is dropped; the next call starts afresh, so its lone
  // continuation byte is undecodable rather than the end of the earlier sequence.
  EXPECT_EQ("a", page.encode(mota::strings::ustring8("a\xC3")));
  EXPECT_EQ("?", page.encode(mota::strings::ustring8("\xA9")));
  EXPECT_EQ("\xE9", page.encode(mota::strings::ustring8("\xC3\xA9")));
  // Each thread also runs the pages in turn, so it checks what one thread alone sees as well.
  int wrong[2] = {0, 0};
  std::thread first([&] { wrong[0] = wrong_results(200); });
  std::thread second([&] { wrong[1] = wrong_results(200); });
  first.join();
  second.join();
  EXPECT_EQ(0, wrong[0] + wrong[1]);
}
