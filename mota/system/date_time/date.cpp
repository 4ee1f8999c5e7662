#include <mota/system/date_time/date.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/system/date_time/_private/clock.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace {

bool leap(std::uint32_t year) {
  return year % 4u == 0 && (year % 100u != 0 || year % 400u == 0);
}

// Days in the month; 32 stands for "never clipped" (31-day months), 0 for no month at all.
std::uint32_t month_limit(std::uint32_t month, std::uint32_t year) {
  switch (month) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
      return 32;
    case 4:
    case 6:
    case 9:
    case 11:
      return 30;
    case 2:
      return leap(year) ? 29 : 28;
    default:
      return 0;
  }
}

std::uint32_t clip(std::uint32_t day, std::uint32_t month, std::uint32_t year) {
  const std::uint32_t limit = month_limit(month, year);
  return day < limit ? day : (limit == 32 ? day : limit);
}

}  // namespace

date::date(unsigned int day, unsigned int month, unsigned int year)
    : m_year(0), m_month(0), m_day(0) {
  this->day(day);
  this->month(month);
  m_year = year;
}

unsigned int date::day(unsigned int value) {
  if (!is_valid_day(value)) MOTA_THROW(exceptions::out_of_range, "day value out of valid range");
  m_day = value;
  return value;
}

unsigned int date::month(unsigned int value) {
  if (!is_valid_month(value))
    MOTA_THROW(exceptions::out_of_range, "month value out of valid range");
  m_month = value;
  return value;
}

unsigned int date::year(unsigned int value) {
  m_year = value;
  return value;
}

unsigned int date::day() const {
  return clip(m_day, m_month, m_year);
}

bool date::is_leap_year() const {
  return leap(m_year);
}

bool date::is_day_constrained() const {
  const std::uint32_t limit = month_limit(m_month, m_year);
  return limit != 32 && m_day > limit;
}

date date::local_date() {
  return _private::read_clock(true).calendar_date;
}

date date::UTC_date() {
  return _private::read_clock(false).calendar_date;
}

date& date::assign(const date& other) {
  m_year = other.m_year;
  m_month = other.m_month;
  m_day = other.m_day;
  return *this;
}

date& date::minus_assign(const date_duration& duration) {
  const std::uint32_t number = pJulian_day_number();
  if (static_cast<std::int64_t>(number) <= static_cast<std::int64_t>(duration.days()))
    MOTA_THROW(exceptions::out_of_range, "date value out of valid range");
  pJulian_day_number(number - static_cast<std::uint32_t>(duration.days()));
  return *this;
}

void date::set_untabled_day_number(std::uint32_t number) {
  store(_private::from_day_number(number));
}

}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
