// The library's dynamically typed value. A variant is a one-pointer handle on a shared,
// immutable, reference-counted value object of one of eighteen held types, and converts the
// held value on request to any other. Copies share the value object; assigning replaces it.
//
//   mota::types::variant v = "12";      // holds a ustring8
//   int n = v.as_int();                 // 12
//   v = mota::types::nil;               // nil: as_string() is "", as_int() is 0
#ifndef MOTA_TYPES_VARIANT_HPP
#define MOTA_TYPES_VARIANT_HPP

#include <mota/export.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/_private/value_pool.hpp>
#include <mota/types/nil.hpp>
#include <mota/types/variant_type.hpp>
#include <mota/types/variant_value.hpp>

#include <cstdint>
#include <iosfwd>
#include <new>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace MOTA_2_18 {
// Value types: the variant and its value objects, nil, units, colours and radixes.
namespace types {

// A value of one of eighteen types (nil, bool, the integers, the floating types and the five
// string classes) behind a shared, reference-counted value object. Copies share the object;
// every as_* reads the value converted to the asked type.
class MOTA_API variant {
 public:
  // The shared handle to the value object.
  using pointer_type = memory::pointers::rc_pointer<variant_type>;

  // Nil.
  variant();
  // Shares `other`'s value object. A variant copy-constructed from itself holds no value
  // object and reads as nil.
  variant(variant const& other) noexcept
      : m_value(&other != this ? other.m_value : pointer_type()) {}
  // Nil, like the default constructor.
  variant(nil_t const&);  // NOLINT: implicit on purpose, as are the value constructors

  //@{
  // Holds a copy of `value` in its own type. Inline: the value object takes a block from the
  // calling thread's pool, which in the common case needs no call at all.
  variant(bool value) : m_value(make_pooled(value)) {}  // NOLINT
  variant(signed char const& value) : m_value(make_pooled(value)) {}
  variant(short const& value) : m_value(make_pooled(value)) {}
  variant(int const& value) : m_value(make_pooled(value)) {}
  variant(long long const& value) : m_value(make_pooled(value)) {}
  variant(unsigned char const& value) : m_value(make_pooled(value)) {}
  variant(unsigned short const& value) : m_value(make_pooled(value)) {}
  variant(unsigned int const& value) : m_value(make_pooled(value)) {}
  variant(unsigned long long const& value) : m_value(make_pooled(value)) {}
  variant(float const& value) : m_value(make_pooled(value)) {}
  variant(double const& value) : m_value(make_pooled(value)) {}
  variant(long double const& value) : m_value(make_pooled(value)) {}
  //@}

  // Zero-terminated UTF-8; a null pointer throws std::logic_error
  // ("basic_string::_M_construct null not valid") and allocates nothing.
  variant(char const* text);
  // Zero-terminated UTF-16 units; a null pointer throws as above.
  variant(unsigned short const* text);
  //@{
  // Zero-terminated UTF-32 units, held as a ustring32 (a null pointer throws as above); each
  // string class is held as a copy in its own type.
  variant(wchar_t const* text);
  variant(strings::ustring8 const& text);
  variant(strings::ustring16 const& text);
  variant(strings::ustring32 const& text);
  variant(std::string const& text);
  variant(std::wstring const& text);
  //@}

  ~variant() = default;

  // The type information of the held type (that of nil_t for nil).
  std::type_info const& type() const { return held().type(); }

  //@{
  // True exactly when the held type is nil_t.
  bool equal(nil_t const&) const { return is_nil_type(type()); }
  bool operator==(nil_t const& n) const { return equal(n); }
  bool operator!=(nil_t const& n) const { return !equal(n); }
  //@}

  // Makes the variant nil with a fresh nil value object.
  variant& operator=(nil_t const&);
  //@{
  // Shares `other`'s value object; assigning a variant to itself changes nothing.
  variant& assign(variant const& other) {
    if (this != &other) m_value = other.m_value;
    return *this;
  }
  variant& operator=(variant const& other) { return assign(other); }
  //@}

  //@{
  // Numeric reads. Text is parsed by generic::convert (its exceptions pass through); nil is 0.
  int as_int() const { return held().as_int(); }
  short as_short() const { return held().as_short(); }
  std::int32_t as_long() const { return held().as_long(); }
  std::int8_t as_int8() const { return held().as_int8(); }
  std::int16_t as_int16() const { return held().as_int16(); }
  std::int32_t as_int32() const { return held().as_int32(); }
  std::int64_t as_int64() const { return held().as_int64(); }
  std::uint8_t as_uint8() const { return held().as_uint8(); }
  std::uint16_t as_uint16() const { return held().as_uint16(); }
  std::uint32_t as_uint32() const { return held().as_uint32(); }
  std::uint64_t as_uint64() const { return held().as_uint64(); }
  bool as_bool() const { return held().as_bool(); }
  float as_float() const { return held().as_float(); }
  double as_double() const { return held().as_double(); }
  long double as_long_double() const { return held().as_long_double(); }
  //@}

  //@{
  // These five read through the signed conversions on purpose (e.g. a held text is parsed as
  // a signed int for as_uint) and return that result in their own type.
  int as_signed() const { return held().as_int(); }
  unsigned int as_unsigned() const { return static_cast<unsigned int>(held().as_int()); }
  unsigned int as_uint() const { return static_cast<unsigned int>(held().as_int()); }
  std::uint32_t as_ulong() const { return static_cast<std::uint32_t>(held().as_long()); }
  unsigned short as_ushort() const { return static_cast<unsigned short>(held().as_short()); }
  //@}

  //@{
  // Text reads; nil reads as an empty string.
  strings::ustring8 as_string() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? strings::ustring8() : value.as_string();
  }
  std::wstring as_wstring() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? std::wstring() : value.as_wstring();
  }
  std::string as_ustring() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? std::string() : value.as_ustring();
  }
  strings::ustring8 as_utf8() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? strings::ustring8() : value.as_utf8();
  }
  strings::ustring16 as_utf16() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? strings::ustring16() : value.as_utf16();
  }
  strings::ustring32 as_utf32() const {
    variant_type const& value = held();
    return is_nil_type(value.type()) ? strings::ustring32() : value.as_utf32();
  }
  //@}

  // The shared value object (nil's when the handle is empty).
  variant_type const& held() const { return m_value ? *m_value : empty_value(); }

 private:
  // The value object of a small value (nil, a boolean, a number), built in a block of the
  // calling thread's pool, owned by its pointers and marked to go back there.
  template <class T>
  static variant_type* make_pooled(T const& value) {
    static_assert(sizeof(variant_value_t<T>) <= _private::pooled_value_size &&
                      std::is_nothrow_copy_constructible_v<T> &&
                      std::is_trivially_destructible_v<T>,
                  "a pooled value is built without throwing and released without its destructor");
    auto* const object = new (_private::take_value_block()) variant_value_t<T>(value);
    object->delete_on_zero(true);
    object->mark_releases_to_pool();
    return object;
  }

  static variant_type const& empty_value() noexcept;

  // type_info equality with nil_t's; names that differ in their first character are told
  // apart without the full name comparison.
  static bool is_nil_type(std::type_info const& t) noexcept {
    char const* const name = t.name();
    char const* const nil_name = typeid(nil_t).name();
    return name == nil_name || (name[0] == nil_name[0] && t == typeid(nil_t));
  }

  pointer_type m_value;
};

// Writes the held value through its own streaming rule and returns `os`.
MOTA_API std::ostream& operator<<(std::ostream& os, variant const& value);

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_VARIANT_HPP
