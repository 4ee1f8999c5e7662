// Byte orders, round trips and short strings over every width are checked by the number
// fuzz target against a model; these pin the forms a reader of the byte strings relies on.
#include <mota/generic/convert/bin_str.hpp>

#include <gtest/gtest.h>

#include <string>

namespace convert = mota::generic::convert;
namespace le = mota::generic::convert::little_endian;
namespace be = mota::generic::convert::big_endian;

namespace {

std::string bytes(std::initializer_list<unsigned char> list) {
  return std::string(list.begin(), list.end());
}

}  // namespace

// Both named namespaces write the most significant byte first; only the plain one keeps the
// machine's order.
TEST(BinStr, NamedNamespacesBothWriteMostSignificantFirst) {
  EXPECT_EQ(bytes({0x01, 0x02, 0x03, 0x04}), le::int32_to_bin_str(0x01020304));
  EXPECT_EQ(bytes({0x01, 0x02, 0x03, 0x04}), be::uint32_to_bin_str(0x01020304u));
  EXPECT_EQ(bytes({0x04, 0x03, 0x02, 0x01}), convert::uint32_to_bin_str(0x01020304u));
  EXPECT_EQ(bytes({0x3F, 0x80, 0x00, 0x00}), le::float_to_bin_str(1.0f));
  EXPECT_EQ(bytes({0xC0, 0x00, 0, 0, 0, 0, 0, 0}), be::double_to_bin_str(-2.0));
  // Short strings read as zero, extra bytes are ignored.
  EXPECT_EQ(0, le::bin_str_to_int32(std::string("\x01\x02\x03", 3)));
  EXPECT_EQ(0.0, be::bin_str_to_double(std::string()));
  EXPECT_EQ(0x0102, be::bin_str_to_int16(bytes({0x01, 0x02, 0xFF, 0xFF})));
  EXPECT_EQ(0x0102, be::bin_str_to_int16(reinterpret_cast<const char*>("\x01\x02\x03")));
}
