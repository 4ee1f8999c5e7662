#include <mota/types/color.hpp>

namespace MOTA_2_18 {
namespace types {

// The colour is four bytes with no virtual operations; it must stay exactly that size.
static_assert(sizeof(color_t) == 4, "color_t is four bytes");

}  // namespace types
}  // namespace MOTA_2_18
