// The standard dispatch of an application: its command line, its configuration file and its
// environment, asked in that order, so the command line overrides the file and the file the
// environment.
//
//   mota::config::config_manager manager;
//   manager.init(mota::config::std_config_dispatch(argc, argv, envp, "myapp"));
//   manager.load();   // reads the arguments, "myapp.cfg" and the environment
#ifndef MOTA_CONFIG_STD_CONFIG_DISPATCH_HPP
#define MOTA_CONFIG_STD_CONFIG_DISPATCH_HPP

#include <mota/config/config_dispatch.hpp>

namespace MOTA_2_18 {
namespace config {

// The usual set of sources: the command line first, then the configuration file, then the
// environment (the first item holding a key wins).
class MOTA_API std_config_dispatch : public config_dispatch {
 public:
  //@{
  // The vectors are not copied and must outlive the items. `name` is the configuration file
  // (see file_item::load(list) for how it is completed); a negative argc counts as 0.
  std_config_dispatch(int argc, const char* const* argv, const char* const* envp,
                      const strings::ustring8& name);
  ~std_config_dispatch() override;
  //@}

  //@{
  // setup() appends a commandline_item, a file_item and an enviroment_item, in that order;
  // load(), unload() and save() run on every item in list order; clone() copies the dispatch
  // (the vectors stay shared).
  void setup(item_list& items) override;
  // Loads every item but the file items, then the file items, so that "cfg_file" from the
  // command line or the environment names the file.
  void load(item_list& items) override;
  void unload(item_list& items) override;
  void save(item_list& items) override;
  std_config_dispatch* clone() const override;
  //@}

 private:
  int m_argc;
  const char* const* m_argv;
  const char* const* m_envp;
  strings::ustring8 m_name;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_STD_CONFIG_DISPATCH_HPP
