#include <mota/generic/convert/str_to_float.hpp>
#include <mota/serialization/serialize_text_buf.hpp>

#include <mota_test.hpp>

#include <cstring>
#include <initializer_list>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using mota::serialization::serialize_buffer;
using mota::serialization::serialize_text_buf;

// The tokens, each followed by the separator 0x01.
std::string items(std::initializer_list<std::string> tokens) {
  std::string text;
  for (const std::string& token : tokens)
    text += token + '\x01';
  return text;
}

TEST(SerializeTextBuf, WritesDecimalItemsEachEndedByTheSeparator) {
  serialize_text_buf buf;
  buf.append_int32(7);
  buf.append_int32(-12);
  buf.append_string("ab");
  buf.append_int8(65);  // a number, not the letter A
  buf.append_int64(std::numeric_limits<long long>::min());
  buf.append_uint64(18446744073709551615ULL);
  buf.append_buffer(serialize_text_buf(std::string("\x01")));
  EXPECT_EQ(items({"7", "-12", "2", "ab", "65", "-9223372036854775808", "18446744073709551615", "1",
                   "\x01"}),
            buf.as_str());
}

// The text of a floating value is what a string stream with the given precision writes.
TEST(SerializeTextBuf, FloatingTextIsAStreamsAtThePrecisionAndReadsAsTheConvertParsers) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (double value : {3.14159265, 1234567.0, -0.0, 0.1, 1e300, -2.5e-310, 100.0, inf, nan}) {
    for (unsigned int precision : {0u, 1u, 3u, 6u, 17u, 40u, 2000u}) {
      std::ostringstream stream;
      stream.precision(precision);
      stream << value;
      serialize_text_buf buf;
      buf.append_double(value, precision);
      EXPECT_EQ(items({stream.str()}), buf.as_str()) << value << " at " << precision;
    }
  }
  serialize_text_buf buf;
  buf.append_float(0.1f, 17);  // the float widened to double
  EXPECT_EQ(items({"0.10000000149011612"}), buf.as_str());
  // Every token reads as generic::convert's stream-based parsers read it, bit for bit.
  for (const char* token : {"0.1", "-0",      "1e308",   "1e309", "4.9e-324",     "1e-400", "1.",
                            ".5",  "00012.5", "-2.5E+3", "1e+",   "1e5e3",        "nan",    "inf",
                            "+5",  " 5",      "0x10",    "1-2",   "3.4028236e38", "--1"}) {
    const auto same_bits = [](auto a, auto b) { return std::memcmp(&a, &b, sizeof a) == 0; };
    serialize_text_buf tokens(items({token, token}));
    EXPECT_TRUE(same_bits(mota::generic::convert::str_to_double(token), tokens.read_double()))
        << token;
    EXPECT_TRUE(same_bits(mota::generic::convert::str_to_float(token), tokens.read_float()))
        << token;
  }
}

// A numpunct with a comma for the decimal point.
struct comma_point : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(SerializeTextBuf, FloatingTextFollowsTheGlobalLocaleAsAStreamDoes) {
  const std::locale previous =
      std::locale::global(std::locale(std::locale::classic(), new comma_point));
  serialize_text_buf buf;
  buf.append_double(2.5, 6);
  buf.assign(buf.as_str() + items({"2.5"}));
  const double comma = buf.read_double();
  const double point = buf.read_double();
  const double expected_comma = mota::generic::convert::str_to_double("2,5");
  std::locale::global(previous);
  EXPECT_EQ(items({"2,5", "2.5"}), buf.as_str());
  EXPECT_EQ(expected_comma, comma);
  EXPECT_EQ(2.0, point);  // the stream stops at the point it does not know
}

TEST(SerializeTextBuf, TokensCutShortExhaustTheBufferUntilReset) {
  serialize_text_buf buf(std::string("42"));
  EXPECT_EQ(42, buf.read_int32());
  EXPECT_TRUE(buf.at_end());
  buf.append_int32(5);  // "425\x01" now, but reading stays exhausted
  EXPECT_TRUE(buf.at_end());
  EXPECT_EQ(0, buf.read_int32());
  EXPECT_EQ("", buf.read_string());
  buf.reset_read();
  EXPECT_EQ(425, buf.read_int32());

  // Exactly at the end the read is 0 too, and exhausts the buffer.
  serialize_text_buf ended(items({"1"}));
  EXPECT_EQ(1, ended.read_int32());
  EXPECT_EQ(0, ended.read_int64());
  ended.append_int32(2);
  EXPECT_EQ(0, ended.read_int32());

  // Tokens that are no numbers still move the position on.
  serialize_text_buf bad(items({"abc", "300", "0x1f"}));
  EXPECT_EQ(0, bad.read_int32());
  EXPECT_EQ(127, bad.read_int8());
  EXPECT_EQ(31, bad.read_int32());

  // Strings cut short by the content, and reads beyond it. The length 9 overshoots: the bytes that
  // remain are taken, the position lands beyond.
  serialize_text_buf over(items({"9", "ab"}));
  EXPECT_EQ("ab\x01", over.read_string());
  EXPECT_TRUE(over.at_end());
  // Every read past the end fails alike.
  const char* const beyond =
      "basic_string::substr: __pos (which is 12) > this->size() (which is 5)";
  EXPECT_THROWS_STD(over.read_string(), std::out_of_range, beyond);
  EXPECT_THROWS_STD(over.read_buffer(), std::out_of_range, beyond);
  EXPECT_THROWS_STD(over.read_int32(), std::out_of_range, beyond);

  serialize_text_buf tail(items({"2"}) + "ab");  // no trailing separator
  EXPECT_EQ("ab", tail.read_string());
  EXPECT_TRUE(tail.at_end());

  serialize_text_buf bare(std::string("3"));  // a length without separator takes nothing
  EXPECT_EQ("", bare.read_string());
  EXPECT_TRUE(bare.at_end());

  // The largest length must not wrap the position back into the content.
  serialize_text_buf huge(items({"4294967295", "ab", "7"}));
  EXPECT_EQ(items({"ab", "7"}), huge.read_string());
  EXPECT_TRUE(huge.at_end());
}

}  // namespace
