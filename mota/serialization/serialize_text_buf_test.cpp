#include <mota/generic/convert/str_to_float.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_text_buf.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using mota::serialization::serialize_binary_buf;
using mota::serialization::serialize_buffer;
using mota::serialization::serialize_text_buf;

const std::string sep("\x01");

TEST(SerializeTextBuf, WritesDecimalItemsEachEndedByTheSeparator) {
  serialize_text_buf buf;
  buf.append_int32(7);
  buf.append_int32(-12);
  buf.append_string("ab");
  EXPECT_EQ(
      "7\x01-12\x01"
      "2\x01"
      "ab\x01",
      buf.as_str());

  serialize_text_buf widths;
  widths.append_int8(65);  // a number, not the letter A
  widths.append_int8(-128);
  widths.append_int16(-32768);
  widths.append_int64(std::numeric_limits<long long>::min());
  widths.append_uint8(255);
  widths.append_uint16(65535);
  widths.append_uint32(4294967295u);
  widths.append_uint64(18446744073709551615ULL);
  EXPECT_EQ(
      "65\x01-128\x01-32768\x01-9223372036854775808\x01"
      "255\x01"
      "65535\x01"
      "4294967295\x01"
      "18446744073709551615\x01",
      widths.as_str());
}

TEST(SerializeTextBuf, RoundTripsEveryWidthAndAwkwardStrings) {
  const std::string awkward("\x01\0\x01x\x01", 5);
  serialize_text_buf out;
  out.append_int8(-128);
  out.append_int16(std::numeric_limits<short>::min());
  out.append_int32(std::numeric_limits<int>::min());
  out.append_int64(std::numeric_limits<long long>::min());
  out.append_uint8(255);
  out.append_uint16(65535);
  out.append_uint32(std::numeric_limits<unsigned int>::max());
  out.append_uint64(std::numeric_limits<unsigned long long>::max());
  out.append_string(awkward);
  out.append_string("");
  out.append_double(-0.0);
  out.append_double(0.1);
  out.append_float(0.1f);
  out.append_double(std::numeric_limits<double>::max());
  out.append_double(std::numeric_limits<double>::denorm_min());

  const serialize_text_buf in(out.as_str());
  EXPECT_EQ(-128, in.read_int8());
  EXPECT_EQ(std::numeric_limits<short>::min(), in.read_int16());
  EXPECT_EQ(std::numeric_limits<int>::min(), in.read_int32());
  EXPECT_EQ(std::numeric_limits<long long>::min(), in.read_int64());
  EXPECT_EQ(255, in.read_uint8());
  EXPECT_EQ(65535, in.read_uint16());
  EXPECT_EQ(std::numeric_limits<unsigned int>::max(), in.read_uint32());
  EXPECT_EQ(std::numeric_limits<unsigned long long>::max(), in.read_uint64());
  EXPECT_EQ(awkward, in.read_string());
  EXPECT_EQ("", in.read_string());
  const double negative_zero = in.read_double();
  EXPECT_EQ(0.0, negative_zero);
  EXPECT_TRUE(std::signbit(negative_zero));
  // The default precisions carry enough digits to read the same value back.
  EXPECT_EQ(0.1, in.read_double());
  EXPECT_EQ(0.1f, in.read_float());
  EXPECT_EQ(std::numeric_limits<double>::max(), in.read_double());
  EXPECT_EQ(std::numeric_limits<double>::denorm_min(), in.read_double());
  EXPECT_TRUE(in.at_end());
}

