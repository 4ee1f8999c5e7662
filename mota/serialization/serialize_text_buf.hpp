// The text encoding of serialize_buffer: every value is written as decimal text followed by the
// separator byte 0x01; strings and buffers as their length in decimal, 0x01, their bytes, 0x01,
// so they may contain 0x01 themselves. Floating values are written with the given number of
// significant digits.
//
//   mota::serialization::serialize_text_buf buf;
//   buf.append_int32(7); buf.append_int32(-12); buf.append_string("ab");
//   // buf.as_str() == "7\x01-12\x01" "2\x01" "ab\x01"
#ifndef MOTA_SERIALIZATION_SERIALIZE_TEXT_BUF_HPP
#define MOTA_SERIALIZATION_SERIALIZE_TEXT_BUF_HPP

#include <mota/export.hpp>
#include <mota/serialization/serialize_buffer.hpp>

#include <cstddef>
#include <cstdint>
#include <string>

namespace MOTA_2_18 {
namespace serialization {

// The text encoding: each value as decimal text followed by the separator 0x01.
class MOTA_API serialize_text_buf : public serialize_buffer {
 public:
  // The byte that ends every item.
  static constexpr char separator = '\x01';

  // Empty content, read position 0.
  serialize_text_buf();
  // Copies the content and the read position.
  serialize_text_buf(const serialize_text_buf& other);
  // Takes `other.as_str()` as content; read position 0.
  serialize_text_buf(const serialize_buffer& other);  // NOLINT: converting on purpose
  // Takes the bytes of `bytes` as content; read position 0.
  serialize_text_buf(const std::string& bytes);  // NOLINT: converting on purpose
  //@{
  // The move constructor takes over the content and the read position; the assignments copy
  // or take over both and return *this.
  serialize_text_buf(serialize_text_buf&& other) noexcept;
  serialize_text_buf& operator=(const serialize_text_buf& other);
  serialize_text_buf& operator=(serialize_text_buf&& other) noexcept;
  ~serialize_text_buf() override;
  //@}

  void assign(const serialize_buffer& other) override;
  void assign(const std::string& bytes) override;
  void assign(const char* bytes, int length) override;

  std::string as_str() const override;

  //@{
  // The value in decimal ("-" first when negative; a signed char as a number), then 0x01.
  void append_int8(const signed char& value) override;
  void append_int16(const short& value) override;
  void append_int32(const int& value) override;
  void append_int64(const long long& value) override;
  void append_uint8(const unsigned char& value) override;
  void append_uint16(const unsigned short& value) override;
  void append_uint32(const unsigned int& value) override;
  void append_uint64(const unsigned long long& value) override;
  //@}
  //@{
  // Floating values are written as a std::stringstream writes the value (widened to double)
  // with `precision` significant digits in its default notation: 3.14159265 at precision 3 is
  // "3.14". append_string and append_buffer write the length in decimal, 0x01, the bytes (a
  // buffer's as_str()) and 0x01. Each item ends with 0x01.
  void append_float(const float& value, const unsigned int& precision = 9) override;
  void append_double(const double& value, const unsigned int& precision = 17) override;
  void append_string(const std::string& value) override;
  void append_buffer(const serialize_buffer& other) override;
  //@}

  //@{
  // Number reads take the text up to the next 0x01 (or to the end of the content, which then
  // exhausts the buffer until reset_read) and parse it with the generic::convert parsers, so
  // text that is not a number reads as 0 and an out-of-range number saturates. A read position
  // beyond the end of the content (left there by a string whose length overshoots the content)
  // throws std::out_of_range ("basic_string::substr: __pos (which is P) > this->size() (which
  // is S)").
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
  // Reads the length, then that many bytes (fewer if the content ends first), and steps past
  // the trailing 0x01. Empty when exhausted; std::out_of_range as above when the position is
  // beyond the content.
  std::string read_string() const override;
  // Like read_string, as a new heap serialize_text_buf (delete flag set); empty when exhausted.
  serialize_text_buf* read_buffer() const override;

  bool at_end() const override;
  void reset_read() const override;

  serialize_text_buf* create() const override;
  serialize_text_buf* clone() const override;

 private:
  // Finds the next token and moves the read position past its separator (or exhausts it).
  // Returns false when already exhausted; throws std::out_of_range when beyond the content.
  bool next_token(const char*& token, std::size_t& length) const;
  // Reads a string's length and finds its bytes (cut short where the content ends), moving the
  // read position past them and their separator. False when exhausted.
  bool take_string(std::size_t& offset, std::size_t& length) const;

  std::string m_content;
  mutable std::uint32_t m_read_pos;
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_SERIALIZE_TEXT_BUF_HPP
