// The message catalogs of an application: loads XMC files for a locale (single files, lists,
// whole directory trees), keeps the catalogs by name and hands out messages by catalog and
// message name. Loads report their outcome as a result_type; they do not throw.
//
//   mota::i18n::message_catalogs cats;
//   auto r = cats.load("/usr/share/app/messages", "de_DE");
//   if (r.type != 0) std::cerr << r;
//   std::string text = cats.message("errors", "disk_full").as_string(args);
#ifndef MOTA_I18N_MESSAGE_CATALOGS_HPP
#define MOTA_I18N_MESSAGE_CATALOGS_HPP

#include <mota/export.hpp>
#include <mota/i18n/_private/xmc_file_loader.hpp>
#include <mota/i18n/catalog.hpp>
#include <mota/i18n/message.hpp>
#include <mota/memory/shared_pointer.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/nil.hpp>

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

namespace MOTA_2_18 {
// Localised messages: catalogs loaded from XMC files, messages and their argument formatting.
namespace i18n {

// The loaded catalogs by name. Loading never throws for a faulty file: the result says what
// went wrong. Lookups of unknown names give the nil catalog or message.
class MOTA_API message_catalogs {
 public:
  // The kinds of a load result from the catalogs' own checks; a result made from a loader error
  // carries the loader's kind (0 to 14) instead.
  enum error_type : std::int32_t {
    no_error = 0,
    no_catalog_loaded = 1,
    default_locale_not_supported = 2,
    file_not_found = 3,
    directory_not_found = 4,
    entity_not_found = 5
  };

  // The outcome of a load: the kind and a worded message. A result made from a loader error
  // carries the loader's kind (0 to 14) and a headline followed by the loader's message.
  class MOTA_API result_type {
   public:
    // The kind with the message format_message(kind, detail).
    result_type(error_type kind, const strings::ustring8& detail);
    // The loader's kind, with a headline chosen by it ("message_catalogs::result_type - XMC file is
    // not valid\n " for the kinds 5 to 13, ...) followed by the loader's message.
    result_type(const _private::xmc_file_loader::load_error& error);  // NOLINT: implicit
    //@{
    // Copies kind and message.
    result_type(const result_type&) = default;
    result_type& operator=(const result_type&) = default;
    //@}
    ~result_type() = default;

    // "message_catalogs::result_type - ..." for the kinds 0, 1, 3, 4 and 5; any other kind
    // names itself and ends with " str data=" and the detail.
    static strings::ustring8 format_message(error_type kind, const strings::ustring8& detail);

    // The kind: 0 for success.
    error_type type;
    // The worded outcome, for people.
    strings::ustring8 message;
  };

  //@{
  // The catalogs by name, each shared between copies of the object, and the iterators over them.
  using catalog_pointer = memory::pointers::shared_pointer<catalog_t>;
  using catalog_map = std::map<strings::ustring8, catalog_pointer>;
  using iterator = catalog_map::iterator;
  using const_iterator = catalog_map::const_iterator;
  //@}
  // An iterator over one catalog's messages.
  using message_iterator = catalog_t::const_iterator;
  // Name-to-name map kept for set_resolve_container.
  using resolve_container = std::map<strings::ustring8, strings::ustring8>;

  //@{
  // Returned for unknown catalog and message names.
  static const catalog_t s_nil_catalog;
  static const message_t s_nil_message;
  //@}

