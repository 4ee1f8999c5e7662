// The branch-free digit count and the pairwise decimal writer, and the signed decimal path of
// the ltoa family built on them, against plain one-digit-at-a-time division on every digit-count
// and bit-length boundary and on random values of every length.
#include <mota/generic/convert/_private/decimal_text.hpp>
#include <mota/generic/convert/x_to_str.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <vector>

namespace convert = mota::generic::convert;
namespace p = mota::generic::convert::_private;

namespace {

std::string plain_decimal(unsigned long long value) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>('0' + value % 10));
    value /= 10;
  } while (value != 0);
  return digits;
}

// 0, every power of ten and of two with its neighbours, the maximum, and random values whose
// bit length is spread evenly.
std::vector<unsigned long long> sample_values() {
  std::vector<unsigned long long> values{0, ULLONG_MAX};
  for (unsigned long long ten = 1; ten <= ULLONG_MAX / 10; ten *= 10) {
    values.insert(values.end(), {ten - 1, ten, ten + 1, ten * 10 - 1});
  }
  for (int bit = 0; bit < 64; ++bit) {
    const unsigned long long two = 1ull << bit;
    values.insert(values.end(), {two - 1, two, two + 1});
  }
  std::mt19937_64 random(18);
  for (int i = 0; i < 20000; ++i)
    values.push_back(random() >> (random() % 64));
  return values;
}

template <typename U, typename C>
void expect_written(unsigned long long value) {
  const std::string expected = plain_decimal(static_cast<U>(value));
  ASSERT_EQ(expected.size(), p::decimal_length(static_cast<U>(value))) << expected;
  std::vector<C> out(expected.size() + 1, C('X'));  // exact size: an overrun shows under ASan
  EXPECT_EQ(out.data() + expected.size(), p::write_decimal(static_cast<U>(value), out.data()));
  EXPECT_EQ(std::basic_string<C>(expected.begin(), expected.end()),
            std::basic_string<C>(out.data()));
}

}  // namespace

TEST(DecimalText, LengthAndDigitsMatchPlainDivision) {
  for (unsigned long long value : sample_values()) {
    expect_written<unsigned long long, char>(value);
    expect_written<unsigned long long, wchar_t>(value);
    expect_written<unsigned int, char>(value);
    expect_written<unsigned int, unsigned short>(value);
    expect_written<unsigned short, char>(value);
  }
}

// Both signs of every sample, the minimums included (their magnitude has no positive twin).
TEST(DecimalText, SignedDecimalWritesSignAndMagnitude) {
  for (unsigned long long value : sample_values()) {
    for (const unsigned long long bits : {value, 0 - value}) {
      const auto ll = static_cast<long long>(bits);
      std::vector<char> narrow(std::to_string(ll).size() + 1, 'X');
      EXPECT_EQ(std::to_string(ll), convert::lltoa(ll, narrow.data(), 10));
      const auto i = static_cast<int>(static_cast<unsigned int>(bits));
      const std::string expected = std::to_string(i);
      std::vector<unsigned short> wide(expected.size() + 1, 'X');
      convert::ltoa(i, wide.data(), 10);
      EXPECT_EQ(std::basic_string<unsigned short>(expected.begin(), expected.end()),
                std::basic_string<unsigned short>(wide.data()));
    }
  }
}
