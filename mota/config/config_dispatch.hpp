// A dispatch decides which configuration items a config_manager holds (setup) and runs the
// load, unload and save of those items. std_config_dispatch and module_config_dispatch are the
// library's two; an application may derive its own.
//
//   mota::config::config_manager manager;
//   manager.init(mota::config::std_config_dispatch(argc, argv, envp, "myapp"));
#ifndef MOTA_CONFIG_CONFIG_DISPATCH_HPP
#define MOTA_CONFIG_CONFIG_DISPATCH_HPP

#include <mota/config/base_config_item.hpp>
#include <mota/export.hpp>
#include <mota/generic/abilities/clone_ability.hpp>

namespace MOTA_2_18 {
namespace config {

// Chooses a manager's configuration items and runs the loads, unloads and saves over them.
class MOTA_API config_dispatch : public generic::abilities::clone_ability {
 public:
  // The items in precedence order.
  using item_list = base_config_item::item_list;

  ~config_dispatch() override;

  // Appends the dispatch's items to the list.
  virtual void setup(item_list& items) = 0;
  //@{
  // Loads, unloads or saves the items; clone() copies the dispatch.
  virtual void load(item_list& items) = 0;
  virtual void unload(item_list& items) = 0;
  virtual void save(item_list& items) = 0;
  config_dispatch* clone() const override = 0;
  //@}

 protected:
  //@{
  // For the derived dispatches only.
  config_dispatch() = default;
  config_dispatch(const config_dispatch&) = default;
  config_dispatch& operator=(const config_dispatch&) = default;
  //@}

  //@{
  // The operation on every item in list order, each given the whole list.
  static void load_each(item_list& items);
  static void unload_each(item_list& items);
  static void save_each(item_list& items);
  //@}
  // Appends a heap item that the list owns.
  static void append(item_list& items, base_config_item* item);
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_CONFIG_DISPATCH_HPP
