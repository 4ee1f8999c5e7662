// The date arithmetic against the day-number formulas written out the straightforward way,
// over every day of years 0 to 10000 (the tabled years 1900 to 2155 and their edges among
// them), every stored day and month there, and a sweep of the whole 32-bit range (wrap-around
// included).
#include <mota/system/date_time/date.hpp>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using mota::system::date_time::date;

// Years counted from March: Y and m as the formula defines them, then the sum.
std::uint32_t reference_day_number(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const bool early = month == 1 || month == 2;
  const std::uint32_t y = early ? year - 1u : year;
  const std::uint32_t m = (early ? month + 12u : month) - 3u;
  std::uint32_t n = day + 365u * y + y / 4u - y / 100u + y / 400u + 61u * (m / 2u);
  if (m >= 6u) n += 1u;
  if (m % 2u == 1u) n += (m / 2u == 3u || m / 2u == 4u) ? 30u : 31u;
  return n;
}

std::uint32_t reference_month_length(std::uint32_t month, std::uint32_t year) {
  if (month == 2) return (year % 4 == 0 && (year % 100 != 0 || year % 400 == 0)) ? 29 : 28;
  return (month == 4 || month == 6 || month == 9 || month == 11) ? 30 : 31;
}

struct ymd {
  std::uint32_t year, month, day;
};

// Quotients of 400, 100, 4 and 1 years without correction, month pairs of 61 days, and the
// day clipped to the month.
ymd reference_from_day_number(std::uint32_t n) {
  const std::uint32_t q400 = (n - 1u) / 146097u, r = (n - 1u) % 146097u;
  const std::uint32_t q100 = r / 36524u, r100 = r % 36524u;
  const std::uint32_t q4 = r100 / 1461u, r4 = r100 % 1461u;
  const std::uint32_t q1 = r4 / 365u, d = r4 % 365u;
  const std::uint32_t t = d >= 183u ? d - 1u : d;
  const std::uint32_t p = t / 61u;
  const std::uint32_t e = d - 61u * p + (t < 183u ? 1u : 0u);
  const std::uint32_t first = (p == 3u || p == 4u) ? 30u : 31u;
  std::uint32_t day = e, m = 2u * p;
  if (e > first) {
    day = e - first;
    m = 2u * p + 1u;
  }
  ymd out;
  out.month = m < 10u ? m + 3u : m - 9u;
  out.year = 400u * q400 + 100u * q100 + 4u * q4 + q1 + (m >= 10u ? 1u : 0u);
  const std::uint32_t length = reference_month_length(out.month, out.year);
  out.day = day > length ? length : day;
  return out;
}

// A date with exactly these fields (month and day 0 included), as the setters allow.
date stored(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  date d;
  if (month != 0) d.month(month);
  if (day != 0) d.day(day);
  d.year(year);
  return d;
}

void expect_date_of(std::uint32_t n, int& failures) {
  date d;
  d.pJulian_day_number(n);
  const ymd want = reference_from_day_number(n);
  // The stored day itself must be the month's, not one that day() clips.
  if (d.year() != want.year || d.month() != want.month || d.day() != want.day ||
      d.is_day_constrained()) {
    if (++failures <= 5)
      ADD_FAILURE() << "day " << n << ": " << d.year() << "-" << d.month() << "-" << d.day()
                    << ", formulas give " << want.year << "-" << want.month << "-" << want.day;
  }
}

TEST(DayNumber, DateOfEveryDayNumberMatchesTheFormulas) {
  int failures = 0;
  const std::uint32_t end_of_10000 = reference_day_number(10001, 3, 1);
  for (std::uint32_t n = 0; n <= end_of_10000; ++n)
    expect_date_of(n, failures);
  // The top of the range, where 400-year quotients are largest and sums wrap.
  for (std::uint32_t n = UINT32_MAX - 400000u; n != 0; ++n)
    expect_date_of(n, failures);
  for (std::uint64_t n = 0; n <= UINT32_MAX; n += 997u)
    expect_date_of(static_cast<std::uint32_t>(n), failures);
  EXPECT_EQ(failures, 0);
}

TEST(DayNumber, DayNumberOfEveryStoredDateMatchesTheFormula) {
  int failures = 0;
  auto check = [&](std::uint32_t year, std::uint32_t month, std::uint32_t day) {
    const std::uint32_t got = stored(year, month, day).pJulian_day_number();
    const std::uint32_t want = reference_day_number(year, month, day);
    if (got != want && ++failures <= 5)
      ADD_FAILURE() << year << "-" << month << "-" << day << ": " << got << ", formula gives "
                    << want;
  };
  for (std::uint32_t year = 0; year <= 10000; ++year)
    for (std::uint32_t month = 0; month <= 12; ++month)
      for (std::uint32_t day = 0; day <= 31; ++day)
        check(year, month, day);
  for (std::uint64_t year = 10001; year <= UINT32_MAX; year += 65521u)
    for (std::uint32_t month = 0; month <= 12; ++month)
      check(static_cast<std::uint32_t>(year), month, 1 + month * 2);
  for (std::uint32_t month = 0; month <= 12; ++month)
    check(UINT32_MAX, month, 31);
  EXPECT_EQ(failures, 0);
}

// The arithmetic is the two conversions in turn: every day of a leap-year span and beyond,
// moved by steps of both signs that cross months, years and the skipped 29 February.
TEST(DayNumber, PlusAndMinusFollowTheFormulas) {
  int failures = 0;
  const int steps[] = {1, 2, 27, 59, 365, 366, 1461, 146097, -1, -2, -60, -366, -146097};
  for (std::uint32_t n = reference_day_number(1999, 12, 1); n <= reference_day_number(2005, 3, 31);
       ++n) {
    const ymd from = reference_from_day_number(n);
    for (int step : steps) {
      date d = stored(from.year, from.month, from.day);
      d += mota::system::date_time::date_duration(step);
      const ymd want = reference_from_day_number(
          reference_day_number(from.year, from.month, from.day) + static_cast<std::uint32_t>(step));
      if ((d.year() != want.year || d.month() != want.month || d.day() != want.day) &&
          ++failures <= 5)
        ADD_FAILURE() << from.year << "-" << from.month << "-" << from.day << " + " << step;
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
