// Message rendering and value formatting under hostile format attributes: precisions and
// field sizes that are huge, blank-padded, negative or not numbers at all, unknown units, every
// item kind and every kind of argument value.
//
// Properties: nothing throws; no text grows with a huge precision or field size beyond the
// documented bounds (precision 0..340, field size 0..1024); the "double" kind prints exactly
// what printf prints for "%.Pf" (no field size) or "%N.Pf", falling back to "%N.Pe" in 64
// bytes and cutting to N (field size N), so that text is never wider than N; an "int" padded
// to N is at least N wide and holds the decimal digits when no radix is asked for; unit texts
// come from their tables; a message renders as its items' texts in order, with "?invalid?" for
// missing arguments, for the kinds without a renderer and for a formatted "-0".
//
// Input, read from the front (missing bytes read as 0): the item kind; the value kind and its
// bytes; whether the argument is in the list; the number of format pairs, each a key and a
// value, picked from tables or given as raw bytes.
#include <mota/generic/varg_list.hpp>
#include <mota/i18n/format_value.hpp>
#include <mota/i18n/message.hpp>
#include <mota/i18n/message_item.hpp>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz_support.hpp"

namespace {

using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::strings::ustring8;
using mota::types::variant;

class reader : public mota_fuzz::byte_reader {
 public:
  using byte_reader::byte_reader;
  // Raw key or value text; 0x01 would split it, so it stands for itself as 0x02.
  std::string text() {
    const std::size_t size = byte() % 48;
    std::string out = bytes(size);
    for (char& c : out) {
      if (c == message_item::separator) c = '\x02';
    }
    return out;
  }
};

const char* const kKeys[] = {"precision",   "prec",      "fieldsize",  "hex",
                             "oct",         "bin",       "spaced_dec", "@default",
                             "target_unit", "base_unit", "short_form", "precision;",
                             "fieldsize;",  "",          "n",          "colour"};
const std::string kValues[] = {"",     "5",          std::string(31, ' ') + "5",
                               "-3",   "1000000000", "99999999999999999999",
                               " +7",  "true",       "false",
                               "any",  "KB",         "B",
                               "k",    "mc",         "YB",
                               "base", "0x10",       "2e3",
                               "340",  "1024",       "-99999999999999999999",
                               "70",   "\t\n12"};
constexpr unsigned int kValueCount = sizeof(kValues) / sizeof(kValues[0]);
const double kDoubles[] = {
    0.0,     -0.0,    0.5,  1e300, -1e-300, NAN,   INFINITY,    -INFINITY, 1536.0,
    86400.0, 90061.5, -0.4, 1e18,  -1e19,   0.125, 123456789.0, 5e-324,    1.7976931348623157e308};

constexpr int kMaxPrecision = 340;
constexpr int kMaxFieldSize = 1024;

struct pair_t {
  std::string key;
  std::string value;
};

variant read_value(reader& in) {
  switch (in.byte() % 6) {
    case 0: {
      unsigned long long bits = 0;
      for (int i = 0; i < 8; ++i)
        bits = (bits << 8) | in.byte();
      return variant(static_cast<long long>(bits));
    }
    case 1: {
      unsigned long long bits = 0;
      for (int i = 0; i < 8; ++i)
        bits = (bits << 8) | in.byte();
      double value;
      std::memcpy(&value, &bits, sizeof(value));
      return variant(value);
    }
    case 2:
      return variant(in.text());
    case 3:
      return variant();
    case 4:
      return variant(static_cast<int>(static_cast<signed char>(in.byte())));
    default:
      return variant(kDoubles[in.byte() % (sizeof(kDoubles) / sizeof(kDoubles[0]))]);
  }
}

// The value of the first pair with `key`, read like strtol and clamped; `fallback` without.
int key_value(const std::vector<pair_t>& pairs, const char* key, int fallback, int high) {
  for (const pair_t& p : pairs) {
    if (p.key != key) continue;
    long value = std::strtol(p.value.c_str(), nullptr, 10);
    return value < 0 ? 0 : value > high ? high : static_cast<int>(value);
  }
  return fallback;
}

bool has_key(const std::vector<pair_t>& pairs, const char* key) {
  for (const pair_t& p : pairs) {
    if (p.key == key) return true;
  }
  return false;
}

// The "double" text as printf makes it.
std::string printf_double(double value, int precision, int fieldsize) {
  std::vector<char> buf(2048);
  if (fieldsize == 0) {
    std::snprintf(buf.data(), buf.size(), "%.*f", precision, value);
    return buf.data();
  }
  std::snprintf(buf.data(), buf.size(), "%*.*f", fieldsize, precision, value);
  std::string text = buf.data();
  if (text.size() <= static_cast<std::size_t>(fieldsize)) return text;
  char small[64];
  std::snprintf(small, sizeof(small), "%*.*e", fieldsize, precision, value);
  text = small;
  if (text.size() > static_cast<std::size_t>(fieldsize)) text.resize(fieldsize);
  return text;
}

bool is_one_of(const ustring8& text, std::initializer_list<const char*> table) {
  for (const char* entry : table) {
    if (text == entry) return true;
  }
  return false;
}

void check_formatted(message_item::type_t type, const variant& value,
                     const std::vector<pair_t>& pairs, const ustring8& text) {
  // Bounded output: days of 1e308 seconds take 304 digits, a double 309 + 1 + 340.
  if (text.size() > 2048) std::abort();
  const int precision = key_value(pairs, "precision", 2, kMaxPrecision);
  const int fieldsize = key_value(pairs, "fieldsize", 0, kMaxFieldSize);
  switch (type) {
    case message_item::double_: {
      if (text != printf_double(value.as_double(), precision, fieldsize)) std::abort();
      if (fieldsize > 0 && text.size() > static_cast<std::size_t>(fieldsize)) std::abort();
      break;
    }
    case message_item::int_: {
      if (text.size() < static_cast<std::size_t>(fieldsize)) std::abort();
      if (!has_key(pairs, "hex") && !has_key(pairs, "oct") && !has_key(pairs, "bin") &&
          !has_key(pairs, "spaced_dec") && !has_key(pairs, "@default")) {
        std::size_t start = text.find_first_not_of(' ');
        if (start == std::string::npos ||
            text.substr(start) != std::to_string(static_cast<long long>(value.as_int64()))) {
          std::abort();
        }
      }
      break;
    }
    case message_item::memory_unit:
      if (!is_one_of(text, {"-0", "B", "KB", "MB", "GB", "TB", "PB", "EB", "ZB", "YB"})) {
        std::abort();
      }
      break;
    case message_item::metric_unit:
      if (!is_one_of(text, {"-0",   "a",     "f",    "p",    "n",     "mc",    "m",    "",
                            "k",    "M",     "G",    "T",    "P",     "E",     "Z",    "Y",
                            "atto", "femto", "pico", "nano", "micro", "milli", "kilo", "mega",
                            "giga", "tera",  "peta", "exa",  "zetta", "yotta"})) {
        std::abort();
      }
      break;
    case message_item::duration: {
      const std::string tail = text.size() >= 4 ? text.substr(text.size() - 4) : std::string();
      if (text.empty() || (tail != " sec" && text.back() != 's')) std::abort();
      break;
    }
    case message_item::memory:
    case message_item::metric:
      // Padded to N, or cut to N (to 63 when the exponent form is needed in 64 bytes).
      if (fieldsize > 0 && text != "-0" &&
          (text.size() > static_cast<std::size_t>(fieldsize) ||
           text.size() < static_cast<std::size_t>(fieldsize < 63 ? fieldsize : 63))) {
        std::abort();
      }
      break;
    default:
      if (!text.empty()) std::abort();  // kinds format_value does not format
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  reader in(data, size);
  const auto type = static_cast<message_item::type_t>(in.byte() % 14);
  const variant value = read_value(in);
  const bool present = in.byte() % 4 != 0;
  std::vector<pair_t> pairs(in.byte() % 8);
  for (pair_t& p : pairs) {
    const unsigned int key = in.byte();
    p.key = key < 16 ? std::string(kKeys[key]) : in.text();
    const unsigned int choice = in.byte();
    p.value = choice < 2 * kValueCount ? kValues[choice % kValueCount] : in.text();
  }
  ustring8 item_text = "n";
  for (const pair_t& p : pairs) {
    item_text.push_back(message_item::separator);
    item_text.append(p.key);
    item_text.push_back(message_item::separator);
    item_text.append(p.value);
  }

  try {
    const ustring8 formatted = mota::i18n::format_value(type, value, item_text);
    check_formatted(type, value, pairs, formatted);

    mota::generic::varg_list args;
    if (present) args.push_back("n", value);
    const std::vector<message_item> items{message_item("Value: "), message_item(item_text, type),
                                          message_item(" end")};
    const message_t message("m", items);
    const std::string rendered = message.as_string(args);
    std::string expected;
    if (type == message_item::text) {
      expected = item_text;
    } else if (!present || type == message_item::number || type == message_item::time ||
               type == message_item::date || type > message_item::duration) {
      expected = "?invalid?";
    } else if (type == message_item::string) {
      expected = value.as_string();
    } else {
      expected = formatted == "-0" ? std::string("?invalid?") : std::string(formatted);
    }
    if (rendered != "Value: " + expected + " end") std::abort();
    if (items[1].as_string(args) != expected) std::abort();
  } catch (...) {
    std::abort();  // formatting and rendering report nothing by exceptions
  }
  return 0;
}
