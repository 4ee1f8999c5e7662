// What an application holds to read its configuration: an ordered list of configuration items,
// filled by a dispatch, answering dotted-key lookups with the first item that has the key.
//
//   mota::config::config_manager config;
//   config.init(mota::config::std_config_dispatch(argc, argv, envp, "myapp"));
//   config.load();
//   unsigned width = config.get_value("window.width", mota::types::variant(640u)).as_uint32();
#ifndef MOTA_CONFIG_CONFIG_MANAGER_HPP
#define MOTA_CONFIG_CONFIG_MANAGER_HPP

#include <mota/config/base_config_item.hpp>
#include <mota/config/config_dispatch.hpp>
#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/variant.hpp>

#include <iosfwd>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
// Configuration: items (file, command line, environment, user values), the dispatches that
// choose them, and the manager that answers dotted-key lookups.
namespace config {

// An application's configuration: the items a dispatch chose, asked in order for each key.
class MOTA_API config_manager {
 public:
  //@{
  // The items in precedence order, and a shared handle to one.
  using item_list = base_config_item::item_list;
  using item_pointer = base_config_item::item_pointer;
  //@}

  //@{
  // An empty manager: no dispatch, no items. Not copyable.
  config_manager();
  virtual ~config_manager();
  config_manager(const config_manager&) = delete;
  config_manager& operator=(const config_manager&) = delete;
  //@}

  // Drops the dispatch and every item held so far, keeps a clone of `dispatch` and lets it
  // append its items.
  void init(const config_dispatch& dispatch);
  //@{
  // Forward to the dispatch with the item list; without a dispatch they do nothing.
  void load();
  void unload();
  void save();
  //@}

  // The value under the key from the first item that has it. For an array, its first element
  // (nil when that is missing). For an indirection (flag 4), the lookup starts again with the
  // key the value names; a key met a second time ends the chain with the value that named it.
  // `default_value` when no item has the key.
  types::variant get_value(const strings::ustring8& key,
                           const types::variant& default_value = types::variant()) const;
  // get_value(key) is not nil.
  bool value_exist(const strings::ustring8& key) const;
  // Some item holds an array under the key.
  bool is_array(const strings::ustring8& key) const;
  // Replaces `values` with the elements of the first array under the key (empty when none).
  void get_array(const strings::ustring8& key, std::vector<types::variant>& values) const;
  // The same with each element's index.
  void get_key_value_array(const strings::ustring8& key,
                           std::vector<std::pair<strings::ustring8, types::variant>>& values) const;
  // The first item whose get_id() is `id` ("command line", "standard file", "enviroment",
  // "user item"), shared; an empty pointer when there is none.
  item_pointer get_config_item(const strings::ustring8& id) const;

  // The items in precedence order.
  const item_list& get_items() const { return m_items; }

  // "config_manager:\n", then "\nconfig_item:\n" and the dump of each item, then
  // "\nno more config_items!\n\nending output\n".
  void dump(std::ostream& out) const;

 private:
  item_list m_items;
  config_dispatch* m_dispatch = nullptr;
};

// Writes the manager's dump() to `out` and returns it.
MOTA_API std::ostream& operator<<(std::ostream& out, const config_manager& manager);

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_CONFIG_MANAGER_HPP
