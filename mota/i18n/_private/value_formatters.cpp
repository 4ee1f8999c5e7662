#include <mota/i18n/_private/value_formatters.hpp>

#include <mota/generic/convert/x_to_str.hpp>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

constexpr char kSep = '\x01';
constexpr int kMaxPrecision = 340;
constexpr int kMaxFieldSize = 1024;

// Calls fn(key, value) for each key/value pair of a specification, in order. The pairs are
// the pieces between 0x01 bytes, read two at a time; a key without a value piece has an empty
// value.
template <class Fn>
void for_each_pair(std::string_view spec, Fn&& fn) {
  std::size_t pos = 0;
  const std::size_t size = spec.size();
  while (pos < size) {
    std::size_t key_end = spec.find(kSep, pos);
    if (key_end == std::string_view::npos) key_end = size;
    std::size_t value_begin = key_end < size ? key_end + 1 : size;
    std::size_t value_end = spec.find(kSep, value_begin);
    if (value_end == std::string_view::npos) value_end = size;
    fn(spec.substr(pos, key_end - pos), spec.substr(value_begin, value_end - value_begin));
    pos = value_end < size ? value_end + 1 : size;
  }
}

// The value of the first pair whose key is `key`; false when there is none.
bool find_key(std::string_view spec, std::string_view key, std::string_view& value) {
  bool found = false;
  for_each_pair(spec, [&](std::string_view k, std::string_view v) {
    if (!found && k == key) {
      value = v;
      found = true;
    }
  });
  return found;
}

// A switch key counts when its value says so: not empty, "false" or "0". An empty value is
// indistinguishable from a missing one (a bare argument name), which must change nothing.
bool is_set(std::string_view value) {
  return !value.empty() && value != "false" && value != "0";
}

// strtol(text, nullptr, 10) of a piece that is not zero-terminated, read in place at any
// length: leading white space (C locale), an optional sign, then decimal digits; a value out
// of range gives LONG_MAX or LONG_MIN, and anything that is no number reads as 0.
long read_long(std::string_view text) {
  std::size_t pos = 0;
  const std::size_t size = text.size();
  while (pos < size && (text[pos] == ' ' || (text[pos] >= '\t' && text[pos] <= '\r')))
    ++pos;
  bool negative = false;
  if (pos < size && (text[pos] == '+' || text[pos] == '-')) negative = text[pos++] == '-';
  // Accumulated as a negative number, whose range includes LONG_MIN.
  long value = 0;
  bool overflow = false;
  for (; pos < size && text[pos] >= '0' && text[pos] <= '9'; ++pos) {
    int digit = text[pos] - '0';
    if (value < (LONG_MIN + digit) / 10) {
      overflow = true;
    } else {
      value = value * 10 - digit;
    }
  }
  if (overflow) return negative ? LONG_MIN : LONG_MAX;
  if (negative) return value;
  return value == LONG_MIN ? LONG_MAX : -value;
}

int clamp_int(long value, int high) {
  if (value < 0) return 0;
  if (value > high) return high;
  return static_cast<int>(value);
}

int read_int_key(std::string_view spec, std::string_view key, int fallback, int high) {
  std::string_view value;
  if (!find_key(spec, key, value)) return fallback;
  return clamp_int(read_long(value), high);
}

// Appends printf output to `out`.
template <class... Args>
void append_printf(std::string& out, const char* fmt, Args... args) {
  char buf[512];
  int n = std::snprintf(buf, sizeof(buf), fmt, args...);
  if (n < 0) return;
  if (static_cast<std::size_t>(n) < sizeof(buf)) {
    out.append(buf, static_cast<std::size_t>(n));
    return;
  }
  std::size_t old = out.size();
  out.resize(old + static_cast<std::size_t>(n) + 1);
  std::snprintf(&out[old], static_cast<std::size_t>(n) + 1, fmt, args...);
  out.resize(old + static_cast<std::size_t>(n));
}

