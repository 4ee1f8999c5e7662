#include <mota/config/enviroment_item.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using mota::config::base_config_item;
using mota::config::config_tree;
using mota::config::enviroment_item;

// The item's tree as "key=flags:value" lines in key order.
std::string render(const base_config_item& item) {
  std::string out;
  item.get_tree().visit([&](const std::string& key, const config_tree::node_t& node,
                            const std::vector<std::string>&) {
    out += key + "=" + std::to_string(node.first) + ":" + node.second.as_string() + "\n";
  });
  return out;
}

}  // namespace

TEST(ConfigEnvironment, SplitsEachEntryAtItsFirstEquals) {
  const char* envp[] = {"HOME=/home/u", "LS=a=b:c", "EMPTY=", "X==y", nullptr, "NOT=read"};
  enviroment_item env(envp);
  EXPECT_EQ("enviroment", env.get_id());
  env.load();
  // "==" is one token, so "X==y" has no "=" token to split at.
  EXPECT_EQ("EMPTY=0:\nHOME=0:/home/u\nLS=0:a=b:c\nX==y=0:\n", render(env));
  env.unload();
  EXPECT_EQ("", render(env));

  const char* empty[] = {nullptr};
  enviroment_item none(empty), null(nullptr);
  none.load();
  null.load();
  EXPECT_EQ("", render(none) + render(null));
}
