#include <mota/serialization/serialize_buffer.hpp>

namespace MOTA_2_18 {
namespace serialization {

serialize_buffer::~serialize_buffer() = default;

}  // namespace serialization
}  // namespace MOTA_2_18