// Writes `value` like printf's "%.Pf" (fixed) or "%.Pe" (scientific) into `buf`; returns the
// length. std::to_chars gives the same, correctly rounded, text without printf's overhead.
std::size_t write_double(char* buf, std::size_t size, double value, int precision, bool fixed) {
  auto result =
      std::to_chars(buf, buf + size, value,
                    fixed ? std::chars_format::fixed : std::chars_format::scientific, precision);
  if (result.ec == std::errc()) return static_cast<std::size_t>(result.ptr - buf);
  int n = std::snprintf(buf, size, fixed ? "%.*f" : "%.*e", precision, value);
  return n < 0 ? 0 : std::min(static_cast<std::size_t>(n), size - 1);
}

// The fixed-point rules of format_double with the precision and field size already read.
void append_double(std::string& out, double value, int precision, int fieldsize) {
  // 309 integer digits, the point, 340 fraction digits and a sign fit.
  char buf[700];
  std::size_t n = write_double(buf, sizeof(buf), value, precision, true);
  // "%-32.Pf" with its trailing blanks cut is the plain "%.Pf" text.
  if (fieldsize <= 0 || n <= static_cast<std::size_t>(fieldsize)) {
    if (n < static_cast<std::size_t>(fieldsize)) out.append(fieldsize - n, ' ');
    out.append(buf, n);
    return;
  }
  // Too wide: "%N.Pe" written into 64 bytes (so at most 63 characters), then cut to N.
  n = write_double(buf, sizeof(buf), value, precision, false);
  std::string text;
  if (n < static_cast<std::size_t>(fieldsize)) text.assign(fieldsize - n, ' ');
  text.append(buf, n);
  if (text.size() > 63) text.resize(63);
  if (text.size() > static_cast<std::size_t>(fieldsize)) text.resize(fieldsize);
  out.append(text);
}

strings::ustring8 print_double(double value, int precision, int fieldsize) {
  strings::ustring8 out;
  append_double(out, value, precision, fieldsize);
  return out;
}

// A whole number held in a double, in decimal; -0 is written as 0.
void append_whole(std::string& out, double value) {
  value += 0.0;
  if (std::fabs(value) < 1e18) {
    char buf[72];
    generic::convert::lltoa(static_cast<long long>(value), buf, 10);
    out.append(buf);
  } else {
    append_printf(out, "%.0f", value);
  }
}

// Rounds the magnitude of `value` to `precision` fraction digits, as the printed text will.
double rounded_magnitude(double value, int precision) {
  double scale = std::pow(10.0, precision);
  double m = std::fabs(value) * scale;
  if (!std::isfinite(m)) return std::fabs(value);
  return std::round(m) / scale;
}

const char* const kMetricShort[] = {"a", "f", "p", "n", "mc", "m", "", "k",
                                    "M", "G", "T", "P", "E",  "Z", "Y"};
const char* const kMetricLong[] = {"atto",  "femto", "pico", "nano",  "micro",
                                   "milli", "",      "kilo", "mega",  "giga",
                                   "tera",  "peta",  "exa",  "zetta", "yotta"};
constexpr int kMetricLow = -6;
constexpr int kMetricHigh = 8;
const char kMemLetters[] = " KMGTPEZY";

// Scaled value of `value` given in units of step^base expressed in units of step^target.
double rescale(double value, int base, int target, double step) {
  return value * std::pow(step, base - target);
}

// Picks the target power for "any": the largest power in [low, high] in which the magnitude
// rounded to `precision(power)` is at least 1; zero and non-finite values stay in the base
// unit, values below 1 of the lowest unit go to the lowest.
template <class PrecisionOf>
int pick_unit(double value, int base, int low, int high, double step, PrecisionOf precision_of) {
  if (value == 0.0 || !std::isfinite(value)) return base;
  for (int power = high; power > low; --power) {
    if (rounded_magnitude(rescale(value, base, power, step), precision_of(power)) >= 1.0) {
      return power;
    }
  }
  return low;
}

}  // namespace

