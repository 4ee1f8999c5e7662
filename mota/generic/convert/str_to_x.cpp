#include <mota/generic/convert/str_to_x.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/generic/convert/_private/digit_blocks.hpp>
#include <mota/strings/utf.hpp>

#include <cctype>
#include <limits>
#include <type_traits>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

// The character as a plain int; every character type used here fits.
inline std::int32_t code(char c) {
  return static_cast<signed char>(c);
}
inline std::int32_t code(unsigned short c) {
  return c;
}
inline std::int32_t code(wchar_t c) {
  return static_cast<std::int32_t>(c);
}

inline bool blank(std::int32_t c) {
  // Printable ASCII other than the space is never blank, whatever the locale: decided without
  // a call. isspace is only defined for byte values (and EOF); anything wider is not blank.
  if (c > 0x20 && c < 0x7F) return false;
  return c >= 0 && c <= 0xFF && std::isspace(static_cast<int>(c)) != 0;
}

// What the text holds in front of its digits.
struct lead_t {
  unsigned int start;  // index of the first digit
  unsigned int radix;  // the radix to use, detected when the caller gave 0
  bool negative;       // the sign character was "-"
};

// Skips blanks, the sign and a radix prefix. Returns false when the text ends on the way, in
// which case the value is 0. `size` is the number of characters that may be read; 0 still
// allows the first one to be read.
template <typename C>
inline bool read_lead(const C* text, unsigned int size, unsigned int radix, lead_t& lead) {
  // The common cases first: a decimal digit right at the start, or after a "-", nothing else
  // to skip.
  const bool minus = size >= 2 && code(text[0]) == '-';
  const std::uint32_t first = static_cast<std::uint32_t>(code(text[minus ? 1 : 0])) - '0';
  if (first < 10 && (radix == 10 || (radix == 0 && first != 0))) {
    lead.start = minus ? 1 : 0;
    lead.radix = 10;
    lead.negative = minus;
    return true;
  }
  const unsigned int look = size == 0 ? 1 : size;
  unsigned int i = 0;
  while (i < look && blank(code(text[i])))
    ++i;
  if (i == look) return false;

  const std::int32_t sign = code(text[i]);
  lead.negative = sign == '-';
  if (sign == '+' || sign == '-') {
    if (++i >= size) return false;
  }

  if (radix == 0) {
    const std::int32_t c = code(text[i]);
    if (c != '0' && c != '\\') {
      radix = 10;
    } else {
      if (i + 1 >= size) return false;
      const std::int32_t next = code(text[i + 1]);
      if (next == 'x' || next == 'X' || next == 'b' || next == 'B') {
        radix = (next == 'x' || next == 'X') ? 16 : 2;
        i += 2;
        if (i >= size) return false;
      } else {
        radix = 8;
        i += 1;
      }
    }
  }
  lead.start = i;
  lead.radix = radix;
  return true;
}

// The value of `c` as a digit of `radix`, or a value of at least `radix` when it ends the
// number. Up to radix 10 only "0" onwards count; from 10 on, "0" to "9" and then the upper- and
// lower-case letters from 10 upwards. Computed unsigned so that any character value is safe.
struct small_radix {
  static std::uint32_t digit(std::int32_t c) { return static_cast<std::uint32_t>(c) - '0'; }
};
struct large_radix {
  static std::uint32_t digit(std::int32_t c) {
    const std::uint32_t u = static_cast<std::uint32_t>(c);
    if (u - '0' < 10) return u - '0';
    if (u - 'A' < 26) return u - 'A' + 10;
    if (u - 'a' < 26) return u - 'a' + 10;
    return 0xFFFFFFFFu;
  }
};

// The arithmetic type the magnitude is accumulated in: at least an unsigned int.
template <typename T>
using magnitude_t =
    std::conditional_t<(sizeof(T) < sizeof(unsigned int)), unsigned int, std::make_unsigned_t<T>>;

// How many digits of `radix` can never exceed `max`: the largest n with radix^n <= max.
constexpr unsigned int safe_digits(unsigned long long max, unsigned int radix) {
  unsigned int n = 0;
  unsigned long long power = 1;
  while (power <= max / radix) {
    power *= radix;
    ++n;
  }
  return n;
}

