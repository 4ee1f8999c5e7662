// A localised message: a name and a sequence of text pieces and typed argument slots, with the
// locale of the catalog section it came from and free meta text. Rendering substitutes the
// argument slots from a generic::varg_list.
//
//   mota::generic::varg_list args = msg.arguments();   // one nil entry per argument slot
//   mota::strings::ustring8 text = msg.as_utf8(filled_args);
#ifndef MOTA_I18N_MESSAGE_HPP
#define MOTA_I18N_MESSAGE_HPP

#include <mota/export.hpp>
#include <mota/generic/varg_list.hpp>
#include <mota/i18n/message_item.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#include <map>
#include <string>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {

// A localised message: a name, its items (text pieces and argument slots), the locale it was
// read in and free meta text. Renders itself with the arguments filled in.
class MOTA_API message_t {
 public:
  //@{
  // The items in order, and the iterators over them.
  using items_type = std::vector<message_item>;
  using iterator = items_type::iterator;
  using const_iterator = items_type::const_iterator;
  //@}

  message_t() = default;
  // A message of that name and items, no meta text.
  message_t(const strings::ustring8& name, const items_type& items);
  // The third argument is the meta text.
  message_t(const strings::ustring8& name, const items_type& items, const strings::ustring8& meta);
  //@{
  // Takes the items over instead of copying them; the copy and move constructors copy or take
  // over all four fields.
  message_t(const strings::ustring8& name, items_type&& items, const strings::ustring8& meta);
  message_t(const message_t&) = default;
  message_t(message_t&&) noexcept = default;
  //@}
  // An empty message.
  message_t(const types::nil_t&);  // NOLINT: implicit on purpose
  ~message_t() = default;

  //@{
  // As assign(): copies the other message, takes its fields over, or clears this one.
  message_t& operator=(const message_t& other) { return assign(other); }
  message_t& operator=(message_t&&) noexcept = default;
  message_t& operator=(const types::nil_t& nil) { return assign(nil); }
  //@}
  // Copies all four fields; self-assignment does nothing.
  message_t& assign(const message_t& other);
  // Clears all four fields.
  message_t& assign(const types::nil_t&);

  //@{
  // The name or meta text; the setters return the new value.
  const strings::ustring8& name() const { return m_name; }
  const strings::ustring8& name(const strings::ustring8& name);
  const strings::ustring8& meta() const { return m_meta; }
  const strings::ustring8& meta(const strings::ustring8& meta);
  //@}
  //@{
  // The locale of the catalog section the message was read from (the name's spelling is
  // intended).
  const strings::ustring8& _orginal_locale() const { return m_orginal_locale; }
  const strings::ustring8& _orginal_locale(const strings::ustring8& locale);
  //@}

  //@{
  // The items in order.
  iterator begin() { return m_items.begin(); }
  iterator end() { return m_items.end(); }
  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }
  //@}
  //@{
  // Number of items (text pieces and argument slots).
  std::size_t count() const { return m_items.size(); }
  std::size_t size() const { return m_items.size(); }
  //@}

  // Number of argument slots (items that are not text).
  std::size_t argument_count() const;
  // False for a message without items, for a list shorter than argument_count(), and when an
  // argument slot's name is missing from the list; true otherwise.
  bool has_valid_args(const generic::varg_list& args) const;

  //@{
  // The rendered text: every item's rendering in order. Missing arguments show as
  // "?invalid?"; never throws for bad input.
  std::string as_string(const generic::varg_list& args) const;
  strings::ustring8 as_utf8(const generic::varg_list& args) const;
  strings::ustring16 as_utf16(const generic::varg_list& args) const;
  strings::ustring32 as_utf32(const generic::varg_list& args) const;
  std::wstring as_wstring(const generic::varg_list& args) const;
  std::string as_ustring(const generic::varg_list& args) const;
  //@}
  // Appends the rendered text to `out`.
  void append_to(std::string& out, const generic::varg_list& args) const;

  // A list with one nil-valued entry per argument slot, in order, keyed by the slot's whole
  // stored text (name, and 0x01 and format where present): a template to fill.
  generic::varg_list arguments() const;

  //@{
  // True for a message with no items, an empty name and empty meta (the locale is not
  // looked at).
  bool equal(const types::nil_t&) const;
  bool operator==(const types::nil_t& nil) const { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const { return !equal(nil); }
  //@}

  // Kept as an empty operation: messages have nothing to resolve.
  void resolve(const std::map<strings::ustring8, strings::ustring8>& container);

 private:
  strings::ustring8 m_name;
  items_type m_items;
  strings::ustring8 m_orginal_locale;
  strings::ustring8 m_meta;
};

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_MESSAGE_HPP
