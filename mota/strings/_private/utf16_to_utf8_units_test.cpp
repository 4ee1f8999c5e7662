// The branch-free UTF-16 encoder and utf16_to_utf8 against the plain encoder, on generated unit
// strings that mix every kind of unit, valid pairs, and lone or misplaced surrogates.
#include <mota/strings/_private/utf16_to_utf8_units.hpp>
#include <mota/strings/utf.hpp>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace s = mota::strings;
namespace p = mota::strings::_private;

namespace {

enum encoder { plain, branchless };

// An encoder's result as a string, or "-1" when it fails.
std::string utf8_by(encoder which, const s::ustring16& units) {
  std::vector<unsigned char> out(3 * units.size() + 1);
  std::size_t k = 0;
  const auto encode = which == plain ? p::encode_units_plain : p::encode_units_branchless;
  if (!encode(units.data(), units.size(), out.data(), k)) return "-1";
  return std::string(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(k));
}

// A unit of a random kind (ASCII, two bytes, three bytes below and above the surrogates, a
// valid pair twice as often); `broken` lets lone surrogates in now and then.
void push_random(s::ustring16& units, std::mt19937& random, bool broken) {
  static const unsigned int ranges[][2] = {{0, 0x7F},        {0x80, 0x7FF},    {0x800, 0xD7FF},
                                           {0xE000, 0xFFFF}, {0xD800, 0xDBFF}, {0xD800, 0xDBFF},
                                           {0xD800, 0xDFFF}};
  const unsigned int kind = random() % (broken ? 7 : 6);
  auto draw = [&](unsigned int low, unsigned int high) {
    return static_cast<unsigned short>(low + random() % (high - low + 1));
  };
  units.push_back(draw(ranges[kind][0], ranges[kind][1]));
  if (kind == 4 || kind == 5) units.push_back(draw(0xDC00, 0xDFFF));
}

}  // namespace

TEST(Utf16ToUtf8Units, BranchlessMatchesPlainOnGeneratedTextAndEveryEdgePair) {
  std::mt19937 random(77);
  int failures_seen = 0;
  for (int n = 0; n < 20000; ++n) {
    s::ustring16 units;
    const bool broken = n % 4 == 0;
    const unsigned int length = random() % (n % 8 == 0 ? 300 : 20);
    while (units.size() < length)
      push_random(units, random, broken);
    const std::string expected = utf8_by(plain, units);
    failures_seen += expected == "-1";
    ASSERT_EQ(expected, utf8_by(branchless, units)) << "case " << n;
    // The library also swaps text that starts with 0xFFFE; leave that to the unit tests.
    if (!units.empty() && units[0] == 0xFFFE) continue;
    ASSERT_EQ(expected, s::utf16_to_utf8(units)) << "case " << n;
  }
  // The generated text must have exercised the failures as well.
  EXPECT_GT(failures_seen, 1000);
  const unsigned short edges[] = {0x00,   0x7F,   0x80,   0x7FF,  0x800,  0xD7FF, 0xE000,
                                  0xFFFD, 0xFFFF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF};
  for (unsigned short a : edges) {
    for (unsigned short b : edges) {
      for (std::size_t pad = 0; pad < 3; ++pad) {
        s::ustring16 units(pad, 'x');
        units.push_back(a);
        units.push_back(b);
        EXPECT_EQ(utf8_by(plain, units), utf8_by(branchless, units)) << std::hex << a << " " << b;
      }
    }
  }
}
