#include <mota/config/config_manager.hpp>
#include <mota/config/module_config_dispatch.hpp>
#include <mota/config/user_item.hpp>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using mota::config::config_manager;
using mota::config::user_item;
using mota::generic::argument;
using mota::generic::varg_list;
using mota::strings::ustring8;
using mota::types::variant;

// A dispatch written the way an application writes its own (every operation returns
// nothing): it appends copies of prepared user items and, given a log, records each call
// with the size of the list it was handed.
class fixed_dispatch : public mota::config::config_dispatch {
 public:
  explicit fixed_dispatch(std::vector<user_item> items, std::string* log = nullptr)
      : m_items(std::move(items)), m_log(log) {}
  void setup(item_list& items) override {
    note("setup", items);
    for (const user_item& item : m_items)
      append(items, item.clone());
  }
  void load(item_list& items) override { load_each(note("load", items)); }
  void unload(item_list& items) override { unload_each(note("unload", items)); }
  void save(item_list& items) override { save_each(note("save", items)); }
  fixed_dispatch* clone() const override {
    if (m_log) *m_log += "clone ";
    return new fixed_dispatch(*this);
  }

 private:
  item_list& note(const char* call, item_list& items) const {
    if (m_log) *m_log += call + std::to_string(items.size()) + " ";
    return items;
  }
  std::vector<user_item> m_items;
  std::string* m_log;
};

void put_array(user_item& item, const char* key, std::vector<const char*> values) {
  varg_list list;
  for (const char* v : values)
    list.push_back(argument(variant(ustring8(v))));
  item.set_array(key, varg_list(), list);
}

std::string text(const config_manager& m, const char* key) {
  const variant v = m.get_value(key, variant(ustring8("<default>")));
  return v == mota::types::nil ? "<nil>" : std::string(v.as_string());
}

}  // namespace

TEST(ConfigManager, ForwardsToAClonedDispatch) {
  std::string log;
  config_manager m;
  m.load();  // no dispatch yet: nothing happens
  m.unload();
  m.save();
  m.init(fixed_dispatch({user_item()}, &log));
  m.load();
  m.unload();
  m.save();
  m.init(fixed_dispatch({}, &log));  // the list is emptied before the new setup
  EXPECT_EQ("clone setup0 load1 unload1 save1 clone setup0 ", log);
  EXPECT_TRUE(m.get_items().empty());
}

// First item wins, arrays' first elements and indirections are value_origin's test, which
// holds them against get_value.
TEST(ConfigManager, LookupsOfEmptyArraysAndWholeArrays) {
  user_item a, b;
  a.set(ustring8("late=plain first"), 0u);
  b.set(ustring8("empty.0x=not an element"), 0u);
  put_array(b, "empty", {});
  put_array(b, "late", {"1", "2", "3"});
  config_manager m;
  m.init(fixed_dispatch({a, b}));

  EXPECT_EQ("<nil>", text(m, "empty"));  // no element: nil, not the default
  EXPECT_EQ("<default>", text(m, "missing"));
  EXPECT_TRUE(m.get_value("missing") == mota::types::nil);
  EXPECT_FALSE(m.value_exist("empty"));

  // the queries for a whole array look at the first item holding one
  EXPECT_TRUE(m.is_array("late"));
  EXPECT_FALSE(m.is_array("late.0"));
  EXPECT_FALSE(m.is_array("missing"));
  std::vector<std::pair<ustring8, variant>> pairs;
  m.get_key_value_array("late", pairs);
  ASSERT_EQ(3u, pairs.size());
  EXPECT_EQ("1", pairs[1].first);
  EXPECT_EQ("2", pairs[1].second.as_string());
  std::vector<variant> values;
  m.get_array("late", values);
  EXPECT_EQ(3u, values.size());
  m.get_array("missing", values);
  EXPECT_TRUE(values.empty());
}

TEST(ConfigManager, ItemsByIdDumpAndInit) {
  user_item a;
  a.set(ustring8("k=v"), 0u);
  config_manager m;
  m.init(fixed_dispatch({a, user_item()}));

  config_manager::item_pointer item = m.get_config_item("user item");
  ASSERT_TRUE(item);
  EXPECT_EQ(2, item->reference_count());  // the list's and ours
  EXPECT_EQ(m.get_items().front(), item);
  EXPECT_FALSE(m.get_config_item("command line"));

  std::ostringstream out;
  out << m;
  EXPECT_EQ(
      "config_manager:\n"
      "\nconfig_item:\n|---------------\\\nk|\t\tv\nend\n"
      "\nconfig_item:\n|---------------\\\nend\n"
      "\nno more config_items!\n\nending output\n",
      out.str());

  user_item c;
  c.set(ustring8("other=1"), 0u);
  m.init(fixed_dispatch({c}));
  EXPECT_EQ(1, item->reference_count());  // released by the manager
  EXPECT_EQ("<default>", text(m, "k"));
  EXPECT_EQ("1", text(m, "other"));
}

TEST(ConfigManager, ModuleDispatchUsesArgumentsThenEnvironment) {
  varg_list args;
  args.push_back(ustring8("a"), variant(1));
  args.push_back(argument(variant(ustring8("b=2"))));
  args.push_back(argument(variant(5)));  // neither named nor "key=value": ignored
  const char* envp[] = {"a=env", nullptr};
  config_manager m;
  m.init(mota::config::module_config_dispatch(args, envp));
  ASSERT_EQ(2u, m.get_items().size());
  EXPECT_EQ(2u, m.get_items().front()->get_tree().size());

  m.load();
  EXPECT_EQ("1", text(m, "a"));
  EXPECT_EQ("2", text(m, "b"));
  m.unload();  // every item is emptied
  EXPECT_EQ("<default>", text(m, "a"));
}
