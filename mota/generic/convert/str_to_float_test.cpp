#include <mota/generic/convert/str_to_bool.hpp>
#include <mota/generic/convert/str_to_float.hpp>

#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <utility>

namespace convert = mota::generic::convert;
using mota::strings::ustring16;
using mota::strings::ustring32;

namespace {

// A numeric facet with "," as decimal point, so locale use is checked without depending on
// installed system locales.
struct comma_numpunct : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

}  // namespace

TEST(StrToFloat, ReadsLeadingNumberInTheGivenLocaleOrGivesZero) {
  const std::pair<const char*, double> cases[] = {
      {"2.5", 2.5}, {"  -1e3", -1000.0}, {"7.25xyz", 7.25},
      {"abc", 0.0}, {"", 0.0},           {"1e999999", 0.0},
  };
  for (const auto& [text, expected] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(expected, convert::str_to_double(text));
    EXPECT_EQ(static_cast<float>(expected), convert::str_to_float(text));
    EXPECT_EQ(static_cast<long double>(expected), convert::str_to_long_double(text));
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
}

TEST(StrToBool, WordsInAnyCaseAndNonZeroNumbers) {
  const std::pair<std::string, bool> cases[] = {
      {"YES", true},  {"oN", true},   {"TRUE", true},        {"2", true},  {" -1", true},
      {"0x10", true}, {"0x0", false}, {"false", false},      {"0", false}, {"", false},
      {"ye", false},  {"onn", false}, {"99999999999", true},
  };
  for (const auto& [text, expected] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(expected, convert::str_to_bool(ustring16(text.begin(), text.end())));
    EXPECT_EQ(expected, convert::str_to_bool(ustring32(text.begin(), text.end())));
  }
  // Elements beyond the byte range never match a word.
  EXPECT_FALSE(convert::str_to_bool(ustring16{0x016F, 'n'}));  // 'o' + 0x100
  EXPECT_FALSE(convert::str_to_bool(ustring32(std::wstring(L"on\0", 3))));
}
