// A time of day: hour, minute, second and millisecond, each checked by its setter. Adding a
// duration wraps around midnight once; the current local or UTC time can be read.
//
//   mota::system::date_time::time t(23, 59, 59, 999);
//   t += mota::system::date_time::time_duration(0, 0, 0, 1);  // 00:00:00.000
#ifndef MOTA_SYSTEM_DATE_TIME_TIME_HPP
#define MOTA_SYSTEM_DATE_TIME_TIME_HPP

#include <mota/exceptions/logic_error.hpp>
#include <mota/export.hpp>
#include <mota/system/date_time/time_duration.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {

// A time of day to the millisecond.
class MOTA_API time {
 public:
  //@{
  // Midnight, or a copy.
  time() : m_hour(0), m_minute(0), m_second(0), m_millisecond(0) {}
  time(const time& other) = default;
  //@}
  // Sets the fields through the setters, hour first; throws as they do.
  time(unsigned int hour, unsigned int minute, unsigned int second, unsigned int millisecond);

  //@{
  // Each setter stores its value and returns it, or throws exceptions::out_of_range
  // ("Hour value out of valid range", "Minute value out of valid range", "Second value out
  // of valid range", "Millisecond value out of valid range") leaving the field unchanged.
  unsigned int hour(unsigned int value);
  unsigned int minute(unsigned int value);
  unsigned int second(unsigned int value);
  unsigned int millisecond(unsigned int value);
  //@}

  //@{
  // The stored field.
  unsigned int hour() const { return m_hour; }
  unsigned int minute() const { return m_minute; }
  unsigned int second() const { return m_second; }
  unsigned int millisecond() const { return m_millisecond; }
  //@}

  //@{
  // Range checks; negative values are taken as unsigned and so fail.
  static bool is_valid_hour(int value) { return static_cast<unsigned int>(value) < 24u; }
  static bool is_valid_minute(int value) { return static_cast<unsigned int>(value) < 60u; }
  static bool is_valid_second(int value) { return static_cast<unsigned int>(value) < 60u; }
  static bool is_valid_millisecond(int value) { return static_cast<unsigned int>(value) < 1000u; }
  //@}

  //@{
  // The current time of day in the local time zone and in UTC.
  static time local_time();
  static time UTC_time();
  //@}

  //@{
  // Copies the other time's fields; returns *this.
  time& assign(const time& other);
  time& operator=(const time& other) { return assign(other); }
  //@}
  //@{
  // Adds the duration (minus_assign and -= subtract it) and wraps the result into one day. A
  // result that is still negative (a subtraction of more than a day) throws
  // exceptions::out_of_range from a setter, normally "Hour value out of valid range".
  time& plus_assign(const time_duration& duration);
  time& minus_assign(const time_duration& duration);
  time& operator+=(const time_duration& duration) { return plus_assign(duration); }
  time& operator-=(const time_duration& duration) { return minus_assign(duration); }
  //@}

 private:
  std::uint32_t m_hour;
  std::uint32_t m_minute;
  std::uint32_t m_second;
  std::uint32_t m_millisecond;
};

//@{
// The field-wise difference left - right (hours, minutes, seconds, milliseconds).
MOTA_API time_duration minus(const time& left, const time& right);
MOTA_API time_duration operator-(const time& left, const time& right);
//@}
//@{
// The time moved by the duration, as time::plus_assign / minus_assign; throws as they do.
MOTA_API time plus(const time& left, const time_duration& right);
MOTA_API time plus(const time_duration& left, const time& right);
MOTA_API time minus(const time& left, const time_duration& right);
MOTA_API time operator+(const time& left, const time_duration& right);
MOTA_API time operator+(const time_duration& left, const time& right);
MOTA_API time operator-(const time& left, const time_duration& right);
//@}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_TIME_HPP
