// Not part of the public interface.
//
// The date of a day number read from a table of month starts for the tabled years (1900 to
// 2155), instead of the divisions of the formula: the day number's offset into those years
// times the months per day gives the month or the one before it, one comparison with the next
// month's start settles which, and the table entry carries that month's year and number. Day
// numbers outside the tabled years take the formula. The results are the formula's, 29 February
// coming back as 1 March included.
//
// Installed because date.hpp includes it: the date's arithmetic is inlined into its callers.
#ifndef MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP
#define MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP

#include <mota/system/date_time/_private/day_number.hpp>

#include <cstddef>
#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

inline constexpr std::uint32_t tabled_months = 12u * tabled_years;
inline constexpr std::uint32_t first_tabled_day = day_number_by_formula(first_tabled_year, 1, 1);

// One month of the tabled years. 29 February, which the arithmetic turns into 1 March, is counted
// with March: the March of a leap year starts a day early, and its days are shifted back by one
// (29 February and 1 March both giving day 1), so no February ever yields a 29th.
struct month_start {
  std::uint32_t day_before;  // the day number of the last day before the month
  std::uint16_t year;
  std::uint8_t month;
  std::uint8_t leap_day_shift;  // 1 for the March of a leap year, else 0
};

// One entry more than the tabled months, the end of the tabled years, bounds the last month.
struct month_start_table {
  month_start entry[tabled_months + 1];
};

constexpr month_start_table make_month_start_table() {
  month_start_table table{};
  for (std::uint32_t k = 0; k <= tabled_months; ++k) {
    const std::uint32_t year = first_tabled_year + k / 12u, month = k % 12u + 1u;
    const bool leap_march = month == 3u && year % 4u == 0 && (year % 100u != 0 || year % 400u == 0);
    const std::uint32_t leap_day_shift = leap_march ? 1u : 0u;
    table.entry[k] = month_start{day_number_by_formula(year, month, 0) - leap_day_shift,
                                 static_cast<std::uint16_t>(year), static_cast<std::uint8_t>(month),
                                 static_cast<std::uint8_t>(leap_day_shift)};
  }
  return table;
}

inline constexpr month_start_table month_starts = make_month_start_table();
inline constexpr std::uint32_t tabled_days =
    month_starts.entry[tabled_months].day_before + 1u - first_tabled_day;
static_assert(((tabled_days - 1u) * 2153u) >> 16 < tabled_months,
              "the month guessed for the last tabled day must have an entry after it");

// Whether the day number's date lies in the tabled years.
constexpr bool is_tabled_day(std::uint32_t number) {
  return number - first_tabled_day < tabled_days;
}

// The same result as from_day_number, for a day number of the tabled years.
inline civil_date date_of_tabled_day(std::uint32_t number) {
  // 2153 / 65536 is a little under the number of months per day of the Gregorian calendar:
  // the product never passes the month of the day, and never falls more than one month short
  // of it over the tabled years (the day number test sweeps every one of their days).
  std::size_t index = ((number - first_tabled_day) * 2153u) >> 16;
  index += number > month_starts.entry[index + 1].day_before ? 1u : 0u;
  const month_start& month = month_starts.entry[index];
  std::uint32_t day = number - month.day_before - month.leap_day_shift;
  day = day > 1u ? day : 1u;  // 29 February, in a leap year's March
  return civil_date{month.year, month.month, day};
}

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_PRIVATE_MONTH_STARTS_HPP
