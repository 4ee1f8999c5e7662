#include <mota/config/config_dispatch.hpp>

namespace MOTA_2_18 {
namespace config {

config_dispatch::~config_dispatch() = default;

void config_dispatch::load_each(item_list& items) {
  for (auto& item : items)
    if (item) item->load(items);
}

void config_dispatch::unload_each(item_list& items) {
  for (auto& item : items)
    if (item) item->unload();
}

void config_dispatch::save_each(item_list& items) {
  for (auto& item : items)
    if (item) item->save(items);
}

void config_dispatch::append(item_list& items, base_config_item* item) {
  item->delete_on_zero(true);
  items.emplace_back(item);
}

}  // namespace config
}  // namespace MOTA_2_18
