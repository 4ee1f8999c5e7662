// The library's polymorphic callable: one call signature, invoked, compared and cloned
// through virtual operations. Delegates own one; the XML scanner's handlers and the assertion
// hook are held this way.
//
//   struct printer : mota::functor::function_type_interface<void(const std::string&)> { ... };
#ifndef MOTA_FUNCTOR_FUNCTION_TYPE_INTERFACE_HPP
#define MOTA_FUNCTOR_FUNCTION_TYPE_INTERFACE_HPP

#include <mota/export.hpp>

namespace MOTA_2_18 {
namespace functor {

template <class Signature>
class function_type_interface;

// The interface of a callable of signature R(Args...) that can be compared and copied.
template <class R, class... Args>
class MOTA_API function_type_interface<R(Args...)> {
 public:
  virtual ~function_type_interface() = default;

  // Calls the target with the arguments passed through.
  virtual R invoke(Args... args) = 0;
  // True when `other` calls the same target in the same way.
  virtual bool do_equal(const function_type_interface& other) const = 0;
  // A new heap copy, owned by the caller.
  virtual function_type_interface* do_clone() const = 0;

  // The same as invoke().
  R operator()(Args... args) { return invoke(static_cast<Args>(args)...); }

 protected:
  //@{
  // For the derived callables only.
  function_type_interface() = default;
  function_type_interface(const function_type_interface&) = default;
  function_type_interface& operator=(const function_type_interface&) = default;
  //@}
};

}  // namespace functor
}  // namespace MOTA_2_18

#endif  // MOTA_FUNCTOR_FUNCTION_TYPE_INTERFACE_HPP
