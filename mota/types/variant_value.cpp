#include <mota/types/variant_value.hpp>

#include <mota/types/_private/value_pool.hpp>

#include <mota/generic/convert/_private/decimal_length.hpp>
#include <mota/generic/convert/str_to_bool.hpp>
#include <mota/generic/convert/str_to_float.hpp>
#include <mota/generic/convert/str_to_x.hpp>
#include <mota/generic/convert/x_to_str.hpp>
#include <mota/strings/utf.hpp>
#include <mota/types/radix.hpp>

#include <cctype>
#include <cfloat>
#include <climits>
#include <cstddef>
#include <limits>
#include <new>
#include <ostream>
#include <sstream>
#include <type_traits>
#include <utility>

namespace MOTA_2_18 {
namespace types {

namespace {

namespace convert = generic::convert;

// Every parse passes radix detection and no range exceptions.
constexpr radix_t::base detect_radix = radix_t::detect;

template <class T>
constexpr bool is_nil = std::is_same_v<T, nil_t>;
template <class T>
constexpr bool is_narrow_text =
    std::is_same_v<T, strings::ustring8> || std::is_same_v<T, std::string>;
template <class T>
constexpr bool is_utf16_text = std::is_same_v<T, strings::ustring16>;

// Lengths handed to the parsers are unsigned int; longer texts are cut to what fits.
template <class S>
unsigned int parse_size(S const& text) {
  return text.size() > UINT_MAX ? UINT_MAX : static_cast<unsigned int>(text.size());
}

// Floating values convert as the x86 conversion instructions do, without undefined behaviour:
// truncation toward zero into a signed register of 16 (x87 only), 32 or 64 bits, where NaN and
// values outside that register's range give its minimum (the "integer indefinite" value);
// narrower results then keep the low bits. float_to_integer picks the register width a compiler
// uses for each target type.
template <class I, class F>
I truncate_into(F value) {
  constexpr long double low = static_cast<long double>(std::numeric_limits<I>::min());
  const long double wide = value;
  if (wide > low - 1 && wide < -low) return static_cast<I>(value);
  return std::numeric_limits<I>::min();
}

// True when the conversion runs on the x87 unit (long double always; every floating type where
// floating arithmetic is evaluated in long double), which also converts into 16 bits.
template <class F>
constexpr bool converts_on_x87 = std::is_same_v<F, long double> || FLT_EVAL_METHOD == 2;

template <class R, class F>
R float_to_integer(F value) {
  if constexpr (std::is_unsigned_v<R> && sizeof(R) == sizeof(long long)) {
    // Values from 2^63 on are converted after subtracting 2^63, whose bit is then put back.
    constexpr F two_63 = static_cast<F>(9223372036854775808.0L);
    if (!(value >= two_63)) return static_cast<R>(truncate_into<long long>(value));
    return static_cast<R>(truncate_into<long long>(value - two_63)) ^ (R(1) << 63);
  } else if constexpr (sizeof(R) == sizeof(long long) || std::is_same_v<R, std::uint32_t>) {
    // 32-bit unsigned results take the low half of the 64-bit conversion.
    return static_cast<R>(truncate_into<long long>(value));
  } else if constexpr (sizeof(R) <= sizeof(short) && converts_on_x87<F> &&
                       !std::is_same_v<R, std::uint16_t>) {
    return static_cast<R>(truncate_into<short>(value));
  } else {
    return static_cast<R>(truncate_into<int>(value));
  }
}

template <class R, class T, class Parse>
R to_integer(T const& value, Parse parse) {
  if constexpr (is_nil<T>) {
    return 0;
  } else if constexpr (std::is_floating_point_v<T>) {
    return float_to_integer<R>(value);
  } else if constexpr (std::is_arithmetic_v<T>) {
    return static_cast<R>(value);
  } else {
    return parse(value.data(), parse_size(value));
  }
}

// Narrow text is true for "yes", "on" or "true" in any case, else for a non-zero number.
bool narrow_text_to_bool(std::string const& text) {
  std::string lower(text);
  for (char& c : lower)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower == "yes" || lower == "on" || lower == "true") return true;
  return convert::str_to_long(text.data(), parse_size(text), detect_radix, false) != 0;
}

template <class T>
bool to_bool(T const& value) {
  if constexpr (is_nil<T>) {
    return false;
  } else if constexpr (std::is_arithmetic_v<T>) {
    return value != 0;
  } else if constexpr (is_narrow_text<T>) {
    return narrow_text_to_bool(value);
  } else if constexpr (is_utf16_text<T>) {
    return convert::str_to_bool(value);
  } else if constexpr (std::is_same_v<T, strings::ustring32>) {
    return convert::str_to_bool(value);
  } else {
    return convert::str_to_bool(strings::ustring32(value));
  }
}

template <class R, class T, class Parse>
R to_floating(T const& value, Parse parse) {
  if constexpr (is_nil<T>) {
    return 0;
  } else if constexpr (std::is_arithmetic_v<T>) {
    return static_cast<R>(value);
  } else if constexpr (std::is_same_v<T, strings::ustring8>) {
    return parse(value);
  } else if constexpr (std::is_same_v<T, std::string>) {
    return parse(strings::ustring8(value));
  } else if constexpr (is_utf16_text<T>) {
    return parse(strings::utf16_to_utf8(value));
  } else {
    return parse(strings::utf32_to_utf8(strings::ustring32(value)));
  }
}

// Calls the library's integer-to-text routine for the held type's width and sign.
template <class W, class C>
void write_integer(W value, C* out) {
  if constexpr (std::is_same_v<W, int>) {
    convert::ltoa(value, out, 10);
  } else if constexpr (std::is_same_v<W, unsigned int>) {
    convert::ultoa(value, out, 10);
  } else if constexpr (std::is_same_v<W, long long>) {
    convert::lltoa(value, out, 10);
  } else {
    convert::ulltoa(value, out, 10);
  }
}

// Decimal text of an integer in the string type S, written into a stack buffer by the library's
// routine; the length is known from the value, so the text is never scanned.
template <class S, class T>
S integer_text(T value) {
  using W =
      std::conditional_t<sizeof(T) <= sizeof(int),
                         std::conditional_t<std::is_signed_v<T>, int, unsigned int>,
                         std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>>;
  using U = std::make_unsigned_t<W>;
  const W wide = static_cast<W>(value);
  const bool negative = wide < 0;
  const U magnitude = negative ? static_cast<U>(U(0) - static_cast<U>(wide)) : static_cast<U>(wide);
  typename S::value_type buffer[24];  // 20 digits, a sign and the terminator fit
  write_integer(wide, buffer);
  return S(buffer, convert::_private::decimal_length(magnitude) + (negative ? 1 : 0));
}

// Floating values are written by a default-formatted string stream.
template <class T>
std::string floating_text(T value) {
  std::stringstream stream;
  stream << value;
  return stream.str();
}

// Copies ASCII text (digits, signs, exponents) into a string of wider characters.
template <class S>
S widen(std::string const& text) {
  S result;
  result.reserve(text.size());
  for (char c : text)
    result.push_back(static_cast<typename S::value_type>(static_cast<unsigned char>(c)));
  return result;
}

// Text of a number in the string type S (narrow, UTF-16 or wide).
template <class S, class T>
S number_text(T const& value) {
  if constexpr (is_nil<T>) {
    return S(1, static_cast<typename S::value_type>('0'));
  } else if constexpr (std::is_same_v<T, bool>) {
    return S(1, static_cast<typename S::value_type>(value ? '1' : '0'));
  } else if constexpr (std::is_floating_point_v<T>) {
    if constexpr (std::is_same_v<typename S::value_type, char>) {
      return S(floating_text(value));
    } else if constexpr (std::is_same_v<typename S::value_type, wchar_t>) {
      return S(convert::to_wstr(floating_text(value)));
    } else {
      return widen<S>(floating_text(value));
    }
  } else {
    return integer_text<S>(value);
  }
}

// The UTF-8 text of any held value.
template <class S, class T>
S narrow_text(T const& value) {
  if constexpr (std::is_arithmetic_v<T> || is_nil<T>) {
    return number_text<S>(value);
  } else if constexpr (is_narrow_text<T>) {
    return S(value);
  } else if constexpr (is_utf16_text<T>) {
    return S(strings::utf16_to_utf8(value));
  } else if constexpr (std::is_same_v<T, strings::ustring32>) {
    return S(strings::utf32_to_utf8(value));
  } else {
    return S(strings::utf32_to_utf8(strings::ustring32(value)));
  }
}

// The UTF-32 text of any held value.
template <class S, class T>
S wide_text(T const& value) {
  if constexpr (std::is_arithmetic_v<T> || is_nil<T>) {
    return number_text<S>(value);
  } else if constexpr (std::is_same_v<T, strings::ustring8>) {
    return S(strings::utf8_to_utf32(value));
  } else if constexpr (std::is_same_v<T, std::string>) {
    return S(strings::utf8_to_utf32(strings::ustring8(value)));
  } else if constexpr (is_utf16_text<T>) {
    return S(strings::utf16_to_utf32(value));
  } else {
    return S(value);
  }
}

// The UTF-16 text of any held value.
template <class T>
strings::ustring16 utf16_text(T const& value) {
  if constexpr (std::is_arithmetic_v<T> || is_nil<T>) {
    return number_text<strings::ustring16>(value);
  } else if constexpr (std::is_same_v<T, strings::ustring8>) {
    return strings::utf8_to_utf16(value);
  } else if constexpr (std::is_same_v<T, std::string>) {
    return strings::utf8_to_utf16(strings::ustring8(value));
  } else if constexpr (is_utf16_text<T>) {
    return value;
  } else if constexpr (std::is_same_v<T, strings::ustring32>) {
    return strings::utf32_to_utf16(value);
  } else {
    return strings::utf32_to_utf16(strings::ustring32(value));
  }
}

template <class T>
std::ostream& write(std::ostream& os, T const& value) {
  if constexpr (is_nil<T>) {
    os << 0;
  } else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, signed char> ||
                       std::is_same_v<T, unsigned char>) {
    os << static_cast<int>(value);
  } else if constexpr (std::is_arithmetic_v<T>) {
    os << value;
  } else if constexpr (is_narrow_text<T>) {
    os << static_cast<std::string const&>(value);
  } else if constexpr (is_utf16_text<T> || std::is_same_v<T, strings::ustring32>) {
    // Written as a C string: output stops at the first NUL character (intended).
    os << narrow_text<std::string>(value).c_str();
  } else {
    // A held std::wstring prints a description of itself, not its text (intended).
    os << "< " << typeid(std::wstring).name() << " instance at " << static_cast<void const*>(&value)
       << " >";
  }
  return os;
}

}  // namespace

