// The dispatch of a module (a part of an application with a configuration of its own): the
// named arguments it was given, then the environment.
//
//   mota::generic::varg_list args;
//   args.push_back("log.level", mota::types::variant("debug"));
//   manager.init(mota::config::module_config_dispatch(args, envp));
#ifndef MOTA_CONFIG_MODULE_CONFIG_DISPATCH_HPP
#define MOTA_CONFIG_MODULE_CONFIG_DISPATCH_HPP

#include <mota/config/config_dispatch.hpp>
#include <mota/config/user_item.hpp>
#include <mota/generic/varg_list.hpp>

namespace MOTA_2_18 {
namespace config {

// The sources of a module: arguments given by the host as a varg_list, then the environment.
class MOTA_API module_config_dispatch : public config_dispatch {
 public:
  //@{
  // The list is copied; the environment vector is not and must outlive the items.
  module_config_dispatch(const generic::varg_list& arguments, const char* const* envp);
  ~module_config_dispatch() override;
  //@}

  // Appends a user_item holding the arguments, then an enviroment_item. A named argument is
  // stored under its name with its value; an unnamed argument whose value is text of the form
  // "key=value" is stored as set(text) does; other unnamed arguments are ignored.
  void setup(item_list& items) override;
  //@{
  // load() stores the arguments again in the first item when it is a user_item (an unload
  // dropped them), then loads every item; unload() and save() run on every item in list order;
  // clone() copies the dispatch.
  void load(item_list& items) override;
  void unload(item_list& items) override;
  void save(item_list& items) override;
  module_config_dispatch* clone() const override;
  //@}

 private:
  void store_arguments(user_item& item) const;

  generic::varg_list m_arguments;
  const char* const* m_envp;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_MODULE_CONFIG_DISPATCH_HPP
