// Not part of the public interface.
//
// The reading steps of serialize_text_buf over any run of bytes with its own read position.
// serialize_text_buf reads its content through them, and labeled_text_buffer reads nested texts
// through them as sub-ranges of the one text it was given, so a nested text is never copied
// and both fail in the same way with the same positions.
#ifndef MOTA_SERIALIZATION_PRIVATE_TEXT_READER_HPP
#define MOTA_SERIALIZATION_PRIVATE_TEXT_READER_HPP

#include <mota/serialization/serialize_buffer.hpp>

#include <cstddef>
#include <cstdint>

namespace MOTA_2_18 {
namespace serialization {
namespace _private {

// True when `position` is at or beyond `size`, or exhausted.
inline bool text_at_end(std::size_t size, std::uint32_t position) {
  return position == serialize_buffer::exhausted || position >= size;
}

// Finds the token at `position` in the `size` bytes at `content`: `length` bytes up to the next
// separator (or to the end, which exhausts the position), and moves the position past it.
// False when the position is exhausted; std::out_of_range when it is beyond `size`.
bool next_text_token(const char* content, std::size_t size, std::uint32_t& position,
                     const char*& token, std::size_t& length);

// Reads a string's length token, then finds its bytes at `offset` (`length` of them, fewer where
// the content ends first) and moves the position past them and their separator. False, with
// nothing taken, when the position is or becomes exhausted by the length token; failures as
// next_text_token's.
bool take_text_string(const char* content, std::size_t size, std::uint32_t& position,
                      std::size_t& offset, std::size_t& length);

}  // namespace _private
}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_PRIVATE_TEXT_READER_HPP
