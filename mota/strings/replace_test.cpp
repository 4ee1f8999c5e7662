#include <mota/strings/replace.hpp>

#include <gtest/gtest.h>

#include <string>

namespace s = mota::strings;

TEST(ReplaceAll, ReplacesLeftToRightWithoutRescanningReplacements) {
  // "aaa": the inserted pattern is not replaced again.
  struct {
    const char* text;
    const char* what;
    const char* with;
    const char* result;
    int count;
  } const cases[] = {
      {"a-b-c", "-", "+", "a+b+c", 2}, {"aaa", "a", "aa", "aaaaaa", 3},
      {"aaaa", "aa", "a", "aa", 2},    {"abab", "ab", "", "", 2},
      {"xyz", "", "r", "xyz", 0},      {"", "a", "b", "", 0},
      {"<<x>>", "<<", "<", "<x>>", 1},
  };
  for (const auto& c : cases) {
    std::string plain = c.text;
    EXPECT_EQ(c.count, s::replace_all(plain, std::string(c.what), std::string(c.with)));
    EXPECT_EQ(c.result, plain);
    s::ustring8 u8 = c.text;
    EXPECT_EQ(c.count, s::replace_all(u8, c.what, c.with));
    EXPECT_EQ(c.result, u8);
  }
}