// Accumulates the digits from `i` on. Returns false when the value would pass `bound` (the
// magnitude of the limit in the sign's direction), i.e. it is out of range. Reads at least the
// character at `i` and stops at `size`. `Radix` fixes the common radixes at compile time (0 takes
// `radix` as given), which turns the multiplication into shifts and adds; `Safe` leading digits
// cannot overflow and skip the range check.
template <typename Classify, unsigned int Radix, unsigned int Safe, typename M, typename C>
inline bool accumulate_with(const C* text, unsigned int i, unsigned int size, unsigned int radix,
                            M bound, M& magnitude) {
  const unsigned int r = Radix != 0 ? Radix : radix;
  const unsigned int end = size > i ? size : i + 1;
  const unsigned int fast_end = end - i > Safe ? i + Safe : end;
  M value = 0;
  if constexpr (Radix == 10 && std::is_same<C, char>::value) {
    // Within the safe digits whole blocks of decimal digits go at once.
    std::uint32_t block = 0;
    while (fast_end - i >= 8 && _private::eight_digits(text + i, block)) {
      value = static_cast<M>(value * 100000000u + block);
      i += 8;
    }
    if (fast_end - i >= 4 && _private::four_digits(text + i, block)) {
      value = static_cast<M>(value * 10000u + block);
      i += 4;
    }
  }
  for (; i < fast_end; ++i) {
    const std::uint32_t digit = Classify::digit(code(text[i]));
    if (digit >= r) {
      magnitude = value;
      return true;
    }
    value = static_cast<M>(value * r + digit);
  }
  if (i >= end) {
    magnitude = value;
    return true;
  }
  // Only numbers longer than the safe digits need the limits.
  const M cut_off = static_cast<M>(bound / r);
  const M last_digit = static_cast<M>(bound % r);
  for (; i < end; ++i) {
    const std::uint32_t digit = Classify::digit(code(text[i]));
    if (digit >= r) break;
    if (value >= cut_off && (value != cut_off || digit > last_digit)) return false;
    value = static_cast<M>(value * r + digit);
  }
  magnitude = value;
  return true;
}

template <typename T, typename M, typename C>
inline bool accumulate(const C* text, unsigned int i, unsigned int size, unsigned int radix,
                       M bound, M& magnitude) {
  constexpr auto max = static_cast<unsigned long long>(std::numeric_limits<T>::max());
  switch (radix) {
    case 10:
      return accumulate_with<small_radix, 10, safe_digits(max, 10)>(text, i, size, radix, bound,
                                                                    magnitude);
    case 16:
      return accumulate_with<large_radix, 16, safe_digits(max, 16)>(text, i, size, radix, bound,
                                                                    magnitude);
    default:
      if (radix < 10) {
        return accumulate_with<small_radix, 0, 0>(text, i, size, radix, bound, magnitude);
      }
      return accumulate_with<large_radix, 0, 0>(text, i, size, radix, bound, magnitude);
  }
}

// The throw sites, kept out of line so the parsers stay lean.
[[noreturn]] __attribute__((noinline, cold)) void throw_bad_radix(const char* function) {
  MOTA_THROW_AS(exceptions::invalid_argument_value,
                "invalid radix value, values of 0, 2-36 are the only valid values", function);
}
[[noreturn]] __attribute__((noinline, cold)) void throw_too_small(const char* function) {
  MOTA_THROW_AS(exceptions::underflow_error, "Number value is to small", function);
}
[[noreturn]] __attribute__((noinline, cold)) void throw_too_large(const char* function) {
  MOTA_THROW_AS(exceptions::overflow_error, "Number value is to large", function);
}

}  // namespace

template <typename T, typename C>
T strtointx(const C* text, unsigned int size, unsigned int radix, bool throw_on_range_error) {
  static_assert(std::is_signed<T>::value, "strtointx parses signed types");
  using M = magnitude_t<T>;
  if (text == nullptr) return 0;
  if (size == 0) size = strings::string_length(text);

  lead_t lead;
  if (!read_lead(text, size, radix, lead)) return 0;
  if (lead.radix == 1 || lead.radix > 36) {
    throw_bad_radix("strtointx");
  }

  const M max = static_cast<M>(std::numeric_limits<T>::max());
  // The magnitude of T's minimum is one more than its maximum.
  const M bound = lead.negative ? static_cast<M>(max + 1) : max;

  M magnitude;
  if (!accumulate<T>(text, lead.start, size, lead.radix, bound, magnitude)) {
    if (lead.negative) {
      if (throw_on_range_error) {
        throw_too_small("strtointx");
      }
      return std::numeric_limits<T>::min();
    }
    if (throw_on_range_error) {
      throw_too_large("strtointx");
    }
    return std::numeric_limits<T>::max();
  }
  if (!lead.negative) return static_cast<T>(magnitude);
  // Negated without passing through a signed overflow for T's minimum.
  return magnitude == 0 ? T(0) : static_cast<T>(-static_cast<T>(magnitude - 1) - 1);
}

