// A date and a time of day in one value, moved by day or millisecond durations.
//
//   auto now = mota::system::date_time::date_time_t::local_date_time();
//   now += mota::system::date_time::date_duration(1);  // same time tomorrow
#ifndef MOTA_SYSTEM_DATE_TIME_DATE_TIME_HPP
#define MOTA_SYSTEM_DATE_TIME_DATE_TIME_HPP

#include <mota/export.hpp>
#include <mota/system/date_time/date.hpp>
#include <mota/system/date_time/date_duration.hpp>
#include <mota/system/date_time/time.hpp>
#include <mota/system/date_time/time_duration.hpp>

namespace MOTA_2_18 {
namespace system {
// Calendar dates, times of day, their combination and durations.
namespace date_time {

// A date and a time of day, side by side; the time part wraps within its day.
class MOTA_API date_time_t {
 public:
  date_time_t() = default;
  // A copy.
  date_time_t(const date_time_t& other) = default;
  // The date `day` at `time_of_day`.
  date_time_t(const date_time::date& day, const date_time::time& time_of_day);

  //@{
  // Forwarding getters and setters; the setters throw as those of date and time do.
  unsigned int year() const { return m_date.year(); }
  unsigned int month() const { return m_date.month(); }
  unsigned int day() const { return m_date.day(); }
  unsigned int hour() const { return m_time.hour(); }
  unsigned int minute() const { return m_time.minute(); }
  unsigned int second() const { return m_time.second(); }
  unsigned int millisecond() const { return m_time.millisecond(); }
  unsigned int year(unsigned int value) { return m_date.year(value); }
  unsigned int month(unsigned int value) { return m_date.month(value); }
  unsigned int day(unsigned int value) { return m_date.day(value); }
  unsigned int hour(unsigned int value) { return m_time.hour(value); }
  unsigned int minute(unsigned int value) { return m_time.minute(value); }
  unsigned int second(unsigned int value) { return m_time.second(value); }
  unsigned int millisecond(unsigned int value) { return m_time.millisecond(value); }
  //@}

  //@{
  // As the date part's is_leap_year() and is_day_constrained().
  bool is_leap_year() const { return m_date.is_leap_year(); }
  bool is_day_constrained() const { return m_date.is_day_constrained(); }
  //@}

  //@{
  // Copies of the two parts.
  date_time::date date() const { return m_date; }
  date_time::time time() const { return m_time; }
  //@}

  //@{
  // Replaces both parts, or only the date or only the time part; returns *this.
  date_time_t& assign(const date_time_t& other);
  date_time_t& assign(const date_time::date& day);
  date_time_t& assign(const date_time::time& time_of_day);
  date_time_t& assign(const date_time::date& day, const date_time::time& time_of_day);
  date_time_t& operator=(const date_time_t& other) { return assign(other); }
  date_time_t& operator=(const date_time::date& day) { return assign(day); }
  date_time_t& operator=(const date_time::time& time_of_day) { return assign(time_of_day); }
  //@}

  //@{
  // Moves the date part only; throws as date::minus_assign does.
  date_time_t& plus_assign(const date_duration& duration);
  date_time_t& minus_assign(const date_duration& duration);
  //@}
  //@{
  // plus_assign: intended behaviour, kept as it is: when the duration holds 24 complete hours or
  // more (either sign), the date's day is first overwritten with (complete hours mod 24) through
  // the day setter (a multiple of 24 hours throws "day value out of valid range") and the
  // date is then moved forward by that many days; the time part then takes the whole
  // duration with its own one-day wrap (and throws as time::plus_assign does). minus_assign
  // is plus_assign of the negated duration.
  date_time_t& plus_assign(const time_duration& duration);
  date_time_t& minus_assign(const time_duration& duration);
  //@}
  //@{
  // The same as plus_assign and minus_assign.
  date_time_t& operator+=(const date_duration& duration) { return plus_assign(duration); }
  date_time_t& operator-=(const date_duration& duration) { return minus_assign(duration); }
  date_time_t& operator+=(const time_duration& duration) { return plus_assign(duration); }
  date_time_t& operator-=(const time_duration& duration) { return minus_assign(duration); }
  //@}

  //@{
  // The current date and time, from one reading of the clock.
  static date_time_t local_date_time();
  static date_time_t UTC_date_time();
  //@}

 private:
  date_time::date m_date;
  date_time::time m_time;
};

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_DATE_TIME_HPP
