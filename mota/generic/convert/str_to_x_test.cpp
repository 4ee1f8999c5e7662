#include <mota/generic/convert/str_to_x.hpp>

#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

#include <mota_test.hpp>

#include <cctype>
#include <limits>
#include <string>

namespace convert = mota::generic::convert;
namespace ex = mota::exceptions;
using mota::types::radix_t;

namespace {

radix_t::base rdx(unsigned int r) {
  return static_cast<radix_t::base>(r);
}

std::basic_string<unsigned short> u16(const char* s) {
  std::basic_string<unsigned short> out;
  for (; *s; ++s)
    out.push_back(static_cast<unsigned char>(*s));
  return out;
}

struct int_case {
  const char* text;
  unsigned int radix;
  int expected;
};

// The wider characters give the same result for the same text: the str_to_x fuzz target
// checks that every width agrees.
void expect_int(const int_case& c) {
  EXPECT_EQ(c.expected, convert::str_to_int(c.text, 0, rdx(c.radix), false))
      << "text '" << c.text << "' radix " << c.radix;
}

}  // namespace

TEST(StrToInt, DetectsRadixFromPrefix) {
  const int_case cases[] = {
      {" \t-0x1F", 0, -31}, {"017", 0, 15},      {"0b101", 0, 5}, {"\\xff", 0, 255},
      {"0X1f", 0, 31},      {"0B11", 0, 3},      {"\\17", 0, 15}, {"08", 0, 0},
      {"0b2", 0, 0},        {"+42", 0, 42},      {"-0", 0, 0},    {"0x", 0, 0},
      {"0b", 0, 0},         {"0", 0, 0},         {"\\", 0, 0},    {"-", 0, 0},
      {"", 0, 0},           {" \n\v\f\r", 0, 0}, {"- 5", 0, 0},   {"0xg", 0, 0},
  };
  for (const auto& c : cases)
    expect_int(c);
}

TEST(StrToInt, ExplicitRadixClassifiesDigits) {
  const int_case cases[] = {
      {"0x1F", 16, 0},   {"fF", 16, 255}, {"g", 16, 0},          {"zZ", 36, 35 * 36 + 35},
      {"Y", 35, 34},     {"Z", 35, 0},    {"y", 35, 34},         {"z", 35, 0},
      {"777", 8, 511},   {"778", 8, 63},  {"102", 2, 2},         {"9", 9, 0},
      {"8", 9, 8},       {"A", 10, 0},    {"a", 11, 10},         {"[", 36, 0},
      {"{", 36, 0},      {":", 36, 0},    {"@", 36, 0},          {"`", 36, 0},
      {"12abc", 10, 12}, {"abc", 10, 0},  {"   ", 10, 0},        {"0b101", 10, 0},
      {"017", 10, 17},   {"-17", 8, -15}, {" +1z", 36, 36 + 35},
  };
  for (const auto& c : cases)
    expect_int(c);
}

TEST(StrToInt, StopsAtSize) {
  EXPECT_EQ(123, convert::str_to_int("12345", 3, radix_t::decimal, false));
  EXPECT_EQ(0, convert::str_to_int("  12", 2, radix_t::decimal, false));
  EXPECT_EQ(0, convert::str_to_int("-5", 1, radix_t::decimal, false));
  EXPECT_EQ(0, convert::str_to_int("0x1F", 2, radix_t::detect, false));
  EXPECT_EQ(0, convert::str_to_int("017", 1, radix_t::detect, false));
  EXPECT_EQ(1, convert::str_to_int("017", 2, radix_t::detect, false));
  // A buffer without a terminating zero is read exactly up to its size.
  const char digits[3] = {'4', '5', '6'};
  EXPECT_EQ(456, convert::str_to_int(digits, 3, radix_t::decimal, false));
  const char blanks[2] = {' ', ' '};
  EXPECT_EQ(0, convert::str_to_int(blanks, 2, radix_t::decimal, false));
}

TEST(StrToInt, WideCharactersOutsideAsciiEndTheNumber) {
  const wchar_t high[] = {L'7', static_cast<wchar_t>(0x80000031), 0};
  EXPECT_EQ(7, convert::str_to_int(high, 0, radix_t::decimal, false));
  const unsigned short fullwidth[] = {'3', 0xFF11, 0};
  EXPECT_EQ(3, convert::str_to_int(fullwidth, 0, radix_t::decimal, false));
  const char latin1[] = {'5', static_cast<char>(0xB9), 0};
  EXPECT_EQ(5, convert::str_to_int(latin1, 0, radix_t::decimal, false));
  // A wide blank beyond the byte range is not skipped.
  const unsigned short nbsp[] = {0x3000, '4', 0};
  EXPECT_EQ(0, convert::str_to_int(nbsp, 0, radix_t::decimal, false));
}

