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

class MOTA_API file_item : public base_config_item {
 public:
  // Identifier "standard file".
  explicit file_item(const strings::ustring8& filename);
  file_item(const file_item& other);
  ~file_item() override;

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
  // Drops every value.
  void unload() override;
  file_item* clone() const override;

  const strings::ustring8& get_filename() const { return m_filename; }

  // Reads get_filename() and parses it into the item after dropping the old values. False,
  // with the item left empty, when the name is empty or the file cannot be read.
  bool load_file();
  // Writes the values to get_filename() in the file syntax, so that load() reads back the
  // same keys and texts: one "key=value" line per value, grouped under "[section]" headers,
  // arrays as "key[]=a,b" lines. Keys and values go through quote_value, and are quoted too
  // when they hold bytes the syntax would read differently. False when there is no file name
  // or the file cannot be written.
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
