// Reads configuration text exactly as file_item does and notes every place where what is
// stored is probably not what the writer meant: a value cut short by "#" or "//", blanks
// dropped from an unquoted value, a line without "=" whose text joins the next key, an array
// left open by a trailing "," that takes in the following lines, a key set twice, an empty
// quoted value, a quote left open, and a value that a save would not write back as it is.
// It also records the line of every key, for tools that tell where a value came from.
//
//   mota::config::config_file_check check(text);
//   for (const auto& w : check.warnings()) std::cout << w.line << ": " << w.key << "\n";
//   check.line_of("server.port");   // the line whose value is kept, 0 when none
#ifndef MOTA_CONFIG_CONFIG_FILE_CHECK_HPP
#define MOTA_CONFIG_CONFIG_FILE_CHECK_HPP

#include <mota/config/config_tree.hpp>
#include <mota/config/file_item.hpp>
#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <string>
#include <vector>

namespace MOTA_2_18 {
namespace config {

// The warnings and key lines of one configuration text; built once, then only read.
class MOTA_API config_file_check {
 public:
  // What a warning is about; the comment of each kind says what `other_line` and `detail` hold.
  enum warning_kind {
    value_cut_by_comment,  // detail: the text from "#" or "//" on, read as a comment
    blanks_dropped,        // detail: the value as written, blanks and all
    key_without_equals,    // detail: the line's text; `key` is the key it became (or empty)
    array_swallows_line,   // other_line: the line of the trailing ","; detail: the line's text
    duplicate_key,         // other_line: the line of the earlier setting
    empty_quoted_value,    // the key stores nothing
    open_quote,            // a quote never closed: the value runs to the end of the text
    not_saved_exactly,     // detail: what a save and a reload give instead, empty when nothing
  };

  // One place where what is stored is probably not what was meant.
  struct warning {
    warning_kind kind;        ///< what the warning is about
    unsigned line;            ///< the line it is about, counted from 1
    std::string key;          ///< the full key as stored, section prefix included
    std::string stored;       ///< the stored value (array elements joined by ", "); empty: none
    unsigned other_line = 0;  ///< a second line, see warning_kind
    std::string detail;       ///< the text the warning quotes, see warning_kind
  };

  // One statement that stored a value, in the order of the text.
  struct definition {
    std::string key;  ///< the full key, section prefix included
    unsigned line;    ///< the line of the statement, counted from 1
    bool array;       ///< whether the statement stored an array
  };

  // Reads `text` as file_item would and collects the warnings and definitions; never throws
  // for malformed text, which only yields warnings.
  explicit config_file_check(const strings::ustring8& text);

  // The warnings in the order of the lines they are about.
  const std::vector<warning>& warnings() const { return m_warnings; }
  // Every statement that stored a value, in the order of the text.
  const std::vector<definition>& definitions() const { return m_definitions; }
  // The line of the statement whose value is kept for `key` (the last that set it), 0 when
  // no statement set it.
  unsigned line_of(const std::string& key) const;
  // The values as file_item stores them.
  const config_tree& stored() const { return m_item.get_tree(); }
  // The stored value of `key` as warnings show it: the text, or an array's elements joined by
  // ", "; empty when the key is not stored.
  std::string stored_text(const std::string& key) const;

 private:
  class reader;

  void check_duplicates();
  void check_round_trip();

  file_item m_item;
  std::vector<warning> m_warnings;
  std::vector<definition> m_definitions;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_CONFIG_FILE_CHECK_HPP
