#include <mota/types/variant.hpp>

#include <mota/types/_private/value_pool.hpp>
#include <mota/types/variant_value.hpp>

#include <ostream>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace MOTA_2_18 {
namespace types {

namespace {

// Builds a value object and marks it owned by its pointers once it is complete; if building
// throws, nothing is left allocated. Small values are built straight in a block of the calling
// thread's pool (their construction cannot throw); variant_type's operator delete gives the
// block back, as it does for every object of that size.
template <class T, class... A>
variant_type* make_value(A&&... value) {
  variant_value_t<T>* object;
  if constexpr (sizeof(variant_value_t<T>) <= _private::pooled_value_size) {
    static_assert(std::is_nothrow_constructible_v<variant_value_t<T>, A&&...>,
                  "a pooled block would leak if building its value threw");
    object = new (_private::take_value_block()) variant_value_t<T>(std::forward<A>(value)...);
  } else {
    object = new variant_value_t<T>(std::forward<A>(value)...);
  }
  object->delete_on_zero(true);
  return object;
}

// The value object of a number when the calling thread's pool has no free block.
template <class T>
[[gnu::noinline, gnu::returns_nonnull]] variant_type* make_number_from_heap(T value) {
  return make_value<T>(value);
}

// A number's value object, in a free block of the calling thread's pool when there is one: that
// common case makes no call.
template <class T>
variant_type* make_number(T value) {
  static_assert(sizeof(variant_value_t<T>) <= _private::pooled_value_size &&
                    std::is_nothrow_constructible_v<variant_value_t<T>, T>,
                "numbers are built straight in a pooled block");
  void* const block = _private::take_free_value_block();
  if (__builtin_expect(block == nullptr, 0)) return make_number_from_heap(value);
  auto* const object = new (block) variant_value_t<T>(value);
  object->delete_on_zero(true);
  return object;
}

variant_type* make_nil() {
  return make_value<nil_t>();
}

// Text constructors refuse a null pointer the way the standard string constructor used to.
template <class C>
C const* checked_text(C const* text) {
  if (text == nullptr) throw std::logic_error("basic_string::_M_construct null not valid");
  return text;
}

}  // namespace

variant::variant() : m_value(make_nil()) {}
variant::variant(nil_t const&) : m_value(make_nil()) {}

variant::variant(bool value) : m_value(make_number<bool>(value)) {}
variant::variant(signed char const& value) : m_value(make_number<signed char>(value)) {}
variant::variant(short const& value) : m_value(make_number<short>(value)) {}
variant::variant(int const& value) : m_value(make_number<int>(value)) {}
variant::variant(long long const& value) : m_value(make_number<long long>(value)) {}
variant::variant(unsigned char const& value) : m_value(make_number<unsigned char>(value)) {}
variant::variant(unsigned short const& value) : m_value(make_number<unsigned short>(value)) {}
variant::variant(unsigned int const& value) : m_value(make_number<unsigned int>(value)) {}
variant::variant(unsigned long long const& value)
    : m_value(make_number<unsigned long long>(value)) {}
variant::variant(float const& value) : m_value(make_number<float>(value)) {}
variant::variant(double const& value) : m_value(make_number<double>(value)) {}
variant::variant(long double const& value) : m_value(make_number<long double>(value)) {}

variant::variant(char const* text)
    : m_value(make_value<strings::ustring8>(strings::ustring8(checked_text(text)))) {}
variant::variant(unsigned short const* text)
    : m_value(make_value<strings::ustring16>(strings::ustring16(checked_text(text)))) {}
variant::variant(wchar_t const* text)
    : m_value(make_value<strings::ustring32>(strings::ustring32(checked_text(text)))) {}
variant::variant(strings::ustring8 const& text) : m_value(make_value<strings::ustring8>(text)) {}
variant::variant(strings::ustring16 const& text) : m_value(make_value<strings::ustring16>(text)) {}
variant::variant(strings::ustring32 const& text) : m_value(make_value<strings::ustring32>(text)) {}
variant::variant(std::string const& text) : m_value(make_value<std::string>(text)) {}
variant::variant(std::wstring const& text) : m_value(make_value<std::wstring>(text)) {}

variant& variant::operator=(nil_t const&) {
  m_value.reset(make_nil());
  return *this;
}

variant_type const& variant::empty_value() noexcept {
  // Never counted, so never deleted: an empty handle reads it without touching its count.
  static variant_value_t<nil_t> const empty;
  return empty;
}

std::ostream& operator<<(std::ostream& os, variant const& value) {
  return value.held().ostream(os);
}

}  // namespace types
}  // namespace MOTA_2_18
