#include <mota/generic/convert/x_to_str.hpp>

#include <mota/generic/convert/_private/decimal_length.hpp>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

constexpr char digit_chars[] = "0123456789abcdefghijklmnopqrstuvwxyz";

// "00" to "99", two characters per pair.
constexpr char decimal_pairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Writes the digits of `value` followed by a terminating zero; returns the terminator's place.
// Digits are produced least significant first. Decimal text and powers of two, whose length is
// known beforehand, are written from the far end (decimal two digits at a time); other radixes
// are written forwards and reversed in place. All give the same text.
template <typename U, typename C>
C* write_digits(U value, C* out, unsigned int radix) {
  if (radix == 10) {
    const unsigned int length = _private::decimal_length(value);
    C* p = out + length;
    *p = 0;
    while (value >= 100) {
      const unsigned int pair = static_cast<unsigned int>(value % 100) * 2;
      value = static_cast<U>(value / 100);
      *--p = static_cast<C>(decimal_pairs[pair + 1]);
      *--p = static_cast<C>(decimal_pairs[pair]);
    }
    if (value >= 10) {
      const unsigned int pair = static_cast<unsigned int>(value) * 2;
      *--p = static_cast<C>(decimal_pairs[pair + 1]);
      *--p = static_cast<C>(decimal_pairs[pair]);
    } else {
      *--p = static_cast<C>('0' + static_cast<unsigned int>(value));
    }
    return out + length;
  }
  if ((radix & (radix - 1)) == 0 && radix >= 2) {
    // Powers of two: the length follows from the bit length, digits are masks and shifts.
    const unsigned int shift = static_cast<unsigned int>(__builtin_ctz(radix));
    const auto wide = static_cast<unsigned long long>(value);
    const unsigned int bits =
        wide == 0 ? 0 : 64u - static_cast<unsigned int>(__builtin_clzll(wide));
    const unsigned int length = bits == 0 ? 1 : (bits + shift - 1) / shift;
    C* p = out + length;
    *p = 0;
    do {
      *--p = static_cast<C>(digit_chars[value & (radix - 1)]);
      value = static_cast<U>(value >> shift);
    } while (value != 0);
    return out + length;
  }
  C* p = out;
  do {
    *p++ = static_cast<C>(digit_chars[value % radix]);
    value = static_cast<U>(value / radix);
  } while (value != 0);
  *p = 0;
  for (C *lo = out, *hi = p - 1; lo < hi; ++lo, --hi) {
    const C t = *lo;
    *lo = *hi;
    *hi = t;
  }
  return p;
}

// Radixes outside 2..36 have no digits: 0 would divide by zero, 1 would never finish and
// anything above 36 would run past the digit table. Such a call writes the empty text.
inline bool writable_radix(unsigned int radix) {
  return radix - 2u <= 34u;
}

template <typename S, typename C>
C* write_signed(S value, C* buffer, unsigned int radix) {
  using U = std::make_unsigned_t<S>;
  if (!writable_radix(radix)) {
    *buffer = 0;
    return buffer;
  }
  C* out = buffer;
  U magnitude = static_cast<U>(value);
  if (value < 0) {
    *out++ = static_cast<C>('-');
    magnitude = static_cast<U>(U(0) - magnitude);  // also right for the minimum
  }
  write_digits(magnitude, out, radix);
  return buffer;
}

template <typename U, typename C>
C* write_unsigned(U value, C* buffer, unsigned int radix) {
  if (!writable_radix(radix)) {
    *buffer = 0;
    return buffer;
  }
  write_digits(value, buffer, radix);
  return buffer;
}

}  // namespace

char* ltoa(int value, char* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}
unsigned short* ltoa(int value, unsigned short* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}
wchar_t* ltoa(int value, wchar_t* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}

char* ultoa(unsigned int value, char* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}
unsigned short* ultoa(unsigned int value, unsigned short* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}
wchar_t* ultoa(unsigned int value, wchar_t* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}

char* lltoa(long long value, char* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}
unsigned short* lltoa(long long value, unsigned short* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}
wchar_t* lltoa(long long value, wchar_t* buffer, unsigned int radix) {
  return write_signed(value, buffer, radix);
}

char* ulltoa(unsigned long long value, char* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}
unsigned short* ulltoa(unsigned long long value, unsigned short* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}
wchar_t* ulltoa(unsigned long long value, wchar_t* buffer, unsigned int radix) {
  return write_unsigned(value, buffer, radix);
}

strings::ustring8 to_str(long long value) {
  char buffer[24];
  return strings::ustring8(lltoa(value, buffer, 10));
}

template <>
strings::ustring8 to_str<char>(const char& value) {
  return strings::ustring8(1, value);
}

std::wstring to_wstr(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  for (std::string::size_type i = 0; i < text.size(); ++i) {
    wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(text[i]));
  }
  return wide;
}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18
