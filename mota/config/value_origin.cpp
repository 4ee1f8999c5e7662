#include <mota/config/value_origin.hpp>

#include <algorithm>

namespace MOTA_2_18 {
namespace config {

value_origin find_value_origin(const config_manager& manager, const strings::ustring8& key) {
  value_origin origin;
  origin.chain.push_back(key);
  bool restart = true;
  while (restart) {
    restart = false;
    const strings::ustring8 current = origin.chain.back();
    for (const base_config_item::item_pointer& item : manager.get_items()) {
      if (!item) continue;
      const base_config_item::node_t* node = item->get_value(current);
      if (node == nullptr) continue;
      origin.item = item;
      if (config_tree::is_array(node->first)) {
        const base_config_item::node_t* first = item->get_value(current + ".0");
        if (first != nullptr) origin.value = first->second;
        return origin;
      }
      origin.value = node->second;
      if ((node->first & config_tree::indirect_flag) == 0) return origin;
      const strings::ustring8 target = node->second.as_string();
      // A chain that comes back to a key it passed stops at the node that points back.
      if (std::find(origin.chain.begin(), origin.chain.end(), target) != origin.chain.end())
        return origin;
      origin.chain.push_back(target);
      origin.item = base_config_item::item_pointer();
      origin.value = types::variant();
      restart = true;
      break;
    }
  }
  return origin;
}

value_origin find_array_origin(const config_manager& manager, const strings::ustring8& key) {
  value_origin origin;
  origin.chain.push_back(key);
  for (const base_config_item::item_pointer& item : manager.get_items()) {
    if (!item) continue;
    const base_config_item::node_t* node = item->get_value(key);
    if (node == nullptr || !config_tree::is_array(node->first)) continue;
    origin.item = item;
    origin.value = node->second;
    return origin;
  }
  return origin;
}

}  // namespace config
}  // namespace MOTA_2_18
