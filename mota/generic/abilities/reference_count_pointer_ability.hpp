// Mix-in that makes an object countable by memory::pointers::rc_pointer<T>: a delete-on-zero
// flag and a plain (non-atomic) 32-bit reference count. Objects built on the heap set the flag
// once they are complete; an object whose flag stays false is never deleted by its pointers.
//
//   struct node : mota::generic::abilities::reference_count_pointer_ability<node> { ... };
//   node* n = new node; n->delete_on_zero(true);
//   mota::memory::pointers::rc_pointer<node> p(n);   // count 1; deleted with the last pointer
#ifndef MOTA_GENERIC_ABILITIES_REFERENCE_COUNT_POINTER_ABILITY_HPP
#define MOTA_GENERIC_ABILITIES_REFERENCE_COUNT_POINTER_ABILITY_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace generic {
namespace abilities {

// The reference count and delete-on-zero flag that rc_pointer<T> manages for T.
template <class T>
class reference_count_pointer_ability {
 public:
  // Whether the last releasing pointer deletes the object.
  bool delete_on_zero() const { return m_delete_on_zero; }
  // Sets whether the last releasing pointer deletes the object; set it once a heap object is
  // complete.
  void delete_on_zero(bool flag) { m_delete_on_zero = flag; }

  // The number of pointers holding the object.
  std::int32_t reference_count() const { return m_reference_count; }

  // Counts one more pointer.
  void add_reference() { ++m_reference_count; }

  // Drops one reference; true when this was the last one and the object should now be
  // destroyed (the count was 1 and the delete flag is set).
  bool release_reference() {
    const std::int32_t before = m_reference_count--;
    return before == 1 && m_delete_on_zero;
  }

  // How rc_pointer destroys an object after release_reference() said so. rc_pointer names it
  // through T, so a T that frees some of its objects another way declares its own.
  static void destroy_released(T* object) { delete object; }

 protected:
  // An uncounted object that no pointer deletes.
  reference_count_pointer_ability() = default;
  //@{
  // A copy is a new object: it starts uncounted and not yet owned by anyone.
  reference_count_pointer_ability(const reference_count_pointer_ability&) {}
  // Assignment leaves the count and the flag of this object as they are.
  reference_count_pointer_ability& operator=(const reference_count_pointer_ability&) {
    return *this;
  }
  ~reference_count_pointer_ability() = default;
  //@}

  // One byte of the derived class's own, 0 until it sets it and 0 again in a copy. It sits
  // between the flag and the count, where the count's alignment leaves room anyway, so the
  // object's size and the places of the flag and the count stay as they are.
  std::uint8_t spare_byte() const { return m_spare_byte; }
  // Sets the derived class's byte.
  void spare_byte(std::uint8_t value) { m_spare_byte = value; }

 private:
  bool m_delete_on_zero = false;
  std::uint8_t m_spare_byte = 0;
  std::int32_t m_reference_count = 0;
};

}  // namespace abilities
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_ABILITIES_REFERENCE_COUNT_POINTER_ABILITY_HPP
