#include <mota/generic/convert/str_to_float.hpp>

#include <sstream>

namespace MOTA_2_18 {
namespace generic {
namespace convert {

namespace {

template <typename T>
T extract(std::istringstream& stream) {
  T value = 0;
  stream >> value;
  if (stream.fail() || stream.bad()) return 0;
  return value;
}

template <typename T>
T parse(const strings::ustring8& text) {
  std::istringstream stream(text);
  return extract<T>(stream);
}

template <typename T>
T parse(const strings::ustring8& text, const std::locale& locale) {
  std::istringstream stream(text);
  stream.imbue(locale);
  return extract<T>(stream);
}

}  // namespace

float str_to_float(const strings::ustring8& text) {
  return parse<float>(text);
}
double str_to_double(const strings::ustring8& text) {
  return parse<double>(text);
}
long double str_to_long_double(const strings::ustring8& text) {
  return parse<long double>(text);
}

float str_to_float(const strings::ustring8& text, const std::locale& locale) {
  return parse<float>(text, locale);
}
double str_to_double(const strings::ustring8& text, const std::locale& locale) {
  return parse<double>(text, locale);
}
long double str_to_long_double(const strings::ustring8& text, const std::locale& locale) {
  return parse<long double>(text, locale);
}

}  // namespace convert
}  // namespace generic
}  // namespace MOTA_2_18