// The storage of every value object, defined beside the value objects' destructors so that
// releasing a small value is inlined into them.
void* variant_type::operator new(std::size_t size) {
  return size <= _private::pooled_value_size ? _private::take_value_block() : ::operator new(size);
}

void variant_type::operator delete(void* object, std::size_t size) noexcept {
  if (size <= _private::pooled_value_size)
    _private::give_value_block(object);
  else
    ::operator delete(object);
}

template <class T>
variant_value_t<T>::variant_value_t(variant_value_t const& other)
    : variant_type(other), m_value(other.m_value) {}
template <class T>
variant_value_t<T>::~variant_value_t() = default;

template <class T>
bool variant_value_t<T>::convertible() const {
  return true;
}

template <class T>
std::type_info const& variant_value_t<T>::type() const {
  return typeid(T);
}

template <class T>
variant_value_t<T>* variant_value_t<T>::clone() const {
  auto* copy = new variant_value_t(*this);
  copy->delete_on_zero(true);
  return copy;
}

template <class T>
std::ostream& variant_value_t<T>::ostream(std::ostream& os) const {
  return write(os, m_value);
}

// Each integer slot names its own parser; the generic lambda picks the overload for the
// held text's character type.
#define MOTA_VARIANT_INTEGER_SLOT(slot, result, parser)                             \
  template <class T>                                                                \
  result variant_value_t<T>::slot() const {                                         \
    return to_integer<result>(m_value, [](auto const* text, unsigned int size) {    \
      return static_cast<result>(convert::parser(text, size, detect_radix, false)); \
    });                                                                             \
  }