  message_catalogs() = default;
  //@{
  // Copies share the catalogs (the pointers are copied, not the catalogs); assigning nil removes
  // every catalog. Each assignment returns *this.
  message_catalogs(const message_catalogs& other) = default;
  ~message_catalogs() = default;
  message_catalogs& operator=(const message_catalogs& other) { return assign(other); }
  message_catalogs& operator=(const types::nil_t& nil) { return assign(nil); }
  message_catalogs& assign(const message_catalogs& other);
  //@}
  // Removes every catalog.
  message_catalogs& assign(const types::nil_t&);
  //@{
  // True when no catalog is held.
  bool equal(const types::nil_t&) const { return m_catalogs.empty(); }
  bool operator==(const types::nil_t& nil) const { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const { return !equal(nil); }
  //@}

  //@{
  // A file or a directory tree. Kind 5 when the path is neither; kind 1 when the load
  // succeeded but no catalog is held at all.
  result_type load(const strings::ustring8& path, const strings::ustring8& locale);
  result_type load(const strings::ustring16& path, const strings::ustring16& locale);
  result_type load(const strings::ustring32& path, const strings::ustring32& locale);
  result_type load(const strings::ustring8& path, const strings::ustring8& locale,
                   const strings::ustring8& catalog_id);
  result_type load(const strings::ustring16& path, const strings::ustring16& locale,
                   const strings::ustring16& catalog_id);
  result_type load(const strings::ustring32& path, const strings::ustring32& locale,
                   const strings::ustring32& catalog_id);
  //@}
  //@{
  // Each path in turn (files and directories); the first failure stops the walk.
  result_type load(const std::vector<strings::ustring8>& paths, const strings::ustring8& locale);
  result_type load(const std::vector<strings::ustring16>& paths, const strings::ustring16& locale);
  result_type load(const std::vector<strings::ustring32>& paths, const strings::ustring32& locale);
  result_type load(const std::vector<std::string>& paths, const strings::ustring8& locale);
  result_type load(const std::vector<std::wstring>& paths, const strings::ustring32& locale);
  result_type load(const std::vector<strings::ustring8>& paths, const strings::ustring8& locale,
                   const strings::ustring8& catalog_id);
  result_type load(const std::vector<strings::ustring16>& paths, const strings::ustring16& locale,
                   const strings::ustring16& catalog_id);
  result_type load(const std::vector<strings::ustring32>& paths, const strings::ustring32& locale,
                   const strings::ustring32& catalog_id);
  result_type load(const std::vector<std::string>& paths, const strings::ustring8& locale,
                   const strings::ustring8& catalog_id);
  result_type load(const std::vector<std::wstring>& paths, const strings::ustring32& locale,
                   const strings::ustring32& catalog_id);
  //@}

  //@{
  // One XMC file; what it holds is merged only when it loads without error.
  result_type load_file(const strings::ustring8& file, const strings::ustring8& locale);
  result_type load_file(const strings::ustring16& file, const strings::ustring16& locale);
  result_type load_file(const strings::ustring32& file, const strings::ustring32& locale);
  result_type load_file(const strings::ustring8& file, const strings::ustring8& locale,
                        const strings::ustring8& catalog_id);
  result_type load_file(const strings::ustring16& file, const strings::ustring16& locale,
                        const strings::ustring16& catalog_id);
  result_type load_file(const strings::ustring32& file, const strings::ustring32& locale,
                        const strings::ustring32& catalog_id);
  //@}

  //@{
  // Every file ending ".xmc" or ".xml" (any case) in the tree; kind 4 when the directory does
  // not exist; the first failing file stops the walk (earlier files stay loaded).
  result_type load_directory(const strings::ustring8& dir, const strings::ustring8& locale);
  result_type load_directory(const strings::ustring16& dir, const strings::ustring16& locale);
  result_type load_directory(const strings::ustring32& dir, const strings::ustring32& locale);
  result_type load_directory(const strings::ustring8& dir, const strings::ustring8& locale,
                             const strings::ustring8& catalog_id);
  result_type load_directory(const strings::ustring16& dir, const strings::ustring16& locale,
                             const strings::ustring16& catalog_id);
  result_type load_directory(const strings::ustring32& dir, const strings::ustring32& locale,
                             const strings::ustring32& catalog_id);
  //@}

  //@{
  // Whether a catalog of that name is held.
  bool has_catalog(const strings::ustring8& name) const;
  bool has_catalog(const strings::ustring16& name) const;
  bool has_catalog(const strings::ustring32& name) const;
  //@}
  //@{
  // Whether the catalog holds messages read for `locale` ("." and "-" count as "_", unless the
  // locale is one byte long).
  bool has_catalog(const strings::ustring8& name, const strings::ustring8& locale) const;
  bool has_catalog(const strings::ustring16& name, const strings::ustring16& locale) const;
  bool has_catalog(const strings::ustring32& name, const strings::ustring32& locale) const;
  //@}

  //@{
  // The catalog, or s_nil_catalog.
  const catalog_t& catalog(const strings::ustring8& name) const;
  const catalog_t& catalog(const strings::ustring16& name) const;
  const catalog_t& catalog(const strings::ustring32& name) const;
  //@}

  //@{
  // The message, or s_nil_message for an unknown catalog (the catalog's own nil message for
  // an unknown message name); has_message tells whether both exist.
  const message_t& message(const strings::ustring8& catalog, const strings::ustring8& name) const;
  const message_t& message(const strings::ustring16& catalog, const strings::ustring16& name) const;
  const message_t& message(const strings::ustring32& catalog, const strings::ustring32& name) const;
  bool has_message(const strings::ustring8& catalog, const strings::ustring8& name) const;
  bool has_message(const strings::ustring16& catalog, const strings::ustring16& name) const;
  bool has_message(const strings::ustring32& catalog, const strings::ustring32& name) const;
  //@}

  //@{
  // Number of catalogs.
  std::size_t size() const { return m_catalogs.size(); }
  std::size_t count() const { return m_catalogs.size(); }
  //@}
  //@{
  // Number of messages in a catalog; 0 when it is absent.
  std::size_t size(const strings::ustring8& catalog) const;
  std::size_t size(const strings::ustring16& catalog) const;
  std::size_t size(const strings::ustring32& catalog) const;
  std::size_t count(const strings::ustring8& catalog) const { return size(catalog); }
  std::size_t count(const strings::ustring16& catalog) const { return size(catalog); }
  std::size_t count(const strings::ustring32& catalog) const { return size(catalog); }
  //@}

  //@{
  // The catalogs in name order.
  iterator begin() { return m_catalogs.begin(); }
  iterator end() { return m_catalogs.end(); }
  const_iterator begin() const { return m_catalogs.begin(); }
  const_iterator end() const { return m_catalogs.end(); }
  //@}
  //@{
  // The messages of one catalog (an empty range when it is absent).
  message_iterator begin(const strings::ustring8& catalog) const;
  message_iterator begin(const strings::ustring16& catalog) const;
  message_iterator begin(const strings::ustring32& catalog) const;
  message_iterator end(const strings::ustring8& catalog) const;
  message_iterator end(const strings::ustring16& catalog) const;
  message_iterator end(const strings::ustring32& catalog) const;
  //@}

  //@{
  // Removes every catalog, or one.
  void erase();
  void erase(const strings::ustring8& catalog);
  void erase(const strings::ustring16& catalog);
  void erase(const strings::ustring32& catalog);
  //@}

  // Stores a copy; nothing reads it (messages have nothing to resolve).
  void set_resolve_container(const resolve_container& container);

 private:
  result_type load_file_impl(const strings::ustring8& file, const strings::ustring8& locale,
                             const strings::ustring8* catalog_id);
  result_type load_directory_impl(const strings::ustring8& dir, const strings::ustring8& locale,
                                  const strings::ustring8* catalog_id, unsigned int depth,
                                  std::unordered_set<std::string>& visited);
  result_type load_impl(const strings::ustring8& path, const strings::ustring8& locale,
                        const strings::ustring8* catalog_id);
  result_type load_list_impl(const std::vector<strings::ustring8>& paths,
                             const strings::ustring8& locale, const strings::ustring8* catalog_id);

  catalog_map m_catalogs;
  resolve_container m_resolve_container;
};

// Writes the result's message.
MOTA_API std::ostream& operator<<(std::ostream& out, const message_catalogs::result_type& result);

}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_MESSAGE_CATALOGS_HPP
