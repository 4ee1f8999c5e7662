#include <mota/system/date_time/date_time.hpp>

#include <mota/system/date_time/_private/clock.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {

date_time_t::date_time_t(const date_time::date& day, const date_time::time& time_of_day)
    : m_date(day), m_time(time_of_day) {}

date_time_t& date_time_t::assign(const date_time_t& other) {
  m_date = other.m_date;
  m_time = other.m_time;
  return *this;
}

date_time_t& date_time_t::assign(const date_time::date& day) {
  m_date = day;
  return *this;
}

date_time_t& date_time_t::assign(const date_time::time& time_of_day) {
  m_time = time_of_day;
  return *this;
}

date_time_t& date_time_t::assign(const date_time::date& day, const date_time::time& time_of_day) {
  m_date = day;
  m_time = time_of_day;
  return *this;
}

date_time_t& date_time_t::plus_assign(const date_duration& duration) {
  m_date.plus_assign(duration);
  return *this;
}

date_time_t& date_time_t::minus_assign(const date_duration& duration) {
  m_date.minus_assign(duration);
  return *this;
}

date_time_t& date_time_t::plus_assign(const time_duration& duration) {
  const std::int64_t hours = duration.total_complete_hours();
  if (hours >= 24 || hours <= -24) {
    // Intended: the day is overwritten, then advanced by the value the setter returns.
    const unsigned int new_day = m_date.day(static_cast<unsigned int>(hours % 24));
    m_date.plus_assign(date_duration(static_cast<int>(new_day)));
  }
  m_time.plus_assign(duration);
  return *this;
}

date_time_t& date_time_t::minus_assign(const time_duration& duration) {
  return plus_assign(date_time::minus(time_duration(), duration));
}

date_time_t date_time_t::local_date_time() {
  const _private::clock_reading now = _private::read_clock(true);
  return date_time_t(now.calendar_date, now.time_of_day);
}

date_time_t date_time_t::UTC_date_time() {
  const _private::clock_reading now = _private::read_clock(false);
  return date_time_t(now.calendar_date, now.time_of_day);
}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
