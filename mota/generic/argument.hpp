// One entry of an argument list: an optional name (empty means unnamed) and a variant value,
// shared with the variant it was built from.
//
//   mota::generic::argument count("count", 3);
//   count.has_name();          // true
//   count.value().as_int();    // 3
#ifndef MOTA_GENERIC_ARGUMENT_HPP
#define MOTA_GENERIC_ARGUMENT_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>
#include <mota/types/variant.hpp>

namespace MOTA_2_18 {
// Generic building blocks: named arguments and argument lists, conversions, mix-in abilities.
namespace generic {

// One argument of a varg_list: an optional name and a value.
class MOTA_API argument {
 public:
  //@{
  // Unnamed and nil; the copy and move forms keep the other's name and value.
  argument() = default;
  argument(argument const&) = default;
  argument(argument&&) noexcept = default;
  //@}
  // Unnamed.
  argument(types::variant const& value) : m_value(value) {}  // NOLINT: implicit on purpose
  // Unnamed and nil.
  argument(types::nil_t const&) {}  // NOLINT
  // Named `name`, with `value` (shared).
  argument(strings::ustring8 const& name, types::variant const& value)
      : m_name(name), m_value(value) {}

  //@{
  // The name (empty when unnamed) and the value, and their setters.
  strings::ustring8 const& name() const { return m_name; }
  types::variant const& value() const { return m_value; }
  void name(strings::ustring8 const& name) { m_name = name; }
  void value(types::variant const& value) { m_value = value; }
  //@}

  // True when the name is not empty.
  bool has_name() const { return !m_name.empty(); }

  //@{
  // True when the argument is unnamed and its value is nil; a named argument is never nil.
  bool equal(types::nil_t const&) const { return m_name.empty() && m_value == types::nil; }
  bool operator==(types::nil_t const& n) const { return equal(n); }
  bool operator!=(types::nil_t const& n) const { return !equal(n); }
  //@}

  //@{
  // Sets the value only.
  argument& assign(types::variant const& value) {
    m_value = value;
    return *this;
  }
  argument& operator=(types::variant const& value) { return assign(value); }
  //@}
  //@{
  // Sets name and value, given or from another argument (the value is shared); returns *this.
  argument& assign(strings::ustring8 const& name, types::variant const& value) {
    m_name = name;
    m_value = value;
    return *this;
  }
  argument& assign(argument const& other) {
    if (this != &other) assign(other.m_name, other.m_value);
    return *this;
  }
  argument& operator=(argument const& other) { return assign(other); }
  argument& operator=(argument&&) noexcept = default;
  //@}

 private:
  strings::ustring8 m_name;
  types::variant m_value;
};

}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_ARGUMENT_HPP
