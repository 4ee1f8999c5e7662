// The binary reads take values wholly inside the content inline and leave the rest (the end, a
// value cut short) to an out-of-line path. Both are checked here against a plain model of the
// encoding at every start position of short contents, so each boundary between the two paths
// is crossed.
#include <mota/serialization/serialize_binary_buf.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

using mota::serialization::serialize_binary_buf;

// The bytes 1, 2, 3, ... so that every position reads differently.
std::string counting_bytes(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i)
    bytes.push_back(static_cast<char>(i + 1));
  return bytes;
}

// The value a read of T at `start` gives: the bytes left there (at most sizeof(T)) followed by
// zeros; `next` is the position after it.
template <class T>
T model_read(const std::string& content, std::size_t start, std::size_t& next) {
  char bytes[sizeof(T)] = {};
  const std::size_t taken =
      start < content.size() ? std::min(sizeof(T), content.size() - start) : 0;
  if (taken > 0) std::memcpy(bytes, content.data() + start, taken);
  next = start + taken;
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// Moves a fresh buffer's read position to `start` one byte at a time.
void skip_to(const serialize_binary_buf& buf, std::size_t start) {
  for (std::size_t i = 0; i < start; ++i)
    buf.read_uint8();
}

template <class T>
void check_reads_of(T (serialize_binary_buf::*read)() const) {
  for (std::size_t size = 0; size <= 20; ++size) {
    const std::string content = counting_bytes(size);
    for (std::size_t start = 0; start <= size; ++start) {
      const serialize_binary_buf buf(content);
      skip_to(buf, start);
      std::size_t next = 0;
      const T expected = model_read<T>(content, start, next);
      const T got = (buf.*read)();
      SCOPED_TRACE("size " + std::to_string(size) + ", start " + std::to_string(start));
      EXPECT_EQ(0, std::memcmp(&expected, &got, sizeof got));
      EXPECT_EQ(next >= size, buf.at_end());
      // The position is where the model says: the next byte read is the one there.
      EXPECT_EQ(next < size ? static_cast<unsigned char>(next + 1) : 0, buf.read_uint8());
    }
  }
}

template <class... T>
void check_reads(T (serialize_binary_buf::*... reads)() const) {
  (check_reads_of(reads), ...);
}

TEST(SerializeBinaryBufReads, FixedSizeReadsMatchTheModelAtEveryPosition) {
  using B = serialize_binary_buf;
  check_reads(&B::read_int16, &B::read_uint16, &B::read_int32, &B::read_uint32, &B::read_int64,
              &B::read_uint64, &B::read_float, &B::read_double);
}

TEST(SerializeBinaryBufReads, StringsMatchTheModelWhereverTheirLengthAndBytesEnd) {
  for (std::uint32_t announced = 0; announced <= 6; ++announced) {
    for (std::size_t present = 0; present <= 6; ++present) {
      std::string content(2, 'p');
      content.append(reinterpret_cast<const char*>(&announced), sizeof announced);
      content += counting_bytes(present);
      SCOPED_TRACE("announced " + std::to_string(announced) + ", present " +
                   std::to_string(present));
      const serialize_binary_buf buf(content);
      skip_to(buf, 2);
      EXPECT_EQ(counting_bytes(std::min<std::size_t>(announced, present)), buf.read_string());
      // The position moves past the announced bytes, wherever the content ends.
      EXPECT_EQ(announced >= present, buf.at_end());
      EXPECT_EQ(announced < present ? static_cast<unsigned char>(announced + 1) : 0,
                buf.read_uint8());
    }
  }
}

}  // namespace
