// Drives dates, times and their durations with arbitrary field values and durations: no input
// may crash, and every date the arithmetic produces must be a real calendar date other than
// 29 February.
#include <mota/system/date_time/date_time.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace dt = mota::system::date_time;

namespace {

template <class T>
T take(const std::uint8_t*& data, std::size_t& size) {
  T value{};
  const std::size_t n = size < sizeof(T) ? size : sizeof(T);
  std::memcpy(&value, data, n);
  data += n;
  size -= n;
  return value;
}

bool leap(unsigned y) {
  return y % 4 == 0 && (y % 100 != 0 || y % 400 == 0);
}

void check_calendar(const dt::date& d) {
  static const unsigned lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (d.month() < 1 || d.month() > 12) __builtin_trap();
  const unsigned length = d.month() == 2 && leap(d.year()) ? 29 : lengths[d.month() - 1];
  if (d.day() < 1 || d.day() > length) __builtin_trap();
  if (d.month() == 2 && d.day() == 29) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto day = take<std::uint32_t>(data, size);
  const auto month = take<std::uint32_t>(data, size);
  const auto year = take<std::uint32_t>(data, size);
  const auto hour = take<std::uint32_t>(data, size);
  const auto minute = take<std::int32_t>(data, size);
  const auto days = take<std::int32_t>(data, size);
  const auto milliseconds = take<std::int64_t>(data, size);
  try {
    dt::date d(day, month, year);
    const bool valid = d.pJulian_day_number() >= 1;
    d.is_day_constrained();
    d.pJulian_day_number(d.pJulian_day_number());
    d += dt::date_duration(days);
    if (valid && days > 0 && year < 4000000u) check_calendar(d);
    d -= dt::date_duration(days);
  } catch (const mota::exceptions::out_of_range&) {
  }
  try {
    dt::time t(hour % 24, static_cast<unsigned>(minute) % 60, 0, 0);
    t += dt::time_duration(static_cast<int>(hour), minute, days, milliseconds);
    if (t.hour() > 23 || t.minute() > 59 || t.second() > 59 || t.millisecond() > 999)
      __builtin_trap();
    dt::date_time_t both(dt::date(1 + day % 31, 1 + month % 12, year), t);
    both += dt::time_duration(0, 0, 0, milliseconds);
    both -= dt::date_duration(days);
  } catch (const mota::exceptions::out_of_range&) {
  }
  return 0;
}