TEST(StrToInt, LimitsInOtherRadixes) {
  EXPECT_EQ(-128, convert::str_to_int8("-0x80", 0, radix_t::detect, true));
  EXPECT_EQ(127, convert::str_to_int8("0x80", 0, radix_t::detect, false));
  EXPECT_EQ(0xffffffffffffffffULL,
            convert::str_to_uint64("3w5e11264sgsf", 13, radix_t::base_36, true));
  EXPECT_THROWS(convert::str_to_uint64("3w5e11264sgsg", 13, radix_t::base_36, true),
                ex::overflow_error, "Number value is to large", "strtouintx");
  EXPECT_EQ(255u, convert::str_to_uint8("377", 3, radix_t::octal, true));
  EXPECT_EQ(255u, convert::str_to_uint8("400", 3, radix_t::octal, false));
}

TEST(StrToInt, LeadingZerosDoNotHideOverflow) {
  EXPECT_EQ(2147483647, convert::str_to_int("0000000000002147483647", 0, radix_t::decimal, true));
  EXPECT_EQ(std::numeric_limits<long long>::min(),
            convert::str_to_int64(L"-0009223372036854775808", 0, radix_t::decimal, true));
  EXPECT_EQ(255u, convert::str_to_uint8("0000255", 7, radix_t::decimal, true));
  EXPECT_THROWS(convert::str_to_uint8("0000256", 7, radix_t::decimal, true), ex::overflow_error,
                "Number value is to large", "strtouintx");
  EXPECT_EQ(-32768, convert::str_to_int16(u16("-08000").c_str(), 6, radix_t::hexadecimal, true));
  EXPECT_THROWS(convert::str_to_int16(u16("-08001").c_str(), 6, radix_t::hexadecimal, true),
                ex::underflow_error, "Number value is to small", "strtointx");
}

TEST(StrToInt, RejectsBadRadixWhateverTheFlag) {
  const char* text = "101";
  for (unsigned int radix : {1u, 37u, 0xFFFFFFFFu}) {
    SCOPED_TRACE(radix);
    for (bool flag : {false, true}) {
      EXPECT_THROWS(convert::str_to_int(text, 0, rdx(radix), flag), ex::invalid_argument_value,
                    "invalid radix value, values of 0, 2-36 are the only valid values",
                    "strtointx");
      EXPECT_THROWS(convert::str_to_uint64(text, 3, rdx(radix), flag), ex::invalid_argument_value,
                    "invalid radix value, values of 0, 2-36 are the only valid values",
                    "strtouintx");
    }
  }
}

TEST(StrToUint, MinusSign) {
  EXPECT_EQ(0u, convert::str_to_uint32("-5", 2, radix_t::decimal, false));
  EXPECT_THROWS(convert::str_to_uint32("-5", 2, radix_t::decimal, true), ex::underflow_error,
                "Number value is to small", "strtouintx");
  EXPECT_EQ(0u, convert::str_to_uint32("-0", 2, radix_t::decimal, true));
  EXPECT_EQ(0u, convert::str_to_uint32("-x", 2, radix_t::decimal, true));
  EXPECT_THROWS(convert::str_to_uint8(u16("-0x1").c_str(), 4, radix_t::detect, true),
                ex::underflow_error, "Number value is to small", "strtouintx");
}

TEST(StrToUint, SizeZeroReadsOneCharacter) {
  EXPECT_EQ(1u, convert::str_to_uint32("123", 0, radix_t::decimal, false));
  EXPECT_EQ(0xFu, convert::str_to_uint64(u16("f00").c_str(), 0, radix_t::hexadecimal, false));
  EXPECT_EQ(0u, convert::str_to_uint16(" 9", 0, radix_t::decimal, false));
  EXPECT_EQ(0u, convert::str_to_uint16("-9", 0, radix_t::decimal, true));
  EXPECT_EQ(0u, convert::str_to_uint16("0x9", 0, radix_t::detect, false));
  EXPECT_EQ(0u, convert::str_to_uint16("", 0, radix_t::decimal, false));
  // The signed parsers measure the text instead.
  EXPECT_EQ(123, convert::str_to_int("123", 0, radix_t::decimal, false));
}

TEST(StrToInt, NullTextIsZero) {
  EXPECT_EQ(0, convert::str_to_int(static_cast<const char*>(nullptr), 0, radix_t::decimal, true));
  EXPECT_EQ(0u,
            convert::str_to_uint64(static_cast<const wchar_t*>(nullptr), 0, radix_t::detect, true));
}

TEST(IsSpace, FollowsTheCLibrary) {
  for (int c = 0; c < 256; ++c) {
    const bool expected = std::isspace(c) != 0;
    EXPECT_EQ(expected, convert::is_space(static_cast<char>(c))) << c;
    EXPECT_EQ(expected, convert::is_space(static_cast<unsigned short>(c))) << c;
    EXPECT_EQ(expected, convert::is_space(static_cast<wchar_t>(c))) << c;
  }
  EXPECT_FALSE(convert::is_space(static_cast<unsigned short>(0x2000)));
  EXPECT_FALSE(convert::is_space(static_cast<wchar_t>(-1)));
  EXPECT_FALSE(convert::is_space(static_cast<wchar_t>(0x10020)));
}
