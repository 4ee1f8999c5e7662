// Not part of the public interface.
//
// Reads one XMC message-catalog file, follows its includes, keeps the catalog sections whose
// language suits the requested locale and picks, message by message, the best language
// variant. message_catalogs merges the result with combine_data. The class is exported
// because the installed message_catalogs.hpp includes this header and names load_error in
// its result type; its private members are not.
//
//   xmc_file_loader loader;
//   xmc_file_loader::load_error e = loader.parse("app.xmc", "de_DE");
//   if (e.type == xmc_file_loader::no_error) loader.combine_data(catalogs);
#ifndef MOTA_I18N_PRIVATE_XMC_FILE_LOADER_HPP
#define MOTA_I18N_PRIVATE_XMC_FILE_LOADER_HPP

#include <mota/export.hpp>
#include <mota/i18n/_private/language_list.hpp>
#include <mota/i18n/catalog.hpp>
#include <mota/i18n/message.hpp>
#include <mota/memory/shared_pointer.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

class xmc_cursor;

class MOTA_API xmc_file_loader {
 public:
  enum error_type : std::int32_t {
    no_error = 0,
    no_catalog_loaded = 1,
    default_locale_not_supported = 2,
    file_not_found = 3,
    xml_parse_error = 4,
    invalid_attribute = 5,
    invalid_element = 6,
    not_xmc_file = 7,
    unsupported_version = 8,
    br_end_tag_missing = 9,
    msg_end_tag_missing = 10,
    arg_end_tag_missing = 11,
    include_end_tag_missing = 12,
    catalog_end_tag_missing = 13,
    unexpected_parse_error = 14
  };

  // A load failure: its kind and the fully worded message, to which context lines are
  // appended as the error travels outwards (innermost first).
  class MOTA_API load_error {
   public:
    enum append_type : std::int32_t { in_message = 1, in_catalog = 2, in_file = 3, at_line = 4 };

    load_error() : type(no_error), message(format_msg(no_error, strings::ustring8())) {}
    load_error(error_type kind, const strings::ustring8& detail);
    load_error(error_type kind, const parser::xml_parser::parse_error& error);
    load_error(const load_error&) = default;
    load_error& operator=(const load_error&) = default;
    ~load_error() = default;

    // Appends one context line: "\n in message element: \"text\"", "\n in catalog element:
    // \"text\"", "\n in file: \"text\"" or "\n at line: \"text\"".
    void append_error_stack(append_type where, const strings::ustring8& text);

    // The message of a kind with its detail text.
    static strings::ustring8 format_msg(error_type kind, const strings::ustring8& detail);
    // The message of an XML parse error, with its line.
    static strings::ustring8 format_msg(const parser::xml_parser::parse_error& error);

    error_type type;
    strings::ustring8 message;
  };

  using message_map = std::map<strings::ustring8, message_t>;
  using data_map = std::map<strings::ustring8, message_map>;
  using catalog_map = std::map<strings::ustring8, memory::pointers::shared_pointer<catalog_t>>;

  // Includes nested deeper than this are refused.
  static constexpr unsigned int max_include_depth = 32;
  // Within one parse, a file that was already read completely from the same directory is
  // not read again: what it would store again never outweighs what it stored the first time
  // (set_message keeps the first of equal weight), and a diamond of includes then costs one
  // read per file instead of one per path. A file that would now run into the depth bound
  // is read again, so that the same error is reported as without the shortcut.

  xmc_file_loader();
  ~xmc_file_loader();
  xmc_file_loader(const xmc_file_loader&) = delete;
  xmc_file_loader& operator=(const xmc_file_loader&) = delete;

  // Back to the initial state: no languages, no data, base directory "./", no catalog id.
  void reset();

  // Each parse returns the outcome (kind 0 on success) and never throws a load_error.
  // With the language list of an empty locale.
  load_error parse(const strings::ustring8& file);
  // An empty `lang` gives default_locale_not_supported without reading the file.
  load_error parse(const strings::ustring8& file, const strings::ustring8& lang);
  // Keeps only catalogs named `catalog_id` (none when it is empty).
  load_error parse(const strings::ustring8& file, const strings::ustring8& lang,
                   const strings::ustring8& catalog_id);
  // Reads one file: file_not_found when it does not exist or cannot be read.
  load_error parse_file(const strings::ustring8& path);
  // Reads XMC content; `file` names it in the error trail and its includes resolve against
  // the current base directory.
  load_error parse_string(const strings::ustring8& content, const strings::ustring8& file);

  bool is_cat_id_set() const { return !m_catalog_id.empty(); }
  bool is_catalog_matched(const strings::ustring8& name) const;
  bool is_lang_id_good(const strings::ustring8& lang) const;
  // 1-based position of the normalised locale in the language list (larger is more
  // specific); 0 when it is not wanted.
  std::uint32_t get_locale_weight(const strings::ustring8& locale) const;
  // Appends the fall-back entries "." and "en", then the locale's prefixes: de-DE.UTF-8 adds
  // de, de_DE, de_DE_UTF, de_DE_UTF_8.
  void handle_language(const strings::ustring8& lang);

  // Stores a message read in this load: the first of two equally weighted variants wins.
  void set_message(const message_t& message, const strings::ustring8& catalog);
  // The same for a message the caller no longer needs, into the messages of its catalog
  // (from messages_of), with the weight of its locale already known.
  void store_message(message_map& messages, message_t&& message, std::uint32_t weight);
  // The messages read so far for `catalog`, created empty when there are none.
  message_map& messages_of(const strings::ustring8& catalog) { return m_data[catalog]; }
  // Merges the loaded messages into `catalogs`: a message already there is replaced unless
  // its locale weighs strictly more than the new one.
  void combine_data(catalog_map& catalogs) const;
  // The same merge, moving the messages out of this loader (its data is left empty).
  void move_data(catalog_map& catalogs);

  const std::vector<strings::ustring8>& languages() const { return m_languages.entries(); }
  const data_map& data() const { return m_data; }
  const strings::ustring8& base_directory() const { return m_base_directory; }

 private:
  // The private members serve only the loader itself, so the shared library keeps them to
  // itself.

  // The document after the XML scan: the header, then the root's catalog sections and
  // includes up to the root's end tag. Throws load_error.
  MOTA_HIDDEN void read_document(xmc_cursor& at);
  // An "include" element: each "file" attribute names a file read at once.
  MOTA_HIDDEN void read_include(xmc_cursor& at);
  // Records that the file being read includes one whose include height is `height`.
  MOTA_HIDDEN void note_included_height(unsigned int height);

  // A file being read: its identity and the deepest nesting of includes found below it so
  // far (0 for a file that includes nothing).
  struct MOTA_HIDDEN open_file {
    strings::ustring8 identity;
    unsigned int height;
  };
  class parse_scope;

  language_list m_languages;
  data_map m_data;
  strings::ustring8 m_base_directory;
  strings::ustring8 m_catalog_id;
  // The files being read, outermost first, to refuse include cycles.
  std::vector<open_file> m_open_files;
  // The included files read completely in the current parse, keyed by their resolved
  // directory and name, with their include heights. Emptied when the outermost parse_string
  // returns.
  std::unordered_map<std::string, unsigned int> m_loaded;
  // How many parse_string calls are running (0 outside any parse).
  unsigned int m_nesting = 0;
};

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_FILE_LOADER_HPP
