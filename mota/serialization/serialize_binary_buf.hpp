// The binary encoding of serialize_buffer: every value is appended in the machine's own byte
// order (1, 2, 4 or 8 bytes; floats and doubles as their IEEE 754 bit patterns), strings and
// buffers as a 4-byte length followed by their bytes. Nothing separates the values.
//
//   mota::serialization::serialize_binary_buf buf;
//   buf.append_uint16(65535); buf.append_double(-0.0);
//   unsigned short u = buf.read_uint16(); double d = buf.read_double();
#ifndef MOTA_SERIALIZATION_SERIALIZE_BINARY_BUF_HPP
#define MOTA_SERIALIZATION_SERIALIZE_BINARY_BUF_HPP

#include <mota/export.hpp>
#include <mota/serialization/serialize_buffer.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace MOTA_2_18 {
namespace serialization {

// The binary encoding: each value's bytes in the machine's order, nothing between values.
class MOTA_API serialize_binary_buf : public serialize_buffer {
 public:
  // Empty content, read position 0.
  serialize_binary_buf();
  // Copies the content and the read position.
  serialize_binary_buf(const serialize_binary_buf& other);
  // Takes `other.as_str()` as content; read position 0.
  serialize_binary_buf(const serialize_buffer& other);  // NOLINT: converting on purpose
  // Takes the bytes of `bytes` as content; read position 0.
  serialize_binary_buf(const std::string& bytes);  // NOLINT: converting on purpose
  //@{
  // The move constructor takes over the content and the read position; the assignments copy
  // or take over both and return *this.
  serialize_binary_buf(serialize_binary_buf&& other) noexcept;
  serialize_binary_buf& operator=(const serialize_binary_buf& other);
  serialize_binary_buf& operator=(serialize_binary_buf&& other) noexcept;
  ~serialize_binary_buf() override;
  //@}

  void assign(const serialize_buffer& other) override;
  void assign(const std::string& bytes) override;
  void assign(const char* bytes, int length) override;

  std::string as_str() const override;

  //@{
  // The value's bytes in the machine's order: 1, 2, 4 or 8 of them.
  void append_int8(const signed char& value) override;
  void append_int16(const short& value) override;
  void append_int32(const int& value) override;
  void append_int64(const long long& value) override;
  void append_uint8(const unsigned char& value) override;
  void append_uint16(const unsigned short& value) override;
  void append_uint32(const unsigned int& value) override;
  void append_uint64(const unsigned long long& value) override;
  //@}
  // 4 bytes; the precision is ignored.
  void append_float(const float& value, const unsigned int& precision = 9) override;
  //@{
  // append_double: 8 bytes, the precision ignored. append_string and append_buffer: the length
  // as 4 bytes, then the bytes (a buffer's as_str(), whatever its encoding).
  void append_double(const double& value, const unsigned int& precision = 17) override;
  void append_string(const std::string& value) override;
  void append_buffer(const serialize_buffer& other) override;
  //@}

  //@{
  // A multi-byte read with fewer bytes left than its size reads the bytes that are there as if
  // the rest were zero and moves the read position to the end.
  signed char read_int8() const override;
  short read_int16() const override { return read_fixed<short>(); }
  int read_int32() const override { return read_fixed<int>(); }
  long long read_int64() const override { return read_fixed<long long>(); }
  unsigned char read_uint8() const override;
  unsigned short read_uint16() const override { return read_fixed<unsigned short>(); }
  unsigned int read_uint32() const override { return read_fixed<unsigned int>(); }
  unsigned long long read_uint64() const override { return read_fixed<unsigned long long>(); }
  float read_float() const override { return read_fixed<float>(); }
  double read_double() const override { return read_fixed<double>(); }
  //@}
  // The string announced by the next 4-byte length (cut short where the content ends), or an
  // empty string at the end. When fewer than 4 bytes are left for the length, the position
  // moves 4 bytes on, beyond the content, and std::out_of_range is thrown
  // ("basic_string::substr: __pos (which is P) > this->size() (which is S)").
  std::string read_string() const override {
    const std::uint64_t bytes_at = std::uint64_t{m_read_pos} + 4;
    if (bytes_at <= m_content.size()) {
      std::uint32_t length;
      std::memcpy(&length, m_content.data() + m_read_pos, sizeof length);
      const std::uint64_t end = bytes_at + length;
      if (end <= m_content.size() && end < exhausted) {
        m_read_pos = static_cast<std::uint32_t>(end);
        return std::string(m_content.data() + bytes_at, length);
      }
    }
    return read_string_slowly();
  }
  // Like read_string, as a new heap serialize_binary_buf (delete flag set); null at the end.
  serialize_binary_buf* read_buffer() const override;

  bool at_end() const override;
  void reset_read() const override;

  serialize_binary_buf* create() const override;
  serialize_binary_buf* clone() const override;

 private:
  // The reads are written in this header so that code holding a serialize_binary_buf itself
  // (not through the base) reads a value without a call. Their inline part takes only values
  // that lie wholly inside the content and end below the exhausted position; everything else
  // (the end, a value cut short, a position beyond the content) goes to the out-of-line part.
  template <typename T>
  T read_fixed() const {
    const std::uint64_t end = std::uint64_t{m_read_pos} + sizeof(T);
    T value;
    if (end <= m_content.size() && end < exhausted) {
      std::memcpy(&value, m_content.data() + m_read_pos, sizeof value);
      m_read_pos = static_cast<std::uint32_t>(end);
    } else {
      read_fixed_slowly(&value, sizeof value);
    }
    return value;
  }
  // Fills `size` bytes at `value`: zeros when exhausted, otherwise the bytes that are left (at
  // most `size`) followed by zeros, moving the position past the bytes taken.
  void read_fixed_slowly(void* value, std::size_t size) const;
  std::string read_string_slowly() const;

  std::string m_content;
  mutable std::uint32_t m_read_pos;
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_SERIALIZE_BINARY_BUF_HPP
