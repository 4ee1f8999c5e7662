#include <mota/types/absolute_unit.hpp>

#include <cmath>

namespace MOTA_2_18 {
namespace types {

namespace {

constexpr double raw_per_inch = 100000.0;

// Units per inch for codes 2 to 8; 0 for codes without a factor.
double factor_of(int code) {
  switch (code) {
    case 2:
      return 300.0;
    case 3:
      return 25.4;
    case 4:
      return 2.54;
    case 5:
      return 1.0;
    case 6:
      return 72.0;
    case 7:
      return 6.0;
    case 8:
      return 96.0;
    default:
      return 0.0;
  }
}

// Truncates toward zero, saturating at the int range; NaN gives 0.
int saturate(double v) {
  if (v != v) return 0;
  if (v <= -2147483648.0) return -2147483647 - 1;
  if (v >= 2147483647.0) return 2147483647;
  return static_cast<int>(v);
}

}  // namespace

absolute_unit::absolute_unit(double raw) : m_raw(std::trunc(raw)) {}

absolute_unit::~absolute_unit() = default;

int absolute_unit::as_md() const {
  return saturate(m_raw);
}

int absolute_unit::round_half_up(double v) {
  return saturate(std::floor(v + 0.5));
}

double absolute_unit::value() const {
  const int code = type();
  if (code == 1) return m_raw;
  const double factor = factor_of(code);
  if (factor == 0.0) return 0.0;
  return m_raw * factor / raw_per_inch;
}

void absolute_unit::value(double v) {
  const int code = type();
  if (code == 1) {
    m_raw = v;
    return;
  }
  const double factor = factor_of(code);
  m_raw = factor == 0.0 ? 0.0 : v * raw_per_inch / factor;
}

template class basic_absolute_impl<1>;
template class basic_absolute_impl<2>;
template class basic_absolute_impl<3>;
template class basic_absolute_impl<4>;
template class basic_absolute_impl<5>;
template class basic_absolute_impl<6>;
template class basic_absolute_impl<7>;
template class basic_absolute_impl<8>;

}  // namespace types
}  // namespace MOTA_2_18