MOTA_VARIANT_INTEGER_SLOT(as_int, int, str_to_int)
MOTA_VARIANT_INTEGER_SLOT(as_short, short, str_to_short)
MOTA_VARIANT_INTEGER_SLOT(as_long, std::int32_t, str_to_long)
MOTA_VARIANT_INTEGER_SLOT(as_int8, std::int8_t, str_to_int8)
MOTA_VARIANT_INTEGER_SLOT(as_int16, std::int16_t, str_to_int16)
MOTA_VARIANT_INTEGER_SLOT(as_int32, std::int32_t, str_to_int32)
MOTA_VARIANT_INTEGER_SLOT(as_int64, std::int64_t, str_to_int64)
MOTA_VARIANT_INTEGER_SLOT(as_uint8, std::uint8_t, str_to_uint8)
MOTA_VARIANT_INTEGER_SLOT(as_uint16, std::uint16_t, str_to_uint16)
MOTA_VARIANT_INTEGER_SLOT(as_uint32, std::uint32_t, str_to_uint32)
MOTA_VARIANT_INTEGER_SLOT(as_uint64, std::uint64_t, str_to_uint64)

#undef MOTA_VARIANT_INTEGER_SLOT

template <class T>
bool variant_value_t<T>::as_bool() const {
  return to_bool(m_value);
}

