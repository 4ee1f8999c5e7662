// A calendar date (day, month, year) with range-checked setters, Gregorian leap years and
// arithmetic in days through a continuous day number.
//
//   mota::system::date_time::date d(28, 2, 2024);
//   d += mota::system::date_time::date_duration(3);  // 2 March 2024
#ifndef MOTA_SYSTEM_DATE_TIME_DATE_HPP
#define MOTA_SYSTEM_DATE_TIME_DATE_HPP

#include <mota/exceptions/logic_error.hpp>
#include <mota/export.hpp>
#include <mota/system/date_time/_private/day_number.hpp>
#include <mota/system/date_time/_private/month_starts.hpp>
#include <mota/system/date_time/date_duration.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {

// A calendar date: day, month and year, with day arithmetic through a continuous day number.
class MOTA_API date {
 public:
  //@{
  // All fields zero (not a valid date until set), or a copy.
  date() : m_year(0), m_month(0), m_day(0) {}
  date(const date& other) = default;
  //@}
  // Day first: sets the day, then the month through their setters (which may throw), then
  // stores the year.
  date(unsigned int day, unsigned int month, unsigned int year);

  // Stores and returns the day; throws exceptions::out_of_range "day value out of valid
  // range" unless 1 to 31. The day is not checked against the month.
  unsigned int day(unsigned int value);
  // Stores and returns the month; throws exceptions::out_of_range "month value out of valid
  // range" unless 1 to 12.
  unsigned int month(unsigned int value);
  // Stores and returns the year; every value is accepted.
  unsigned int year(unsigned int value);

  //@{
  // The stored year and month.
  unsigned int year() const { return m_year; }
  unsigned int month() const { return m_month; }
  //@}
  // The stored day clipped to the length of the month (0 for a month outside 1 to 12).
  unsigned int day() const;
  // The same as day().
  unsigned int get_days() const { return day(); }

  //@{
  // Whether `value` is a month (1 to 12) or a day (1 to 31, whatever the month).
  static bool is_valid_month(unsigned int value) { return value >= 1u && value <= 12u; }
  static bool is_valid_day(unsigned int value) { return value >= 1u && value <= 31u; }
  //@}

  // Divisible by 4 and either not by 100 or by 400.
  bool is_leap_year() const;
  // True when the stored day is past the end of the month (and so day() clips it).
  bool is_day_constrained() const;

  //@{
  // Today in the local time zone and in UTC.
  static date local_date();
  static date UTC_date();
  //@}

  //@{
  // Copies the other date's fields; returns *this.
  date& assign(const date& other);
  date& operator=(const date& other) { return assign(other); }
  //@}
  // Moves the date by the duration through the day number. The day after 28 February of a
  // leap year comes back as 1 March, so the arithmetic never lands on 29 February. Inline, with
  // the day numbers of the common years.
  date& plus_assign(const date_duration& duration) {
    pJulian_day_number(pJulian_day_number() + static_cast<std::uint32_t>(duration.days()));
    return *this;
  }
  //@{
  // As plus_assign with the negated duration; throws exceptions::out_of_range "date value out
  // of valid range" when the day number is not greater than the duration's days. operator+=
  // and operator-= are plus_assign and minus_assign.
  date& minus_assign(const date_duration& duration);
  date& operator+=(const date_duration& duration) { return plus_assign(duration); }
  date& operator-=(const date_duration& duration) { return minus_assign(duration); }
  //@}

  // The continuous day number of the date (1 January 2000 is 730426), in unsigned 32-bit
  // arithmetic; an invalid date gives whatever the formula yields. Inline, as a difference of
  // two dates is two of these.
  std::uint32_t pJulian_day_number() const { return _private::day_number(m_year, m_month, m_day); }
  // Sets the date from a day number, as the arithmetic does: the common years inline, the
  // others out of line.
  void pJulian_day_number(std::uint32_t number) {
    if (__builtin_expect(!_private::is_tabled_day(number), 0))
      return set_untabled_day_number(number);
    store(_private::date_of_tabled_day(number));
  }

 private:
  // The day number's date always has a month of 1 to 12 and a day within the month, so the
  // fields are stored directly: the setters could not fail and the clip to the month changes
  // nothing.
  void store(const _private::civil_date& value) {
    m_day = value.day;
    m_month = value.month;
    m_year = value.year;
  }
  void set_untabled_day_number(std::uint32_t number);

  std::uint32_t m_year;
  std::uint32_t m_month;
  std::uint32_t m_day;
};

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_DATE_HPP
