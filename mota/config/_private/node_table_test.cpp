#include <mota/config/_private/node_table.hpp>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

using mota::config::_private::node_table;
using mota::types::variant;

namespace {

// Every entry of the table is in the model with the same value, and the sizes agree.
void expect_same(const node_table& table, const std::map<std::string, int>& model) {
  ASSERT_EQ(model.size(), table.size());
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    const std::string key(table.key(i));
    const auto found = model.find(key);
    ASSERT_NE(model.end(), found) << key;
    EXPECT_EQ(found->second, table.at(i).node.second.as_int()) << key;
    EXPECT_EQ(i, table.find(key));
  }
}

}  // namespace

// Growth, erasing from the middle of probe runs and dropping erased key bytes, checked against a
// map through a fill, a mixed phase and an erasure of most keys.
TEST(NodeTable, AgreesWithAMapThroughInsertsAndErasures) {
  node_table table;
  table.reserve(1000);
  std::map<std::string, int> model;
  std::mt19937 rng(18);
  const auto random_key = [&] {
    // Keys of several lengths that share prefixes, like dotted configuration keys.
    return "s" + std::to_string(rng() % 20) + ".k" + std::to_string(rng() % 200) +
           std::string(rng() % 3, 'x');
  };
  const auto insert = [&](const std::string& key, int value) {
    const auto placed = table.insert(key, node_table::node_t(0u, variant(value)));
    const auto expected = model.emplace(key, value);
    ASSERT_EQ(expected.second, placed.second) << key;
    ASSERT_EQ(key, table.key(placed.first));
    EXPECT_EQ(expected.first->second, table.at(placed.first).node.second.as_int());
  };
  const auto erase = [&](const std::string& key) {
    const std::uint32_t index = table.find(key);
    ASSERT_EQ(model.count(key) != 0, index != node_table::npos) << key;
    if (index == node_table::npos) return;
    table.erase(index);
    model.erase(key);
  };

  for (int step = 0; step < 6000; ++step)
    insert(random_key(), step);
  expect_same(table, model);
  for (int step = 0; step < 20000; ++step) {
    const std::string key = random_key();
    if (rng() % 2 == 0)
      insert(key, step);
    else
      erase(key);
  }
  expect_same(table, model);
  std::vector<std::string> keys;
  for (const auto& kv : model)
    keys.push_back(kv.first);
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (i % 10 != 0) erase(keys[i]);
  expect_same(table, model);
  for (const std::string& key : keys)
    erase(key);  // the keys erased before must not be found
  expect_same(table, model);
  insert("x", 1);
  table.clear();
  EXPECT_EQ(0u, table.size());
  EXPECT_EQ(node_table::npos, table.find("x"));
}

TEST(NodeTable, CopiesOwnTheirElementNames) {
  node_table table;
  const std::uint32_t array = table.insert("a", node_table::node_t(3u, variant(1))).first;
  const std::uint32_t scalar = table.insert("b", node_table::node_t(0u, variant(2))).first;
  EXPECT_TRUE(static_cast<const node_table&>(table).at(scalar).names().empty());
  table.at(array).names().push_back("0");
  node_table copy = table;
  copy.at(array).names().push_back("1");
  EXPECT_EQ(1u, table.at(array).names().size());
  EXPECT_EQ(2u, copy.at(array).names().size());
  copy = table;
  EXPECT_EQ(1u, copy.at(array).names().size());
  copy.at(array).drop_names();
  EXPECT_TRUE(copy.at(array).names().empty());
  EXPECT_EQ(1u, table.at(array).names().size());
}
