#include <mota/memory/rc_pointer.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_text_buf.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

namespace {

using mota::serialization::serialize_binary_buf;
using mota::serialization::serialize_buffer;
using mota::serialization::serialize_text_buf;

// The machine representation of `value`, which the binary encoding must write.
template <class T>
std::string bytes_of(T value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(&bytes[0], &value, sizeof value);
  return bytes;
}

template <class T>
bool same_bits(T a, T b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(SerializeBinaryBuf, WritesEachValueInMachineOrderWithoutSeparators) {
  serialize_binary_buf buf;
  buf.append_int8(-2);
  buf.append_int16(0x0102);
  buf.append_int32(-3);
  buf.append_int64(0x0102030405060708LL);
  buf.append_uint8(0xFE);
  buf.append_uint16(0xABCD);
  buf.append_uint32(0xDEADBEEFu);
  buf.append_uint64(0x8000000000000001ULL);
  buf.append_float(1.5f, 2);
  buf.append_double(-0.25, 2);
  buf.append_string(std::string("a\0b", 3));
  const std::string expected =
      std::string("\xFE") + bytes_of<short>(0x0102) + bytes_of<int>(-3) +
      bytes_of<long long>(0x0102030405060708LL) + "\xFE" + bytes_of<unsigned short>(0xABCD) +
      bytes_of<unsigned int>(0xDEADBEEFu) + bytes_of<unsigned long long>(0x8000000000000001ULL) +
      bytes_of(1.5f) + bytes_of(-0.25) + bytes_of<std::uint32_t>(3) + std::string("a\0b", 3);
  EXPECT_EQ(expected, buf.as_str());
}

TEST(SerializeBinaryBuf, RoundTripsEveryWidthBitForBit) {
  const float float_nan = std::numeric_limits<float>::quiet_NaN();
  double payload_nan;
  const std::uint64_t nan_bits = 0x7FF8000000000123ULL;
  std::memcpy(&payload_nan, &nan_bits, sizeof payload_nan);
  const std::string awkward("\0\x01\xFF", 3);

  serialize_binary_buf out;
  out.append_int8(-1);
  out.append_int8(std::numeric_limits<signed char>::min());
  out.append_int16(std::numeric_limits<short>::min());
  out.append_int32(std::numeric_limits<int>::min());
  out.append_int64(std::numeric_limits<long long>::min());
  out.append_uint8(255);
  out.append_uint16(65535);
  out.append_uint32(std::numeric_limits<unsigned int>::max());
  out.append_uint64(std::numeric_limits<unsigned long long>::max());
  out.append_float(-0.0f, 0);
  out.append_float(float_nan, 0);
  out.append_double(-0.0, 0);
  out.append_double(payload_nan, 0);
  out.append_double(std::numeric_limits<double>::denorm_min(), 0);
  out.append_string(awkward);
  out.append_string("");

  const serialize_binary_buf in(out.as_str());
  EXPECT_EQ(-1, in.read_int8());
  EXPECT_EQ(std::numeric_limits<signed char>::min(), in.read_int8());
  EXPECT_EQ(std::numeric_limits<short>::min(), in.read_int16());
  EXPECT_EQ(std::numeric_limits<int>::min(), in.read_int32());
  EXPECT_EQ(std::numeric_limits<long long>::min(), in.read_int64());
  EXPECT_EQ(255, in.read_uint8());
  EXPECT_EQ(65535, in.read_uint16());
  EXPECT_EQ(std::numeric_limits<unsigned int>::max(), in.read_uint32());
  EXPECT_EQ(std::numeric_limits<unsigned long long>::max(), in.read_uint64());
  EXPECT_TRUE(same_bits(-0.0f, in.read_float()));
  EXPECT_TRUE(same_bits(float_nan, in.read_float()));
  EXPECT_TRUE(same_bits(-0.0, in.read_double()));
  EXPECT_TRUE(same_bits(payload_nan, in.read_double()));
  EXPECT_TRUE(same_bits(std::numeric_limits<double>::denorm_min(), in.read_double()));
  EXPECT_EQ(awkward, in.read_string());
  EXPECT_FALSE(in.at_end());  // the empty string's length is still to come
  EXPECT_EQ("", in.read_string());
  EXPECT_TRUE(in.at_end());
}

TEST(SerializeBinaryBuf, ReadsAtTheEndGiveZerosAndLeaveThePositionForLaterAppends) {
  serialize_binary_buf buf;
  EXPECT_TRUE(buf.at_end());
  EXPECT_EQ(0, buf.read_int32());
  EXPECT_EQ(0.0, buf.read_double());
  EXPECT_EQ("", buf.read_string());
  EXPECT_EQ(nullptr, buf.read_buffer());
  buf.append_int16(7);
  EXPECT_FALSE(buf.at_end());
  EXPECT_EQ(7, buf.read_int16());
  EXPECT_EQ(0u, buf.read_uint64());
  buf.append_uint8(9);
  EXPECT_EQ(9, buf.read_uint8());
  buf.reset_read();
  EXPECT_EQ(7, buf.read_int16());
}

TEST(SerializeBinaryBuf, TruncatedValuesReadAsZeroPaddedAndEndTheBuffer) {
  const std::string three("\x01\x02\x03", 3);
  serialize_binary_buf buf(three);
  int padded = 0;
  std::memcpy(&padded, three.data(), 3);
  EXPECT_EQ(padded, buf.read_int32());
  EXPECT_TRUE(buf.at_end());
  EXPECT_EQ(0, buf.read_int8());

  // A string whose length prefix itself is cut short is empty.
  serialize_binary_buf short_length(std::string("\x05\x00", 2));
  EXPECT_EQ("", short_length.read_string());
  EXPECT_TRUE(short_length.at_end());

  // A string announcing more bytes than remain gives those that remain.
  serialize_binary_buf short_bytes(bytes_of<std::uint32_t>(1000) + "xyz");
  EXPECT_EQ("xyz", short_bytes.read_string());
  EXPECT_TRUE(short_bytes.at_end());
  EXPECT_EQ("", short_bytes.read_string());

  // A huge announced length must not wrap the position back into the content.
  serialize_binary_buf huge(bytes_of<std::uint32_t>(0xFFFFFFFFu) + "abcdefgh");
  EXPECT_EQ("abcdefgh", huge.read_string());
  EXPECT_TRUE(huge.at_end());
  EXPECT_EQ(0, huge.read_int8());
}

TEST(SerializeBinaryBuf, BuffersNestWithALengthPrefixWhateverTheirEncoding) {
  serialize_text_buf text;
  text.append_int32(5);
  serialize_binary_buf buf;
  buf.append_buffer(text);
  buf.append_int8(1);
  EXPECT_EQ(bytes_of<std::uint32_t>(2) + "5\x01" + "\x01", buf.as_str());

  mota::memory::pointers::rc_pointer<serialize_buffer> inner(buf.read_buffer());
  ASSERT_TRUE(inner);
  EXPECT_NE(nullptr, dynamic_cast<serialize_binary_buf*>(inner.get()));
  EXPECT_TRUE(inner->delete_on_zero());
  EXPECT_EQ(1, inner->reference_count());
  EXPECT_EQ("5\x01", inner->as_str());
  EXPECT_EQ(1, buf.read_int8());

  buf.append_buffer(buf);  // itself, as it was before this append
  serialize_binary_buf whole(buf);
  whole.reset_read();
  std::unique_ptr<serialize_buffer> skipped(whole.read_buffer());
  whole.read_int8();
  std::unique_ptr<serialize_buffer> self(whole.read_buffer());
  EXPECT_EQ(bytes_of<std::uint32_t>(2) + "5\x01" + "\x01", self->as_str());
}

TEST(SerializeBinaryBuf, AssignReplacesContentButKeepsThePosition) {
  serialize_binary_buf buf;
  for (int v : {1, 2, 3})
    buf.append_int32(v);
  EXPECT_EQ(1, buf.read_int32());
  serialize_binary_buf other;
  for (int v : {10, 20, 30})
    other.append_int32(v);
  buf.assign(other);
  EXPECT_EQ(20, buf.read_int32());
  buf.assign(bytes_of<int>(4) + bytes_of<int>(5) + bytes_of<int>(6));
  EXPECT_EQ(6, buf.read_int32());
  const std::string raw = bytes_of<short>(1) + bytes_of<short>(2);
  buf.assign(raw.data(), static_cast<int>(raw.size()));
  EXPECT_TRUE(buf.at_end());
  buf.reset_read();
  EXPECT_EQ(1, buf.read_int16());
  buf.assign(*static_cast<serialize_buffer*>(&buf));
  EXPECT_EQ(raw, buf.as_str());
  EXPECT_EQ(2, buf.read_int16());
  buf.assign(raw.data(), -1);
  EXPECT_EQ("", buf.as_str());
}

TEST(SerializeBinaryBuf, CopiesCloneTheirPositionOtherConstructorsStartAtZero) {
  serialize_binary_buf buf;
  buf.append_int16(1);
  buf.append_int16(2);
  EXPECT_EQ(1, buf.read_int16());

  std::unique_ptr<serialize_binary_buf> clone(buf.clone());
  EXPECT_TRUE(clone->delete_on_zero());
  EXPECT_EQ(0, clone->reference_count());
  EXPECT_EQ(2, clone->read_int16());
  EXPECT_EQ(2, serialize_binary_buf(buf).read_int16());
  EXPECT_EQ(1, serialize_binary_buf(buf.as_str()).read_int16());
  const serialize_buffer& base = buf;
  EXPECT_EQ(1, serialize_binary_buf(base).read_int16());

  mota::memory::pointers::rc_pointer<serialize_buffer> fresh(buf.create());
  EXPECT_NE(nullptr, dynamic_cast<serialize_binary_buf*>(fresh.get()));
  EXPECT_TRUE(fresh->delete_on_zero());
  EXPECT_TRUE(fresh->at_end());
  EXPECT_EQ("", fresh->as_str());
}

}  // namespace