template <class T>
strings::ustring8 variant_value_t<T>::as_string() const {
  return narrow_text<strings::ustring8>(m_value);
}

template <class T>
std::wstring variant_value_t<T>::as_wstring() const {
  return wide_text<std::wstring>(m_value);
}

template <class T>
std::string variant_value_t<T>::as_ustring() const {
  return narrow_text<std::string>(m_value);
}

template <class T>
strings::ustring8 variant_value_t<T>::as_utf8() const {
  return narrow_text<strings::ustring8>(m_value);
}

template <class T>
strings::ustring16 variant_value_t<T>::as_utf16() const {
  return utf16_text(m_value);
}

template <class T>
strings::ustring32 variant_value_t<T>::as_utf32() const {
  return wide_text<strings::ustring32>(m_value);
}

template <class T>
float variant_value_t<T>::as_float() const {
  return to_floating<float>(
      m_value, [](strings::ustring8 const& text) { return convert::str_to_float(text); });
}

template <class T>
double variant_value_t<T>::as_double() const {
  return to_floating<double>(
      m_value, [](strings::ustring8 const& text) { return convert::str_to_double(text); });
}

template <class T>
long double variant_value_t<T>::as_long_double() const {
  return to_floating<long double>(
      m_value, [](strings::ustring8 const& text) { return convert::str_to_long_double(text); });
}

template class variant_value_t<nil_t>;
template class variant_value_t<bool>;
template class variant_value_t<signed char>;
template class variant_value_t<short>;
template class variant_value_t<int>;
template class variant_value_t<long long>;
template class variant_value_t<unsigned char>;
template class variant_value_t<unsigned short>;
template class variant_value_t<unsigned int>;
template class variant_value_t<unsigned long long>;
template class variant_value_t<float>;
template class variant_value_t<double>;
template class variant_value_t<long double>;
template class variant_value_t<strings::ustring8>;
template class variant_value_t<strings::ustring16>;
template class variant_value_t<strings::ustring32>;
template class variant_value_t<std::string>;
template class variant_value_t<std::wstring>;

}  // namespace types
}  // namespace MOTA_2_18
