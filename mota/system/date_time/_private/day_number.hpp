// Not part of the public interface (installed because date.hpp includes it: the date's
// arithmetic is inlined into its callers).
//
// The continuous day number of the date arithmetic and its inverse, in unsigned 32-bit
// arithmetic: a month table instead of the per-month formula, a table of every month's day 0 for
// the years most dates fall in, and the year, month and day recovered with multiplications and
// shifts only.
//
// The numbering counts years from 1 March, so that 1 March of year 0 is day 1 (1 January 2000
// is 730426). Its inverse never yields 29 February: that day comes back as 1 March of the same
// year, so the arithmetic skips it. Both are the behaviour of the date class and are kept.
#ifndef MOTA_SYSTEM_DATE_TIME_PRIVATE_DAY_NUMBER_HPP
#define MOTA_SYSTEM_DATE_TIME_PRIVATE_DAY_NUMBER_HPP

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

struct civil_date {
  std::uint32_t year, month, day;
};

// The formula itself, for a month outside 1 to 12 (only an unset date has one). Inline like the
// rest, since the date's installed header reaches it.
constexpr std::uint32_t day_number_of_any_month(std::uint32_t year, std::uint32_t month,
                                                std::uint32_t day) {
  const std::uint32_t m = month - 3u;
  std::uint32_t n = day + 365u * year + year / 4u - year / 100u + year / 400u + 61u * (m / 2u);
  if (m >= 6u) n += 1u;
  if (m % 2u == 1u) n += (m / 2u == 3u || m / 2u == 4u) ? 30u : 31u;
  return n;
}

// Days from 1 March to the first of each month, January and February counted at the end of the
// year: the values of 61 * (m / 2) + (m >= 6) + (30 or 31 for odd m) with m = 0 for March.
inline constexpr std::uint32_t days_before_month[13] = {0,   306, 337, 0,   31,  61, 92,
                                                        122, 153, 184, 214, 245, 275};

inline constexpr std::uint32_t days_in_400_years = 146097;

// Days before 1 March of year `y` in the count: the 365-day years and the leap days.
constexpr std::uint32_t days_before_march(std::uint32_t y) {
  const std::uint32_t centuries = y / 100u;
  return 365u * y + y / 4u - centuries + centuries / 4u;
}

// The day number of any stored year, month and day by the formula (month 0 and day 0 included:
// an unset date gives whatever the formula gives).
constexpr std::uint32_t day_number_by_formula(std::uint32_t year, std::uint32_t month,
                                              std::uint32_t day) {
  if (month - 1u >= 12u) return day_number_of_any_month(year, month, day);
  const std::uint32_t y = year - (month <= 2u ? 1u : 0u);
  return day + days_before_march(y) + days_before_month[month];
}

// The years whose day numbers are tabled: the ones dates of today's programs live in, so that
// their day number is one table read and one addition. Other years take the formula.
inline constexpr std::uint32_t first_tabled_year = 1900;
inline constexpr std::uint32_t tabled_years = 256;
// Sixteen columns a year, so that the index is a shift and an addition: months 0 to 12 as a date
// may store them, and 13 to 15, which no date holds, with the formula's values all the same.
inline constexpr std::uint32_t tabled_month_columns = 16;

// Each entry: the day number of day 0 of the month (the day is added to it, as the formula is
// linear in the day).
struct month_day_zero_table {
  std::uint32_t day_zero[tabled_years * tabled_month_columns];
};

constexpr month_day_zero_table make_month_day_zero_table() {
  month_day_zero_table table{};
  for (std::uint32_t i = 0; i < tabled_years * tabled_month_columns; ++i)
    table.day_zero[i] = day_number_by_formula(first_tabled_year + i / tabled_month_columns,
                                              i % tabled_month_columns, 0);
  return table;
}

inline constexpr month_day_zero_table month_day_zero = make_month_day_zero_table();

// The same result as day_number_by_formula for every month a date stores (0 to 12; 13 to 15
// too). One comparison bounds the index: a year outside the table puts it past the end whatever
// the month, so no month can make it read outside the table.
constexpr std::uint32_t day_number(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const std::uint64_t index =
      std::uint64_t(year - first_tabled_year) * tabled_month_columns | month;
  if (__builtin_expect(index < tabled_years * tabled_month_columns, 1))
    return day + month_day_zero.day_zero[index];
  return day_number_by_formula(year, month, day);
}

// The date as the arithmetic yields it: 29 February comes back as 1 March of the same year.
constexpr civil_date skipping_leap_day(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const std::uint32_t leap_day =
      static_cast<std::uint32_t>(month == 2u) & static_cast<std::uint32_t>(day == 29u);
  return civil_date{year, month + leap_day, day - 28u * leap_day};
}

// The date of a day number: month 1 to 12, day 1 to the month's length, never 29 February.
inline civil_date from_day_number(std::uint32_t number) {
  // Day 0 of the count is 1 March of year 0; number 0 wraps to the end of the 32-bit range,
  // as the formulas do.
  const std::uint32_t count = number - 1u;
  const std::uint32_t era = count / days_in_400_years;
  const std::uint32_t day_of_era = count - era * days_in_400_years;

  // Century and year within the era, and day within the year, by the method of Neri and
  // Schneider (Euclidean affine functions): each division is by a constant, so a
  // multiplication.
  const std::uint32_t n1 = 4u * day_of_era + 3u;
  const std::uint32_t century = n1 / days_in_400_years;
  const std::uint32_t day_of_century = (n1 - century * days_in_400_years) / 4u;
  const std::uint64_t p2 = std::uint64_t(2939745u) * (4u * day_of_century + 3u);
  const std::uint32_t year_of_century = static_cast<std::uint32_t>(p2 >> 32);
  const std::uint32_t day_of_year = static_cast<std::uint32_t>(p2) / 2939745u / 4u;
  // Month (3 to 14, counted from March) and day within it.
  const std::uint32_t n3 = 2141u * day_of_year + 197913u;
  const std::uint32_t shifted_month = n3 >> 16;
  const std::uint32_t day = (n3 & 0xFFFFu) / 2141u + 1u;
  // 1 for January and February (day of year 306 to 365), without a branch.
  const std::uint32_t next_year = (day_of_year + 206u) >> 9;

  return skipping_leap_day(400u * era + 100u * century + year_of_century + next_year,
                           shifted_month - 12u * next_year, day);
}

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_PRIVATE_DAY_NUMBER_HPP
