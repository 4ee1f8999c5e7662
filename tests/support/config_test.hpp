// A config item's values as text, for the tests of the config items.
#ifndef MOTA_TESTS_SUPPORT_CONFIG_TEST_HPP
#define MOTA_TESTS_SUPPORT_CONFIG_TEST_HPP

#include <mota/config/base_config_item.hpp>

#include <string>
#include <vector>

namespace mota_test {

// The item's tree as "key=flags:value" lines in key order.
inline std::string render(const mota::config::base_config_item& item) {
  std::string out;
  item.get_tree().visit([&](const std::string& key, const mota::config::config_tree::node_t& node,
                            const std::vector<std::string>&) {
    out += key + "=" + std::to_string(node.first) + ":" + node.second.as_string() + "\n";
  });
  return out;
}

}  // namespace mota_test

#endif  // MOTA_TESTS_SUPPORT_CONFIG_TEST_HPP
