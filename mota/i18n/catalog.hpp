// A named catalog of messages, keyed by message name (byte-wise order), with a cached set of
// the locales its messages were read in.
//
//   const mota::i18n::message_t& m = catalog.message("greeting");  // nil message if absent
//   if (catalog.is_language_loaded("de-DE")) ...
#ifndef MOTA_I18N_CATALOG_HPP
#define MOTA_I18N_CATALOG_HPP

#include <mota/export.hpp>
#include <mota/i18n/message.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#include <cstdint>
#include <map>
#include <set>

namespace MOTA_2_18 {
namespace i18n {

namespace _private {
struct catalog_internals;
}  // namespace _private

// One catalog of messages, keyed by message name, with the set of locales they were read in.
class MOTA_API catalog_t {
 public:
  //@{
  // The messages by name, in byte-wise name order, and the iterators over them.
  using messages_type = std::map<strings::ustring8, message_t>;
  using iterator = messages_type::iterator;
  using const_iterator = messages_type::const_iterator;
  //@}
  // The distinct locales of the messages.
  using languages_type = std::set<strings::ustring8>;
  // An iterator over the language set.
  using language_iterator = languages_type::const_iterator;

  // The empty message returned for unknown names.
  static const message_t m_nil_message;

  //@{
  // An empty catalog, or a copy of the name, the language set and the messages.
  catalog_t() = default;
  catalog_t(const catalog_t& other);
  //@}
  ~catalog_t() = default;

  //@{
  // As assign(): copies the other catalog, or clears this one.
  catalog_t& operator=(const catalog_t& other) { return assign(other); }
  catalog_t& operator=(const types::nil_t& nil) { return assign(nil); }
  //@}
  // Copies the name, the language set and the messages.
  catalog_t& assign(const catalog_t& other);
  // Clears the name, the language set and the messages.
  catalog_t& assign(const types::nil_t&);
  //@{
  // True for a catalog without messages.
  bool equal(const types::nil_t&) const { return m_messages.empty(); }
  bool operator==(const types::nil_t& nil) const { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const { return !equal(nil); }
  //@}

  // The catalog's name.
  strings::ustring8 name() const { return m_name; }
  //@{
  // Sets the name; UTF-16 and UTF-32 names are converted to UTF-8 first.
  void _name(const strings::ustring8& name) { m_name = name; }
  void _name(const strings::ustring16& name);
  void _name(const strings::ustring32& name);
  //@}

  //@{
  // True when a message of that name is stored (wide names are converted to UTF-8).
  bool has_message(const strings::ustring8& name) const;
  bool has_message(const strings::ustring16& name) const;
  bool has_message(const strings::ustring32& name) const;
  //@}
  //@{
  // The stored message, or m_nil_message when there is none (nothing is inserted).
  const message_t& message(const strings::ustring8& name) const;
  const message_t& message(const strings::ustring16& name) const;
  const message_t& message(const strings::ustring32& name) const;
  //@}
  //@{
  // Inserts or replaces the message; the language set is cleared so that it is rebuilt on
  // next use.
  void message(const strings::ustring8& name, const message_t& message);
  void message(const strings::ustring8& name, message_t&& message);
  void message(const strings::ustring16& name, const message_t& message);
  void message(const strings::ustring32& name, const message_t& message);
  //@}

  // The number of messages.
  std::size_t size() const { return m_messages.size(); }
  //@{
  // The messages in name order.
  iterator begin() { return m_messages.begin(); }
  iterator end() { return m_messages.end(); }
  const_iterator begin() const { return m_messages.begin(); }
  const_iterator end() const { return m_messages.end(); }
  //@}

  //@{
  // The distinct locales of the messages, built first when the set is empty.
  language_iterator languages_begin() const;
  language_iterator languages_end() const;
  //@}
  // Adds every message's locale to the language set.
  void gen_lang_set() const;
  //@{
  // Whether a message was read in `lang`; "." and "-" in `lang` count as "_".
  bool is_language_loaded(const strings::ustring8& lang) const;
  bool is_language_loaded(const strings::ustring16& lang) const;
  bool is_language_loaded(const strings::ustring32& lang) const;
  //@}

 private:
  // The catalog loader moves whole messages in without copying them.
  friend struct _private::catalog_internals;

  // Reserved words; the catalog itself does not use them.
  std::uint32_t m_reserved0 = 0;
  std::uint32_t m_reserved1 = 0;
  strings::ustring8 m_name;
  // A cache, so const readers may build it.
  mutable languages_type m_languages;
  messages_type m_messages;
};

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_CATALOG_HPP
