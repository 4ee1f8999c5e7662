#include <mota/config/base_config_item.hpp>
#include <mota/config/user_item.hpp>

#include <gtest/gtest.h>
#include <config_test.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace {

using mota::config::base_config_item;
using mota::config::config_token;
using mota::config::user_item;
using mota::generic::argument;
using mota::generic::varg_list;
using mota::strings::ustring8;
using mota::types::variant;

std::string text_of(const base_config_item& item, const std::string& key) {
  const auto* node = item.get_value(key);
  return node == nullptr ? "<none>" : std::to_string(node->first) + ":" + node->second.as_string();
}

}  // namespace

TEST(ConfigItem, SetStoresFlagsAndValuesCloneCopiesAndUnloadDropsAll) {
  user_item item;
  item.set("a.b", variant(ustring8("x")), 4u);
  item.set(std::make_pair(ustring8("n"), variant(42)), 0u);
  item.set("a.b", variant(ustring8("y")), 0u);  // replaces flags and value
  EXPECT_EQ("0:y", text_of(item, "a.b"));
  EXPECT_EQ("0:42", text_of(item, "n"));
  EXPECT_EQ("<none>", text_of(item, "a"));
  item.set("", variant(1), 0u);
  EXPECT_EQ("<none>", text_of(item, ""));
  EXPECT_EQ("user item", item.get_id());

  base_config_item* copy = item.clone();  // a deep copy, not yet owned by a pointer
  item.set("n", variant(ustring8("changed")), 0u);
  EXPECT_EQ("0:42", text_of(*copy, "n"));
  EXPECT_EQ(0, copy->reference_count());
  delete copy;

  item.set_array("arr", varg_list(), varg_list(argument(variant(1))));
  item.load();  // no source: the values stay
  EXPECT_EQ("0:changed", text_of(item, "n"));
  item.unload();
  EXPECT_TRUE(item.get_tree().empty());
}

// The plain "KEY=VALUE" entries are the environment item's test.
TEST(ConfigItem, SetTextSplitsAtTheFirstEqualsToken) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"k = v w", "k =0: v w\n"},
      {"LONE", "LONE=0:\n"},
      {"\"q=r\"=s", "\"q=r\"=0:s\n"},  // "=" inside a string is not a separator
      {"=v", ""},                      // empty key
  };
  for (const auto& [text, want] : cases) {
    user_item item;
    item.set(ustring8(text), 0u);
    EXPECT_EQ(want, mota_test::render(item)) << text;
  }
}

TEST(ConfigItem, MakeKeyValueUsesTheGivenSeparatorAndQuoteValueQuotesBlanks) {
  using P = std::pair<ustring8, ustring8>;
  EXPECT_EQ(P("a", "b:c"), base_config_item::make_key_value("a:b:c", config_token::T_COLON));
  EXPECT_EQ(P("a:=b", ""), base_config_item::make_key_value("a:=b", config_token::T_COLON));
  EXPECT_EQ(P("x", "y"), base_config_item::make_key_value("x==y", config_token::T_EQEQ));
  EXPECT_EQ(P("", ""), base_config_item::make_key_value("", config_token::T_EQ));

  // quote_value quotes only text with blanks
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"plain", "plain"},
      {"", ""},
      {"a b", "\"a b\""},
      {"a\tb", "\"a\tb\""},
      {"a\r", "\"a\r\""},
      {"\n", "\"\n\""},
      {"say \"hi\"", "\"say \"hi\"\""},
  };
  for (const auto& [in, out] : cases)
    EXPECT_EQ(out, mota::config::quote_value(in)) << in;
}

TEST(ConfigItem, ArraysKeepOrderNamesAndReplaceOldElements) {
  user_item item;
  varg_list values;
  for (const char* v : {"r", "g", "b"})
    values.push_back(argument(variant(ustring8(v))));
  varg_list names;
  names.push_back(argument(variant(ustring8("red"))));
  names.push_back(argument(variant(ustring8("green"))));
  item.set_array("colours", names, values);
  EXPECT_EQ("3:3", text_of(item, "colours"));
  EXPECT_EQ("0:r", text_of(item, "colours.red"));
  EXPECT_EQ("0:b", text_of(item, "colours.2"));  // past the names: its position

  std::vector<std::pair<ustring8, base_config_item::node_t>> elements;
  ASSERT_TRUE(item.get_array("colours", elements));
  ASSERT_EQ(3u, elements.size());
  EXPECT_EQ("green", elements[1].first);
  EXPECT_EQ("g", elements[1].second.second.as_string());

  // Twelve positional elements come back in numeric, not text, order.
  varg_list many;
  for (int i = 0; i < 12; ++i)
    many.push_back(argument(variant(i)));
  item.set_array("colours", varg_list(), many);
  EXPECT_EQ("<none>", text_of(item, "colours.red"));
  std::vector<std::pair<ustring8, variant>> pairs;
  ASSERT_TRUE(item.get_value_pair_array("colours", pairs));
  ASSERT_EQ(12u, pairs.size());
  EXPECT_EQ("10", pairs[10].first);
  EXPECT_EQ("11", pairs[11].second.as_string());

  EXPECT_FALSE(item.get_array("colours.1", elements));  // an element is not an array
}

TEST(ConfigItem, ArraysMadeByTheirFlagsHoldTheNodesBelowThem) {
  user_item item;
  for (const char* key : {"c.1", "c.0", "c.10", "c.2", "c.x.deep", "cd"})
    item.set(key, variant(ustring8(key)), 0u);
  item.set("c", variant(), base_config_item::array_flags);
  item.set("c.3", variant(ustring8("later")), 0u);
  item.set("c.x.deeper", variant(1), 0u);  // below an element, not an element

  const auto names = [&item] {
    std::vector<std::pair<ustring8, variant>> pairs;
    EXPECT_TRUE(item.get_value_pair_array("c", pairs));
    std::string out;
    for (const auto& p : pairs)
      out += std::string(p.first) + "=" + std::string(p.second.as_string()) + " ";
    return out;
  };
  EXPECT_EQ("0=c.0 1=c.1 2=c.2 10=c.10 3=later ", names());
  mota::config::config_tree tree = item.get_tree();
  tree.erase("c.1");
  std::vector<std::pair<ustring8, base_config_item::node_t>> elements;
  ASSERT_TRUE(tree.get_array("c", elements));
  ASSERT_EQ(4u, elements.size());
  EXPECT_EQ("2", elements[1].first);
  item.set("c", variant(ustring8("plain")), 0u);  // no longer an array
  std::vector<std::pair<ustring8, variant>> none;
  EXPECT_FALSE(item.get_value_pair_array("c", none));
}

TEST(ConfigItem, DumpWalksTheTreeNodeByNode) {
  user_item item;
  for (const char* key : {"a-b", "a.x", "a", "a.x.y", "b"})
    item.set(key, variant(ustring8("v")), 0u);
  item.set("a0", variant(ustring8("two words")), 0u);
  item.set("link", variant(ustring8("b")), 4u);
  item.set_array("arr", varg_list(), varg_list(argument(variant(ustring8("x")))));
  std::ostringstream out;
  out << item;
  // Each node's descendants follow it before any sibling key that merely shares its start.
  EXPECT_EQ(
      "|---------------\\\n"
      "a|\t\tv\na.x|\t\tv\na.x.y|\t\tv\na-b|\t\tv\na0|\t\ttwo words\n"
      "arr[]|\t\t1\narr.0|\t\tx\nb|\t\tv\nlink?|\t\tb\n"
      "end\n",
      out.str());
}
