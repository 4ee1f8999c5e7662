#include <mota/types/device_unit.hpp>

#include <cmath>
#include <cstdint>

namespace MOTA_2_18 {
namespace types {

namespace {

// Truncation toward zero; values beyond the 32-bit range saturate and NaN gives 0, so no
// input reaches an undefined conversion.
std::int32_t truncate(double value) {
  if (value != value) return 0;
  if (value <= -2147483648.0) return INT32_MIN;
  if (value >= 2147483647.0) return INT32_MAX;
  return static_cast<std::int32_t>(value);
}

}  // namespace

device_unit::device_unit(double const& value) : m_value(truncate(value)) {}
device_unit::device_unit(float const& value) : m_value(truncate(value)) {}

device_unit::~device_unit() = default;

int device_unit::do_type() const {
  return 1;
}
int device_unit::do_as_int32() const {
  return m_value;
}
float device_unit::do_as_float() const {
  return static_cast<float>(m_value);
}
double device_unit::do_as_double() const {
  return m_value;
}

}  // namespace types
}  // namespace MOTA_2_18
