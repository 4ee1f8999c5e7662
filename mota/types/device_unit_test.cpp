#include <mota/types/device_unit.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

using namespace mota::types;

TEST(DeviceUnit, ConstructsByTruncatingComparesAndAssigns) {
  EXPECT_EQ(12, device_unit(12.7).as_int32());
  EXPECT_EQ(-12, device_unit(-12.7).as_int32());
  EXPECT_EQ(-5, device_unit(static_cast<signed char>(-5)).as_int32());
  EXPECT_EQ(200, device_unit(static_cast<unsigned char>(200)).as_int32());
  EXPECT_EQ(1, device_unit(0x100000001LL).as_int32());
  EXPECT_EQ(-1, device_unit(0xFFFFFFFFULL).as_int32());
  EXPECT_EQ(0, device_unit().as_int32());
  EXPECT_EQ(std::numeric_limits<std::int32_t>::max(), device_unit(1e20).as_int32());
  device_unit u(7);
  EXPECT_EQ(1, u.type());
  EXPECT_FLOAT_EQ(7.0f, u.as_float());
  EXPECT_DOUBLE_EQ(7.0, u.do_as_double());
  device_unit v;
  EXPECT_TRUE(u != v);
  v = u;
  EXPECT_TRUE(u == v);
  v = 8;
  EXPECT_FALSE(v.equal(u));
  EXPECT_EQ(7, v.assign(u).as_int32());
}
