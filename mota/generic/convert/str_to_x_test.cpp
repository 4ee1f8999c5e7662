// The integer parsers against a plain step-by-step parser: every width, every radix, the clamp
// edges with and without signs, blanks and prefixes, and random texts. The library's parsers
// take shortcuts (digit blocks, a fast lead, limits computed late); the results, clamping and
// failures must be those of the plain steps. The plain steps carry the quirks users see (a
// "\\" prefix is octal, "08" is 0, an unsigned parser given size 0 reads one character).
#include <mota/generic/convert/str_to_x.hpp>

#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

#include <mota_test.hpp>

#include <cctype>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace convert = mota::generic::convert;
namespace ex = mota::exceptions;
using units16 = std::basic_string<unsigned short>;

namespace {

// What a parse ended in: a value, or which of the three failures.
struct outcome {
  enum kind_t { value, too_small, too_large, bad_radix } kind;
  unsigned long long bits;  // the value's bits, for kind value
  bool operator==(const outcome& o) const { return kind == o.kind && bits == o.bits; }
};

template <typename T>
outcome value_of(T v) {
  return {outcome::value, static_cast<unsigned long long>(v)};
}

template <typename C>
long code_of(C c) {
  return std::is_same<C, char>::value ? static_cast<long>(static_cast<signed char>(c))
                                      : static_cast<long>(c);
}

// The parsing steps one by one, for a signed or unsigned T.
template <typename T, typename C>
outcome plain_parse(const C* text, unsigned int size, unsigned int radix, bool throw_flag) {
  const bool is_signed = std::is_signed<T>::value;
  if (is_signed && size == 0) {
    while (text[size] != 0)
      ++size;
  }
  const unsigned int look = size > 1 ? size : 1;
  unsigned int i = 0;
  auto blank = [](long c) { return c >= 0 && c <= 255 && std::isspace(static_cast<int>(c)); };
  while (i < look && blank(code_of(text[i])))
    ++i;
  if (i == look) return value_of<T>(0);
  const long sign = code_of(text[i]);
  if ((sign == '+' || sign == '-') && ++i >= size) return value_of<T>(0);
  if (radix == 0) {
    const long c = code_of(text[i]);
    if (c != '0' && c != '\\') {
      radix = 10;
    } else if (i + 1 >= size) {
      return value_of<T>(0);
    } else {
      const long next = code_of(text[i + 1]);
      radix = next == 'x' || next == 'X' ? 16 : next == 'b' || next == 'B' ? 2 : 8;
      i += radix == 8 ? 1 : 2;
      if (i >= size) return value_of<T>(0);
    }
  }
  if (radix == 1 || radix >= 37) return {outcome::bad_radix, 0};

  const bool negative = sign == '-';
  using U = unsigned long long;
  const U max = static_cast<U>(std::numeric_limits<T>::max());
  const U limit = (is_signed && negative) ? max + 1 : max;
  const U cut_off = limit / radix;
  const U last_digit = limit % radix;
  U magnitude = 0;
  bool out_of_range = false;
  // At least the character at i is read, even past the size.
  do {
    const long c = code_of(text[i]);
    const long digit = c >= '0' && c <= '9'   ? c - '0'
                       : c >= 'A' && c <= 'Z' ? c - 'A' + 10
                       : c >= 'a' && c <= 'z' ? c - 'a' + 10
                                              : 99;
    if (digit >= static_cast<long>(radix)) break;
    if (magnitude >= cut_off && (magnitude != cut_off || static_cast<U>(digit) > last_digit)) {
      out_of_range = true;
      break;
    }
    magnitude = magnitude * radix + static_cast<U>(digit);
  } while (++i < size);

  if (!is_signed && negative && magnitude != 0) out_of_range = true;
  if (out_of_range) {
    if (throw_flag) return {negative ? outcome::too_small : outcome::too_large, 0};
    if (negative) return value_of<T>(is_signed ? std::numeric_limits<T>::min() : T(0));
    return value_of<T>(std::numeric_limits<T>::max());
  }
  return value_of<T>(negative ? static_cast<T>(0 - magnitude) : static_cast<T>(magnitude));
}

template <typename T, typename C>
outcome library_parse(const C* text, unsigned int size, unsigned int radix, bool throw_flag) {
  try {
    if constexpr (std::is_signed<T>::value) {
      return value_of(convert::strtointx<T, C>(text, size, radix, throw_flag));
    } else {
      return value_of(convert::strtouintx<T, C>(text, size, radix, throw_flag));
    }
  } catch (const ex::invalid_argument_value&) {
    return {outcome::bad_radix, 0};
  } catch (const ex::underflow_error&) {
    return {outcome::too_small, 0};
  } catch (const ex::overflow_error&) {
    return {outcome::too_large, 0};
  }
}

// Compares both parsers on `text` for one result type, each character width and both flags.
template <typename T>
void compare_one(const std::string& text, unsigned int radix, unsigned int size) {
  const std::basic_string<unsigned short> wide16(text.begin(), text.end());
  std::wstring wide32;
  for (char c : text)
    wide32.push_back(static_cast<wchar_t>(static_cast<unsigned char>(c)));
  for (bool flag : {false, true}) {
    SCOPED_TRACE("text '" + text + "' radix " + std::to_string(radix) + " size " +
                 std::to_string(size) + (flag ? " throwing" : ""));
    const auto same = [&](const auto* t) {
      EXPECT_EQ(plain_parse<T>(t, size, radix, flag), library_parse<T>(t, size, radix, flag));
    };
    same(text.c_str());
    same(wide16.c_str());
    same(wide32.c_str());
  }
}

// Every result type, at the full size and at size 0.
template <typename... T>
void compare_types(const std::string& text, unsigned int radix) {
  for (unsigned int size : {static_cast<unsigned int>(text.size()), 0u})
    (compare_one<T>(text, radix, size), ...);
}
const auto compare = compare_types<signed char, short, int, long, long long, unsigned char,
                                   unsigned short, unsigned int, unsigned long, unsigned long long>;

// `v` written in `radix`, digits above 9 upper case when `upper`.
std::string digits_of(unsigned long long v, unsigned int radix, bool upper) {
  const char* set =
      upper ? "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ" : "0123456789abcdefghijklmnopqrstuvwxyz";
  std::string out;
  do {
    out.insert(out.begin(), set[v % radix]);
    v /= radix;
  } while (v != 0);
  return out;
}

// The magnitudes around every type's limits: 2^k - 1, 2^k and 2^k + 1 for k = 7, 8, 15, 16, 31,
// 32, 63, and the 64-bit maximum.
std::vector<unsigned long long> edge_magnitudes() {
  const unsigned long long max = std::numeric_limits<unsigned long long>::max();
  std::vector<unsigned long long> edges = {0, 1, 9, 10, 99, 100, 99999999, 100000000, max, max - 1};
  for (unsigned int k : {7u, 8u, 15u, 16u, 31u, 32u, 63u}) {
    const unsigned long long p = 1ull << k;
    edges.insert(edges.end(), {p - 1, p, p + 1});
  }
  return edges;
}

}  // namespace

