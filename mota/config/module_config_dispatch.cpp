#include <mota/config/enviroment_item.hpp>
#include <mota/config/module_config_dispatch.hpp>
#include <mota/config/user_item.hpp>

#include <typeinfo>

namespace MOTA_2_18 {
namespace config {

module_config_dispatch::module_config_dispatch(const generic::varg_list& arguments,
                                               const char* const* envp)
    : m_arguments(arguments), m_envp(envp) {}
module_config_dispatch::~module_config_dispatch() = default;

void module_config_dispatch::store_arguments(user_item& item) const {
  for (const generic::argument& argument : m_arguments) {
    if (argument.has_name()) {
      item.set(argument.name(), argument.value(), 0u);
    } else if (argument.value().type() == typeid(strings::ustring8) ||
               argument.value().type() == typeid(std::string)) {
      const strings::ustring8 text = argument.value().as_string();
      if (text.find('=') != std::string::npos) item.set(text, 0u);
    }
  }
}

void module_config_dispatch::setup(item_list& items) {
  auto* arguments = new user_item;
  append(items, arguments);  // owned by the list from here on
  store_arguments(*arguments);
  append(items, new enviroment_item(m_envp));
}

void module_config_dispatch::load(item_list& items) {
  if (!items.empty())
    if (auto* arguments = dynamic_cast<user_item*>(items.front().get()))
      store_arguments(*arguments);
  load_each(items);
}
void module_config_dispatch::unload(item_list& items) {
  unload_each(items);
}
void module_config_dispatch::save(item_list& items) {
  save_each(items);
}

module_config_dispatch* module_config_dispatch::clone() const {
  return new module_config_dispatch(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
