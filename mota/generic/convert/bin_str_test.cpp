#include <mota/generic/convert/bin_str.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace convert = mota::generic::convert;
namespace le = mota::generic::convert::little_endian;
namespace be = mota::generic::convert::big_endian;

namespace {

std::string bytes(std::initializer_list<unsigned char> list) {
  return std::string(list.begin(), list.end());
}

bool machine_is_little_endian() {
  const unsigned short probe = 1;
  unsigned char first;
  std::memcpy(&first, &probe, 1);
  return first == 1;
}

}  // namespace

TEST(BinStr, NamedNamespacesBothWriteMostSignificantFirst) {
  const std::string msb16 = bytes({0x01, 0x02});
  EXPECT_EQ(msb16, le::int16_to_bin_str(0x0102));
  EXPECT_EQ(msb16, be::int16_to_bin_str(0x0102));

  const std::string msb32 = bytes({0x01, 0x02, 0x03, 0x04});
  EXPECT_EQ(msb32, le::int32_to_bin_str(0x01020304));
  EXPECT_EQ(msb32, be::uint32_to_bin_str(0x01020304u));

  const std::string msb64 = bytes({0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08});
  EXPECT_EQ(msb64, le::int64_to_bin_str(0x0102030405060708LL));
  EXPECT_EQ(msb64, be::uint64_to_bin_str(0x0102030405060708ULL));

  EXPECT_EQ(bytes({0xFF, 0xFE}), be::int16_to_bin_str(-2));
  EXPECT_EQ(bytes({0x3F, 0x80, 0x00, 0x00}), le::float_to_bin_str(1.0f));
  EXPECT_EQ(bytes({0xC0, 0x00, 0, 0, 0, 0, 0, 0}), be::double_to_bin_str(-2.0));
}

TEST(BinStr, MachineOrderCopiesTheBytes) {
  ASSERT_TRUE(machine_is_little_endian()) << "expectations below are for x86";
  EXPECT_EQ(bytes({0x02, 0x01}), convert::int16_to_bin_str(0x0102));
  EXPECT_EQ(bytes({0x04, 0x03, 0x02, 0x01}), convert::uint32_to_bin_str(0x01020304u));
  EXPECT_EQ(bytes({0x08, 0x07, 0x06, 0x05, 0x04, 0x03, 0x02, 0x01}),
            convert::int64_to_bin_str(0x0102030405060708LL));
  EXPECT_EQ(bytes({0x00, 0x00, 0x80, 0x3F}), convert::float_to_bin_str(1.0f));
  EXPECT_EQ(0x0102, convert::bin_str_to_int16(bytes({0x02, 0x01})));
  EXPECT_EQ(0x0102030405060708ULL,
            convert::bin_str_to_uint64(bytes({0x08, 0x07, 0x06, 0x05, 0x04, 0x03, 0x02, 0x01})));
}

TEST(BinStr, ReadsBackAcrossNamespaces) {
  const long long values[] = {
      0, 1, -1, 0x7FFFFFFFFFFFFFFFLL, std::numeric_limits<long long>::min(), 0x1234567890ABCDEFLL};
  for (long long v : values) {
    EXPECT_EQ(v, be::bin_str_to_int64(le::int64_to_bin_str(v)));
    EXPECT_EQ(v, le::bin_str_to_int64(be::int64_to_bin_str(v)));
    EXPECT_EQ(v, convert::bin_str_to_int64(convert::int64_to_bin_str(v)));
    const auto v32 = static_cast<int>(v);
    EXPECT_EQ(v32, le::bin_str_to_int32(be::int32_to_bin_str(v32)));
    const auto v16 = static_cast<short>(v);
    EXPECT_EQ(v16, be::bin_str_to_int16(le::int16_to_bin_str(v16)));
    const auto u16 = static_cast<unsigned short>(v);
    EXPECT_EQ(u16, le::bin_str_to_uint16(be::uint16_to_bin_str(u16)));
    const auto u32 = static_cast<unsigned int>(v);
    EXPECT_EQ(u32, convert::bin_str_to_uint32(convert::uint32_to_bin_str(u32)));
  }
  for (double d : {0.0, -0.0, 1.5, -3.25e300, std::numeric_limits<double>::denorm_min()}) {
    const double back = le::bin_str_to_double(be::double_to_bin_str(d));
    EXPECT_EQ(std::signbit(d), std::signbit(back));
    EXPECT_EQ(d, back);
    EXPECT_EQ(static_cast<float>(d) == 0 ? 0.0f : static_cast<float>(d),
              be::bin_str_to_float(le::float_to_bin_str(static_cast<float>(d))));
  }
  EXPECT_TRUE(std::isnan(be::bin_str_to_double(be::double_to_bin_str(std::nan("")))));
}

TEST(BinStr, ShortStringsGiveZeroAndExtraBytesAreIgnored) {
  EXPECT_EQ(0, convert::bin_str_to_int16(std::string("\x01", 1)));
  EXPECT_EQ(0, le::bin_str_to_int32(std::string("\x01\x02\x03", 3)));
  EXPECT_EQ(0u, be::bin_str_to_uint64(std::string(7, '\xFF')));
  EXPECT_EQ(0.0, be::bin_str_to_double(std::string()));
  EXPECT_EQ(0.0f, convert::bin_str_to_float(std::string(3, '\x7F')));
  EXPECT_EQ(0x0102, be::bin_str_to_int16(bytes({0x01, 0x02, 0xFF, 0xFF})));
  EXPECT_EQ(0x0102, be::bin_str_to_int16(reinterpret_cast<const char*>("\x01\x02\x03")));
  EXPECT_EQ(-1, le::bin_str_to_int16(bytes({0xFF, 0xFF})));
  EXPECT_EQ(0xFFFEu, be::bin_str_to_uint16(bytes({0xFF, 0xFE})));
}