TEST(StrToXReference, LimitsInEveryRadixAndWidthAndBadRadixes) {
  for (unsigned int radix = 2; radix <= 36; ++radix)
    for (unsigned long long m : edge_magnitudes()) {
      const std::string d = digits_of(m, radix, radix % 2 == 0);
      for (const char* lead : {"", "-", "+", "000", " \t-"})
        compare(lead + d + (lead[0] == ' ' ? "z" : ""), radix);
    }
  // One past the 64-bit maximum, in decimal.
  compare("18446744073709551616", 10);
  compare("-18446744073709551616", 10);
  for (unsigned int radix : {1u, 37u, 100u})
    for (const char* text : {"12", "-12", "z", " ", ""})
      compare(text, radix);
}

TEST(StrToXReference, DetectedRadixPrefixesAndSigns) {
  const std::pair<std::string, unsigned int> prefixes[] = {
      {"", 10}, {"0x", 16}, {"0X", 16}, {"0b", 2}, {"0", 8}, {"\\", 8}, {"\\x", 16}};
  for (unsigned long long m : edge_magnitudes())
    for (const char* sign : {"", "-", "+", " ", "\n-"})
      for (const auto& [prefix, radix] : prefixes)
        compare(sign + prefix + digits_of(m, radix, prefix == "0X"), 0);
  for (const char* text : {"", " ", "-", "+", "0", "0x", "0b", "\\", "- 5", "08", "0b2", "1 2"})
    compare(text, 0);
}

