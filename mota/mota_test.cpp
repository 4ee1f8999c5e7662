// The umbrella header compiles on its own and brings every area with it.
#include <mota/mota.hpp>

#include <gtest/gtest.h>

TEST(Umbrella, BringsEveryArea) {
  const mota::strings::ustring8 text = "12";
  EXPECT_EQ(2u, mota::strings::utf8_to_utf16(text).size());
  EXPECT_EQ(
      12, mota::generic::convert::str_to_int(text.c_str(), 0, mota::types::radix_t::detect, false));
  EXPECT_EQ(12, mota::types::variant(text).as_int());
  EXPECT_EQ(MOTA_VERSION_MINOR, 18);
}
