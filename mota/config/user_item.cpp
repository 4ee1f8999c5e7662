#include <mota/config/user_item.hpp>

namespace MOTA_2_18 {
namespace config {

user_item::user_item() : base_config_item("user item") {}
user_item::user_item(const user_item& other) = default;
user_item::~user_item() = default;

user_item* user_item::clone() const {
  return new user_item(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
