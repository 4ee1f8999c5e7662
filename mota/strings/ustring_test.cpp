#include <mota/strings/ustring.hpp>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;

TEST(Ustring, ComparesWithEveryNarrowForm) {
  const ustring8 a = "x";
  const std::string b = "y";
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(b != a);
  EXPECT_FALSE(a != ustring8("x"));
  EXPECT_TRUE(a != "z");
  EXPECT_FALSE("x" != a);
  EXPECT_TRUE(a == std::string("x"));
  EXPECT_TRUE(a < b);
}

TEST(Ustring, ConcatenationStaysUtf8String) {
  const ustring8 joined = ustring8("ab") + "cd";
  EXPECT_EQ("abcd", joined);
  ustring8 assigned;
  assigned = "xy";
  assigned = std::string("z") + assigned;
  EXPECT_EQ("zxy", assigned);
}

TEST(Ustring, WideClassesKeepTheirUnits) {
  const ustring16 u16(3, 0xD83D);
  EXPECT_EQ(3u, u16.size());
  EXPECT_EQ(0xD83D, u16[2]);
  ustring16 copy;
  copy = std::basic_string<unsigned short>(2, 0x41);
  EXPECT_EQ(2u, copy.size());
  const ustring32 u32 = std::wstring(L"\U0001F600");
  EXPECT_EQ(1u, u32.size());
  EXPECT_EQ(0x1F600, static_cast<int>(u32[0]));
}

TEST(Ustring, WorksAsKeyInStandardContainers) {
  std::map<ustring8, int> by_name{{"b", 2}, {"a", 1}};
  EXPECT_EQ("a", by_name.begin()->first);
  std::set<ustring8> names{"x", "x", "y"};
  EXPECT_EQ(2u, names.size());
}
