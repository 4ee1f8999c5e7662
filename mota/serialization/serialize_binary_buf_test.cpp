#include <mota/serialization/serialize_binary_buf.hpp>

#include <mota_test.hpp>

#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using mota::serialization::serialize_binary_buf;

// The machine representation of `value`, which the binary encoding must write.
template <class T>
std::string bytes_of(T value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(&bytes[0], &value, sizeof value);
  return bytes;
}

TEST(SerializeBinaryBuf, WritesMachineOrderAndNeverReadsPastTheContent) {
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
  serialize_binary_buf empty;
  EXPECT_EQ(nullptr, empty.read_buffer());
  empty.append_uint8(9);  // appends after a read at the end are read
  EXPECT_EQ(9, empty.read_uint8());

  // A length prefix cut short leaves the position past its 4 bytes, beyond the content, where
  // no bytes can be taken; afterwards the buffer reads as ended.
  serialize_binary_buf short_length(std::string("ab\x05\x00", 4));
  EXPECT_EQ('a', short_length.read_int8());
  EXPECT_THROWS_STD(short_length.read_string(), std::out_of_range,
                    "basic_string::substr: __pos (which is 5) > this->size() (which is 4)");
  EXPECT_TRUE(short_length.at_end());
  EXPECT_EQ("", short_length.read_string());
  serialize_binary_buf short_buffer(std::string("\x05\x00\x00", 3));
  EXPECT_THROWS_STD(short_buffer.read_buffer(), std::out_of_range,
                    "basic_string::substr: __pos (which is 4) > this->size() (which is 3)");

  // The largest length must not wrap the position back into the content.
  serialize_binary_buf huge(bytes_of<std::uint32_t>(0xFFFFFFFFu) + "abcdefgh");
  std::unique_ptr<serialize_binary_buf> inner(huge.read_buffer());
  EXPECT_EQ("abcdefgh", inner->as_str());
  EXPECT_TRUE(huge.at_end());
  EXPECT_EQ(0, huge.read_int8());
}

}  // namespace