template <typename T, typename C>
T strtouintx(const C* text, unsigned int size, unsigned int radix, bool throw_on_range_error) {
  static_assert(std::is_unsigned<T>::value, "strtouintx parses unsigned types");
  using M = magnitude_t<T>;
  // A size of 0 is deliberately not measured here: only the first character is read.
  if (text == nullptr) return 0;

  lead_t lead;
  if (!read_lead(text, size, radix, lead)) return 0;
  if (lead.radix == 1 || lead.radix > 36) {
    throw_bad_radix("strtouintx");
  }

  M magnitude;
  const bool in_range = accumulate<T>(text, lead.start, size, lead.radix,
                                      static_cast<M>(std::numeric_limits<T>::max()), magnitude);
  if (!in_range || (lead.negative && magnitude != 0)) {
    if (lead.negative) {
      if (throw_on_range_error) {
        throw_too_small("strtouintx");
      }
      return 0;
    }
    if (throw_on_range_error) {
      throw_too_large("strtouintx");
    }
    return std::numeric_limits<T>::max();
  }
  return static_cast<T>(magnitude);
}

#define MOTA_INSTANTIATE_PARSERS(C)                                                                \
  template MOTA_API int strtointx<int, C>(const C*, unsigned int, unsigned int, bool);             \
  template MOTA_API long strtointx<long, C>(const C*, unsigned int, unsigned int, bool);           \
  template MOTA_API short strtointx<short, C>(const C*, unsigned int, unsigned int, bool);         \
  template MOTA_API signed char strtointx<signed char, C>(const C*, unsigned int, unsigned int,    \
                                                          bool);                                   \
  template MOTA_API long long strtointx<long long, C>(const C*, unsigned int, unsigned int, bool); \
  template MOTA_API unsigned int strtouintx<unsigned int, C>(const C*, unsigned int, unsigned int, \
                                                             bool);                                \
  template MOTA_API unsigned long strtouintx<unsigned long, C>(const C*, unsigned int,             \
                                                               unsigned int, bool);                \
  template MOTA_API unsigned char strtouintx<unsigned char, C>(const C*, unsigned int,             \
                                                               unsigned int, bool);                \
  template MOTA_API unsigned short strtouintx<unsigned short, C>(const C*, unsigned int,           \
                                                                 unsigned int, bool);              \
  template MOTA_API unsigned long long strtouintx<unsigned long long, C>(const C*, unsigned int,   \
                                                                         unsigned int, bool);

MOTA_INSTANTIATE_PARSERS(char)
MOTA_INSTANTIATE_PARSERS(unsigned short)
MOTA_INSTANTIATE_PARSERS(wchar_t)

#undef MOTA_INSTANTIATE_PARSERS

// Each public parser is one instantiation of the templates, for each character type.
#define MOTA_FORWARD_ONE(name, T, parser, C)                           \
  T name(const C* text, unsigned int size, types::radix_t::base radix, \
         bool throw_on_range_error) {                                  \
    return parser<T, C>(text, size, radix, throw_on_range_error);      \
  }
#define MOTA_FORWARD_PARSER(name, T, parser)        \
  MOTA_FORWARD_ONE(name, T, parser, char)           \
  MOTA_FORWARD_ONE(name, T, parser, unsigned short) \
  MOTA_FORWARD_ONE(name, T, parser, wchar_t)

MOTA_FORWARD_PARSER(str_to_long, std::int32_t, strtointx)
MOTA_FORWARD_PARSER(str_to_int, int, strtointx)
MOTA_FORWARD_PARSER(str_to_signed, int, strtointx)
MOTA_FORWARD_PARSER(str_to_int32, std::int32_t, strtointx)
MOTA_FORWARD_PARSER(str_to_short, short, strtointx)
MOTA_FORWARD_PARSER(str_to_int16, short, strtointx)
MOTA_FORWARD_PARSER(str_to_int8, signed char, strtointx)
MOTA_FORWARD_PARSER(str_to_int64, long long, strtointx)
MOTA_FORWARD_PARSER(str_to_unsigned, unsigned int, strtouintx)
MOTA_FORWARD_PARSER(str_to_uint32, std::uint32_t, strtouintx)
MOTA_FORWARD_PARSER(str_to_uint8, unsigned char, strtouintx)
MOTA_FORWARD_PARSER(str_to_uint16, unsigned short, strtouintx)
MOTA_FORWARD_PARSER(str_to_uint64, unsigned long long, strtouintx)

#undef MOTA_FORWARD_PARSER
#undef MOTA_FORWARD_ONE

bool is_space(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0;
}
bool is_space(unsigned short c) {
  return blank(c);
}
bool is_space(wchar_t c) {
  return blank(static_cast<std::int32_t>(c));
}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18