strings::ustring8 format_int_spec(long long value, std::string_view spec) {
  unsigned int radix = 10;
  const char* prefix = "";
  bool spaced = false;

  // The first radix key of the format wins; "@default" applies when there is none.
  bool radix_set = false;
  std::string_view presentation;
  bool has_presentation = false;
  for_each_pair(spec, [&](std::string_view key, std::string_view value) {
    if (key == "@default" && !has_presentation) {
      presentation = value;
      has_presentation = true;
      return;
    }
    if (!is_set(value)) return;
    if (key == "spaced_dec") spaced = true;
    if (radix_set) return;
    if (key == "hex" || key == "oct" || key == "bin") radix_set = true;
    if (key == "hex") {
      radix = 16;
      prefix = "0x";
    } else if (key == "oct") {
      radix = 8;
      prefix = "o";
    } else if (key == "bin") {
      radix = 2;
      prefix = "b";
    }
  });
  if (!radix_set && !spaced && has_presentation) {
    if (presentation == "hex") {
      radix = 16;
      prefix = "0x";
    } else if (presentation == "oct") {
      radix = 8;
      prefix = "o";
    } else if (presentation == "bin") {
      radix = 2;
      prefix = "b";
    } else if (presentation == "spaced_dec") {
      spaced = true;
    }
  }
  if (radix != 10) spaced = false;

  unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                           : static_cast<unsigned long long>(value);
  char digits[72];
  generic::convert::ulltoa(magnitude, digits, radix);

  strings::ustring8 out;
  if (value < 0) out.push_back('-');
  out.append(prefix);
  if (spaced) {
    std::size_t n = std::strlen(digits);
    for (std::size_t i = 0; i < n; ++i) {
      if (i != 0 && (n - i) % 3 == 0) out.push_back(' ');
      out.push_back(digits[i]);
    }
  } else {
    out.append(digits);
  }
  int fieldsize = read_int_key(spec, "fieldsize", 0, kMaxFieldSize);
  if (out.size() < static_cast<std::size_t>(fieldsize)) {
    out.insert(0, static_cast<std::size_t>(fieldsize) - out.size(), ' ');
  }
  return out;
}

strings::ustring8 format_double_spec(double value, std::string_view spec) {
  int precision = read_int_key(spec, "precision", 2, kMaxPrecision);
  int fieldsize = read_int_key(spec, "fieldsize", 0, kMaxFieldSize);
  return print_double(value, precision, fieldsize);
}

strings::ustring8 format_duration_spec(double seconds, std::string_view spec) {
  std::string_view short_value;
  bool short_form = find_key(spec, "short_form", short_value) && short_value == "true";
  // The seconds are written with the precision of "prec".
  int precision = read_int_key(spec, "prec", 2, kMaxPrecision);

  double days = std::trunc(seconds / 86400.0);
  double rest = std::fmod(seconds, 86400.0);
  double hours = std::trunc(rest / 3600.0);
  double after_hours = std::fmod(rest, 3600.0);
  double minutes = std::trunc(after_hours / 60.0);
  double secs = std::fmod(after_hours, 60.0);

  int largest = 0;  // 3 days, 2 hours, 1 minutes, 0 none
  if (std::fabs(seconds) >= 86400.0) {
    largest = 3;
  } else if (std::fabs(rest) >= 3600.0) {
    largest = 2;
  } else if (std::fabs(after_hours) >= 60.0) {
    largest = 1;
  }

  strings::ustring8 out;
  if (largest >= 3) {
    append_whole(out, days);
    out.append(short_form ? "d " : " dy ");
  }
  if (largest >= 2) {
    append_whole(out, hours);
    out.append(short_form ? "h " : " hr ");
  }
  if (largest >= 1) {
    append_whole(out, minutes);
    out.append(short_form ? "m " : " min ");
  }
  out.append(print_double(secs, precision, 0));
  out.append(short_form ? "s" : " sec");
  return out;
}

