// A value that owns one callable or none. Copying clones the callable; an empty delegate
// reports empty() and must not be invoked.
//
//   mota::functor::delegate_t<void(const ustring8&)> d(member_function_t<me, void(const
//   ustring8&)>(this, &me::f)); if (!d.empty()) d(text);
#ifndef MOTA_FUNCTOR_DELEGATE_HPP
#define MOTA_FUNCTOR_DELEGATE_HPP

#include <mota/functor/function_type_interface.hpp>

#include <utility>

namespace MOTA_2_18 {
// Callables held and compared through a common interface: delegates and member functions.
namespace functor {

template <class Signature>
class delegate_t;

// A callable of signature R(Args...) held by value: it owns a clone of the callable it is given.
template <class R, class... Args>
class delegate_t<R(Args...)> {
 public:
  // The callable interface it holds.
  using interface_type = function_type_interface<R(Args...)>;

  delegate_t() = default;
  //@{
  // Stores a clone of `callable` (the caller keeps its own); copies clone the other's
  // callable, the move form takes it over; the destructor deletes the held callable.
  delegate_t(const interface_type& callable) : m_callable(callable.do_clone()) {}  // NOLINT
  delegate_t(const delegate_t& other)
      : m_callable(other.m_callable ? other.m_callable->do_clone() : nullptr) {}
  delegate_t(delegate_t&& other) noexcept : m_callable(std::exchange(other.m_callable, nullptr)) {}
  ~delegate_t() { delete m_callable; }
  //@}

  // Takes a copy of the other delegate's callable, deleting its own; returns *this.
  delegate_t& operator=(delegate_t other) noexcept {
    std::swap(m_callable, other.m_callable);
    return *this;
  }

  // True when no callable is held.
  bool empty() const { return m_callable == nullptr; }

  //@{
  // The held callable, or null when empty.
  const interface_type* get() const { return m_callable; }
  interface_type* get() { return m_callable; }
  //@}

  // Invokes the held callable. Calling an empty delegate is a programming error.
  R operator()(Args... args) const { return m_callable->invoke(static_cast<Args>(args)...); }

  // True when both are empty, or both hold callables that compare equal.
  bool equal(const delegate_t& other) const {
    if (m_callable == nullptr || other.m_callable == nullptr) return m_callable == other.m_callable;
    return m_callable->do_equal(*other.m_callable);
  }

 private:
  interface_type* m_callable = nullptr;
};

}  // namespace functor
}  // namespace MOTA_2_18

#endif  // MOTA_FUNCTOR_DELEGATE_HPP
