#include <mota/system/date_time/date.hpp>

#include <mota_test.hpp>

#include <tuple>

namespace dt = mota::system::date_time;
using mota::exceptions::out_of_range;

namespace {

// An independent proleptic Gregorian calendar for the walks.
struct civil {
  unsigned day, month, year;

  static bool leap(unsigned y) { return y % 4 == 0 && (y % 100 != 0 || y % 400 == 0); }
  void next() {
    static const unsigned lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (++day > (month == 2 && leap(year) ? 29 : lengths[month - 1])) {
      day = 1;
      if (++month > 12) {
        month = 1;
        ++year;
      }
    }
  }
  bool is_leap_day() const { return month == 2 && day == 29; }
};

::testing::AssertionResult same(const civil& c, const dt::date& d) {
  if (c.day == d.day() && c.month == d.month() && c.year == d.year())
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "expected " << c.day << "." << c.month << "." << c.year << ", got " << d.day() << "."
         << d.month() << "." << d.year();
}

}  // namespace

// The day numbers themselves are checked against their formula for every date of years 0 to
// 10000 by the day-number test; the walks check the calendar they count.
TEST(Date, DayNumbersWalkTheCalendarSkippingOnlyTheLeapDay) {
  // Walks across 1900 and 2100 (no leap day) and 2000 and 2104 (leap days).
  for (unsigned year : {1899u, 1999u, 2099u}) {
    civil c{1, 1, year}, stepped = c;
    dt::date d(1, 1, year);
    std::uint32_t previous = d.pJulian_day_number();
    for (int i = 0; i < 1900; ++i) {
      c.next();
      const std::uint32_t n = dt::date(c.day, c.month, c.year).pJulian_day_number();
      ASSERT_EQ(previous + 1, n) << c.day << "." << c.month << "." << c.year;
      previous = n;
      dt::date back;
      back.pJulian_day_number(n);
      civil expected = c;
      if (c.is_leap_day()) expected.next();  // comes back as 1 March, by design
      ASSERT_TRUE(same(expected, back));
      ASSERT_EQ(civil::leap(c.year), back.is_leap_year()) << c.year;
      d += dt::date_duration(1);
      stepped.next();
      if (stepped.is_leap_day()) stepped.next();
      ASSERT_TRUE(same(stepped, d)) << "step " << i;
    }
  }
}

TEST(Date, ArithmeticAroundTheLeapDayAndDayOne) {
  // The leap day reads as 1 March (three days on is the README's example).
  const std::tuple<int, unsigned, unsigned> cases[] = {{1, 1, 3}, {2, 1, 3}, {-1, 27, 2}};
  for (const auto& [days, day, month] : cases) {
    dt::date d(28, 2, 2024);
    d += days;
    EXPECT_TRUE(same(civil{day, month, 2024}, d)) << days;
  }
  // Going back one day from 1 March of a leap year lands on the leap day, which reads as
  // 1 March again.
  dt::date d(1, 3, 2024);
  d -= 1;
  EXPECT_TRUE(same(civil{1, 3, 2024}, d));
  d -= 2;
  EXPECT_TRUE(same(civil{28, 2, 2024}, d));
  // Below day one a subtraction throws; a negative duration moves the other way.
  d = dt::date(1, 1, 1);
  EXPECT_THROWS(d -= dt::date_duration(307), out_of_range, "date value out of valid range",
                "minus_assign");
  EXPECT_TRUE(same(civil{1, 1, 1}, d));
  d.minus_assign(306);
  EXPECT_TRUE(same(civil{1, 3, 0}, d));
  d = dt::date(1, 1, 2000);
  d -= dt::date_duration(-1);
  EXPECT_TRUE(same(civil{2, 1, 2000}, d));
}

TEST(Date, EffectiveDayIsClippedToTheMonthSettersCheckTheirRange) {
  const std::tuple<unsigned, unsigned, unsigned, unsigned, bool> cases[] = {
      {31, 4, 2023, 30, true}, {30, 4, 2023, 30, false}, {31, 12, 2023, 31, false},
      {29, 2, 2023, 28, true}, {29, 2, 2024, 29, false}, {31, 2, 2024, 29, true},
      {30, 2, 1900, 28, true}, {29, 2, 2000, 29, false},
  };
  for (const auto& [day, month, year, effective, constrained] : cases) {
    SCOPED_TRACE(::testing::Message() << day << "." << month << "." << year);
    const dt::date d(day, month, year);
    EXPECT_EQ(effective, d.day());
    EXPECT_EQ(effective, d.get_days());
    EXPECT_EQ(constrained, d.is_day_constrained());
  }
  EXPECT_EQ(0u, dt::date().day());
  EXPECT_FALSE(dt::date().is_day_constrained());
  // The setters check their range.
  dt::date d(15, 6, 2020);
  for (unsigned bad : {0u, 13u, 0xFFFFFFFFu})
    EXPECT_THROWS(d.month(bad), out_of_range, "month value out of valid range", "month");
  for (unsigned bad : {0u, 32u})
    EXPECT_THROWS(d.day(bad), out_of_range, "day value out of valid range", "day");
  EXPECT_TRUE(same(civil{15, 6, 2020}, d));
  EXPECT_EQ(31u, d.day(31));
  EXPECT_EQ(12u, d.month(12));
  EXPECT_EQ(7u, d.year(7));
  EXPECT_TRUE(same(civil{31, 12, 7}, d));
  // Day first, then month.
  EXPECT_THROWS(dt::date(0, 13, 2000), out_of_range, "day value out of valid range", "day");
  EXPECT_THROWS(dt::date(1, 13, 2000), out_of_range, "month value out of valid range", "month");
}
