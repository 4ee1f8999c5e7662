// Not part of the public interface.
//
// One reading of the system clock, broken down into a calendar date and a time of day.
#ifndef MOTA_SYSTEM_DATE_TIME_PRIVATE_CLOCK_HPP
#define MOTA_SYSTEM_DATE_TIME_PRIVATE_CLOCK_HPP

#include <mota/system/date_time/date.hpp>
#include <mota/system/date_time/time.hpp>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

struct clock_reading {
  date_time::date calendar_date;
  date_time::time time_of_day;
};

// Reads gettimeofday once and breaks it down with localtime_r (local) or gmtime_r.
clock_reading read_clock(bool local);

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_DATE_TIME_PRIVATE_CLOCK_HPP
