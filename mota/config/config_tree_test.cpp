#include <mota/config/config_tree.hpp>
#include <mota/config/user_item.hpp>

#include <gtest/gtest.h>

using mota::config::user_item;

TEST(ConfigTree, EraseTakesTheSubtreeOnly) {
  user_item item;
  for (const char* key : {"a", "a.b", "a.b.c", "ab", "a-"})
    item.set(key, mota::types::variant(1), 0u);
  mota::config::config_tree tree = item.get_tree();
  tree.erase("a");
  EXPECT_EQ(2u, tree.size());
  EXPECT_NE(nullptr, tree.get_node("ab"));
  EXPECT_NE(nullptr, tree.get_node("a-"));
  EXPECT_NE(nullptr, item.get_value("a.b.c"));  // the copy is independent

  mota::strings::ustring8 head, rest;
  EXPECT_TRUE(mota::config::config_tree::parse_string("a.b.c", head, rest));
  EXPECT_EQ("a|b.c", head + "|" + rest);
  EXPECT_FALSE(mota::config::config_tree::parse_string("abc", head, rest));
  EXPECT_EQ("abc|", head + "|" + rest);
}
