#include <mota/types/color.hpp>

#include <gtest/gtest.h>

using namespace mota::types;

TEST(Color, ByteOrderAndOpaqueDefault) {
  const color_t c(10, 20, 30);
  EXPECT_EQ(255, c.alpha());
  EXPECT_EQ(static_cast<int>(0xFF1E140Au), c.as_int32());
  EXPECT_EQ(30 * 65536 + 20 * 256 + 10, c.as_rgb());
  EXPECT_EQ(color_t::rgb(10, 20, 30), c);
  EXPECT_EQ(0, color_t().as_int32());
}

TEST(Color, IntegerFormsKeepEveryByte) {
  const int value = 0x11223344;
  for (const color_t& c : {color_t(value), color_t::rgb(value), color_t::rgba(value)}) {
    EXPECT_EQ(0x44, c.red());
    EXPECT_EQ(0x33, c.green());
    EXPECT_EQ(0x22, c.blue());
    EXPECT_EQ(0x11, c.alpha());
    EXPECT_EQ(value, c.as_int32());
    EXPECT_EQ(0x223344, c.as_rgb());
  }
  EXPECT_EQ(255, color_t::rgb(-1).alpha());
}

TEST(Color, SettersAssignmentAndEquality) {
  color_t c = color_t::rgba(1, 2, 3, 4);
  EXPECT_EQ(0x04030201, c.as_int32());
  c.alpha(0);
  EXPECT_NE(color_t::rgba(1, 2, 3, 4), c);
  c.red(9);
  c.green(8);
  c.blue(7);
  EXPECT_EQ(0x00070809, c.as_int32());
  c = 0x7F000000;
  EXPECT_EQ(color_t(0, 0, 0, 0x7F), c);
  color_t d;
  d.assign(c);
  EXPECT_TRUE(d.equal(c));
}
