// Byte orders, round trips, short strings and extra bytes over every width are checked by the
// number fuzz target against a model, through the std::string forms; the pointer forms, which
// take no length, are pinned here.
#include <mota/generic/convert/bin_str.hpp>

#include <gtest/gtest.h>

namespace convert = mota::generic::convert;

TEST(BinStr, PointerFormsReadTheFirstBytesInTheirNamespacesOrder) {
  const char* const bytes = "\x01\x02\x03\x04\x05";
  EXPECT_EQ(0x0102, convert::big_endian::bin_str_to_int16(bytes));
  EXPECT_EQ(0x01020304, convert::little_endian::bin_str_to_int32(bytes));
  EXPECT_EQ(0x04030201u, convert::bin_str_to_uint32(bytes));
}
