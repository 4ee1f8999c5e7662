// The abstract value object behind types::variant. Each concrete value object
// (types::variant_value_t<T>) holds one value of a fixed type, never changes after it is built,
// and converts that value on request to every type the variant offers. Value objects are
// reference counted and shared between variants through memory::pointers::rc_pointer.
//
//   mota::types::variant v(42);
//   v.as_string();   // "42", computed by the held variant_value_t<int>
#ifndef MOTA_TYPES_VARIANT_TYPE_HPP
#define MOTA_TYPES_VARIANT_TYPE_HPP

#include <mota/export.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/_private/value_pool.hpp>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <typeinfo>

namespace MOTA_2_18 {
namespace types {

// The interface of a variant's value object: its held type, a copy, stream output and the
// conversions to every type a variant reads as. Reference counted, so variants can share it.
class MOTA_API variant_type
    : public generic::abilities::reference_count_pointer_ability<variant_type>,
      public generic::abilities::clone_ability {
 public:
  // Inline and empty, so that destroying a value object calls nothing before its storage goes
  // back.
  ~variant_type() override = default;

  // True for every held type.
  virtual bool convertible() const = 0;
  // The type information of the held type.
  virtual std::type_info const& type() const = 0;
  // A new, independent value object holding a copy of the value (count 0, delete flag set).
  variant_type* clone() const override = 0;
  // Writes the value to `os` and returns it.
  virtual std::ostream& ostream(std::ostream& os) const = 0;

  //@{
  // Integer conversions. Numbers convert arithmetically (truncating, modulo 2^N on narrowing);
  // text is parsed with generic::convert, whose exceptions pass through unchanged.
  virtual int as_int() const = 0;
  virtual short as_short() const = 0;
  virtual std::int32_t as_long() const = 0;
  virtual std::int8_t as_int8() const = 0;
  virtual std::int16_t as_int16() const = 0;
  virtual std::int32_t as_int32() const = 0;
  virtual std::int64_t as_int64() const = 0;
  virtual std::uint8_t as_uint8() const = 0;
  virtual std::uint16_t as_uint16() const = 0;
  virtual std::uint32_t as_uint32() const = 0;
  virtual std::uint64_t as_uint64() const = 0;
  virtual bool as_bool() const = 0;
  //@}

  //@{
  // Text conversions; the empty value converts to "0".
  virtual strings::ustring8 as_string() const = 0;
  virtual std::wstring as_wstring() const = 0;
  virtual std::string as_ustring() const = 0;
  virtual strings::ustring8 as_utf8() const = 0;
  virtual strings::ustring16 as_utf16() const = 0;
  virtual strings::ustring32 as_utf32() const = 0;
  //@}

  //@{
  // Floating conversions.
  virtual float as_float() const = 0;
  virtual double as_double() const = 0;
  virtual long double as_long_double() const = 0;
  //@}

  //@{
  // Value objects of the small types (nil, booleans, numbers) take their storage from a short
  // list of free blocks that each thread keeps, instead of the heap on every variant; larger ones
  // use the heap. Storage given back on another thread joins that thread's list.
  static void* operator new(std::size_t size);
  static void operator delete(void* object, std::size_t size) noexcept;
  //@}
  //@{
  // Placement forms, which declaring the above would otherwise hide.
  static void* operator new(std::size_t, void* where) noexcept { return where; }
  static void operator delete(void*, void*) noexcept {}
  //@}

  // True for a value object that the variant built in a pooled block and whose destructor has
  // nothing to do (nil, booleans, numbers): the last pointer releasing it gives the block
  // straight back instead of calling the destructor through the virtual table.
  bool releases_to_pool() const { return spare_byte() != 0; }
  // The release of every value object by its pointers: as above for the pooled ones, through
  // the virtual destructor for the others.
  static void destroy_released(variant_type* value) {
    if (value->releases_to_pool())
      _private::give_value_block(value);
    else
      delete value;
  }

 protected:
  //@{
  // Only the derived value objects are made or copied; a copy starts uncounted.
  variant_type() = default;
  variant_type(variant_type const&) = default;
  variant_type& operator=(variant_type const&) = delete;
  //@}

  // Marks the object as releases_to_pool() describes; only the variant does, as it builds one.
  void mark_releases_to_pool() { spare_byte(1); }
  friend class variant;
};

static_assert(sizeof(generic::abilities::reference_count_pointer_ability<variant_type>) == 8,
              "the pool mark must fit beside the delete flag");

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_VARIANT_TYPE_HPP
