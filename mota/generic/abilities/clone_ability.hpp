// Mix-in for objects that can copy themselves polymorphically. Derived classes override
// clone() with their own pointer type (covariant return); the caller owns the copy.
//
//   mota::types::variant_type* copy = value->clone();
#ifndef MOTA_GENERIC_ABILITIES_CLONE_ABILITY_HPP
#define MOTA_GENERIC_ABILITIES_CLONE_ABILITY_HPP

#include <mota/export.hpp>

namespace MOTA_2_18 {
namespace generic {
// Mix-ins that give a class polymorphic copying, creation or reference counting.
namespace abilities {

// The interface of an object that copies itself through a base pointer.
class MOTA_API clone_ability {
 public:
  virtual ~clone_ability() = default;
  // A new, independent heap copy of this object.
  virtual clone_ability* clone() const = 0;

 protected:
  //@{
  // For the derived classes only.
  clone_ability() = default;
  clone_ability(const clone_ability&) = default;
  clone_ability& operator=(const clone_ability&) = default;
  //@}
};

}  // namespace abilities
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_ABILITIES_CLONE_ABILITY_HPP
