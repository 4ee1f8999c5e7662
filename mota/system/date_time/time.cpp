#include <mota/system/date_time/time.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/system/date_time/_private/clock.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace {

constexpr std::int64_t milliseconds_per_day = 86400000;

}  // namespace

time::time(unsigned int hour, unsigned int minute, unsigned int second, unsigned int millisecond)
    : m_hour(0), m_minute(0), m_second(0), m_millisecond(0) {
  this->hour(hour);
  this->minute(minute);
  this->second(second);
  this->millisecond(millisecond);
}

unsigned int time::hour(unsigned int value) {
  if (!is_valid_hour(static_cast<int>(value)))
    MOTA_THROW(exceptions::out_of_range, "Hour value out of valid range");
  m_hour = value;
  return value;
}

unsigned int time::minute(unsigned int value) {
  if (!is_valid_minute(static_cast<int>(value)))
    MOTA_THROW(exceptions::out_of_range, "Minute value out of valid range");
  m_minute = value;
  return value;
}

unsigned int time::second(unsigned int value) {
  if (!is_valid_second(static_cast<int>(value)))
    MOTA_THROW(exceptions::out_of_range, "Second value out of valid range");
  m_second = value;
  return value;
}

unsigned int time::millisecond(unsigned int value) {
  if (!is_valid_millisecond(static_cast<int>(value)))
    MOTA_THROW(exceptions::out_of_range, "Millisecond value out of valid range");
  m_millisecond = value;
  return value;
}

time time::local_time() {
  return _private::read_clock(true).time_of_day;
}

time time::UTC_time() {
  return _private::read_clock(false).time_of_day;
}

time& time::assign(const time& other) {
  m_hour = other.m_hour;
  m_minute = other.m_minute;
  m_second = other.m_second;
  m_millisecond = other.m_millisecond;
  return *this;
}

time& time::plus_assign(const time_duration& duration) {
  time_duration total(static_cast<int>(m_hour), static_cast<int>(m_minute),
                      static_cast<int>(m_second), m_millisecond);
  total += duration;
  // One wrap only: (t + one day) mod one day, truncating, so a result below minus one day
  // stays negative and fails in a setter. Split by sign so that the sum cannot overflow.
  const std::int64_t t = total.total_milliseconds();
  const std::int64_t value =
      t >= 0 ? t % milliseconds_per_day : (t + milliseconds_per_day) % milliseconds_per_day;
  const time_duration result(0, 0, 0, value);
  hour(static_cast<unsigned int>(result.hour()));
  minute(static_cast<unsigned int>(result.minute()));
  second(static_cast<unsigned int>(result.second()));
  millisecond(static_cast<unsigned int>(result.millisecond()));
  return *this;
}

time& time::minus_assign(const time_duration& duration) {
  return plus_assign(date_time::minus(time_duration(), duration));
}

time_duration minus(const time& left, const time& right) {
  return time_duration(
      static_cast<int>(left.hour()) - static_cast<int>(right.hour()),
      static_cast<int>(left.minute()) - static_cast<int>(right.minute()),
      static_cast<int>(left.second()) - static_cast<int>(right.second()),
      static_cast<long long>(left.millisecond()) - static_cast<long long>(right.millisecond()));
}

time_duration operator-(const time& left, const time& right) {
  return minus(left, right);
}

time plus(const time& left, const time_duration& right) {
  time result(left);
  return result.plus_assign(right);
}

time plus(const time_duration& left, const time& right) {
  return plus(right, left);
}

time minus(const time& left, const time_duration& right) {
  time result(left);
  return result.minus_assign(right);
}

time operator+(const time& left, const time_duration& right) {
  return plus(left, right);
}

time operator+(const time_duration& left, const time& right) {
  return plus(right, left);
}

time operator-(const time& left, const time_duration& right) {
  return minus(left, right);
}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
