#include <mota/types/absolute_unit.hpp>

#include <gtest/gtest.h>

#include <limits>

using namespace mota::types;

TEST(AbsoluteUnit, InchesRoundTripThroughRawUnits) {
  basic_absolute_impl<5> inches;
  inches.value(1.0);
  EXPECT_EQ(100000, inches.as_md());
  EXPECT_DOUBLE_EQ(1.0, inches.value());
  EXPECT_EQ(1, inches.as_int32());
  EXPECT_DOUBLE_EQ(1.0, inches.as_double());
  // The virtual operations answer callers directly too, also through the base.
  const absolute_unit& base = inches;
  EXPECT_EQ(5, base.do_type());
  EXPECT_DOUBLE_EQ(1.0, base.do_as_double());
}

// Reads the raw length of `raw` through unit code N.
template <int N>
void expect_reads(const absolute_unit& raw, double expected) {
  const basic_absolute_impl<N> u(raw);
  EXPECT_NEAR(expected, u.value(), 1e-9) << "code " << N;
  EXPECT_DOUBLE_EQ(expected, u.as_double()) << "code " << N;
  EXPECT_EQ(static_cast<int>(expected + 0.5), u.as_int32()) << "code " << N;
}

TEST(AbsoluteUnit, OneInchReadInEveryUnit) {
  const basic_absolute_impl<1> inch(100000);
  expect_reads<1>(inch, 100000);
  expect_reads<2>(inch, 300);
  expect_reads<3>(inch, 25.4);
  expect_reads<4>(inch, 2.54);
  expect_reads<5>(inch, 1);
  expect_reads<6>(inch, 72);
  expect_reads<7>(inch, 6);
  expect_reads<8>(inch, 96);
}

TEST(AbsoluteUnit, SetterDividesByTheFactorWithoutTruncating) {
  basic_absolute_impl<3> mm;
  mm.value(1.0);  // 100000 / 25.4 = 3937.007...
  EXPECT_EQ(3937, mm.as_md());
  EXPECT_DOUBLE_EQ(1.0, mm.as_double());
  basic_absolute_impl<1> raw(mm);
  EXPECT_NEAR(3937.0079, raw.value(), 1e-4);
}

TEST(AbsoluteUnit, DoubleConstructorDropsFractionsButSetterKeepsThem) {
  basic_absolute_impl<1> u(12.9);
  EXPECT_EQ(12, u.as_md());
  EXPECT_DOUBLE_EQ(12.0, u.value());
  u.value(-7.5);
  EXPECT_EQ(-7, u.as_md());
  EXPECT_DOUBLE_EQ(-7.5, u.value());
}

TEST(AbsoluteUnit, RoundsHalfUpAlsoForNegatives) {
  struct row {
    double value;
    double two_decimals;
    int whole;
  };
  const row rows[] = {{1.125, 1.13, 1}, {-1.125, -1.12, -1}, {2.5, 2.5, 3},
                      {-2.5, -2.5, -2}, {-0.004, -0.0, 0},   {0.994, 0.99, 1}};
  for (const row& r : rows) {
    basic_absolute_impl<1> u;
    u.value(r.value);
    EXPECT_DOUBLE_EQ(r.two_decimals, u.as_double()) << r.value;
    EXPECT_EQ(r.whole, u.as_int32()) << r.value;
  }
}

TEST(AbsoluteUnit, HugeLengthsSaturateInsteadOfOverflowing) {
  basic_absolute_impl<1> u;
  u.value(1e300);
  EXPECT_EQ(std::numeric_limits<int>::max(), u.as_md());
  EXPECT_EQ(std::numeric_limits<int>::max(), u.as_int32());
  u.value(-1e300);
  EXPECT_EQ(std::numeric_limits<int>::min(), u.as_int32());
  u.value(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(0, u.as_md());
}
