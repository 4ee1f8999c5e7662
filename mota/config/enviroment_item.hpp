// The process environment as a configuration item: every "NAME=value" entry is stored as the
// text value under the key NAME. (The class name's spelling is the library's own.)
//
//   extern char** environ;
//   mota::config::enviroment_item env(environ);
//   env.load();   // env.get_value("HOME")->second.as_string()
#ifndef MOTA_CONFIG_ENVIROMENT_ITEM_HPP
#define MOTA_CONFIG_ENVIROMENT_ITEM_HPP

#include <mota/config/base_config_item.hpp>

namespace MOTA_2_18 {
namespace config {

// The process environment as a configuration item (the name's spelling is intended).
class MOTA_API enviroment_item : public base_config_item {
 public:
  //@{
  // `envp` is a null-terminated vector of "NAME=value" texts (or null); it is not copied and
  // must outlive the item's loads. Identifier "enviroment".
  explicit enviroment_item(const char* const* envp);
  enviroment_item(const enviroment_item& other);
  ~enviroment_item() override;
  //@}

  //@{
  // Replaces the values with the vector's entries, each split at its first "=" token (an
  // entry without one is stored under its whole text with an empty value). A null vector
  // loads nothing.
  void load(item_list& items) override;
  void load() override;
  //@}
  // Drops every value.
  void unload() override;
  enviroment_item* clone() const override;

  // The environment vector given to the constructor.
  const char* const* get_envp() const { return m_envp; }

 private:
  const char* const* m_envp;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_ENVIROMENT_ITEM_HPP
