#include <mota/config/enviroment_item.hpp>

namespace MOTA_2_18 {
namespace config {

enviroment_item::enviroment_item(const char* const* envp)
    : base_config_item("enviroment"), m_envp(envp) {}
enviroment_item::enviroment_item(const enviroment_item& other) = default;
enviroment_item::~enviroment_item() = default;

void enviroment_item::load(item_list& /*items*/) {
  load();
}

void enviroment_item::load() {
  m_tree.clear();
  if (m_envp == nullptr) return;
  for (const char* const* entry = m_envp; *entry != nullptr; ++entry)
    set(*entry, 0u);
}

void enviroment_item::unload() {
  m_tree.clear();
}

enviroment_item* enviroment_item::clone() const {
  return new enviroment_item(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
