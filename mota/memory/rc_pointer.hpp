// An intrusive reference-counting pointer to objects that carry
// generic::abilities::reference_count_pointer_ability<T>. Copies raise the object's count;
// the pointer that drops the count from 1 to 0 destroys the object (T::destroy_released, which
// deletes it unless T says otherwise) if its delete flag is set.
// Counts are not atomic: objects shared through rc_pointer belong to one thread at a time.
//
//   rc_pointer<variant_type> a(new_value);   // count 1
//   rc_pointer<variant_type> b = a;          // count 2, same object
#ifndef MOTA_MEMORY_RC_POINTER_HPP
#define MOTA_MEMORY_RC_POINTER_HPP

#include <mota/export.hpp>

#include <utility>

namespace MOTA_2_18 {
// Memory ownership helpers.
namespace memory {
// Reference-counting smart pointers: intrusive (rc_pointer) and shared (shared_pointer).
namespace pointers {

// A pointer that counts its references in the object itself (T derives from
// reference_count_pointer_ability<T>). Not thread-safe.
template <class T>
class rc_pointer {
 public:
  rc_pointer() = default;
  //@{
  // Takes a reference on `object` (which may be null) or on the other pointer's object; the
  // move form takes the other's reference over. The destructor drops the reference, deleting
  // the object when it was the last one and the object's delete flag is set.
  explicit rc_pointer(T* object) : m_object(object) { acquire(); }
  rc_pointer(const rc_pointer& other) : m_object(other.m_object) { acquire(); }
  rc_pointer(rc_pointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  template <class U>
  rc_pointer(const rc_pointer<U>& other) : m_object(other.get()) {  // NOLINT: converting
    acquire();
  }
  ~rc_pointer() { release(); }
  //@}

  //@{
  // Drops the current reference and shares (or takes over) the other's; returns *this.
  rc_pointer& operator=(const rc_pointer& other) {
    if (m_object != other.m_object) {
      T* incoming = other.m_object;
      if (incoming != nullptr) incoming->add_reference();
      release();
      m_object = incoming;
    }
    return *this;
  }
  rc_pointer& operator=(rc_pointer&& other) noexcept {
    if (this != &other) {
      release();
      m_object = std::exchange(other.m_object, nullptr);
    }
    return *this;
  }
  //@}

  //@{
  // reset drops the current reference and takes one on `object`; swap exchanges the objects.
  void reset(T* object = nullptr) { rc_pointer(object).swap(*this); }
  void swap(rc_pointer& other) noexcept { std::swap(m_object, other.m_object); }
  //@}

  //@{
  // The object (null when empty); * and -> must not be used on an empty pointer.
  T* get() const { return m_object; }
  T& operator*() const { return *m_object; }
  T* operator->() const { return m_object; }
  //@}
  // True when the pointer holds an object.
  explicit operator bool() const { return m_object != nullptr; }

  //@{
  // Whether both point at the same object.
  friend bool operator==(const rc_pointer& a, const rc_pointer& b) {
    return a.m_object == b.m_object;
  }
  friend bool operator!=(const rc_pointer& a, const rc_pointer& b) {
    return a.m_object != b.m_object;
  }
  //@}

 private:
  void acquire() {
    if (m_object != nullptr) m_object->add_reference();
  }
  void release() {
    T* object = std::exchange(m_object, nullptr);
    if (object != nullptr && object->release_reference()) T::destroy_released(object);
  }

  T* m_object = nullptr;
};

}  // namespace pointers
}  // namespace memory
}  // namespace MOTA_2_18

#endif  // MOTA_MEMORY_RC_POINTER_HPP
