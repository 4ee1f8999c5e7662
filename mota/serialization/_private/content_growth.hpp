// Not part of the public interface.
//
// How an append-only buffer's byte string grows: to whole powers of two. Left to itself a
// std::string grows from its 15-byte inline store through 30, 60, ... 15 * 2^k bytes. A large
// buffer written again and again in a loop (filled, copied out, dropped) was measured with
// glibc's allocator to give its freed memory back to the system on every pass at those sizes,
// and to fault it in again on the next, at several times the cost of the appends; with
// power-of-two sizes the freed blocks stayed with the allocator and were reused.
#ifndef MOTA_SERIALIZATION_PRIVATE_CONTENT_GROWTH_HPP
#define MOTA_SERIALIZATION_PRIVATE_CONTENT_GROWTH_HPP

#include <mota/export.hpp>

#include <cstddef>
#include <string>

namespace MOTA_2_18 {
namespace serialization {
namespace _private {

// The smallest capacity a growing buffer takes: a few values' worth.
constexpr std::size_t first_content_capacity = 256;

// Makes room for `extra` more bytes in `content`: when they do not fit, the capacity becomes
// the smallest power of two (at least first_content_capacity) that holds them. A size beyond
// every power of two that fits in size_t is reserved exactly (and fails as reserve fails).
inline void reserve_more(std::string& content, std::size_t extra) {
  const std::size_t needed = content.size() + extra;
  if (needed <= content.capacity()) return;
  std::size_t capacity = first_content_capacity;
  while (capacity < needed && capacity <= ~std::size_t(0) / 4)
    capacity *= 2;
  content.reserve(capacity < needed ? needed : capacity);
}

}  // namespace _private
}  // namespace serialization
}  // namespace MOTA_2_18

#endif  // MOTA_SERIALIZATION_PRIVATE_CONTENT_GROWTH_HPP
