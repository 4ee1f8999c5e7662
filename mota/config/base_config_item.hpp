// The base of every configuration source (a file, the command line, the environment, values
// the application sets): it owns the item's tree of dotted keys, stores values under them and
// holds the lexer of the configuration language. Items are shared through rc_pointer and
// copied with clone().
//
//   mota::config::user_item item;
//   item.set("window.title=Main", 0);
//   item.get_value("window.title")->second.as_string();   // "Main"
#ifndef MOTA_CONFIG_BASE_CONFIG_ITEM_HPP
#define MOTA_CONFIG_BASE_CONFIG_ITEM_HPP

#include <mota/config/config_token.hpp>
#include <mota/config/config_tree.hpp>
#include <mota/export.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/generic/varg_list.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/variant.hpp>

#include <iosfwd>
#include <list>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
namespace config {

// A source of configuration values (a file, the command line, the environment, values set by the
// application) holding them in a config_tree; shared through item_pointer.
class MOTA_API base_config_item
    : public generic::abilities::reference_count_pointer_ability<base_config_item>,
      public generic::abilities::clone_ability {
 public:
  //@{
  // The shared handle to an item, the list of items a manager loads in order, and a stored node
  // (flags and value).
  using item_pointer = memory::pointers::rc_pointer<base_config_item>;
  using item_list = std::list<item_pointer>;
  using node_t = config_tree::node_t;
  //@}

  //@{
  // The node flags: both array bits mark an array; the indirect bit a value naming another key.
  static constexpr unsigned array_flags = config_tree::array_flags;
  static constexpr unsigned indirect_flag = config_tree::indirect_flag;
  //@}

  ~base_config_item() override;

  // Loads the item, given the list of all items (an item may consult the others). The base
  // version calls load().
  virtual void load(item_list& items);
  // Loads from the item's own source; the base has none and does nothing.
  virtual void load();
  // Saves the item, given the list of all items; the base version calls save().
  virtual void save(item_list& items);
  // Saves to the item's own source; the base has none and does nothing.
  virtual void save();
  //@{
  // unload() drops every value of the item; clone() gives an independent copy of the item.
  virtual void unload();
  base_config_item* clone() const override = 0;
  //@}

  // The node stored under the key (flags and value), or null. Valid until the item changes.
  const node_t* get_value(const strings::ustring8& key) const;

  //@{
  // Store a value under a key with the given flags. An empty key stores nothing.
  void set(const std::pair<strings::ustring8, types::variant>& key_value, unsigned flags);
  void set(const strings::ustring8& key, const types::variant& value, unsigned flags);
  //@}
  // `text` is a whole assignment "key=value", split at its first "=" token; the value is
  // stored as text (an empty value included). Text without "=" stores an empty value under
  // the whole text.
  void set(const strings::ustring8& text, unsigned flags);

  // Lexes `text` and returns the raw text before the first token of kind `separator` and the
  // raw text after it; (text, "") when there is no such token.
  static std::pair<strings::ustring8, strings::ustring8> make_key_value(
      const strings::ustring8& text, config_token::tok_types separator);

  // Stores an array under the key: the array node, and each value under "<key>.<index>",
  // where the index is the text of the matching entry of `indexes` or, past its end, the
  // value's position. Elements of an array stored there before are erased.
  void set_array(const strings::ustring8& key, const generic::varg_list& indexes,
                 const generic::varg_list& values);

  //@{
  // Appends the elements of the array under the key (element index, flags, value), in array
  // order; false when the key holds no array.
  bool get_array(const strings::ustring8& key,
                 std::vector<std::pair<strings::ustring8, node_t>>& elements) const;
  bool get_value_pair_array(
      const strings::ustring8& key,
      std::vector<std::pair<strings::ustring8, types::variant>>& elements) const;
  //@}

  // "standard file", "command line", "enviroment" or "user item".
  const strings::ustring8& get_id() const { return m_id; }

  // The item's tree of values.
  const config_tree& get_tree() const { return m_tree; }

  // Prints the item's tree (see config_tree::dump).
  void dump(std::ostream& out) const;

  // Reads one token of `line` at `position`, advances `position` past it, fills `tok` and
  // returns the token's kind. At or past the end: T_END with text, start and end untouched.
  // A run of blanks gives T_SPACE with the text untouched. For "*/" the token's type is 24
  // while T_FSFS is returned (intended: callers testing the result see a comment marker).
  static int get_token(const strings::ustring8& line, unsigned& position, config_token& tok);

 protected:
  //@{
  // An empty item with the identifier `id`, or a copy of another item's identifier and values.
  explicit base_config_item(const strings::ustring8& id);
  base_config_item(const base_config_item& other);
  base_config_item& operator=(const base_config_item&) = delete;
  //@}

  // The item's values, for the derived items to fill.
  config_tree m_tree;

 private:
  strings::ustring8 m_id;
};

// Writes the item's dump() to `out` and returns it.
MOTA_API std::ostream& operator<<(std::ostream& out, const base_config_item& item);

// The text unchanged, or enclosed in double quotes when it holds a blank, carriage return,
// tab or line feed. Inner quotes are not escaped.
MOTA_API strings::ustring8 quote_value(const strings::ustring8& text);

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_BASE_CONFIG_ITEM_HPP
