// Where a configuration value comes from: the item that answers a lookup and the keys an
// indirection led through, found the way config_manager answers get_value and get_array.
//
//   mota::config::value_origin origin = mota::config::find_value_origin(manager, "log.level");
//   if (origin.item) std::cout << origin.item->get_id();   // "command line", "standard file", ...
#ifndef MOTA_CONFIG_VALUE_ORIGIN_HPP
#define MOTA_CONFIG_VALUE_ORIGIN_HPP

#include <mota/config/config_manager.hpp>
#include <mota/export.hpp>

#include <vector>

namespace MOTA_2_18 {
namespace config {

// The answer to "where does this value come from" for one key.
struct MOTA_API value_origin {
  // The item that answered; empty when none did.
  base_config_item::item_pointer item;
  // The keys looked up, the asked one first; more than one when indirections were followed.
  // The last is the key whose node answered.
  std::vector<strings::ustring8> chain;
  // What get_value returns (nil when no item answered).
  types::variant value;
};

// The origin of manager.get_value(key).
MOTA_API value_origin find_value_origin(const config_manager& manager,
                                        const strings::ustring8& key);

// The origin of manager.get_array(key): the first item that holds an array under the key.
MOTA_API value_origin find_array_origin(const config_manager& manager,
                                        const strings::ustring8& key);

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_VALUE_ORIGIN_HPP
