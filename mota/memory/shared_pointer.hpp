// A non-intrusive shared pointer for objects of any type: the count lives beside the object,
// so the pointee needs no mix-in. Like rc_pointer, counting is not atomic. Dereferencing an
// empty pointer throws instead of touching address zero; get() and the bool test do not.
//
//   shared_pointer<catalog_t> a(new catalog_t);
//   shared_pointer<catalog_t> b = a;          // both own the catalog; the last one deletes it
#ifndef MOTA_MEMORY_SHARED_POINTER_HPP
#define MOTA_MEMORY_SHARED_POINTER_HPP

#include <mota/exceptions/_private/throw.hpp>
#include <mota/export.hpp>

#include <cstdint>
#include <utility>

namespace MOTA_2_18 {
namespace memory {
namespace pointers {

// A pointer sharing ownership of an object through a separate count; the last owner deletes
// it. Not thread-safe.
template <class T>
class shared_pointer {
 public:
  shared_pointer() = default;
  //@{
  // Takes ownership of `object` (which may be null). If allocating the count fails, the
  // object is deleted and std::bad_alloc propagates. Copies share the ownership, the move form
  // takes it over; the destructor deletes the object with its last owner.
  explicit shared_pointer(T* object) {
    if (object == nullptr) return;
    try {
      m_count = new std::int32_t(1);
    } catch (...) {
      delete object;
      throw;
    }
    m_object = object;
  }
  shared_pointer(const shared_pointer& other) : m_object(other.m_object), m_count(other.m_count) {
    if (m_count != nullptr) ++*m_count;
  }
  shared_pointer(shared_pointer&& other) noexcept
      : m_object(std::exchange(other.m_object, nullptr)),
        m_count(std::exchange(other.m_count, nullptr)) {}
  ~shared_pointer() { release(); }
  //@}

  // Shares (or takes over) the other's object, releasing the current one; returns *this.
  shared_pointer& operator=(shared_pointer other) noexcept {
    swap(other);
    return *this;
  }

  // Releases the current object and takes ownership of `object`.
  void reset(T* object = nullptr) { shared_pointer(object).swap(*this); }
  // Exchanges the objects and counts of the two pointers.
  void swap(shared_pointer& other) noexcept {
    std::swap(m_object, other.m_object);
    std::swap(m_count, other.m_count);
  }

  // The object, or null for an empty pointer.
  T* get() const { return m_object; }
  // The object; throws exceptions::logic_error "unreferanced object" for an empty pointer
  // (the spelling is the library's message text and is kept).
  T& operator*() const {
    if (m_object == nullptr) MOTA_THROW(exceptions::logic_error, "unreferanced object");
    return *m_object;
  }
  //@{
  // operator-> throws as operator* does; operator bool is true when an object is held.
  T* operator->() const {
    if (m_object == nullptr) MOTA_THROW(exceptions::logic_error, "unreferanced object");
    return m_object;
  }
  explicit operator bool() const { return m_object != nullptr; }
  //@}
  // How many shared_pointers own the object; 0 for an empty pointer.
  std::int32_t use_count() const { return m_count != nullptr ? *m_count : 0; }

  //@{
  // Whether both point at the same object.
  friend bool operator==(const shared_pointer& a, const shared_pointer& b) {
    return a.m_object == b.m_object;
  }
  friend bool operator!=(const shared_pointer& a, const shared_pointer& b) {
    return a.m_object != b.m_object;
  }
  //@}

 private:
  void release() {
    if (m_count != nullptr && --*m_count == 0) {
      delete m_object;
      delete m_count;
    }
    m_object = nullptr;
    m_count = nullptr;
  }

  T* m_object = nullptr;
  std::int32_t* m_count = nullptr;
};

}  // namespace pointers
}  // namespace memory
}  // namespace MOTA_2_18

#endif  // MOTA_MEMORY_SHARED_POINTER_HPP
