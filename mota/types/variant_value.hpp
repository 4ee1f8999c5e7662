// The concrete value objects of types::variant: variant_value_t<T> holds one value of type T
// and implements every conversion of variant_type for it. The library instantiates it for
// exactly eighteen types (nil_t, bool, the eight integer types, float, double, long double,
// ustring8, ustring16, ustring32, std::string and std::wstring); no other T links.
//
//   auto* v = new mota::types::variant_value_t<int>(7);
//   v->delete_on_zero(true);
//   mota::memory::pointers::rc_pointer<mota::types::variant_type> p(v);
#ifndef MOTA_TYPES_VARIANT_VALUE_HPP
#define MOTA_TYPES_VARIANT_VALUE_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>
#include <mota/types/variant_type.hpp>

#include <string>
#include <type_traits>
#include <utility>

namespace MOTA_2_18 {
namespace types {

// The value object of a variant that holds a T; made and shared by variant.
template <class T>
class MOTA_API variant_value_t final : public variant_type {
 public:
  // The held type.
  using value_type = T;

  //@{
  // A default-constructed T, a copy of (or the moved) `value`, or a copy of the other's value.
  variant_value_t() noexcept(std::is_nothrow_default_constructible_v<T>) : m_value() {}
  explicit variant_value_t(T const& value) noexcept(std::is_nothrow_copy_constructible_v<T>)
      : m_value(value) {}
  explicit variant_value_t(T&& value) noexcept(std::is_nothrow_move_constructible_v<T>)
      : m_value(std::move(value)) {}
  variant_value_t(variant_value_t const& other);
  //@}
  ~variant_value_t() override;

  // The held value.
  T const& value() const noexcept { return m_value; }

  bool convertible() const override;
  std::type_info const& type() const override;
  variant_value_t* clone() const override;
  std::ostream& ostream(std::ostream& os) const override;

  int as_int() const override;
  short as_short() const override;
  std::int32_t as_long() const override;
  std::int8_t as_int8() const override;
  std::int16_t as_int16() const override;
  std::int32_t as_int32() const override;
  std::int64_t as_int64() const override;
  std::uint8_t as_uint8() const override;
  std::uint16_t as_uint16() const override;
  std::uint32_t as_uint32() const override;
  std::uint64_t as_uint64() const override;
  bool as_bool() const override;

  strings::ustring8 as_string() const override;
  std::wstring as_wstring() const override;
  std::string as_ustring() const override;
  strings::ustring8 as_utf8() const override;
  strings::ustring16 as_utf16() const override;
  strings::ustring32 as_utf32() const override;

  float as_float() const override;
  double as_double() const override;
  long double as_long_double() const override;

 private:
  T const m_value;
};

//@{
// The eighteen held types are instantiated once, inside the library.
extern template class variant_value_t<nil_t>;
extern template class variant_value_t<bool>;
extern template class variant_value_t<signed char>;
extern template class variant_value_t<short>;
extern template class variant_value_t<int>;
extern template class variant_value_t<long long>;
extern template class variant_value_t<unsigned char>;
extern template class variant_value_t<unsigned short>;
extern template class variant_value_t<unsigned int>;
extern template class variant_value_t<unsigned long long>;
extern template class variant_value_t<float>;
extern template class variant_value_t<double>;
extern template class variant_value_t<long double>;
extern template class variant_value_t<strings::ustring8>;
extern template class variant_value_t<strings::ustring16>;
extern template class variant_value_t<strings::ustring32>;
extern template class variant_value_t<std::string>;
extern template class variant_value_t<std::wstring>;
//@}

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_VARIANT_VALUE_HPP
