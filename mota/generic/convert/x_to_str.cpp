#include <mota/generic/convert/x_to_str.hpp>

#include <mota/generic/convert/_private/decimal_text.hpp>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

constexpr char digit_chars[] = "0123456789abcdefghijklmnopqrstuvwxyz";

// Writes the digits of `value` in a radix other than 10 followed by a terminating zero; returns
// the terminator's place. Powers of two, whose length follows from the bit length, are written
// from the far end with masks and shifts; other radixes are written least significant digit
// first and reversed in place. Both give the same text.
template <typename U, typename C>
C* write_digits(U value, C* out, unsigned int radix) {
  if ((radix & (radix - 1)) == 0 && radix >= 2) {
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

// Decimal, by far the most used radix, takes its own path without a call or a branch on the
// sign.
template <typename S, typename C>
C* write_signed(S value, C* buffer, unsigned int radix) {
  using U = std::make_unsigned_t<S>;
  if (radix == 10) {
    _private::write_signed_decimal(value, buffer);
    return buffer;
  }
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
  if (radix == 10) {
    _private::write_decimal(value, buffer);
    return buffer;
  }
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
