#include <mota/types/variant_type.hpp>

namespace MOTA_2_18 {
namespace types {

// Defined here so the class's type information and virtual table live in the library.
variant_type::~variant_type() = default;

}  // namespace types
}  // namespace MOTA_2_18
