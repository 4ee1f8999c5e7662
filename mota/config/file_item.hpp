// A configuration file as a configuration item. The file holds "key = value" lines, "[section]"
// headers that prefix the following keys ("[a.b]" then "x = 1" stores "a.b.x"; "[]" returns to
// the top level), "key[] = a, b, c" arrays (a trailing "," continues the array on the next
// line) and comments from "#" or "//" to the end of the line. Blanks outside double-quoted
// strings are dropped.
//
//   mota::config::file_item file("settings.cfg");
//   file.load();   // "[window]\nwidth = 640" stores "640" under "window.width"
#ifndef MOTA_CONFIG_FILE_ITEM_HPP
#define MOTA_CONFIG_FILE_ITEM_HPP

#include <mota/config/base_config_item.hpp>

namespace MOTA_2_18 {
namespace config {

// A configuration file as a configuration item, read and written in the file syntax.
class MOTA_API file_item : public base_config_item {
 public:
  //@{
  // An item with the identifier "standard file" for the file `filename` (chosen finally by
  // load(list)), or a copy of another file item.
  explicit file_item(const strings::ustring8& filename);
  file_item(const file_item& other);
  ~file_item() override;
  //@}

  // Chooses the file, then loads it as load() does. The file is, in this order: the text under
  // "cfg_file" in the first other item that has one; the name given to the constructor, with
  // ".cfg" appended when its last path piece has no "."; "<application.name.raw>.cfg" from the
  // first other item that has that key. The choice becomes get_filename().
  void load(item_list& items) override;
  // Replaces the values with those of the file get_filename(); see load_file().
  void load() override;
  // Chooses the file as load(list) does, then saves as save() does.
  void save(item_list& items) override;
  // Writes the values to get_filename(); see save_file().
  void save() override;
  //@{
  // unload() drops every value; clone() gives an independent copy of the item.
  void unload() override;
  file_item* clone() const override;
  //@}

  // The file read and written: the constructor's name until load(list) chooses one.
  const strings::ustring8& get_filename() const { return m_filename; }

  // Reads get_filename() and parses it into the item after dropping the old values. False,
  // with the item left empty, when the name is empty or the file cannot be read.
  bool load_file();
  // Writes the values to get_filename() in the file syntax: one "key=value" line per value,
  // under a "[section]" header for the part of the key before its last dot, arrays as
  // "key[]=a,b" lines. Keys and values go through quote_value, and are written as quoted
  // strings as well when the syntax would read them differently bare ("#", "//", "=", ",",
  // brackets, a key ending in "-", ...). False when there is no file name or the file cannot
  // be written.
  //
  // load() reads back every key, with its value as text (as_string()), byte for byte, when:
  // - the text of the key and of the value has a backslash before each double quote (a quoted
  //   string cannot hold a bare quote and keeps its backslashes: any other byte, blanks, tabs,
  //   line ends, "#" and NUL included, is carried);
  // - the value is not empty (the reader stores no empty value) and not nil;
  // - a key that is not an array does not end in "[]" (the reader takes it for an array).
  // Flags other than the array bits are not written: values come back with flags 0. An array
  // comes back with the same elements, in the same order, under the same keys, and with its
  // own value (the element count set_array stores) as long as that many elements named "0",
  // "1", ... with non-empty texts lead the list; an array read from a file always qualifies.
  // An empty element is not written; a key stored directly below an array, not among its
  // elements, stays so. A configuration read from a file is therefore saved and read back
  // unchanged, key by key, with flags and element order.
  //
  // What cannot be carried is changed as little as possible, and never at the cost of another
  // key: a quote with no backslash before it gets one (the text say "hi" comes back with a
  // backslash before each quote); a key so changed that would meet another key of the item is not
  // written; an empty value, a nil value and a scalar key ending in "[]" are not written.
  // Each line holds exactly one key, so no value spills into another.
  bool save_file() const;
  // Parses configuration text into the item, adding to the values it holds.
  void parse(const strings::ustring8& text);
  // Skips one comment: consumes tokens from `position` up to the next line feed (left to be
  // read) or the end of the text; returns T_NEWLINE or T_END.
  static int parse_comment(const strings::ustring8& text, unsigned& position, config_token& tok);

 private:
  strings::ustring8 choose_filename(const item_list& items) const;

  strings::ustring8 m_given;     // the name given to the constructor
  strings::ustring8 m_filename;  // the file read and written
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_FILE_ITEM_HPP
