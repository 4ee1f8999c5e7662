// Text to integer conversion for every integer width over the three character widths of the
// library (char, unsigned short for UTF-16 units, wchar_t for UTF-32), and the C library's
// blank test for each of them.
//
// Every parser takes (text, size, radix, throw_on_range_error). A size of 0 means "up to the
// terminating zero" for the signed parsers; the unsigned parsers read at most one character
// then. Leading blanks and one "+" or "-" are accepted; parsing stops quietly at the first
// character that is not a digit of the radix, so "12abc" gives 12 and "abc" gives 0. A radix of
// 0 is detected from the text: "0x" hexadecimal, "0b" binary, a leading "0" or backslash octal,
// otherwise decimal. Values out of range are clamped, or thrown when throw_on_range_error is set.
//
//   using mota::types::radix_t;
//   int a = mota::generic::convert::str_to_int(" -0x1F", 0, radix_t::detect, false);  // -31
//   long long b = mota::generic::convert::str_to_int64("zz", 2, radix_t::base_36, true);
#ifndef MOTA_GENERIC_CONVERT_STR_TO_X_HPP
#define MOTA_GENERIC_CONVERT_STR_TO_X_HPP

#include <mota/export.hpp>
#include <mota/types/radix.hpp>

#include <cstdint>

namespace MOTA_2_18 {
namespace generic {
// Conversions between numbers and text or raw bytes; bad input gives a defined value.
namespace convert {

// The signed parser behind every signed str_to_* function, instantiated for int, long, short,
// signed char and long long over char, unsigned short and wchar_t.
// Returns the value of `text`; 0 for blank text, a lone sign, a prefix with nothing after it or
// no digits at all. Out of range without `throw_on_range_error`: T's minimum after a "-" sign,
// T's maximum otherwise.
// Throws exceptions::invalid_argument_value "invalid radix value, values of 0, 2-36 are the only
// valid values" for a radix of 1 or above 36 (whatever the flag); with the flag, out of range
// throws exceptions::underflow_error "Number value is to small" after a "-" sign and
// exceptions::overflow_error "Number value is to large" otherwise.
template <typename T, typename C>
MOTA_API T strtointx(const C* text, unsigned int size, unsigned int radix,
                     bool throw_on_range_error);

// The unsigned parser behind every unsigned str_to_* function, instantiated for unsigned int,
// unsigned long, unsigned char, unsigned short and unsigned long long over the three character
// types. As strtointx, except that:
//  - a size of 0 is not measured: only the first character is looked at;
//  - "-" followed by a non-zero value gives 0, or throws exceptions::underflow_error
//    "Number value is to small" with the flag ("-0" gives 0);
//  - out of range gives 0 after a "-" sign and T's maximum otherwise (or throws as strtointx).
template <typename T, typename C>
MOTA_API T strtouintx(const C* text, unsigned int size, unsigned int radix,
                      bool throw_on_range_error);

//@{
// The forwarders: each returns strtointx / strtouintx of its result type, with the same
// results and exceptions.
MOTA_API std::int32_t str_to_long(const char* text, unsigned int size, types::radix_t::base radix,
                                  bool throw_on_range_error);
MOTA_API std::int32_t str_to_long(const unsigned short* text, unsigned int size,
                                  types::radix_t::base radix, bool throw_on_range_error);
MOTA_API std::int32_t str_to_long(const wchar_t* text, unsigned int size,
                                  types::radix_t::base radix, bool throw_on_range_error);

MOTA_API int str_to_int(const char* text, unsigned int size, types::radix_t::base radix,
                        bool throw_on_range_error);
MOTA_API int str_to_int(const unsigned short* text, unsigned int size, types::radix_t::base radix,
                        bool throw_on_range_error);
MOTA_API int str_to_int(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                        bool throw_on_range_error);

MOTA_API int str_to_signed(const char* text, unsigned int size, types::radix_t::base radix,
                           bool throw_on_range_error);
MOTA_API int str_to_signed(const unsigned short* text, unsigned int size,
                           types::radix_t::base radix, bool throw_on_range_error);
MOTA_API int str_to_signed(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                           bool throw_on_range_error);

MOTA_API std::int32_t str_to_int32(const char* text, unsigned int size, types::radix_t::base radix,
                                   bool throw_on_range_error);
MOTA_API std::int32_t str_to_int32(const unsigned short* text, unsigned int size,
                                   types::radix_t::base radix, bool throw_on_range_error);
MOTA_API std::int32_t str_to_int32(const wchar_t* text, unsigned int size,
                                   types::radix_t::base radix, bool throw_on_range_error);

MOTA_API short str_to_short(const char* text, unsigned int size, types::radix_t::base radix,
                            bool throw_on_range_error);
MOTA_API short str_to_short(const unsigned short* text, unsigned int size,
                            types::radix_t::base radix, bool throw_on_range_error);
MOTA_API short str_to_short(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                            bool throw_on_range_error);

MOTA_API short str_to_int16(const char* text, unsigned int size, types::radix_t::base radix,
                            bool throw_on_range_error);
MOTA_API short str_to_int16(const unsigned short* text, unsigned int size,
                            types::radix_t::base radix, bool throw_on_range_error);
MOTA_API short str_to_int16(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                            bool throw_on_range_error);

MOTA_API signed char str_to_int8(const char* text, unsigned int size, types::radix_t::base radix,
                                 bool throw_on_range_error);
MOTA_API signed char str_to_int8(const unsigned short* text, unsigned int size,
                                 types::radix_t::base radix, bool throw_on_range_error);
MOTA_API signed char str_to_int8(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                                 bool throw_on_range_error);

MOTA_API long long str_to_int64(const char* text, unsigned int size, types::radix_t::base radix,
                                bool throw_on_range_error);
MOTA_API long long str_to_int64(const unsigned short* text, unsigned int size,
                                types::radix_t::base radix, bool throw_on_range_error);
MOTA_API long long str_to_int64(const wchar_t* text, unsigned int size, types::radix_t::base radix,
                                bool throw_on_range_error);

MOTA_API unsigned int str_to_unsigned(const char* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned int str_to_unsigned(const unsigned short* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned int str_to_unsigned(const wchar_t* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);

MOTA_API std::uint32_t str_to_uint32(const char* text, unsigned int size,
                                     types::radix_t::base radix, bool throw_on_range_error);
MOTA_API std::uint32_t str_to_uint32(const unsigned short* text, unsigned int size,
                                     types::radix_t::base radix, bool throw_on_range_error);
MOTA_API std::uint32_t str_to_uint32(const wchar_t* text, unsigned int size,
                                     types::radix_t::base radix, bool throw_on_range_error);

MOTA_API unsigned char str_to_uint8(const char* text, unsigned int size, types::radix_t::base radix,
                                    bool throw_on_range_error);
MOTA_API unsigned char str_to_uint8(const unsigned short* text, unsigned int size,
                                    types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned char str_to_uint8(const wchar_t* text, unsigned int size,
                                    types::radix_t::base radix, bool throw_on_range_error);

MOTA_API unsigned short str_to_uint16(const char* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned short str_to_uint16(const unsigned short* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned short str_to_uint16(const wchar_t* text, unsigned int size,
                                      types::radix_t::base radix, bool throw_on_range_error);

MOTA_API unsigned long long str_to_uint64(const char* text, unsigned int size,
                                          types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned long long str_to_uint64(const unsigned short* text, unsigned int size,
                                          types::radix_t::base radix, bool throw_on_range_error);
MOTA_API unsigned long long str_to_uint64(const wchar_t* text, unsigned int size,
                                          types::radix_t::base radix, bool throw_on_range_error);
//@}

//@{
// True when the C library's isspace holds for the value; values outside the byte range are
// never blank.
MOTA_API bool is_space(char c);
MOTA_API bool is_space(unsigned short c);
MOTA_API bool is_space(wchar_t c);
//@}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_STR_TO_X_HPP
