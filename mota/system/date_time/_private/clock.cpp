#include <mota/system/date_time/_private/clock.hpp>

#include <sys/time.h>

#include <ctime>

namespace MOTA_2_18 {
namespace system {
namespace date_time {
namespace _private {

clock_reading read_clock(bool local) {
  timeval now{};
  ::gettimeofday(&now, nullptr);
  const std::time_t seconds = now.tv_sec;
  std::tm parts{};
  const bool ok =
      local ? ::localtime_r(&seconds, &parts) != nullptr : ::gmtime_r(&seconds, &parts) != nullptr;
  clock_reading reading;
  if (!ok) return reading;
  // A leap second (tm_sec 60) is shown as the last ordinary second of its minute.
  const unsigned int second = parts.tm_sec > 59 ? 59u : static_cast<unsigned int>(parts.tm_sec);
  const unsigned int millisecond = static_cast<unsigned int>(now.tv_usec / 1000) % 1000u;
  reading.time_of_day =
      date_time::time(static_cast<unsigned int>(parts.tm_hour),
                      static_cast<unsigned int>(parts.tm_min), second, millisecond);
  reading.calendar_date = date_time::date(static_cast<unsigned int>(parts.tm_mday),
                                          static_cast<unsigned int>(parts.tm_mon + 1),
                                          static_cast<unsigned int>(parts.tm_year + 1900));
  return reading;
}

}  // namespace _private
}  // namespace date_time
}  // namespace system
}  // namespace MOTA_2_18
