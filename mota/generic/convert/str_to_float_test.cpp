#include <mota/generic/convert/str_to_bool.hpp>
#include <mota/generic/convert/str_to_float.hpp>

#include <gtest/gtest.h>

#include <locale>
#include <string>

namespace convert = mota::generic::convert;
using mota::strings::ustring16;
using mota::strings::ustring32;

namespace {

// A numeric facet with "," as decimal point, so locale use is checked without depending on
// installed system locales.
struct comma_numpunct : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

ustring16 u16(const char* s) {
  ustring16 out;
  for (; *s; ++s)
    out.push_back(static_cast<unsigned char>(*s));
  return out;
}

}  // namespace

TEST(StrToFloat, ReadsLeadingNumberInTheGivenLocaleOrGivesZero) {
  struct {
    const char* text;
    double expected;
  } const cases[] = {
      {"2.5", 2.5}, {"  -1e3", -1000.0}, {"7.25xyz", 7.25}, {"abc", 0.0},
      {"", 0.0},    {"-", 0.0},          {".5", 0.5},       {"1e999999", 0.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.expected, convert::str_to_double(c.text));
    EXPECT_EQ(static_cast<float>(c.expected), convert::str_to_float(c.text));
    EXPECT_EQ(static_cast<long double>(c.expected), convert::str_to_long_double(c.text));
  }
  EXPECT_EQ(0.0f, convert::str_to_float("1e60"));
  EXPECT_EQ(1e60L, convert::str_to_long_double("1e60"));
  // The locale given is used.
  const std::locale comma(std::locale::classic(), new comma_numpunct);
  EXPECT_EQ(1.5, convert::str_to_double("1,5", comma));
  EXPECT_EQ(1.5f, convert::str_to_float("1,5", comma));
  EXPECT_EQ(1.5L, convert::str_to_long_double("1,5", comma));
  EXPECT_EQ(1.0, convert::str_to_double("1.5", comma));
  EXPECT_EQ(1.0, convert::str_to_double("1,5"));
  EXPECT_EQ(0.0, convert::str_to_double("x", comma));
}

TEST(StrToBool, WordsInAnyCaseAndNonZeroNumbers) {
  struct {
    const char* text;
    bool expected;
  } const cases[] = {
      {"yes", true}, {"YES", true},    {"On", true},   {"oN", true},          {"TRUE", true},
      {"2", true},   {" -1", true},    {"0x10", true}, {"0x0", false},        {"off", false},
      {"no", false}, {"false", false}, {"0", false},   {"", false},           {"yes ", false},
      {"ye", false}, {"onn", false},   {"abc", false}, {"99999999999", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(c.expected, convert::str_to_bool(u16(c.text)));
    EXPECT_EQ(c.expected, convert::str_to_bool(ustring32(std::wstring(
                              c.text, c.text + std::char_traits<char>::length(c.text)))));
  }
  // Elements beyond the byte range never match a word.
  ustring16 wide_on = u16("on");
  wide_on[0] = static_cast<unsigned short>(0x016F);  // 'o' + 0x100
  EXPECT_FALSE(convert::str_to_bool(wide_on));
  ustring32 with_nul(std::wstring(L"on\0", 3));
  EXPECT_FALSE(convert::str_to_bool(with_nul));
}
