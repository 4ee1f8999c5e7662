// The ltoa family and to_str, radixes outside 2-36 and a char written as itself included, are
// checked against std::to_chars by the number text fuzz target.
#include <mota/generic/convert/x_to_str.hpp>

#include <gtest/gtest.h>

#include <string>

namespace convert = mota::generic::convert;

TEST(ToWstr, WidensEachByte) {
  EXPECT_EQ(std::wstring(1, wchar_t(0xE9)), convert::to_wstr("\xE9"));
  EXPECT_EQ(std::wstring(L"a\0b", 3), convert::to_wstr(std::string("a\0b", 3)));
  EXPECT_EQ(std::wstring(), convert::to_wstr(""));
}
