#include <mota/system/date_time/time.hpp>

#include <mota_test.hpp>

#include <cstring>
#include <ctime>

namespace dt = mota::system::date_time;
using mota::exceptions::out_of_range;

namespace {

void expect_time(const dt::time& t, unsigned h, unsigned m, unsigned s, unsigned ms) {
  EXPECT_EQ(h, t.hour());
  EXPECT_EQ(m, t.minute());
  EXPECT_EQ(s, t.second());
  EXPECT_EQ(ms, t.millisecond());
}

}  // namespace

TEST(TimeDuration, PartsAndTotals) {
  const dt::time_duration d(1, 30, 0, 0);
  EXPECT_DOUBLE_EQ(1.5, d.total_hours());
  EXPECT_DOUBLE_EQ(90.0, d.total_minutes());
  EXPECT_DOUBLE_EQ(5400.0, d.total_seconds());
  EXPECT_EQ(1, d.total_complete_hours());
  EXPECT_EQ(90, d.total_complete_minutes());
  EXPECT_EQ(5400, d.total_complete_seconds());
  EXPECT_EQ(5400000, d.total_milliseconds());
  EXPECT_EQ(1, d.hour());
  EXPECT_EQ(30, d.minute());
  EXPECT_EQ(0, d.second());
  EXPECT_FALSE(d.is_negative());
}

TEST(TimeDuration, NegativeDurationsHaveNegativeParts) {
  const dt::time_duration d(0, 0, 0, -1500);
  EXPECT_TRUE(d.is_negative());
  EXPECT_EQ(-1, d.second());
  EXPECT_EQ(-500, d.millisecond());
  EXPECT_EQ(-1, d.total_complete_seconds());
  const dt::time_duration e(-2, -3, -4, -5);
  EXPECT_EQ(-2, e.hour());
  EXPECT_EQ(-3, e.minute());
  EXPECT_EQ(-4, e.second());
  EXPECT_EQ(-5, e.millisecond());
}

TEST(TimeDuration, WholeUnitsWrapIn32BitsButMillisecondsDoNot) {
  // 1000 hours is 3600000000 ms, beyond a 32-bit int: it wraps before the milliseconds join.
  EXPECT_EQ(3600000000LL - 4294967296LL, dt::time_duration(1000, 0, 0, 0).total_milliseconds());
  EXPECT_EQ(5000000000LL, dt::time_duration(0, 0, 0, 5000000000LL).total_milliseconds());
  EXPECT_EQ(0, dt::time_duration().total_milliseconds());
}

TEST(TimeDuration, Arithmetic) {
  const dt::time_duration a(1, 0, 0, 0), b(0, 0, 0, 250);
  EXPECT_EQ(3600250, (a + b).total_milliseconds());
  EXPECT_EQ(3599750, (a - b).total_milliseconds());
  EXPECT_EQ(-3599750, dt::minus(b, a).total_milliseconds());
  EXPECT_EQ(3600250, dt::plus(b, a).total_milliseconds());
  dt::time_duration c;
  c += a;
  c -= b;
  c -= b;
  EXPECT_EQ(3599500, c.total_milliseconds());
  c = b;
  EXPECT_EQ(250, c.total_milliseconds());
}

TEST(Time, SettersCheckTheirRange) {
  struct setter_case {
    unsigned int (dt::time::*set)(unsigned int);
    unsigned int last_valid;
    const char* message;
    const char* function;
  };
  const setter_case cases[] = {
      {&dt::time::hour, 23, "Hour value out of valid range", "hour"},
      {&dt::time::minute, 59, "Minute value out of valid range", "minute"},
      {&dt::time::second, 59, "Second value out of valid range", "second"},
      {&dt::time::millisecond, 999, "Millisecond value out of valid range", "millisecond"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.function);
    dt::time t(1, 2, 3, 4);
    EXPECT_EQ(c.last_valid, (t.*c.set)(c.last_valid));
    for (unsigned int bad : {c.last_valid + 1, 0xFFFFFFFFu}) {
      const dt::time before = t;
      EXPECT_THROW_MSG((t.*c.set)(bad), out_of_range, c.message);
      EXPECT_EQ(0, (t - before).total_milliseconds());  // unchanged
    }
    try {
      (t.*c.set)(c.last_valid + 1);
    } catch (const out_of_range& e) {
      EXPECT_STREQ(c.function, e.get_state().function);
      EXPECT_NE(nullptr, std::strstr(e.get_state().file, "system/date_time/time"));
    }
  }
}

