#include <mota/generic/convert/x_to_str.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <random>
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

TEST(Ltoa, SignedValuesInEveryRadix) {
  struct {
    long long value;
    unsigned int radix;
    const char* text;
  } const cases[] = {
      {0, 10, "0"},
      {-1, 10, "-1"},
      {-255, 16, "-ff"},
      {35, 36, "z"},
      {36, 36, "10"},
      {5, 2, "101"},
      {INT_MAX, 10, "2147483647"},
      {INT_MIN, 10, "-2147483648"},
      {INT_MIN, 16, "-80000000"},
      {INT_MIN, 2, "-10000000000000000000000000000000"},
      {1234567, 32, "15lk7"},
      {-1234567, 4, "-10231122013"},
  };
  for (const auto& c : cases) {
    const auto v = static_cast<int>(c.value);
    expect_text(c.text, [&](auto* b) { return convert::ltoa(v, b, c.radix); });
    expect_text(c.text, [&](auto* b) { return convert::lltoa(c.value, b, c.radix); });
  }
}

TEST(Ltoa, SixtyFourBitExtremes) {
  expect_text("-9223372036854775808", [](auto* b) { return convert::lltoa(LLONG_MIN, b, 10); });
  expect_text("-1" + std::string(63, '0'), [](auto* b) { return convert::lltoa(LLONG_MIN, b, 2); });
  expect_text(std::string(64, '1'), [](auto* b) { return convert::ulltoa(ULLONG_MAX, b, 2); });
  expect_text("3w5e11264sgsf", [](auto* b) { return convert::ulltoa(ULLONG_MAX, b, 36); });
  expect_text("ffffffff", [](auto* b) { return convert::ultoa(UINT_MAX, b, 16); });
  expect_text("-8000000000000000", [](auto* b) { return convert::lltoa(LLONG_MIN, b, 16); });
}

TEST(Ltoa, DecimalMatchesStandardRendering) {
  std::mt19937_64 rng(12345);
  char buffer[24];
  for (int i = 0; i < 20000; ++i) {
    const unsigned long long raw = rng() >> (rng() % 64);
    const long long s = static_cast<long long>(raw) * ((i & 1) ? -1 : 1);
    ASSERT_EQ(std::to_string(raw), convert::ulltoa(raw, buffer, 10));
    ASSERT_EQ(std::to_string(s), convert::lltoa(s, buffer, 10));
    ASSERT_EQ(std::to_string(static_cast<int>(s)), convert::ltoa(static_cast<int>(s), buffer, 10));
    ASSERT_EQ(std::to_string(static_cast<unsigned int>(raw)),
              convert::ultoa(static_cast<unsigned int>(raw), buffer, 10));
  }
}

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

TEST(ToStr, DecimalText) {
  EXPECT_EQ("-9223372036854775808", convert::to_str(LLONG_MIN));
  EXPECT_EQ("0", convert::to_str(0LL));
  EXPECT_EQ("A", convert::to_str<char>('A'));
  EXPECT_EQ(std::string(1, '\xff'), convert::to_str<char>(static_cast<char>(-1)));
  EXPECT_EQ("18446744073709551615", convert::to_str(ULLONG_MAX));
}

TEST(ToWstr, WidensEachByte) {
  EXPECT_EQ(std::wstring(L"ab"), convert::to_wstr("ab"));
  EXPECT_EQ(std::wstring(1, wchar_t(0xE9)), convert::to_wstr("\xE9"));
  EXPECT_EQ(std::wstring(L"a\0b", 3), convert::to_wstr(std::string("a\0b", 3)));
  EXPECT_EQ(std::wstring(), convert::to_wstr(""));
}
