// A length in device pixels, kept as a signed 32-bit integer. Floating values are truncated
// toward zero and wider integers narrowed to 32 bits when a device_unit is built from them.
//
//   mota::types::device_unit width(12.7);   // 12
//   width.as_double();                      // 12.0
#ifndef MOTA_TYPES_DEVICE_UNIT_HPP
#define MOTA_TYPES_DEVICE_UNIT_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace types {

// A length in device pixels, a signed 32-bit integer.
class MOTA_API device_unit {
 public:
  //@{
  // Zero, or a copy.
  device_unit() = default;
  device_unit(device_unit const&) = default;
  //@}
  //@{
  // The value as a 32-bit integer: floating values truncated toward zero (NaN gives 0, values
  // beyond the range the nearest limit), wider integers cut to their low 32 bits.
  // NOLINTBEGIN: the value constructors are implicit on purpose
  device_unit(int const& value) : m_value(value) {}
  device_unit(double const& value);
  device_unit(float const& value);
  device_unit(signed char const& value) : m_value(value) {}
  device_unit(short const& value) : m_value(value) {}
  device_unit(long long const& value) : m_value(static_cast<std::int32_t>(value)) {}
  device_unit(unsigned char const& value) : m_value(value) {}
  device_unit(unsigned short const& value) : m_value(value) {}
  device_unit(unsigned long long const& value) : m_value(static_cast<std::int32_t>(value)) {}
  //@}
  // NOLINTEND
  virtual ~device_unit();

  //@{
  // Takes `value` or the other's value; returns *this.
  device_unit& assign(int value) {
    m_value = value;
    return *this;
  }
  device_unit& assign(device_unit const& other) {
    m_value = other.m_value;
    return *this;
  }
  device_unit& operator=(int value) { return assign(value); }
  device_unit& operator=(device_unit const& other) { return assign(other); }
  //@}

  //@{
  // Compare the stored integers.
  bool equal(device_unit const& other) const { return m_value == other.m_value; }
  bool operator==(device_unit const& other) const { return equal(other); }
  bool operator!=(device_unit const& other) const { return !equal(other); }
  //@}

  // Always 1.
  int type() const { return do_type(); }
  //@{
  // The stored value, as stored and converted.
  int as_int32() const { return do_as_int32(); }
  float as_float() const { return do_as_float(); }
  double as_double() const { return do_as_double(); }
  //@}

  //@{
  // What type(), as_int32(), as_float() and as_double() return; open to callers as well.
  virtual int do_type() const;
  virtual int do_as_int32() const;
  virtual float do_as_float() const;
  virtual double do_as_double() const;
  //@}

 private:
  std::int32_t m_value = 0;
};

}  // namespace types
}  // namespace MOTA_2_18

#endif  // MOTA_TYPES_DEVICE_UNIT_HPP
