#include <mota/config/commandline_item.hpp>
#include <mota/config/enviroment_item.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/std_config_dispatch.hpp>

namespace MOTA_2_18 {
namespace config {

std_config_dispatch::std_config_dispatch(int argc, const char* const* argv, const char* const* envp,
                                         const strings::ustring8& name)
    : m_argc(argc < 0 ? 0 : argc), m_argv(argv), m_envp(envp), m_name(name) {}
std_config_dispatch::~std_config_dispatch() = default;

void std_config_dispatch::setup(item_list& items) {
  append(items, new commandline_item(static_cast<unsigned>(m_argc), m_argv));
  append(items, new file_item(m_name));
  append(items, new enviroment_item(m_envp));
}

void std_config_dispatch::load(item_list& items) {
  // A file item takes its name from "cfg_file" in the other items, so the command line and the
  // environment load first; the list order, and with it the precedence, stays as it is.
  for (const auto& item : items)
    if (item && dynamic_cast<file_item*>(item.get()) == nullptr) item->load(items);
  for (const auto& item : items)
    if (item && dynamic_cast<file_item*>(item.get()) != nullptr) item->load(items);
}
void std_config_dispatch::unload(item_list& items) {
  unload_each(items);
}
void std_config_dispatch::save(item_list& items) {
  save_each(items);
}

std_config_dispatch* std_config_dispatch::clone() const {
  return new std_config_dispatch(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
