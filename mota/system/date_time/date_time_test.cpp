#include <mota/system/date_time/date_time.hpp>

#include <mota_test.hpp>

#include <ctime>
#include <tuple>

namespace dt = mota::system::date_time;
using mota::exceptions::out_of_range;

namespace {

::testing::AssertionResult at(const dt::date_time_t& v, unsigned day, unsigned month, unsigned year,
                              unsigned hour, unsigned minute) {
  if (v.day() == day && v.month() == month && v.year() == year && v.hour() == hour &&
      v.minute() == minute)
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << v.day() << "." << v.month() << "." << v.year() << " " << v.hour() << ":" << v.minute();
}

dt::date_time_t noon_10_may() {
  return dt::date_time_t(dt::date(10, 5, 2023), dt::time(12, 0, 0, 0));
}

}  // namespace

TEST(DateTime, TimeDurationsMoveTheDateOnlyFromADayOnDateDurationsAnyDay) {
  const std::tuple<int, int, unsigned, unsigned, unsigned> cases[] = {
      {13, 0, 10, 1, 0},  // past midnight, but the date stays
      {-12, -1, 10, 23, 59},
      {25, 30, 2, 13, 30},  // day := 25 mod 24 = 1, then + 1 day
  };
  for (const auto& [hours, minutes, day, hour, minute] : cases) {
    dt::date_time_t v = noon_10_may();
    v += dt::time_duration(hours, minutes, 0, 0);
    EXPECT_TRUE(at(v, day, 5, 2023, hour, minute)) << hours << "h";
  }
  dt::date_time_t v = noon_10_may();
  v -= dt::time_duration(-25, 0, 0, 0);  // negated: + 25 h
  EXPECT_TRUE(at(v, 2, 5, 2023, 13, 0));
  // Whole days and negative days throw from the day setter.
  for (int hours : {24, -25}) {
    v = noon_10_may();
    EXPECT_THROWS(v += dt::time_duration(hours, 0, 0, 0), out_of_range,
                  "day value out of valid range", "day");
    EXPECT_TRUE(at(v, 10, 5, 2023, 12, 0));
  }
  dt::date_time_t w;
  EXPECT_TRUE(at(w, 0, 0, 0, 0, 0));
  w = dt::time(8, 15, 1, 2);
  w = dt::date(31, 4, 2023);
  EXPECT_TRUE(at(w, 30, 4, 2023, 8, 15));
  EXPECT_TRUE(w.is_day_constrained());
  w += dt::date_duration(30);
  EXPECT_TRUE(at(w, 31, 5, 2023, 8, 15));
  w.assign(dt::date(1, 1, 1), dt::time(23, 0, 0, 0));
  EXPECT_THROWS(w -= dt::date_duration(400), out_of_range, "date value out of valid range",
                "minus_assign");
  EXPECT_THROWS(w.second(60), out_of_range, "Second value out of valid range", "second");
}

TEST(DateTime, ClockReadersMatchTheSystemClock) {
  const std::time_t before = std::time(nullptr);
  dt::date_time_t utc = dt::date_time_t::UTC_date_time();
  const dt::date_time_t local = dt::date_time_t::local_date_time();
  const dt::date_time_t parts(dt::date::UTC_date(), dt::time::UTC_time());
  const dt::date_time_t local_parts(dt::date::local_date(), dt::time::local_time());
  const std::time_t after = std::time(nullptr);
  std::tm g{}, l{}, g2{};
  gmtime_r(&before, &g);
  localtime_r(&before, &l);
  gmtime_r(&after, &g2);
  if (g.tm_min != g2.tm_min) GTEST_SKIP() << "clock read across a minute boundary";
  EXPECT_TRUE(at(utc, g.tm_mday, g.tm_mon + 1, g.tm_year + 1900, g.tm_hour, g.tm_min));
  EXPECT_TRUE(at(local, l.tm_mday, l.tm_mon + 1, l.tm_year + 1900, l.tm_hour, l.tm_min));
  EXPECT_TRUE(at(local_parts, l.tm_mday, l.tm_mon + 1, l.tm_year + 1900, l.tm_hour, l.tm_min));
  utc = parts;
  EXPECT_TRUE(at(utc, g.tm_mday, g.tm_mon + 1, g.tm_year + 1900, g.tm_hour, g.tm_min));
}
