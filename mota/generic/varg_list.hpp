// An ordered list of arguments, each optionally named, addressed by position or by name.
// Names are unique among named arguments: pushing a second argument with a taken name is
// refused. Name lookups that find nothing return varg_list::nil_argument.
//
//   mota::generic::varg_list args(mota::generic::argument("file", "a.txt"),
//                                 mota::generic::argument("line", 12));
//   args["line"].value().as_int();   // 12
//   args[0].name();                  // "file"
#ifndef MOTA_GENERIC_VARG_LIST_HPP
#define MOTA_GENERIC_VARG_LIST_HPP

#include <mota/export.hpp>
#include <mota/generic/argument.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#include <vector>

namespace MOTA_2_18 {
namespace generic {

// An ordered list of arguments, unnamed or named (a name at most once), for messages and
// configuration.
class MOTA_API varg_list {
 public:
  //@{
  // The arguments in order, and the iterators over them.
  using container_type = std::vector<argument>;
  using iterator = container_type::iterator;
  using const_iterator = container_type::const_iterator;
  //@}

  // The unnamed nil argument returned by name lookups that find nothing.
  static argument const nil_argument;

  //@{
  // Appends the arguments in order with push_back, stopping at the first one equal to nil
  // (unnamed with a nil value); the arguments after it are ignored even if they are not nil.
  // With no argument the list is empty. The copy shares the values.
  varg_list(argument const& a1 = nil_argument, argument const& a2 = nil_argument,  // NOLINT
            argument const& a3 = nil_argument, argument const& a4 = nil_argument,
            argument const& a5 = nil_argument, argument const& a6 = nil_argument,
            argument const& a7 = nil_argument, argument const& a8 = nil_argument,
            argument const& a9 = nil_argument, argument const& a10 = nil_argument,
            argument const& a11 = nil_argument, argument const& a12 = nil_argument,
            argument const& a13 = nil_argument, argument const& a14 = nil_argument,
            argument const& a15 = nil_argument, argument const& a16 = nil_argument,
            argument const& a17 = nil_argument, argument const& a18 = nil_argument,
            argument const& a19 = nil_argument, argument const& a20 = nil_argument,
            argument const& a21 = nil_argument, argument const& a22 = nil_argument,
            argument const& a23 = nil_argument, argument const& a24 = nil_argument,
            argument const& a25 = nil_argument, argument const& a26 = nil_argument);
  varg_list(varg_list const&) = default;
  varg_list(varg_list&&) noexcept = default;
  ~varg_list();
  //@}

  //@{
  // Appends `arg` and returns true, unless it is named and an argument with the same name is
  // already in the list: then nothing changes and the result is false.
  bool push_back(argument const& arg);
  bool push_back(strings::ustring8 const& name, types::variant const& value);
  //@}

  //@{
  // The number of arguments, and whether there is none.
  unsigned int count() const { return static_cast<unsigned int>(m_arguments.size()); }
  bool empty() const { return m_arguments.empty(); }
  //@}
  //@{
  // True when the list is empty.
  bool equal(types::nil_t const&) const { return m_arguments.empty(); }
  bool operator==(types::nil_t const& n) const { return equal(n); }
  bool operator!=(types::nil_t const& n) const { return !equal(n); }
  //@}

  //@{
  // The arguments in order.
  iterator begin() { return m_arguments.begin(); }
  iterator end() { return m_arguments.end(); }
  const_iterator begin() const { return m_arguments.begin(); }
  const_iterator end() const { return m_arguments.end(); }
  //@}

  //@{
  // The argument at `index`; an index not below count() throws std::out_of_range
  // ("vector::_M_range_check: __n (which is N) >= this->size() (which is M)").
  argument& at(unsigned int index) { return m_arguments.at(index); }
  argument const& at(unsigned int index) const { return m_arguments.at(index); }
  argument& operator[](unsigned int index) { return m_arguments.at(index); }
  argument const& operator[](unsigned int index) const { return m_arguments.at(index); }
  //@}

  //@{
  // The first argument named `name`, or nil_argument when there is none. Unnamed arguments
  // are reached by position only: an empty name finds nothing. has_argument tells whether
  // there is one.
  argument const& at(strings::ustring8 const& name) const;
  argument const& operator[](strings::ustring8 const& name) const { return at(name); }
  bool has_argument(strings::ustring8 const& name) const { return find(name) != end(); }
  //@}
  //@{
  // An iterator to the first argument named `name`, or end().
  iterator find(strings::ustring8 const& name);
  const_iterator find(strings::ustring8 const& name) const;
  //@}

  // Removes the first argument named `name`, if any.
  void erase(strings::ustring8 const& name);
  //@{
  // Removes the argument at `index` (an index not below count() changes nothing), at
  // `position` or in [first, last); the iterator forms return the position after the removal.
  void erase(unsigned int index);
  iterator erase(iterator position) { return m_arguments.erase(position); }
  iterator erase(iterator first, iterator last) { return m_arguments.erase(first, last); }
  //@}
  //@{
  // Remove everything.
  void erase() { m_arguments.clear(); }
  void clear() { m_arguments.clear(); }
  //@}

  //@{
  // Copies the other list; the values are shared.
  varg_list& assign(varg_list const& other) {
    if (this != &other) m_arguments = other.m_arguments;
    return *this;
  }
  varg_list& operator=(varg_list const& other) { return assign(other); }
  varg_list& operator=(varg_list&&) noexcept = default;
  //@}

 private:
  container_type m_arguments;
};

}  // namespace generic
}  // namespace MOTA_2_18

#endif  // MOTA_GENERIC_VARG_LIST_HPP
