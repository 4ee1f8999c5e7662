// A configuration item without a source: it holds what the application stores in it with
// set() and set_array(). Loading and saving leave its values alone; unload() drops them.
//
//   mota::config::user_item defaults;
//   defaults.set("window.width", mota::types::variant(640u), 0);
#ifndef MOTA_CONFIG_USER_ITEM_HPP
#define MOTA_CONFIG_USER_ITEM_HPP

#include <mota/config/base_config_item.hpp>

namespace MOTA_2_18 {
namespace config {

// Values the application sets itself; it has no source to load from or save to.
class MOTA_API user_item : public base_config_item {
 public:
  //@{
  // An empty item with the identifier "user item", for values the application sets; or a
  // copy.
  user_item();
  user_item(const user_item& other);
  ~user_item() override;
  //@}

  user_item* clone() const override;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_USER_ITEM_HPP
