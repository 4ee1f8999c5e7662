// Mix-in for objects that can make a new, empty object of their own dynamic type. Derived
// classes override create() with their own pointer type (covariant return).
//
//   mota::serialization::serialize_buffer* fresh = buffer->create();
#ifndef MOTA_GENERIC_ABILITIES_CREATE_ABILITY_HPP
#define MOTA_GENERIC_ABILITIES_CREATE_ABILITY_HPP

#include <mota/export.hpp>

namespace MOTA_2_18 {
namespace generic {
namespace abilities {

// The interface of an object that makes a fresh object of its own type through a base pointer.
class MOTA_API create_ability {
 public:
  virtual ~create_ability() = default;
  // A new, default-state heap object of the same dynamic type; the caller owns it.
  virtual create_ability* create() const = 0;

 protected:
  //@{
  // For the derived classes only.
  create_ability() = default;
  create_ability(const create_ability&) = default;
  create_ability& operator=(const create_ability&) = default;
  //@}
};

}  // namespace abilities
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_ABILITIES_CREATE_ABILITY_HPP
