// Text to floating-point values through a string stream, optionally with a locale for the
// decimal separator and grouping.
//
//   double d = mota::generic::convert::str_to_double("2.5e3");                    // 2500.0
//   float f = mota::generic::convert::str_to_float("1,5", std::locale("de_DE.UTF-8"));
#ifndef MOTA_GENERIC_CONVERT_STR_TO_FLOAT_HPP
#define MOTA_GENERIC_CONVERT_STR_TO_FLOAT_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <locale>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

//@{
// Each returns the number at the start of `text` (leading blanks skipped, trailing text
// ignored); 0 when no number of the type can be read (also when it is out of the type's range).
// Never throws for bad input. The forms with a locale read the text with that locale's
// numeric conventions; the others with the stream's default locale.
MOTA_API float str_to_float(const strings::ustring8& text);
MOTA_API double str_to_double(const strings::ustring8& text);
MOTA_API long double str_to_long_double(const strings::ustring8& text);

MOTA_API float str_to_float(const strings::ustring8& text, const std::locale& locale);
MOTA_API double str_to_double(const strings::ustring8& text, const std::locale& locale);
MOTA_API long double str_to_long_double(const strings::ustring8& text, const std::locale& locale);
//@}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_CONVERT_STR_TO_FLOAT_HPP
