#include <mota/types/color.hpp>

#include <gtest/gtest.h>

#include <tuple>

using namespace mota::types;

TEST(Color, ByteOrderOpaqueDefaultAndSetters) {
  const color_t c(10, 20, 30);
  EXPECT_EQ(255, c.alpha());
  EXPECT_EQ(static_cast<int>(0xFF1E140Au), c.as_int32());
  EXPECT_EQ(30 * 65536 + 20 * 256 + 10, c.as_rgb());
  EXPECT_EQ(color_t::rgb(10, 20, 30), c);
  EXPECT_EQ(0, color_t().as_int32());
  color_t d = color_t::rgba(1, 2, 3, 4);
  EXPECT_EQ(0x04030201, d.as_int32());
  d.alpha(0);
  EXPECT_NE(color_t::rgba(1, 2, 3, 4), d);
  d.red(9);
  d.green(8);
  d.blue(7);
  EXPECT_EQ(0x00070809, d.as_int32());
  d = 0x7F000000;
  EXPECT_EQ(color_t(0, 0, 0, 0x7F), d);
  color_t e;
  e.assign(d);
  EXPECT_TRUE(e.equal(d));
}

TEST(Color, IntegerFormsKeepEveryByte) {
  const int value = 0x11223344;
  for (const color_t& c : {color_t(value), color_t::rgb(value), color_t::rgba(value)}) {
    EXPECT_EQ(std::make_tuple(0x44, 0x33, 0x22, 0x11),
              std::make_tuple(c.red(), c.green(), c.blue(), c.alpha()));
    EXPECT_EQ(value, c.as_int32());
    EXPECT_EQ(0x223344, c.as_rgb());
  }
  EXPECT_EQ(255, color_t::rgb(-1).alpha());
}
