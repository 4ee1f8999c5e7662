#include <mota/strings/ustring.hpp>

#include <gtest/gtest.h>

#include <map>
#include <string>

using mota::strings::ustring16;
using mota::strings::ustring32;
using mota::strings::ustring8;

TEST(Ustring, OperatorsMixWithNarrowFormsAndBaseAssignmentsStay) {
  const ustring8 a = "x";
  const std::string b = "y";
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(b != a);
  EXPECT_FALSE(a != ustring8("x"));
  EXPECT_TRUE(a != "z");
  EXPECT_FALSE("x" != a);
  const ustring8 joined = ustring8("ab") + "cd";
  EXPECT_EQ("abcd", joined);
  std::map<ustring8, int> by_name{{"b", 2}, {"a", 1}};
  EXPECT_EQ("a", by_name.begin()->first);
  // The classes' own assignments must not hide the base class's.
  ustring8 narrow = "abc";
  narrow = 'x';
  EXPECT_EQ("x", narrow);
  narrow = {'a', 'b'};
  EXPECT_EQ("ab", narrow);
  ustring16 units;
  units = std::basic_string<unsigned short>(2, 0x41);
  EXPECT_EQ(ustring16(2, 0x41), units);
  const unsigned short text16[] = {0x41, 0xD83D, 0xDE00, 0};
  units = text16;
  EXPECT_EQ(ustring16(text16), units);
  units = {0x42};
  EXPECT_EQ(ustring16(1, 0x42), units);
  ustring32 wide;
  wide = L'q';
  EXPECT_EQ(std::wstring(L"q"), wide);
}
