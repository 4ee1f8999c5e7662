// The sixteen-unit encoder, finished by the plain one, against the plain encoder alone on
// generated unit strings: every kind of unit, pairs across block ends, lone surrogates.
#include <mota/strings/_private/utf16_to_utf8_avx512.hpp>
#include <mota/strings/_private/utf16_to_utf8_units.hpp>
#include <mota/strings/ustring.hpp>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace s = mota::strings;
namespace p = mota::strings::_private;

namespace {

std::string plain_utf8(const s::ustring16& units) {
  std::vector<unsigned char> out(3 * units.size() + 1);
  std::size_t k = 0;
  if (!p::encode_units_plain(units.data(), units.size(), out.data(), k)) return "-1";
  return std::string(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(k));
}

std::string blocks_then_plain_utf8(const s::ustring16& units) {
  // Exactly the room the encoders ask for, so that an overrun shows under ASan.
  std::vector<unsigned char> out(3 * units.size() + 1);
  std::size_t k = 0;
  std::size_t consumed = 0;
  if (!p::encode_blocks_avx512(units.data(), units.size(), out.data(), k, consumed)) return "-1";
  EXPECT_LE(consumed, units.size());
  if (!p::encode_units_plain(units.data() + consumed, units.size() - consumed, out.data(), k)) {
    return "-1";
  }
  return std::string(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(k));
}

// Units of one kind at a time (ASCII, two bytes, three bytes on both sides of the surrogates,
// a valid pair), with a lone high or low surrogate now and then when `broken`.
s::ustring16 random_units(std::mt19937& random, std::size_t length, bool broken) {
  static const unsigned int ranges[][2] = {{0, 0x7F},        {0x80, 0x7FF},    {0x800, 0xD7FF},
                                           {0xE000, 0xFFFF}, {0xD800, 0xDBFF}, {0xDC00, 0xDFFF}};
  s::ustring16 units;
  while (units.size() < length) {
    unsigned int kind = random() % 5;
    if (broken && random() % 64 == 0) kind = 4 + random() % 2;  // a lone surrogate
    const auto draw = [&](unsigned int k) {
      return static_cast<unsigned short>(ranges[k][0] +
                                         random() % (ranges[k][1] - ranges[k][0] + 1));
    };
    units.push_back(draw(kind == 4 ? 4 : kind));
    if (kind == 4 && !broken) units.push_back(draw(5));
    if (kind == 4 && broken && random() % 2 == 0) units.push_back(draw(5));
  }
  return units;
}

}  // namespace

TEST(Utf16ToUtf8Avx512, BlocksMatchPlainEncoderOnGeneratedText) {
  if (!p::avx512_encoder_available()) GTEST_SKIP() << "no AVX-512 byte instructions here";
  std::mt19937 random(2026);
  int failures = 0;
  for (int n = 0; n < 6000; ++n) {
    const bool broken = n % 3 == 0;
    const s::ustring16 units = random_units(random, random() % 200, broken);
    const std::string expected = plain_utf8(units);
    failures += expected == "-1";
    ASSERT_EQ(expected, blocks_then_plain_utf8(units)) << "case " << n;
  }
  EXPECT_GT(failures, 500);
  // A pair split by a block end, in every position around it.
  for (std::size_t at = 10; at < 40; ++at) {
    s::ustring16 units(60, 0x4E2D);
    units[at] = 0xD83D;
    units[at + 1] = 0xDE00;
    EXPECT_EQ(plain_utf8(units), blocks_then_plain_utf8(units)) << at;
  }
}
