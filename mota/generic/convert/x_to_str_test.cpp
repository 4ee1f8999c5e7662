#include <mota/generic/convert/x_to_str.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace convert = mota::generic::convert;

namespace {

// Runs `write` into buffers of all three widths sized exactly for `expected` plus the
// terminator (so an overrun is caught under the address sanitizer) and compares the texts.
template <typename F>
void expect_text(const std::string& expected, F write) {
  SCOPED_TRACE(expected);
  std::vector<char> narrow(expected.size() + 1, 'X');
  EXPECT_EQ(narrow.data(), write(narrow.data()));
  EXPECT_EQ(expected, std::string(narrow.data()));
  std::vector<unsigned short> utf16(expected.size() + 1, 'X');
  write(utf16.data());
  EXPECT_EQ(std::basic_string<unsigned short>(expected.begin(), expected.end()),
            std::basic_string<unsigned short>(utf16.data()));
  std::vector<wchar_t> utf32(expected.size() + 1, L'X');
  write(utf32.data());
  EXPECT_EQ(std::wstring(expected.begin(), expected.end()), std::wstring(utf32.data()));
}

}  // namespace

TEST(Ltoa, RadixWithoutDigitsWritesEmptyText) {
  // 0 would divide by zero, 1 would loop for ever, 37 would read past the digit table.
  for (unsigned int radix : {0u, 1u, 37u, 0xFFFFFFFFu}) {
    SCOPED_TRACE(radix);
    expect_text("", [&](auto* b) { return convert::ltoa(-5, b, radix); });
    expect_text("", [&](auto* b) { return convert::ultoa(5u, b, radix); });
    expect_text("", [&](auto* b) { return convert::lltoa(-5LL, b, radix); });
    expect_text("", [&](auto* b) { return convert::ulltoa(5ULL, b, radix); });
  }
}

// Integers are checked against std::to_chars by the number text fuzz target; a char is a
// character, not a number, and to_wstr widens each byte.
TEST(ToStr, CharIsWrittenAsItselfToWstrWidensEachByte) {
  EXPECT_EQ("A", convert::to_str<char>('A'));
  EXPECT_EQ(std::string(1, '\xff'), convert::to_str<char>(static_cast<char>(-1)));
  EXPECT_EQ(std::wstring(L"ab"), convert::to_wstr("ab"));
  EXPECT_EQ(std::wstring(1, wchar_t(0xE9)), convert::to_wstr("\xE9"));
  EXPECT_EQ(std::wstring(L"a\0b", 3), convert::to_wstr(std::string("a\0b", 3)));
  EXPECT_EQ(std::wstring(), convert::to_wstr(""));
}
