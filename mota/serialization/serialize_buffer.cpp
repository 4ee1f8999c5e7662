#include <mota/serialization/serialize_buffer.hpp>

namespace MOTA_2_18 {
namespace serialization {

constexpr std::uint32_t serialize_buffer::exhausted;

serialize_buffer::~serialize_buffer() = default;

}  // namespace serialization
}  // namespace MOTA_2_18