// The text of a floating value is what a string stream with the given precision writes.
TEST(SerializeTextBuf, FloatingTextMatchesAStringStreamAtTheGivenPrecision) {
  const double values[] = {3.14159265,
                           1234567.0,
                           -0.0,
                           0.1,
                           1e300,
                           -2.5e-310,
                           100.0,
                           123456789012.0,
                           std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
  for (double value : values) {
    for (unsigned int precision : {0u, 1u, 3u, 6u, 17u, 40u, 2000u}) {
      std::ostringstream stream;
      stream.precision(precision);
      stream << value;
      serialize_text_buf buf;
      buf.append_double(value, precision);
      EXPECT_EQ(stream.str() + sep, buf.as_str()) << value << " at " << precision;
    }
  }
  serialize_text_buf buf;
  buf.append_double(3.14159265, 3);
  buf.append_float(1234567.0f, 6);
  buf.append_float(0.1f, 17);  // the float widened to double
  EXPECT_EQ(
      "3.14\x01"
      "1.23457e+06\x01"
      "0.10000000149011612\x01",
      buf.as_str());
  EXPECT_EQ(3.14, buf.read_double());
  EXPECT_EQ(1234570.0f, buf.read_float());
}

// Every token reads as generic::convert's stream-based parsers read it, bit for bit.
TEST(SerializeTextBuf, FloatingTokensReadAsTheConvertParsersReadThem) {
  const char* const tokens[] = {"0.1",
                                "-0",
                                "3.14",
                                "1e308",
                                "1e309",
                                "-1e309",
                                "4.9e-324",
                                "1e-400",
                                "1.",
                                ".5",
                                "00012.5",
                                "-2.5E+3",
                                "1e+",
                                "1e5e3",
                                "nan",
                                "inf",
                                "+5",
                                " 5",
                                "5 ",
                                "0x10",
                                "1-2",
                                "3.4028236e38",
                                "123456789012345678901234567890",
                                "1.17549435e-38",
                                "--1"};
  for (const char* token : tokens) {
    serialize_text_buf buf(std::string(token) + sep + token + sep);
    const double d = buf.read_double();
    const float f = buf.read_float();
    const double expected_d = mota::generic::convert::str_to_double(token);
    const float expected_f = mota::generic::convert::str_to_float(token);
    EXPECT_EQ(0, std::memcmp(&expected_d, &d, sizeof d)) << token;
    EXPECT_EQ(0, std::memcmp(&expected_f, &f, sizeof f)) << token;
  }
}

// A numpunct that writes a comma for the decimal point.
struct comma_point : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(SerializeTextBuf, FloatingTextFollowsTheGlobalLocaleAsAStreamDoes) {
  const std::locale previous =
      std::locale::global(std::locale(std::locale::classic(), new comma_point));
  serialize_text_buf buf;
  buf.append_double(2.5, 6);
  buf.append_string("");
  buf.assign(buf.as_str() + "2.5" + sep);
  const double comma = buf.read_double();
  buf.read_string();
  const double point = buf.read_double();
  const double expected_comma = mota::generic::convert::str_to_double("2,5");
  const double expected_point = mota::generic::convert::str_to_double("2.5");
  std::locale::global(previous);
  EXPECT_EQ(
      "2,5\x01"
      "0\x01\x01"
      "2.5\x01",
      buf.as_str());
  EXPECT_EQ(expected_comma, comma);
  EXPECT_EQ(expected_point, point);
  EXPECT_EQ(2.0, point);  // the stream stops at the point it does not know
}

TEST(SerializeTextBuf, ATokenWithoutSeparatorExhaustsTheBufferUntilReset) {
  serialize_text_buf buf(std::string("42"));
  EXPECT_FALSE(buf.at_end());
  EXPECT_EQ(42, buf.read_int32());
  EXPECT_TRUE(buf.at_end());
  buf.append_int32(5);  // "425\x01" now, but reading stays exhausted
  EXPECT_TRUE(buf.at_end());
  EXPECT_EQ(0, buf.read_int32());
  EXPECT_EQ("", buf.read_string());
  buf.reset_read();
  EXPECT_EQ(425, buf.read_int32());

  // Exactly at the end the read is 0 too, and exhausts the buffer.
  serialize_text_buf ended(std::string("1\x01"));
  EXPECT_EQ(1, ended.read_int32());
  EXPECT_TRUE(ended.at_end());
  EXPECT_EQ(0, ended.read_int64());
  ended.append_int32(2);
  EXPECT_EQ(0, ended.read_int32());

  serialize_text_buf empty;
  EXPECT_TRUE(empty.at_end());
  EXPECT_EQ(0, empty.read_int32());
  EXPECT_EQ("", empty.read_string());
  std::unique_ptr<serialize_buffer> nothing(empty.read_buffer());
  ASSERT_NE(nullptr, nothing);
  EXPECT_EQ("", nothing->as_str());
}

TEST(SerializeTextBuf, BadTokensReadAsParsedAndThePositionMovesOn) {
  serialize_text_buf buf(
      std::string("abc\x01"
                  "300\x01"
                  " 17\x01"
                  "0x1f\x01"
                  "-5\x01"
                  "9"));
  EXPECT_EQ(0, buf.read_int32());
  EXPECT_EQ(127, buf.read_int8());
  EXPECT_EQ(17, buf.read_int16());
  EXPECT_EQ(31, buf.read_int32());
  EXPECT_EQ(0u, buf.read_uint32());
  EXPECT_EQ(9.0, buf.read_double());
}

TEST(SerializeTextBuf, StringsCutShortByTheContentAndReadsBeyondIt) {
  // The length 9 overshoots: the bytes that remain are taken, the position lands beyond.
  serialize_text_buf buf(
      std::string("9\x01"
                  "ab\x01"));
  EXPECT_EQ("ab\x01", buf.read_string());
  EXPECT_TRUE(buf.at_end());
  EXPECT_THROW_WHAT(buf.read_string(), std::out_of_range,
                    "basic_string::substr: __pos (which is 12) > this->size() (which is 5)");
  EXPECT_THROW_WHAT(buf.read_buffer(), std::out_of_range,
                    "basic_string::substr: __pos (which is 12) > this->size() (which is 5)");
  EXPECT_THROW(buf.read_int32(), std::out_of_range);

  // A string without its trailing separator reads whole and ends the buffer.
  serialize_text_buf tail(
      std::string("2\x01"
                  "ab"));
  EXPECT_EQ("ab", tail.read_string());
  EXPECT_TRUE(tail.at_end());

  // A length without separator exhausts the buffer: no bytes are taken.
  serialize_text_buf bare(std::string("3"));
  EXPECT_EQ("", bare.read_string());
  EXPECT_TRUE(bare.at_end());

  // The largest length must not wrap the position back into the content.
  serialize_text_buf huge(
      std::string("4294967295\x01"
                  "ab\x01"
                  "7\x01"));
  EXPECT_EQ(
      "ab\x01"
      "7\x01",
      huge.read_string());
  EXPECT_TRUE(huge.at_end());
  EXPECT_EQ(0, huge.read_int32());
}

TEST(SerializeTextBuf, BuffersNestAsLengthPrefixedText) {
  serialize_binary_buf binary;
  binary.append_int16(1);
  serialize_text_buf buf;
  buf.append_buffer(binary);
  buf.append_int32(3);
  EXPECT_EQ("2\x01" + binary.as_str() + sep + "3" + sep, buf.as_str());
  std::unique_ptr<serialize_buffer> inner(buf.read_buffer());
  EXPECT_NE(nullptr, dynamic_cast<serialize_text_buf*>(inner.get()));
  EXPECT_TRUE(inner->delete_on_zero());
  EXPECT_EQ(binary.as_str(), inner->as_str());
  EXPECT_EQ(3, buf.read_int32());
}

TEST(SerializeTextBuf, AssignKeepsThePositionCloneKeepsItToo) {
  serialize_text_buf buf(
      std::string("1\x01"
                  "2\x01"));
  EXPECT_EQ(1, buf.read_int32());
  buf.assign(
      std::string("10\x01"
                  "20\x01"));
  EXPECT_EQ(0, buf.read_int32());  // position 2 now holds the separator after 10
  buf.reset_read();
  EXPECT_EQ(10, buf.read_int32());
  std::unique_ptr<serialize_text_buf> clone(buf.clone());
  EXPECT_TRUE(clone->delete_on_zero());
  EXPECT_EQ(20, clone->read_int32());
  EXPECT_EQ(20, buf.read_int32());
  const serialize_binary_buf binary(std::string("5\x01"));
  buf.assign(binary);
  EXPECT_EQ("5\x01", buf.as_str());
  std::unique_ptr<serialize_text_buf> fresh(buf.create());
  EXPECT_TRUE(fresh->delete_on_zero());
  EXPECT_EQ("", fresh->as_str());
  EXPECT_EQ(5, serialize_text_buf(binary).read_int32());
}

}  // namespace
