// Not part of the public interface.
// One element through the C library's tolower/toupper. A char goes in as its signed value; a
// wider unit only when it lies inside the C library's table (-128..255, the signed char values
// included), else it is kept as the C library would keep it.
#ifndef MOTA_STRINGS_PRIVATE_CHAR_CASE_HPP
#define MOTA_STRINGS_PRIVATE_CHAR_CASE_HPP

#include <cctype>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

inline char lower_unit(char c) {
  return static_cast<char>(std::tolower(static_cast<signed char>(c)));
}
inline char upper_unit(char c) {
  return static_cast<char>(std::toupper(static_cast<signed char>(c)));
}

template <typename Unit>
inline Unit lower_unit(Unit c) {
  const long long v = c;
  return (v >= -128 && v <= 255) ? static_cast<Unit>(std::tolower(static_cast<int>(v))) : c;
}
template <typename Unit>
inline Unit upper_unit(Unit c) {
  const long long v = c;
  return (v >= -128 && v <= 255) ? static_cast<Unit>(std::toupper(static_cast<int>(v))) : c;
}

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_CHAR_CASE_HPP