TEST(Time, ValidityChecksAreUnsigned) {
  EXPECT_TRUE(dt::time::is_valid_hour(0));
  EXPECT_FALSE(dt::time::is_valid_hour(-1));
  EXPECT_FALSE(dt::time::is_valid_minute(-1));
  EXPECT_FALSE(dt::time::is_valid_second(60));
  EXPECT_TRUE(dt::time::is_valid_millisecond(999));
  EXPECT_FALSE(dt::time::is_valid_millisecond(-1));
}

TEST(Time, ConstructorSetsHourFirst) {
  EXPECT_THROW_MSG(dt::time(24, 60, 60, 1000), out_of_range, "Hour value out of valid range");
  EXPECT_THROW_MSG(dt::time(0, 60, 60, 1000), out_of_range, "Minute value out of valid range");
  expect_time(dt::time(), 0, 0, 0, 0);
  expect_time(dt::time(23, 59, 59, 999), 23, 59, 59, 999);
}

TEST(Time, ArithmeticWrapsOnceAroundMidnight) {
  expect_time(dt::time(23, 59, 59, 999) + dt::time_duration(0, 0, 0, 1), 0, 0, 0, 0);
  expect_time(dt::time(0, 0, 0, 0) - dt::time_duration(1, 0, 0, 0), 23, 0, 0, 0);
  expect_time(dt::time(0, 0, 0, 0) - dt::time_duration(24, 0, 0, 0), 0, 0, 0, 0);
  // Exactly two days back still lands on -1 day before the single wrap: midnight.
  expect_time(dt::time(0, 0, 0, 0) - dt::time_duration(48, 0, 0, 0), 0, 0, 0, 0);
  expect_time(dt::time(6, 0, 0, 0) + dt::time_duration(73, 1, 2, 3), 7, 1, 2, 3);
  expect_time(dt::time_duration(0, 0, 1, 0) + dt::time(1, 2, 3, 4), 1, 2, 4, 4);
  expect_time(dt::plus(dt::time(1, 0, 0, 0), dt::time_duration(-2, 0, 0, 0)), 23, 0, 0, 0);
  dt::time t(0, 0, 0, 0);
  EXPECT_THROW_MSG(t -= dt::time_duration(25, 0, 0, 0), out_of_range,
                   "Hour value out of valid range");
  EXPECT_THROW_MSG(dt::minus(t, dt::time_duration(49, 0, 0, 0)), out_of_range,
                   "Hour value out of valid range");
  t += dt::time_duration(0, 0, 0, 86400000LL * 5 + 61001);
  expect_time(t, 0, 1, 1, 1);
}

TEST(Time, DifferenceIsFieldWise) {
  const dt::time_duration d = dt::time(1, 0, 0, 0) - dt::time(0, 59, 30, 500);
  EXPECT_EQ(29500, d.total_milliseconds());
  EXPECT_EQ(-29500, dt::minus(dt::time(0, 59, 30, 500), dt::time(1, 0, 0, 0)).total_milliseconds());
}

TEST(Time, ClockReadersMatchTheSystemClock) {
  const std::time_t before = std::time(nullptr);
  const dt::time utc = dt::time::UTC_time();
  const dt::time local = dt::time::local_time();
  const std::time_t after = std::time(nullptr);
  std::tm b{}, a{}, lb{}, la{};
  gmtime_r(&before, &b);
  gmtime_r(&after, &a);
  localtime_r(&before, &lb);
  localtime_r(&after, &la);
  const auto seconds = [](unsigned h, unsigned m, unsigned s) { return (h * 60 + m) * 60 + s; };
  const auto within = [&](const dt::time& t, const std::tm& lo, const std::tm& hi) {
    const unsigned v = seconds(t.hour(), t.minute(), t.second());
    const unsigned l = seconds(lo.tm_hour, lo.tm_min, lo.tm_sec);
    const unsigned h = seconds(hi.tm_hour, hi.tm_min, hi.tm_sec);
    return l <= h ? (v >= l && v <= h) : (v >= l || v <= h);  // across midnight
  };
  EXPECT_TRUE(within(utc, b, a));
  EXPECT_TRUE(within(local, lb, la));
  EXPECT_LT(utc.millisecond(), 1000u);
}
