// The in-place reading of plain decimal tokens must give what generic::convert gives for every
// token it takes, and take the tokens the text encoding writes, up to each type's limits.
#include <mota/serialization/_private/decimal_token.hpp>

#include <mota/generic/convert/str_to_x.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using mota::serialization::_private::read_decimal_token;
namespace convert = mota::generic::convert;
constexpr auto detect = mota::types::radix_t::detect;

// Tokens around the limits of every width and shapes the in-place reading must refuse or get
// right: signs, leading zeros, blanks, prefixes, rests, overlong digit runs.
std::vector<std::string> tokens_to_try() {
  // Separated by '|' so that the blanks stay part of their tokens.
  const std::string shapes =
      "0|-0|00|-00|007|010|-010|-|+5| 5|5 |0x1F|0b1|\\17|12a|1-2|--1|9|-9|10|99999999|100000000|"
      "12345678x|1234x|0000000000000001|99999999999999999999|184467440737095516150|1.5|1e3";
  std::vector<std::string> tokens;
  for (std::size_t from = 0, bar = 0; bar != std::string::npos; from = bar + 1) {
    bar = shapes.find('|', from);
    tokens.push_back(shapes.substr(from, bar - from));
  }
  tokens.push_back(std::string(40, '9'));
  const long long limits[] = {
      std::numeric_limits<signed char>::min(),   std::numeric_limits<signed char>::max(),
      std::numeric_limits<unsigned char>::max(), std::numeric_limits<short>::min(),
      std::numeric_limits<short>::max(),         std::numeric_limits<unsigned short>::max(),
      std::numeric_limits<int>::min(),           std::numeric_limits<int>::max(),
      std::numeric_limits<unsigned int>::max(),  std::numeric_limits<long long>::min(),
      std::numeric_limits<long long>::max()};
  for (const long long limit : limits) {
    for (long long step = -2; step <= 2; ++step) {
      // Beside the 64-bit limits the neighbours wrap; those are tried as text below.
      if ((step > 0 && limit > std::numeric_limits<long long>::max() - step) ||
          (step < 0 && limit < std::numeric_limits<long long>::min() - step))
        continue;
      tokens.push_back(std::to_string(limit + step));
    }
  }
  for (unsigned long long u = std::numeric_limits<unsigned long long>::max() - 2; u != 0; ++u)
    tokens.push_back(std::to_string(u));
  tokens.push_back("18446744073709551616");
  tokens.push_back("-9223372036854775809");
  tokens.push_back("9223372036854775808");
  // Every length of digit run, with and without a sign.
  std::mt19937_64 random(7);
  for (int round = 0; round < 2000; ++round) {
    const std::size_t digits = 1 + random() % 21;
    std::string token = round % 2 ? "-" : "";
    token += static_cast<char>('1' + random() % 9);
    for (std::size_t i = 1; i < digits; ++i)
      token += static_cast<char>('0' + random() % 10);
    tokens.push_back(token);
  }
  return tokens;
}

template <class T, class Parse>
void check_against_convert(Parse parse) {
  for (const std::string& token : tokens_to_try()) {
    T value{};
    if (!read_decimal_token(token.data(), token.size(), value)) continue;
    EXPECT_EQ(parse(token.data(), static_cast<unsigned int>(token.size()), detect, false), value)
        << token;
  }
  // The canonical text of the limits and their neighbours is always taken.
  const T edges[] = {std::numeric_limits<T>::min(),
                     std::numeric_limits<T>::max(),
                     static_cast<T>(std::numeric_limits<T>::min() + 1),
                     static_cast<T>(std::numeric_limits<T>::max() - 1),
                     T(0),
                     T(1)};
  for (const T edge : edges) {
    const std::string token = std::to_string(edge);
    T value{};
    EXPECT_TRUE(read_decimal_token(token.data(), token.size(), value)) << token;
    EXPECT_EQ(edge, value) << token;
  }
}

// One generic parser a width; the macro only spares writing the same lambda eight times.
#define MOTA_CHECK_WIDTH(T, parser) \
  check_against_convert<T>(         \
      [](const char* t, unsigned int n, auto r, bool f) { return convert::parser(t, n, r, f); })

TEST(DecimalToken, GivesWhatTheGenericParserGivesForEveryTokenItTakes) {
  MOTA_CHECK_WIDTH(signed char, str_to_int8);
  MOTA_CHECK_WIDTH(short, str_to_int16);
  MOTA_CHECK_WIDTH(int, str_to_int32);
  MOTA_CHECK_WIDTH(long long, str_to_int64);
  MOTA_CHECK_WIDTH(unsigned char, str_to_uint8);
  MOTA_CHECK_WIDTH(unsigned short, str_to_uint16);
  MOTA_CHECK_WIDTH(std::uint32_t, str_to_uint32);
  MOTA_CHECK_WIDTH(unsigned long long, str_to_uint64);
}

}  // namespace
