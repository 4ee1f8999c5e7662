// The empty tag type. A variant holding `nil_t` is "nil"; lookups that find nothing return
// objects equal to nil; assigning `nil` clears.
//
//   mota::types::variant v;           // nil
//   if (v == mota::types::nil) ...
#ifndef MOTA_TYPES_NIL_HPP
#define MOTA_TYPES_NIL_HPP

#include <mota/export.hpp>

namespace MOTA_2_18 {
namespace types {

// The type of `nil`: no value. Every nil_t equals every other.
struct MOTA_API nil_t {};

// The nil value: compare with it to test for "nothing", assign it to clear.
inline constexpr nil_t nil{};

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_NIL_HPP
