#include <mota/serialization/labeled_serialize_buffer.hpp>

namespace MOTA_2_18 {
namespace serialization {

labeled_serialize_buffer::~labeled_serialize_buffer() = default;

}  // namespace serialization
}  // namespace MOTA_2_18
