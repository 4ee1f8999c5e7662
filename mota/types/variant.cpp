#include <mota/types/variant.hpp>

#include <mota/types/_private/value_pool.hpp>
#include <mota/types/variant_value.hpp>

#include <ostream>
#include <stdexcept>
#include <utility>

namespace MOTA_2_18 {
namespace types {

namespace {

// Builds a text's value object on the heap and marks it owned by its pointers once it is
// complete; if building throws, nothing is left allocated.
template <class T, class A>
variant_type* make_value(A&& value) {
  auto* const object = new variant_value_t<T>(std::forward<A>(value));
  object->delete_on_zero(true);
  return object;
}

// Text constructors refuse a null pointer the way the standard string constructor used to.
template <class C>
C const* checked_text(C const* text) {
  if (text == nullptr) throw std::logic_error("basic_string::_M_construct null not valid");
  return text;
}

}  // namespace

variant::variant() : m_value(make_pooled(nil_t())) {}
variant::variant(nil_t const&) : m_value(make_pooled(nil_t())) {}

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
  m_value.reset(make_pooled(nil_t()));
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
