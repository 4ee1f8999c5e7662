// Integer to text: the ltoa family writes into a caller's buffer of char, unsigned short
// (UTF-16) or wchar_t (UTF-32) in any radix from 2 to 36, digits above 9 in lower case;
// to_str renders decimal text as ustring8 and to_wstr widens a byte string.
//
//   char buffer[66];
//   mota::generic::convert::lltoa(-255LL, buffer, 16);        // "-ff"
//   mota::strings::ustring8 s = mota::generic::convert::to_str(42LL);  // "42"
#ifndef MOTA_GENERIC_CONVERT_X_TO_STR_HPP
#define MOTA_GENERIC_CONVERT_X_TO_STR_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <string>
#include <type_traits>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

//@{
// Each writes `value` in `radix` to `buffer`, "-" first for a negative value, followed by a
// terminating zero, and returns `buffer`. The radix must be 2 to 36; any other radix writes
// only the terminating zero (the empty text) rather than crash or overrun the buffer. The
// buffer must hold the text and its terminator: at most 66 elements (64 binary digits, a sign
// and the zero) for the 64-bit forms, 34 for the 32-bit forms.
MOTA_API char* ltoa(int value, char* buffer, unsigned int radix);
MOTA_API unsigned short* ltoa(int value, unsigned short* buffer, unsigned int radix);
MOTA_API wchar_t* ltoa(int value, wchar_t* buffer, unsigned int radix);

MOTA_API char* ultoa(unsigned int value, char* buffer, unsigned int radix);
MOTA_API unsigned short* ultoa(unsigned int value, unsigned short* buffer, unsigned int radix);
MOTA_API wchar_t* ultoa(unsigned int value, wchar_t* buffer, unsigned int radix);

MOTA_API char* lltoa(long long value, char* buffer, unsigned int radix);
MOTA_API unsigned short* lltoa(long long value, unsigned short* buffer, unsigned int radix);
MOTA_API wchar_t* lltoa(long long value, wchar_t* buffer, unsigned int radix);

MOTA_API char* ulltoa(unsigned long long value, char* buffer, unsigned int radix);
MOTA_API unsigned short* ulltoa(unsigned long long value, unsigned short* buffer,
                                unsigned int radix);
MOTA_API wchar_t* ulltoa(unsigned long long value, wchar_t* buffer, unsigned int radix);
//@}

// The decimal text of `value`, e.g. "-9223372036854775808".
MOTA_API strings::ustring8 to_str(long long value);

// The decimal text of an integer of any other type (char excepted, see below).
template <typename T>
strings::ustring8 to_str(const T& value) {
  static_assert(std::is_integral<T>::value, "to_str renders integers");
  if constexpr (std::is_signed<T>::value) {
    return to_str(static_cast<long long>(value));
  } else {
    char buffer[24];
    return strings::ustring8(ulltoa(static_cast<unsigned long long>(value), buffer, 10));
  }
}

// The character itself as a one-character text, the way a stream writes a char:
// to_str<char>('A') is "A".
template <>
MOTA_API strings::ustring8 to_str<char>(const char& value);

// Each byte of `text` widened to one wchar_t (bytes read as unsigned, so 0xE9 becomes U+00E9).
MOTA_API std::wstring to_wstr(const std::string& text);

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_X_TO_STR_HPP
