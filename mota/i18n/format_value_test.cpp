#include <mota/i18n/_private/value_formatters.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <string>
#include <tuple>

namespace priv = mota::i18n::_private;
using mota::strings::ustring8;
using mota::types::variant;

namespace {

// A format specification; "|" stands for the separator between its keys and values.
ustring8 spec(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\x01');
  return ustring8(text);
}

}  // namespace

TEST(Thousands, PrefixTable) {
  const std::tuple<const char*, int> cases[] = {
      {"", 0},      {"b", 0},  {"bas", 0}, {"base", 0},     {"bases", -1000},
      {"B", -1000}, {"k", 1},  {"M", 2},   {"Y", 8},        {"m", -1},
      {"mc", -2},   {"n", -3}, {"a", -6},  {"kilo", -1000}, {"mm", -1000}};
  for (const auto& [prefix, power] : cases)
    EXPECT_EQ(power, priv::thousands(prefix)) << prefix;
}

// The plain forms of each kind are rendered by the examples of docs/xmc-format.md ("Format
// keys"); the rows here are the edges and combinations it does not show.
TEST(FormatInt, RadixGroupingAndPadding) {
  const std::tuple<long long, ustring8, const char*> cases[] = {
      {255, spec("hex|false"), "255"},
      {5, spec("bin|yes"), "b101"},  // "true", "1" and "yes" switch a key on
      {255, "hex", "255"},           // a bare key without value changes nothing
      {255, spec("oct|true|hex|true"), "o377"},
      {-123456, spec("spaced_dec|true"), "-123 456"},
      {255, spec("hex|true|spaced_dec|true"), "0xff"},
      {1234, spec("fieldsize|7|spaced_dec|1"), "  1 234"},
      {255, spec("@default|hex"), "0xff"},
      {9, spec("@default|bin|oct|true"), "o11"},
      {12345, spec("@default|spaced_dec"), "12 345"},
      {LLONG_MIN, "", "-9223372036854775808"},
      {LLONG_MIN, spec("hex|true"), "-0x8000000000000000"},
  };
  for (const auto& [value, format, expected] : cases)
    EXPECT_EQ(expected, priv::format_int(value, format));
}

TEST(FormatDuration, LongAndShortUnitsAndHugeValues) {
  const ustring8 short_form = spec("short_form|true");
  EXPECT_EQ("1 min 1.2 sec", priv::format_duration(61.25, spec("prec|1")));
  // only "prec" steers the seconds
  EXPECT_EQ("1 min 1.25 sec", priv::format_duration(61.25, spec("precision|0")));
  EXPECT_EQ("-1h 0m -0.50s", priv::format_duration(-3600.5, short_form));
  // huge and non-finite values
  EXPECT_EQ("nan sec", priv::format_duration(std::nan(""), ""));
  ustring8 huge = priv::format_duration(1e35, short_form);
  EXPECT_EQ("11574074074", huge.substr(0, 11));
  EXPECT_EQ('s', huge.back());
  EXPECT_EQ("infd ", priv::format_duration(HUGE_VAL, short_form).substr(0, 5));
}

// Memory scales by 1024 and picks a unit; metric scales by 1000 with a short or long prefix.
TEST(FormatMemoryAndMetric, ScaleAndPickUnit) {
  const ustring8 short_form = spec("short_form|true");
  const std::tuple<bool, variant, ustring8, const char*, const char*> cases[] = {
      {false, variant(-1536), "", "-1.50", "KB"},
      {false, variant(1048575), "", "1.00", "MB"},  // rounds up into the next unit
      {false, variant(1536), spec("fieldsize|7"), "   1.50", "KB"},
      {false, variant(1), spec("base_unit|KB|target_unit|MB"), "0.00", "MB"},
      {false, variant(2), spec("base_unit|MB|target_unit|B"), "2097152", "B"},
      {false, variant(512), spec("target_unit|B|precision|3"), "512.000", "B"},
      {false, variant(ustring8("2048")), "", "2.00", "KB"},
      {false, variant(1536), spec("base_unit|kB"), "-0", "-0"},
      {true, variant(0.0000025), short_form, "2.50", "mc"},
      {true, variant(999.999), "", "1.00", "kilo"},
      {true, variant(1e-30), "", "0.00", "atto"},
      {true, variant(3e27), short_form, "3000.00", "Y"},
      {true, variant(1.5), spec("base_unit|k|target_unit|"), "1500.00", ""},
      {true, variant(2500000), spec("base_unit|base|target_unit|M"), "2.50", "mega"},
      {true, variant(5), spec("target_unit|n|precision|0"), "5000000000", "nano"},
      {true, variant(5), spec("target_unit|kilo"), "-0", "-0"},
      {true, variant(5), spec("base_unit|x"), "-0", "-0"},
  };
  for (const auto& [metric, value, format, number, want_unit] : cases) {
    ustring8 unit = "untouched";
    EXPECT_EQ(number, metric ? priv::format_metric(value, format, unit)
                             : priv::format_memory(value, format, unit))
        << number;
    EXPECT_EQ(want_unit, unit) << number;
  }
}

// Each kind reaches its formatter, with the argument's name dropped, in the examples of
// docs/xmc-format.md. The "double" kind is printf's "%.Pf", or "%N.Pe" cut to the field, as the
// message_render fuzz target asserts on every input of its corpus; here the default precision.
TEST(FormatDouble, DefaultPrecision) {
  EXPECT_EQ("3.14", priv::format_double(3.14159, ""));
}
