#include <mota/system/date_time/date_duration.hpp>
#include <mota/system/date_time/time.hpp>

#include <mota_test.hpp>

#include <tuple>

namespace dt = mota::system::date_time;
using mota::exceptions::out_of_range;

namespace {

::testing::AssertionResult at(const dt::time& t, unsigned h, unsigned m, unsigned s, unsigned ms) {
  if (t.hour() == h && t.minute() == m && t.second() == s && t.millisecond() == ms)
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << t.hour() << ":" << t.minute() << ":" << t.second() << "." << t.millisecond();
}

}  // namespace

TEST(Durations, PartsTruncateTowardZeroAndWholeUnitsWrap) {
  const dt::time_duration d(1, 30, 0, 0);
  EXPECT_DOUBLE_EQ(1.5, d.total_hours());
  EXPECT_DOUBLE_EQ(90.0, d.total_minutes());
  EXPECT_EQ(1, d.total_complete_hours());
  EXPECT_EQ(30, d.minute());
  const dt::time_duration n(0, 0, 0, -1500);
  EXPECT_TRUE(n.is_negative());
  EXPECT_EQ(-1, n.second());
  EXPECT_EQ(-500, n.millisecond());
  EXPECT_EQ(-1, n.total_complete_seconds());
  // Whole units wrap in 32 bits, milliseconds do not.
  EXPECT_EQ(3600000000LL - 4294967296LL, dt::time_duration(1000, 0, 0, 0).total_milliseconds());
  EXPECT_EQ(5000000000LL, dt::time_duration(0, 0, 0, 5000000000LL).total_milliseconds());
  const dt::time_duration a(1, 0, 0, 0), b(0, 0, 0, 250);
  EXPECT_EQ(-3599750, (b - a).total_milliseconds());
  dt::time_duration c;
  c = a + b;
  c -= b;
  c += a;
  EXPECT_EQ(7200000, c.total_milliseconds());
  dt::date_duration days;  // days wrap in 32 bits
  days = dt::date_duration(0x7FFFFFFF) + 1;
  EXPECT_EQ(-0x7FFFFFFF - 1, days.days());
  days -= 1;
  EXPECT_EQ(0x7FFFFFFF, days.days());
  EXPECT_EQ(-3, (dt::date_duration(2) - 5).days());
}

TEST(Time, SettersCheckTheirRangeArithmeticWrapsOnceAroundMidnight) {
  using setter = unsigned int (dt::time::*)(unsigned int);
  const std::tuple<setter, unsigned int, const char*, const char*> cases[] = {
      {&dt::time::hour, 23, "Hour value out of valid range", "hour"},
      {&dt::time::minute, 59, "Minute value out of valid range", "minute"},
      {&dt::time::second, 59, "Second value out of valid range", "second"},
      {&dt::time::millisecond, 999, "Millisecond value out of valid range", "millisecond"},
  };
  for (const auto& [set, last_valid, message, function] : cases) {
    SCOPED_TRACE(function);
    dt::time t(1, 2, 3, 4);
    EXPECT_EQ(last_valid, (t.*set)(last_valid));
    const dt::time before = t;
    // The lambda of the throw check cannot capture the bindings themselves.
    const auto set_past_the_range = [&t, s = set, past = last_valid + 1] { (t.*s)(past); };
    EXPECT_THROWS(set_past_the_range(), out_of_range, message, function);
    EXPECT_EQ(0, (t - before).total_milliseconds());  // unchanged
  }
  EXPECT_FALSE(dt::time::is_valid_hour(-1));
  EXPECT_THROWS(dt::time(24, 60, 60, 1000), out_of_range, "Hour value out of valid range", "hour");
  EXPECT_THROWS(dt::time(0, 60, 60, 1000), out_of_range, "Minute value out of valid range",
                "minute");
  EXPECT_TRUE(at(dt::time_duration(0, 0, 0, 1) + dt::time(23, 59, 59, 999), 0, 0, 0, 0));
  EXPECT_TRUE(at(dt::time(0, 0, 0, 0) - dt::time_duration(1, 0, 0, 0), 23, 0, 0, 0));
  // Two days back is minus one day after the single wrap: midnight again.
  EXPECT_TRUE(at(dt::time(0, 0, 0, 0) - dt::time_duration(48, 0, 0, 0), 0, 0, 0, 0));
  EXPECT_TRUE(at(dt::plus(dt::time_duration(73, 1, 2, 3), dt::time(6, 0, 0, 0)), 7, 1, 2, 3));
  dt::time t;
  EXPECT_THROWS(t -= dt::time_duration(25, 0, 0, 0), out_of_range, "Hour value out of valid range",
                "hour");
  EXPECT_THROWS(dt::minus(t, dt::time_duration(49, 0, 0, 0)), out_of_range,
                "Hour value out of valid range", "hour");
  t = t + dt::time_duration(0, 0, 0, 86400000LL * 5 + 61001);
  EXPECT_TRUE(at(t, 0, 1, 1, 1));
  // The difference of two times is taken field by field.
  EXPECT_EQ(29500, (dt::time(1, 0, 0, 0) - dt::time(0, 59, 30, 500)).total_milliseconds());
  EXPECT_EQ(-29500, dt::minus(dt::time(0, 59, 30, 500), dt::time(1, 0, 0, 0)).total_milliseconds());
}
