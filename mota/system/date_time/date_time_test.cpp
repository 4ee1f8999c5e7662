#include <mota/system/date_time/date_time.hpp>

#include <mota_test.hpp>

#include <ctime>

namespace dt = mota::system::date_time;
using mota::exceptions::out_of_range;

namespace {

void expect_at(const dt::date_time_t& v, unsigned day, unsigned month, unsigned year, unsigned hour,
               unsigned minute) {
  EXPECT_EQ(day, v.day());
  EXPECT_EQ(month, v.month());
  EXPECT_EQ(year, v.year());
  EXPECT_EQ(hour, v.hour());
  EXPECT_EQ(minute, v.minute());
}

dt::date_time_t noon_10_may() {
  return dt::date_time_t(dt::date(10, 5, 2023), dt::time(12, 0, 0, 0));
}

}  // namespace

TEST(DateTime, HoursBelowADayMoveOnlyTheTime) {
  dt::date_time_t v = noon_10_may();
  v += dt::time_duration(13, 0, 0, 0);  // past midnight, but the date stays
  expect_at(v, 10, 5, 2023, 1, 0);
  v -= dt::time_duration(23, 59, 0, 0);
  expect_at(v, 10, 5, 2023, 1, 1);
}

TEST(DateTime, ADayOrMoreOverwritesTheDayFirst) {
  // 25 hours: the day becomes 25 mod 24 = 1, then the date moves on by 1 day; the time wraps.
  dt::date_time_t v = noon_10_may();
  v += dt::time_duration(25, 30, 0, 0);
  expect_at(v, 2, 5, 2023, 13, 30);
  // 27 hours from 20 May: the day becomes 3, plus 3 days.
  v = dt::date_time_t(dt::date(20, 5, 2023), dt::time(0, 0, 0, 0));
  v.plus_assign(dt::time_duration(27, 0, 0, 0));
  expect_at(v, 6, 5, 2023, 3, 0);
}

TEST(DateTime, WholeDaysAndNegativeDaysThrowFromTheDaySetter) {
  for (int hours : {24, 48, -25, -24}) {
    SCOPED_TRACE(hours);
    dt::date_time_t v = noon_10_may();
    try {
      v += dt::time_duration(hours, 0, 0, 0);
      ADD_FAILURE() << "no exception";
    } catch (const out_of_range& e) {
      EXPECT_STREQ("day value out of valid range", e.get_message());
      EXPECT_STREQ("day", e.get_state().function);
    }
    expect_at(v, 10, 5, 2023, 12, 0);
  }
  // minus_assign negates: -(-25 h) is +25 h.
  dt::date_time_t v = noon_10_may();
  v -= dt::time_duration(-25, 0, 0, 0);
  expect_at(v, 2, 5, 2023, 13, 0);
}

TEST(DateTime, DateDurationsMoveTheDatePart) {
  dt::date_time_t v = noon_10_may();
  v += dt::date_duration(30);
  expect_at(v, 9, 6, 2023, 12, 0);
  v.minus_assign(dt::date_duration(40));
  expect_at(v, 30, 4, 2023, 12, 0);
  v = dt::date(1, 1, 1);
  EXPECT_THROW_MSG(v -= dt::date_duration(400), out_of_range, "date value out of valid range");
}

TEST(DateTime, AssignmentAndForwarding) {
  dt::date_time_t v;
  expect_at(v, 0, 0, 0, 0, 0);
  v = dt::time(8, 15, 1, 2);
  v = dt::date(31, 4, 2023);
  expect_at(v, 30, 4, 2023, 8, 15);  // effective day
  EXPECT_TRUE(v.is_day_constrained());
  EXPECT_FALSE(v.is_leap_year());
  EXPECT_EQ(1u, v.second());
  EXPECT_EQ(2u, v.millisecond());
  EXPECT_EQ(2023u, v.date().year());
  EXPECT_EQ(8u, v.time().hour());
  v.assign(dt::date(29, 2, 2024), dt::time(23, 0, 0, 0));
  expect_at(v, 29, 2, 2024, 23, 0);
  EXPECT_TRUE(v.is_leap_year());
  dt::date_time_t w;
  w = v;
  EXPECT_EQ(29u, w.day());
  EXPECT_EQ(7u, w.day(7));
  EXPECT_EQ(3u, w.month(3));
  EXPECT_EQ(1999u, w.year(1999));
  EXPECT_EQ(4u, w.hour(4));
  EXPECT_EQ(5u, w.minute(5));
  EXPECT_THROW_MSG(w.second(60), out_of_range, "Second value out of valid range");
  EXPECT_THROW_MSG(w.month(0), out_of_range, "month value out of valid range");
  expect_at(w, 7, 3, 1999, 4, 5);
  expect_at(v, 29, 2, 2024, 23, 0);
}

TEST(DateTime, ClockReadersAgree) {
  const std::time_t before = std::time(nullptr);
  const dt::date_time_t utc = dt::date_time_t::UTC_date_time();
  const std::time_t after = std::time(nullptr);
  std::tm b{}, a{};
  gmtime_r(&before, &b);
  gmtime_r(&after, &a);
  if (b.tm_min != a.tm_min) GTEST_SKIP() << "clock read across a minute boundary";
  expect_at(utc, b.tm_mday, b.tm_mon + 1, b.tm_year + 1900, b.tm_hour, b.tm_min);
  const dt::date_time_t local = dt::date_time_t::local_date_time();
  EXPECT_GE(local.month(), 1u);
  EXPECT_LE(local.hour(), 23u);
}
