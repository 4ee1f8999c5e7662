// Text to a truth value: "yes", "on" and "true" in any letter case, or any text whose integer
// value (radix detected, as str_to_long reads it) is not zero.
//
//   bool a = mota::generic::convert::str_to_bool(mota::strings::ustring32(L"On"));  // true
//   bool b = mota::generic::convert::str_to_bool(mota::strings::ustring32(L"0x0"));  // false
#ifndef MOTA_GENERIC_CONVERT_STR_TO_BOOL_HPP
#define MOTA_GENERIC_CONVERT_STR_TO_BOOL_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

//@{
// True for "yes", "on", "true" (letters compared after the C library's tolower, so "ON" and
// "True" count) and for text that str_to_long reads with radix detection as non-zero; false
// otherwise. Never throws: out-of-range numbers are clamped and so count as true.
MOTA_API bool str_to_bool(const strings::ustring16& text);
MOTA_API bool str_to_bool(const strings::ustring32& text);
//@}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_STR_TO_BOOL_HPP
