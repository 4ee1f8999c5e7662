#include <mota/config/base_config_item.hpp>
#include <mota/config/user_item.hpp>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <tuple>
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

// The elements of the array at `key` as "name=value " pairs.
template <class Holder>
std::string elements(const Holder& holder, const char* key) {
  std::vector<std::pair<ustring8, variant>> pairs;
  if (!holder.get_value_pair_array(key, pairs)) return "<no array>";
  std::string out;
  for (const auto& [name, value] : pairs)
    out += std::string(name) + "=" + std::string(value.as_string()) + " ";
  return out;
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

// set(text) splits with make_key_value at "=", as the environment item and its fuzz target do.
TEST(ConfigItem, MakeKeyValueSplitsAtTheFirstSeparatorTokenAndQuoteValueQuotesBlanks) {
  const std::tuple<const char*, config_token::tok_types, const char*, const char*> splits[] = {
      {"a:b:c", config_token::T_COLON, "a", "b:c"},
      {"a:=b", config_token::T_COLON, "a:=b", ""},
      {"x==y", config_token::T_EQEQ, "x", "y"},
      {"", config_token::T_EQ, "", ""},
      {"k = v w", config_token::T_EQ, "k ", " v w"},
      {"\"q=r\"=s", config_token::T_EQ, "\"q=r\"", "s"},  // "=" inside a string is no separator
  };
  for (const auto& [text, separator, key, value] : splits)
    EXPECT_EQ(std::make_pair(ustring8(key), ustring8(value)),
              base_config_item::make_key_value(text, separator))
        << text;

  // quote_value quotes only text with blanks
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"plain", "plain"}, {"a b", "\"a b\""}, {"a\tb", "\"a\tb\""},
      {"a\r", "\"a\r\""}, {"\n", "\"\n\""},   {"say \"hi\"", "\"say \"hi\"\""},
  };
  for (const auto& [in, out] : cases)
    EXPECT_EQ(out, mota::config::quote_value(in)) << in;
}

TEST(ConfigItem, ArraysKeepOrderNamesAndReplaceOldElements) {
  user_item item;
  varg_list values, names;
  for (const char* v : {"r", "g", "b"})
    values.push_back(argument(variant(ustring8(v))));
  for (const char* n : {"red", "green"})
    names.push_back(argument(variant(ustring8(n))));
  item.set_array("colours", names, values);
  EXPECT_EQ("3:3", text_of(item, "colours"));
  EXPECT_EQ("0:r", text_of(item, "colours.red"));
  EXPECT_EQ("red=r green=g 2=b ", elements(item, "colours"));  // past the names: its position
  std::vector<std::pair<ustring8, base_config_item::node_t>> nodes;
  EXPECT_TRUE(item.get_array("colours", nodes));
  EXPECT_EQ(3u, nodes.size());
  EXPECT_FALSE(item.get_array("colours.1", nodes));  // an element is not an array

  // Twelve positional elements come back in numeric, not text, order.
  varg_list many;
  for (int i = 0; i < 12; ++i)
    many.push_back(argument(variant(i)));
  item.set_array("colours", varg_list(), many);
  EXPECT_EQ("<none>", text_of(item, "colours.red"));
  EXPECT_EQ("0=0 1=1 2=2 3=3 4=4 5=5 6=6 7=7 8=8 9=9 10=10 11=11 ", elements(item, "colours"));
}

// Nodes stored before an array or its elements.
TEST(ConfigItem, ArraysTakeTheNodesStoredBeforeThem) {
  user_item item;
  for (const char* key : {"c.1", "c.0", "c.10", "c.2", "c.x.deep", "cd"})
    item.set(key, variant(ustring8(key)), 0u);
  item.set("c", variant(), base_config_item::array_flags);
  item.set("c.3", variant(ustring8("later")), 0u);
  item.set("c.x.deeper", variant(1), 0u);  // below an element, not an element
  EXPECT_EQ("0=c.0 1=c.1 2=c.2 10=c.10 3=later ", elements(item, "c"));
  mota::config::config_tree tree = item.get_tree();
  tree.erase("c.1");
  EXPECT_EQ("0=c.0 2=c.2 10=c.10 3=later ", elements(tree, "c"));
  item.set("c", variant(ustring8("plain")), 0u);  // no longer an array
  EXPECT_EQ("<no array>", elements(item, "c"));

  // A plain node that becomes an array takes the nodes below it.
  item.set("b.x", variant(1), 0u);
  item.set("b", variant(5), 0u);
  item.set("b", variant(1u), base_config_item::array_flags);
  EXPECT_EQ("x=1 ", elements(item, "b"));

  // Replacing an array erases its old elements, which moves the array's own entry when it was
  // the last one stored (here it adopted elements stored before it).
  item.set("a.0", variant(1), 0u);
  item.set("a.1", variant(2), 0u);
  item.set("a", variant(2u), base_config_item::array_flags);
  item.set_array("a", varg_list(), varg_list(argument(variant(7))));
  EXPECT_EQ("0=7 ", elements(item, "a"));
  EXPECT_EQ("3:1", text_of(item, "a"));
  EXPECT_EQ("<none>", text_of(item, "a.1"));

  // A new array's element overwrites the node stored under the element's key.
  item.set("d.0", variant(9), base_config_item::array_flags);
  item.set_array("d", varg_list(), varg_list(argument(variant(7))));
  EXPECT_EQ("0:7", text_of(item, "d.0"));
  EXPECT_EQ("<no array>", elements(item, "d.0"));
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
