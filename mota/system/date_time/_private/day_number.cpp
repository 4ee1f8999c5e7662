#include <mota/system/date_time/_private/day_number.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

std::uint32_t day_number_of_any_month(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const std::uint32_t m = month - 3u;
  std::uint32_t n = day + 365u * year + year / 4u - year / 100u + year / 400u + 61u * (m / 2u);
  if (m >= 6u) n += 1u;
  if (m % 2u == 1u) n += (m / 2u == 3u || m / 2u == 4u) ? 30u : 31u;
  return n;
}

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
