#include <mota/types/absolute_unit.hpp>

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

using namespace mota::types;

namespace {

// Reads the raw length of `raw` through unit code N.
template <int N>
void expect_reads(const absolute_unit& raw, double expected) {
  const basic_absolute_impl<N> u(raw);
  EXPECT_NEAR(expected, u.value(), 1e-9) << "code " << N;
  EXPECT_DOUBLE_EQ(expected, u.as_double()) << "code " << N;
  EXPECT_EQ(static_cast<int>(expected + 0.5), u.as_int32()) << "code " << N;
}

}  // namespace

TEST(AbsoluteUnit, OneInchReadInEveryUnitAndSetThroughTheFactor) {
  const basic_absolute_impl<1> inch(100000);
  expect_reads<1>(inch, 100000);
  expect_reads<2>(inch, 300);
  expect_reads<3>(inch, 25.4);
  expect_reads<4>(inch, 2.54);
  expect_reads<5>(inch, 1);
  expect_reads<6>(inch, 72);
  expect_reads<7>(inch, 6);
  expect_reads<8>(inch, 96);
  // The virtual operations answer callers directly too, also through the base.
  const absolute_unit& base = basic_absolute_impl<5>(inch);
  EXPECT_EQ(5, base.do_type());
  EXPECT_DOUBLE_EQ(1.0, base.do_as_double());
  // The setter keeps fractions of a raw unit; the raw-unit constructor drops them.
  basic_absolute_impl<3> mm;
  mm.value(1.0);  // 100000 / 25.4 = 3937.007...
  EXPECT_EQ(3937, mm.as_md());
  EXPECT_DOUBLE_EQ(1.0, mm.as_double());
  EXPECT_NEAR(3937.0079, basic_absolute_impl<1>(mm).value(), 1e-4);
  basic_absolute_impl<1> u(-7.9);
  EXPECT_DOUBLE_EQ(-7.0, u.value());
}

// Halves round up, also for negatives; huge lengths saturate instead of overflowing.
TEST(AbsoluteUnit, RoundsHalfUpAndSaturates) {
  basic_absolute_impl<1> u;
  const std::tuple<double, double, int> rows[] = {{1.125, 1.13, 1},  {-1.125, -1.12, -1},
                                                  {2.5, 2.5, 3},     {-2.5, -2.5, -2},
                                                  {-0.004, -0.0, 0}, {0.994, 0.99, 1}};
  for (const auto& [value, two_decimals, whole] : rows) {
    u.value(value);
    EXPECT_DOUBLE_EQ(two_decimals, u.as_double()) << value;
    EXPECT_EQ(whole, u.as_int32()) << value;
  }
  u.value(1e300);
  EXPECT_EQ(std::numeric_limits<int>::max(), u.as_md());
  EXPECT_EQ(std::numeric_limits<int>::max(), u.as_int32());
  u.value(-1e300);
  EXPECT_EQ(std::numeric_limits<int>::min(), u.as_int32());
  u.value(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(0, u.as_md());
}
