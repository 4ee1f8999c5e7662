// A callable bound to an object and one of its member functions. The object is not owned.
//
//   mota::functor::member_function_t<parser_user, void(const ustring8&)> on_start(this,
//   &parser_user::start); on_start.invoke(name);
#ifndef MOTA_FUNCTOR_MEMBER_FUNCTION_HPP
#define MOTA_FUNCTOR_MEMBER_FUNCTION_HPP

#include <mota/functor/function_type_interface.hpp>

namespace MOTA_2_18 {
namespace functor {

template <class Class, class Signature>
class member_function_t;

// A callable that calls a member function on an object: the object is not owned and must
// outlive the calls.
template <class Class, class R, class... Args>
class MOTA_API member_function_t<Class, R(Args...)> : public function_type_interface<R(Args...)> {
 public:
  //@{
  // The interface implemented, the member-function pointer type, and the constructors: the
  // callable calls `method` on `object` (neither is checked); copies call the same pair.
  using interface_type = function_type_interface<R(Args...)>;
  using method_type = R (Class::*)(Args...);

  member_function_t(Class* bound_object, method_type bound_method)
      : m_object(bound_object), m_method(bound_method) {}
  member_function_t(const member_function_t&) = default;
  member_function_t& operator=(const member_function_t&) = default;
  ~member_function_t() override = default;
  //@}

  R invoke(Args... args) override { return (m_object->*m_method)(static_cast<Args>(args)...); }

  // Equal to another member_function_t of the same class and signature that binds the same
  // object and the same member function.
  bool do_equal(const interface_type& other) const override {
    const auto* same = dynamic_cast<const member_function_t*>(&other);
    return same != nullptr && same->m_object == m_object && same->m_method == m_method;
  }

  interface_type* do_clone() const override { return new member_function_t(*this); }

  //@{
  // The bound object and member function.
  Class* object() const { return m_object; }
  method_type method() const { return m_method; }
  //@}

 private:
  Class* m_object;
  method_type m_method;
};

}  // namespace functor
}  // namespace MOTA_2_18

#endif  // MOTA_FUNCTOR_MEMBER_FUNCTION_HPP
