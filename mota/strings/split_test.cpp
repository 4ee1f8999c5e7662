#include <mota/strings/split.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace s = mota::strings;

namespace {
using pieces = std::vector<std::string>;
}  // namespace

TEST(SplitString, FollowsTheLimitRule) {
  struct {
    const char* text;
    const char* separator;
    int limit;
    pieces expected;
  } const cases[] = {
      {"a,b,,c", ",", 0, {"a", "b", "", "c"}},
      {"a,b,,c", ",", -3, {"a", "b", "", "c"}},
      {"a,b,,c", ",", 1, {"a", "b,,c"}},
      {"a,b,,c", ",", 2, {"a", "b", ",c"}},
      {"a,b,", ",", 0, {"a", "b"}},
      {",a", ",", 0, {"", "a"}},
      {"", ",", 0, {}},
      {"", "", 0, {""}},
      {"a::b:c::", "::", 0, {"a", "b:c"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.text << " / " << c.separator << " / " << c.limit);
    EXPECT_EQ(c.expected, s::split_string(std::string(c.text), std::string(c.separator), c.limit));
    const std::vector<s::ustring8> u8 =
        s::split_string(s::ustring8(c.text), s::ustring8(c.separator), c.limit);
    EXPECT_EQ(c.expected, pieces(u8.begin(), u8.end()));
  }
}
