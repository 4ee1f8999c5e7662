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
      {"a,b,,c", ",", 3, {"a", "b", "", "c"}},
      {"a,b,", ",", 0, {"a", "b"}},
      {",a", ",", 0, {"", "a"}},
      {",", ",", 0, {""}},
      {"abc", ",", 0, {"abc"}},
      {"", ",", 0, {}},
      {"", "", 0, {""}},
      {"a::b:c::", "::", 0, {"a", "b:c"}},
      {"a:::b", "::", 0, {"a", ":b"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.text << " / " << c.separator << " / " << c.limit);
    EXPECT_EQ(c.expected, s::split_string(std::string(c.text), std::string(c.separator), c.limit));
    const std::vector<s::ustring8> u8 =
        s::split_string(s::ustring8(c.text), s::ustring8(c.separator), c.limit);
    EXPECT_EQ(c.expected, pieces(u8.begin(), u8.end()));
  }
}

TEST(SplitString, WideOverloadsSplitAlike) {
  const std::vector<std::wstring> w =
      s::split_string(std::wstring(L"x;y;;z"), std::wstring(L";"), 2);
  EXPECT_EQ((std::vector<std::wstring>{L"x", L"y", L";z"}), w);
  const std::vector<s::ustring32> u32 =
      s::split_string(s::ustring32(L"x;y;"), s::ustring32(L";"), 0);
  EXPECT_EQ((std::vector<s::ustring32>{L"x", L"y"}), u32);
  const s::ustring16 text{1, 0, 2, 0, 0, 3};
  const std::vector<s::ustring16> u16 = s::split_string(text, s::ustring16{0}, 0);
  EXPECT_EQ((std::vector<s::ustring16>{{1}, {2}, {}, {3}}), u16);
}
