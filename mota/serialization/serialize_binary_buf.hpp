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
  short read_int16() const override;
  int read_int32() const override;
  long long read_int64() const override;
  unsigned char read_uint8() const override;
  unsigned short read_uint16() const override;
  unsigned int read_uint32() const override;
  unsigned long long read_uint64() const override;
  float read_float() const override;
  double read_double() const override;
  //@}
  // The string announced by the next 4-byte length (cut short where the content ends), or an
  // empty string at the end. When fewer than 4 bytes are left for the length, the position
  // moves 4 bytes on, beyond the content, and std::out_of_range is thrown
  // ("basic_string::substr: __pos (which is P) > this->size() (which is S)").
  std::string read_string() const override;
  // Like read_string, as a new heap serialize_binary_buf (delete flag set); null at the end.
  serialize_binary_buf* read_buffer() const override;

  bool at_end() const override;
  void reset_read() const override;

  serialize_binary_buf* create() const override;
  serialize_binary_buf* clone() const override;

 private:
  std::string m_content;
  mutable std::uint32_t m_read_pos;
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_SERIALIZE_BINARY_BUF_HPP
