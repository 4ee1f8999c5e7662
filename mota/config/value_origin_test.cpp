#include <mota/config/module_config_dispatch.hpp>
#include <mota/config/value_origin.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

using mota::generic::varg_list;
using mota::strings::ustring8;
using mota::types::variant;

std::string describe(const mota::config::value_origin& origin) {
  std::string text = origin.item ? std::string(origin.item->get_id()) : "none";
  for (const ustring8& key : origin.chain)
    text += " " + key;
  return text + " =" + (origin.value == mota::types::nil ? "nil" : origin.value.as_string());
}

// The origin agrees with get_value on the value, and names the item and the keys passed. Each
// step of a chain looks from the first item again.
TEST(ValueOrigin, NamesTheAnsweringItemAndTheIndirectionChain) {
  const char* envp[] = {"env.only=e", "r3=env", nullptr};
  mota::config::config_manager m;
  m.init(mota::config::module_config_dispatch(varg_list(), envp));
  m.load();
  const auto& user = m.get_items().front();
  user->set(ustring8("r3=user"), 0u);
  // "ref" leads through the environment's "r2" to "r3", which both items hold: the first wins.
  for (const char* entry : {"ref=r2", "ping=pong", "pong=ping", "dangling=nowhere"})
    user->set(ustring8(entry), mota::config::base_config_item::indirect_flag);
  m.get_items().back()->set(ustring8("r2=r3"), mota::config::base_config_item::indirect_flag);
  user->set_array("arr", varg_list(), varg_list(mota::generic::argument(variant(ustring8("a")))));

  const std::pair<const char*, const char*> rows[] = {
      {"env.only", "enviroment env.only =e"},
      {"ref", "user item ref r2 r3 =user"},
      {"dangling", "none dangling nowhere =nil"},
      {"ping", "user item ping pong =ping"},  // pong points back: the chain stops there
      {"arr", "user item arr =a"},
      {"none", "none none =nil"},
  };
  for (const auto& row : rows) {
    const mota::config::value_origin origin = mota::config::find_value_origin(m, row.first);
    EXPECT_EQ(row.second, describe(origin));
    EXPECT_EQ(m.get_value(row.first).as_string(), origin.value.as_string()) << row.first;
  }
  EXPECT_EQ("user item arr =1", describe(mota::config::find_array_origin(m, "arr")));
  EXPECT_EQ("none r3 =nil", describe(mota::config::find_array_origin(m, "r3")));
}

}  // namespace
