// Not part of the public interface.
//
// Read positions are 32-bit in every build; a position that would pass the exhausted value
// (0xFFFFFFFF) saturates to it instead of wrapping back into the content. Taking bytes from a
// position beyond the content fails as a standard substring taken there does.
#ifndef MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP
#define MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP

#include <mota/serialization/serialize_buffer.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

namespace MOTA_2_18 {
namespace serialization {
namespace _private {

// `position` moved forward by `distance`, or serialize_buffer::exhausted when that would reach
// or pass it.
inline std::uint32_t advance_position(std::uint32_t position, std::uint64_t distance) {
  const std::uint64_t next = static_cast<std::uint64_t>(position) + distance;
  return next >= serialize_buffer::exhausted ? serialize_buffer::exhausted
                                             : static_cast<std::uint32_t>(next);
}

// The failure a standard substring taken from beyond the end reports, word for word.
[[noreturn]] __attribute__((noinline, cold)) inline void throw_beyond_content(std::size_t position,
                                                                              std::size_t size) {
  char message[128];
  std::snprintf(message, sizeof message, "%s: __pos (which is %zu) > this->size() (which is %zu)",
                "basic_string::substr", position, size);
  throw std::out_of_range(message);
}

}  // namespace _private
}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP
