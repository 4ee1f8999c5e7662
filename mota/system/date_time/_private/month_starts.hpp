// Not part of the public interface.
//
// The date of a day number read from a table of month starts for the tabled years (1900 to
// 2155), instead of the divisions of the formula: the day number's offset into those years
// times the months per day gives the month or the one before it, one comparison with the next
// month's start settles which, and the table entry carries that month's year and number. Day
// numbers outside the tabled years take the formula. The results are the formula's, 29 February
// coming back as 1 March included.
#ifndef MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP
#define MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP

#include <mota/system/date_time/_private/day_number.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

inline constexpr std::uint32_t tabled_months = 12u * tabled_years;

// Each entry: the month's first day as an offset from 1 January of the first tabled year
// (bits 12 and up), the year less the first tabled year (bits 4 to 11) and the month (bits 0
// to 3). One entry more, the end of the tabled years, bounds the last month.
struct month_start_table {
  std::uint32_t entry[tabled_months + 1];
};

inline constexpr std::uint32_t first_tabled_day = day_number(first_tabled_year, 1, 1);

constexpr month_start_table make_month_start_table() {
  month_start_table table{};
  for (std::uint32_t k = 0; k <= tabled_months; ++k) {
    const std::uint32_t year = k / 12u, month = k % 12u + 1u;
    const std::uint32_t offset = day_number(first_tabled_year + year, month, 1) - first_tabled_day;
    table.entry[k] = offset << 12 | (year & 0xFFu) << 4 | month;
  }
  return table;
}

inline constexpr month_start_table month_starts = make_month_start_table();
inline constexpr std::uint32_t tabled_days = month_starts.entry[tabled_months] >> 12;
static_assert(tabled_days < (1u << 20), "offsets must fit above the year and month bits");

// The same result as from_day_number.
inline civil_date date_of_day_number(std::uint32_t number) {
  const std::uint32_t offset = number - first_tabled_day;
  if (__builtin_expect(offset >= tabled_days, 0)) return from_day_number(number);
  // 2153 / 65536 is a little under the number of months per day of the Gregorian calendar:
  // the product never passes the month of the day, and never falls more than one month short
  // of it over the tabled years (the day number test sweeps every one of their days).
  std::uint32_t month_index = (offset * 2153u) >> 16;
  month_index += (offset << 12 | 0xFFFu) >= month_starts.entry[month_index + 1] ? 1u : 0u;
  const std::uint32_t entry = month_starts.entry[month_index];
  const std::uint32_t day = offset - (entry >> 12) + 1u;

  return skipping_leap_day(first_tabled_year + (entry >> 4 & 0xFFu), entry & 0xFu, day);
}

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP
