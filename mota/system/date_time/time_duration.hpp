// A signed span of time counted in milliseconds, with readers for its hour, minute, second
// and millisecond parts and for its length in whole or fractional units.
//
//   mota::system::date_time::time_duration d(1, 30, 0, 0);
//   double h = d.total_hours();  // 1.5
#ifndef MOTA_SYSTEM_DATE_TIME_TIME_DURATION_HPP
#define MOTA_SYSTEM_DATE_TIME_TIME_DURATION_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {

// A signed span of time in milliseconds (64 bits).
class MOTA_API time_duration {
 public:
  //@{
  // A zero duration, or a copy.
  time_duration() : m_milliseconds(0) {}
  time_duration(const time_duration& other) = default;
  //@}
  // hour * 3600000 + minute * 60000 + second * 1000, computed in 32-bit signed arithmetic
  // (wrapping on overflow), then millisecond added in 64 bits.
  time_duration(int hour, int minute, int second, long long millisecond);

  //@{
  // The parts truncate toward zero, so a negative duration has negative parts.
  std::int64_t hour() const { return m_milliseconds / 3600000; }
  std::int64_t minute() const { return (m_milliseconds / 60000) % 60; }
  std::int64_t second() const { return (m_milliseconds / 1000) % 60; }
  std::int64_t millisecond() const { return m_milliseconds % 1000; }
  //@}

  //@{
  // The whole duration in hours, minutes or seconds, as a fraction (total_*) or truncated toward
  // zero (total_complete_*); total_milliseconds() is the stored count.
  double total_hours() const { return static_cast<double>(m_milliseconds) / 3600000.0; }
  double total_minutes() const { return static_cast<double>(m_milliseconds) / 60000.0; }
  double total_seconds() const { return static_cast<double>(m_milliseconds) / 1000.0; }
  std::int64_t total_complete_hours() const { return m_milliseconds / 3600000; }
  std::int64_t total_complete_minutes() const { return m_milliseconds / 60000; }
  std::int64_t total_complete_seconds() const { return m_milliseconds / 1000; }
  std::int64_t total_milliseconds() const { return m_milliseconds; }
  //@}
  // True for a duration below zero.
  bool is_negative() const { return m_milliseconds < 0; }

  //@{
  // Copies the other duration; returns *this.
  time_duration& assign(const time_duration& other);
  time_duration& operator=(const time_duration& other) { return assign(other); }
  //@}
  //@{
  // Sums and differences wrap on 64-bit overflow.
  time_duration& plus_assign(const time_duration& other);
  time_duration& minus_assign(const time_duration& other);
  time_duration& operator+=(const time_duration& other) { return plus_assign(other); }
  time_duration& operator-=(const time_duration& other) { return minus_assign(other); }
  //@}

 private:
  std::int64_t m_milliseconds;
};

//@{
// The sum or difference, wrapping on 64-bit overflow.
MOTA_API time_duration plus(const time_duration& left, const time_duration& right);
MOTA_API time_duration minus(const time_duration& left, const time_duration& right);
MOTA_API time_duration operator+(const time_duration& left, const time_duration& right);
MOTA_API time_duration operator-(const time_duration& left, const time_duration& right);
//@}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_TIME_DURATION_HPP
