// A signed number of days, used to move a date backwards or forwards.
//
//   mota::system::date_time::date_duration week(7);
//   day += week;
#ifndef MOTA_SYSTEM_DATE_TIME_DATE_DURATION_HPP
#define MOTA_SYSTEM_DATE_TIME_DATE_DURATION_HPP

#include <mota/export.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace system {
namespace date_time {

// A signed number of days.
class MOTA_API date_duration {
 public:
  //@{
  // Zero days, a copy, or `days` days.
  date_duration() : m_days(0) {}
  date_duration(const date_duration& other) = default;
  date_duration(int days) : m_days(days) {}  // NOLINT: a number of days reads as a duration
  //@}

  //@{
  // Sets or returns the number of days.
  void days(int value) { m_days = value; }
  int days() const { return m_days; }
  //@}

  //@{
  // Copies the other duration; returns *this.
  date_duration& assign(const date_duration& other);
  date_duration& operator=(const date_duration& other) { return assign(other); }
  //@}
  //@{
  // Sums and differences wrap on 32-bit overflow.
  date_duration& plus_assign(const date_duration& other);
  date_duration& minus_assign(const date_duration& other);
  date_duration& operator+=(const date_duration& other) { return plus_assign(other); }
  date_duration& operator-=(const date_duration& other) { return minus_assign(other); }
  //@}

 private:
  std::int32_t m_days;
};

//@{
// The sum or difference of the days, wrapping on 32-bit overflow.
MOTA_API date_duration plus(const date_duration& left, const date_duration& right);
MOTA_API date_duration minus(const date_duration& left, const date_duration& right);
MOTA_API date_duration operator+(const date_duration& left, const date_duration& right);
MOTA_API date_duration operator-(const date_duration& left, const date_duration& right);
//@}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_DATE_DURATION_HPP
