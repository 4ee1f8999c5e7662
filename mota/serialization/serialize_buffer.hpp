// The abstract append/read buffer shared by the binary and the text encodings. Values are
// appended one after the other and read back, in the same order and with the same types, through
// a read position; neither encoding records the types. Reading past the end yields zero values.
//
//   mota::serialization::serialize_binary_buf out;
//   out.append_int32(7); out.append_string("ab");
//   mota::serialization::serialize_binary_buf in(out.as_str());
//   int seven = in.read_int32(); std::string ab = in.read_string();
#ifndef MOTA_SERIALIZATION_SERIALIZE_BUFFER_HPP
#define MOTA_SERIALIZATION_SERIALIZE_BUFFER_HPP

#include <mota/export.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/create_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>

#include <cstdint>
#include <string>

namespace MOTA_2_18 {
// Serialization: typed values to binary or text buffers and back, and labelled trees.
namespace serialization {

// A buffer values are appended to and read back from in the same order and types; the encoding
// (binary or text) is the derived class's. Shared through rc_pointer, copied with clone().
class MOTA_API serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<serialize_buffer> {
 public:
  // The read position that means "reading is exhausted" (the standard strings' no-position
  // value on a 32-bit platform, kept at 32 bits everywhere).
  static constexpr std::uint32_t exhausted = 0xFFFFFFFFu;

  ~serialize_buffer() override;

  // Replaces the content with `other.as_str()`; assigning a buffer to itself does nothing.
  // None of the assign overloads moves the read position.
  virtual void assign(const serialize_buffer& other) = 0;
  // Replaces the content with the bytes of `bytes`.
  virtual void assign(const std::string& bytes) = 0;
  // Replaces the content with `length` bytes from `bytes`; a null pointer or a length of zero
  // or less gives an empty content.
  virtual void assign(const char* bytes, int length) = 0;

  // A copy of the whole content, whatever has been read.
  virtual std::string as_str() const = 0;

  //@{
  // Appends the value in the buffer's encoding.
  virtual void append_int8(const signed char& value) = 0;
  virtual void append_int16(const short& value) = 0;
  virtual void append_int32(const int& value) = 0;
  virtual void append_int64(const long long& value) = 0;
  virtual void append_uint8(const unsigned char& value) = 0;
  virtual void append_uint16(const unsigned short& value) = 0;
  virtual void append_uint32(const unsigned int& value) = 0;
  virtual void append_uint64(const unsigned long long& value) = 0;
  //@}
  //@{
  // `precision` is the number of significant digits of the text encoding; the binary encoding
  // ignores it. The defaults are enough digits to read the same value back.
  virtual void append_float(const float& value, const unsigned int& precision = 9) = 0;
  virtual void append_double(const double& value, const unsigned int& precision = 17) = 0;
  //@}
  // Length-prefixed, so `value` may hold any byte.
  virtual void append_string(const std::string& value) = 0;
  // Appends `other.as_str()` like a string, whatever encoding `other` uses.
  virtual void append_buffer(const serialize_buffer& other) = 0;

  //@{
  // Each read returns the next value and advances the read position; at the end it returns zero
  // (0, 0.0, an empty string) and leaves the position alone.
  virtual signed char read_int8() const = 0;
  virtual short read_int16() const = 0;
  virtual int read_int32() const = 0;
  virtual long long read_int64() const = 0;
  virtual unsigned char read_uint8() const = 0;
  virtual unsigned short read_uint16() const = 0;
  virtual unsigned int read_uint32() const = 0;
  virtual unsigned long long read_uint64() const = 0;
  virtual float read_float() const = 0;
  virtual double read_double() const = 0;
  virtual std::string read_string() const = 0;
  //@}
  // A new heap buffer of the same encoding holding the next appended buffer's bytes, with its
  // delete flag set; the caller owns it (or hands it to an rc_pointer).
  virtual serialize_buffer* read_buffer() const = 0;

  // True when the read position is at or beyond the end of the content, or exhausted.
  virtual bool at_end() const = 0;
  // Rewinds the read position to 0.
  virtual void reset_read() const = 0;

  // A new, empty heap buffer of the same encoding, delete flag set.
  serialize_buffer* create() const override = 0;
  // A new heap buffer of the same encoding with a copy of the content and of the read position,
  // delete flag set.
  serialize_buffer* clone() const override = 0;

 protected:
  //@{
  // For the derived buffers only.
  serialize_buffer() = default;
  serialize_buffer(const serialize_buffer&) = default;
  serialize_buffer& operator=(const serialize_buffer&) = default;
  //@}
};

}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_SERIALIZE_BUFFER_HPP