TEST(StrToXReference, GeneratedTexts) {
  // Short texts over an alphabet of blanks, signs, digits, letters, prefix characters and bytes
  // outside ASCII, cut at random sizes, in random radixes (detection included).
  const std::string alphabet = " \t+-0123456789789abfxzABFXZ\\\x80\xFF";
  std::mt19937 random(20240518);
  for (int n = 0; n < 3000; ++n) {
    std::string text;
    const int length = static_cast<int>(random() % 24);
    for (int i = 0; i < length; ++i)
      text.push_back(alphabet[random() % alphabet.size()]);
    const unsigned int radices[] = {0, 2, 8, 10, 16, 36, static_cast<unsigned int>(random() % 37)};
    const unsigned int radix = radices[random() % 7];
    compare(text, radix);
    if (!text.empty())
      compare_one<int>(text, radix, static_cast<unsigned int>(random() % text.size()) + 1);
  }
  // Long runs of digits, where whole blocks are read at once, broken at random places.
  for (int n = 0; n < 3000; ++n) {
    std::string text = random() % 2 ? "-" : "";
    const int length = static_cast<int>(random() % 26) + 1;
    for (int i = 0; i < length; ++i)
      text.push_back(static_cast<char>('0' + random() % 10));
    if (random() % 4 == 0) text[random() % text.size()] = "/:a "[random() % 4];
    compare(text, random() % 2 ? 10 : 0);
  }
}

// What the plain steps cannot show: the texts of the three failures, characters beyond the byte
// range, a null text and the blank test itself.
TEST(StrToX, FailureTextsWideCharactersNullTextsAndBlanks) {
  using mota::types::radix_t;
  EXPECT_THROWS(convert::str_to_uint64("3w5e11264sgsg", 13, radix_t::base_36, true),
                ex::overflow_error, "Number value is to large", "strtouintx");
  EXPECT_THROWS(convert::str_to_int16(L"-08001", 6, radix_t::hexadecimal, true),
                ex::underflow_error, "Number value is to small", "strtointx");
  EXPECT_THROWS(convert::str_to_int("1", 0, static_cast<radix_t::base>(37), false),
                ex::invalid_argument_value,
                "invalid radix value, values of 0, 2-36 are the only valid values", "strtointx");
  const std::wstring high{L'7', static_cast<wchar_t>(0x80000031)};
  EXPECT_EQ(7, convert::str_to_int(high.c_str(), 0, radix_t::decimal, false));
  EXPECT_EQ(3, convert::str_to_int(units16{'3', 0xFF11}.c_str(), 0, radix_t::decimal, false));
  // A wide blank is not skipped.
  EXPECT_EQ(0, convert::str_to_int(units16{0x3000, '4'}.c_str(), 0, radix_t::decimal, false));
  EXPECT_EQ(0, convert::str_to_int(static_cast<const char*>(nullptr), 0, radix_t::decimal, true));
  EXPECT_EQ(0u,
            convert::str_to_uint64(static_cast<const wchar_t*>(nullptr), 0, radix_t::detect, true));
  for (int c = 0; c < 256; ++c) {
    const bool expected = std::isspace(c) != 0;
    EXPECT_EQ(expected, convert::is_space(static_cast<char>(c))) << c;
    EXPECT_EQ(expected, convert::is_space(static_cast<wchar_t>(c))) << c;
  }
  EXPECT_FALSE(convert::is_space(static_cast<unsigned short>(0x2000)));
  EXPECT_FALSE(convert::is_space(static_cast<wchar_t>(-1)));
}
