// Not part of the public interface.
//
// Read positions are 32-bit in every build; a position that would pass the exhausted value
// (0xFFFFFFFF) saturates to it instead of wrapping back into the content.
#ifndef MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP
#define MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP

#include <mota/serialization/serialize_buffer.hpp>

#include <cstdint>

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

}  // namespace _private
}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_PRIVATE_READ_POSITION_HPP