strings::ustring8 format_memory_spec(const types::variant& value, std::string_view spec,
                                     strings::ustring8& unit) {
  std::string_view text;
  int base = find_key(spec, "base_unit", text) ? mem_prefix_index(strings::ustring8(text)) : 0;
  bool any = true;
  int target = 0;
  if (find_key(spec, "target_unit", text) && text != "any") {
    any = false;
    target = mem_prefix_index(strings::ustring8(text));
  }
  if (base < 0 || target < 0) {
    unit = "-0";
    return strings::ustring8("-0");
  }
  std::string_view precision_text;
  bool has_precision = find_key(spec, "precision", precision_text);
  int given_precision = has_precision ? clamp_int(read_long(precision_text), kMaxPrecision) : 0;
  auto precision_of = [&](int power) {
    return has_precision ? given_precision : (power == 0 ? 0 : 2);
  };
  double amount = value.as_double();
  if (any) target = pick_unit(amount, base, 0, 8, 1024.0, precision_of);
  double scaled = rescale(amount, base, target, 1024.0);
  if (target == 0) {
    unit = "B";
  } else {
    unit.assign(1, kMemLetters[target]);
    unit.push_back('B');
  }
  return print_double(scaled, precision_of(target),
                      read_int_key(spec, "fieldsize", 0, kMaxFieldSize));
}

strings::ustring8 format_metric_spec(const types::variant& value, std::string_view spec,
                                     strings::ustring8& unit) {
  std::string_view text;
  int base = find_key(spec, "base_unit", text) ? thousands(strings::ustring8(text)) : 0;
  bool any = true;
  int target = 0;
  if (find_key(spec, "target_unit", text) && text != "any") {
    any = false;
    target = thousands(strings::ustring8(text));
  }
  if (base < kMetricLow || base > kMetricHigh || target < kMetricLow || target > kMetricHigh) {
    unit = "-0";
    return strings::ustring8("-0");
  }
  bool short_form = find_key(spec, "short_form", text) && text == "true";
  int precision = read_int_key(spec, "precision", 2, kMaxPrecision);
  double amount = value.as_double();
  if (any) {
    target = pick_unit(amount, base, kMetricLow, kMetricHigh, 1000.0,
                       [precision](int) { return precision; });
  }
  double scaled = rescale(amount, base, target, 1000.0);
  unit = (short_form ? kMetricShort : kMetricLong)[target - kMetricLow];
  return print_double(scaled, precision, read_int_key(spec, "fieldsize", 0, kMaxFieldSize));
}

strings::ustring8 format_int(long long value, const strings::ustring8& format) {
  return format_int_spec(value, format);
}

strings::ustring8 format_double(double value, const strings::ustring8& format) {
  return format_double_spec(value, format);
}

strings::ustring8 format_duration(double seconds, const strings::ustring8& format) {
  return format_duration_spec(seconds, format);
}

strings::ustring8 format_memory(const types::variant& value, const strings::ustring8& format,
                                strings::ustring8& unit) {
  return format_memory_spec(value, format, unit);
}

strings::ustring8 format_metric(const types::variant& value, const strings::ustring8& format,
                                strings::ustring8& unit) {
  return format_metric_spec(value, format, unit);
}

int thousands(const strings::ustring8& prefix) {
  if (prefix.empty() || (prefix.size() <= 4 && std::string_view("base").substr(0, prefix.size()) ==
                                                   std::string_view(prefix))) {
    return 0;
  }
  if (prefix.size() == 2 && prefix[0] == 'm' && prefix[1] == 'c') return -2;
  if (prefix.size() != 1) return -1000;
  switch (prefix[0]) {
    case 'k':
      return 1;
    case 'M':
      return 2;
    case 'G':
      return 3;
    case 'T':
      return 4;
    case 'P':
      return 5;
    case 'E':
      return 6;
    case 'Z':
      return 7;
    case 'Y':
      return 8;
    case 'm':
      return -1;
    case 'n':
      return -3;
    case 'p':
      return -4;
    case 'f':
      return -5;
    case 'a':
      return -6;
    default:
      return -1000;
  }
}

int mem_prefix_index(const strings::ustring8& unit) {
  if (unit.size() == 1 && unit[0] == 'B') return 0;
  if (unit.size() < 2 || unit[1] != 'B') return -1;
  const char* at = std::strchr(kMemLetters + 1, unit[0]);
  if (unit[0] == '\0' || at == nullptr) return -1;
  return static_cast<int>(at - kMemLetters);
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
