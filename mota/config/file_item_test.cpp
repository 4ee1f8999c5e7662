#include <mota/config/commandline_item.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/user_item.hpp>

#include <gtest/gtest.h>
#include <mota_test.hpp>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using mota::config::base_config_item;
using mota::config::config_tree;
using mota::config::file_item;
using mota::strings::ustring8;
using mota::types::variant;

// The item's tree as "key=flags:value" lines in key order.
std::string render(const base_config_item& item) {
  std::string out;
  item.get_tree().visit([&](const std::string& key, const config_tree::node_t& node,
                            const std::vector<std::string>&) {
    out += key + "=" + std::to_string(node.first) + ":" + node.second.as_string() + "\n";
  });
  return out;
}

std::string parse(const std::string& text) {
  file_item item("");
  item.parse(text);
  return render(item);
}

void write(const std::string& path, const std::string& text) {
  std::ofstream(path) << text;
}

template <class Item>
Item* owned(Item* item) {
  item->delete_on_zero(true);
  return item;
}

}  // namespace

TEST(ConfigFileSyntax, ScalarsSectionsAndComments) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"key = a b", "key=0:ab\n"},
      {"key = \"a b\"", "key=0:a b\n"},
      {"key = \"a\\\"b\" c", "key=0:a\\\"bc\n"},
      {"a . b = 1", "a.b=0:1\n"},
      {"\tx\t=\t-1.5\t\r\ny=2\r\n", "x=0:-1.5\ny=0:2\n"},
      {"# comment = 1\nx = 1 // tail\ny=2 # t\n// z = 3", "x=0:1\ny=0:2\n"},
      {"x = 1 */ 2\n*/ y = 3\nz = 4", "x=0:1\nz=0:4\n"},
      {"x =\ny = # nothing\nz = \"\"", ""},
      {"[a.b]\nx = 1\n[ c ]\ny = 2\n[]\nz = 3", "a.b.x=0:1\nc.y=0:2\nz=0:3\n"},
      {"[\"my sec\"] k = v", "my sec.k=0:v\n"},
      {"key\nmore = 1", "keymore=0:1\n"},  // a key runs on to its "="
      {"x = a=b:c", "x=0:a=b:c\n"},        // the value keeps later operators
      {"= 5\nlone", ""},                   // empty key; key without "="
      {"[open\nx = 1", ""},                // a header that never closes
      {"x = \"unterminated", "x=0:unterminated\n"},
      {"\"a key\" = v", "a key=0:v\n"},
      {"k\xC3\xA9y = \xC3\xA9", "k\xC3\xA9y=0:\xC3\xA9\n"},
  };
  for (const auto& [text, want] : cases)
    EXPECT_EQ(want, parse(text)) << text;
}

TEST(ConfigFileSyntax, Arrays) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"list[] = 1,\n 2, 3", "list=3:3\nlist.0=0:1\nlist.1=0:2\nlist.2=0:3\n"},
      {"list[] = 1\n 2\nz = 5", "2z=0:5\nlist=3:1\nlist.0=0:1\n"},
      {"l[] = a b, # comment\n \"c, d\" ,,e\nx=1", "l=3:3\nl.0=0:ab\nl.1=0:c, d\nl.2=0:e\nx=0:1\n"},
      {"l[] =\n\n a\n", "l=3:1\nl.0=0:a\n"},  // nothing read yet: the array goes on
      {"l[] = \"\"\nx = 1", "l=3:0\nx=0:1\n"},
      {"[s]\nl[] = a,b // c", "s.l=3:2\ns.l.0=0:a\ns.l.1=0:b\n"},
      {"l[] = a,", "l=3:1\nl.0=0:a\n"},
  };
  for (const auto& [text, want] : cases)
    EXPECT_EQ(want, parse(text)) << text;
}

TEST(ConfigFileSyntax, ParseCommentStopsBeforeTheLineEnd) {
  mota::config::config_token tok;
  unsigned pos = 1;
  EXPECT_EQ(mota::config::config_token::T_NEWLINE,
            file_item::parse_comment("# a b\r\nx", pos, tok));
  EXPECT_EQ(5u, pos);
  pos = 0;
  EXPECT_EQ(mota::config::config_token::T_END, file_item::parse_comment("// x", pos, tok));
  EXPECT_EQ(4u, pos);
}

TEST(ConfigFileItem, LoadsReplacesAndFailsQuietly) {
  mota_test::temp_dir dir;
  const std::string path = dir / "app.cfg";
  write(path, "a = 1\nb = 2\n");
  file_item item(path);
  EXPECT_EQ("standard file", item.get_id());
  EXPECT_TRUE(item.load_file());
  EXPECT_EQ("a=0:1\nb=0:2\n", render(item));
  write(path, "c = 3\n");
  item.load();
  EXPECT_EQ("c=0:3\n", render(item));
  item.unload();
  EXPECT_EQ("", render(item));

  file_item missing(dir / "none.cfg");
  EXPECT_FALSE(missing.load_file());
  EXPECT_EQ("", render(missing));
  file_item unnamed("");
  EXPECT_FALSE(unnamed.load_file());
  EXPECT_FALSE(unnamed.save_file());
  unnamed.save();  // no file name: nothing written
}

TEST(ConfigFileItem, SaveWritesWhatLoadReadsBack) {
  mota_test::temp_dir dir;
  const std::string path = dir / "out.cfg";
  file_item item(path);
  item.parse(
      "top = 1\n"
      "spaced = \"a b\\tc\"\n"
      "url = \"http://x/y#z\"\n"
      "odd = \"a=b,c[d]\"\n"
      "[window]\nwidth = 640\ntitle = \"Main window\"\n"
      "[window.inner]\ndepth = 2\n"
      "[lists]\nempty[] = \"\"\nxs[] = 1, \"two words\", \"x,y\"\n"
      "[\"odd section\"]\nk = v\n");
  item.set("multi", variant(ustring8("line\none")), 0u);
  const std::string before = render(item);
  ASSERT_TRUE(item.save_file());

  file_item reread(path);
  ASSERT_TRUE(reread.load_file());
  EXPECT_EQ(before, render(reread));
}

TEST(ConfigFileItem, ChoosesItsFileFromTheOtherItems) {
  mota_test::temp_dir dir;
  write(dir / "given.cfg", "from = given\n");
  write(dir / "named.cfg", "from = cfg_file\n");
  write(dir / "tool.cfg", "from = raw\n");

  auto* others = owned(new mota::config::user_item);
  auto* file = owned(new file_item(dir / "given"));  // no extension: ".cfg" is added
  base_config_item::item_list items;
  items.emplace_back(others);
  items.emplace_back(file);

  file->load(items);
  EXPECT_EQ(dir / "given.cfg", file->get_filename());
  EXPECT_EQ("from=0:given\n", render(*file));
  others->set("cfg_file", variant(ustring8(dir / "named.cfg")), 0u);
  file->load(items);
  EXPECT_EQ("from=0:cfg_file\n", render(*file));

  // Without a name the application's raw name gives the default file.
  others->unload();
  others->set("application.name.raw", variant(ustring8(dir / "tool")), 0u);
  auto* unnamed = owned(new file_item(""));
  items.emplace_back(unnamed);
  unnamed->load(items);
  EXPECT_EQ("from=0:raw\n", render(*unnamed));
}

namespace {

// Saves the item to a file and returns the item read back from it.
file_item saved_and_loaded(const file_item& item) {
  EXPECT_TRUE(item.save_file());
  file_item reread(item.get_filename());
  EXPECT_TRUE(reread.load_file());
  return reread;
}

// Each hostile text with what a save and a load give back: itself when the file can carry it,
// otherwise the least changed text ("<none>": the key is not written).
const std::vector<std::pair<std::string, std::string>> hostile_texts = {
    {"\"start", "\\\"start"},
    {"mid\"dle", "mid\\\"dle"},
    {"end\"", "end\\\""},
    {"\"", "\\\""},
    {"\"\"", "\\\"\\\""},
    {"esc\\\"aped", "esc\\\"aped"},
    {"x \\\\\" y", "x \\\\\" y"},  // the backslash before an escaped quote stands alone
    {"trail \\", "trail \\"},
    {" blank ", " blank "},
    {"a\tb", "a\tb"},
    {"line\nbreak\r\n", "line\nbreak\r\n"},
    {"a\rb", "a\rb"},
    {"#hash", "#hash"},
    {"a//b */", "a//b */"},
    {"a=b", "a=b"},
    {"a,b", "a,b"},
    {"[x]", "[x]"},
    {"[]", "[]"},
    {"", "<none>"},
};

}  // namespace

TEST(ConfigFileItem, SaveCarriesHostileValuesAndNeverTouchesOtherKeys) {
  mota_test::temp_dir dir;
  file_item item(dir / "values.cfg");
  mota::generic::varg_list list;
  for (std::size_t i = 0; i < hostile_texts.size(); ++i) {
    const std::string n = std::to_string(i);
    item.set("v" + n, variant(ustring8(hostile_texts[i].first)), 0u);
    item.set("v" + n + "_next", variant(ustring8("next" + n)), 0u);
    list.push_back(mota::generic::argument(variant(ustring8(hostile_texts[i].first))));
  }
  item.set_array("list", mota::generic::varg_list(), list);
  item.set("list_next", variant(ustring8("after list")), 0u);

  const file_item reread = saved_and_loaded(item);
  std::vector<std::pair<ustring8, base_config_item::node_t>> elements;
  ASSERT_TRUE(reread.get_array("list", elements));
  std::size_t element = 0;
  for (std::size_t i = 0; i < hostile_texts.size(); ++i) {
    const std::string n = std::to_string(i);
    const std::string& want = hostile_texts[i].second;
    const auto* value = reread.get_value("v" + n);
    EXPECT_EQ(want, value == nullptr ? "<none>" : std::string(value->second.as_string())) << n;
    const auto* next = reread.get_value("v" + n + "_next");
    EXPECT_TRUE(next != nullptr && next->second.as_string() == "next" + n) << n;
    if (want == "<none>") continue;  // an empty element is not kept either
    ASSERT_LT(element, elements.size());
    EXPECT_EQ(std::to_string(element), elements[element].first);
    EXPECT_EQ(want, elements[element].second.second.as_string()) << n;
    ++element;
  }
  EXPECT_EQ(element, elements.size());
  ASSERT_NE(nullptr, reread.get_value("list_next"));
  EXPECT_EQ("after list", reread.get_value("list_next")->second.as_string());
  EXPECT_EQ(2 * hostile_texts.size() + 1 + element, reread.get_tree().size());

  // The same texts as keys, inside a section and at the top level.
  file_item keys(dir / "keys.cfg");
  for (std::size_t i = 0; i < hostile_texts.size(); ++i) {
    keys.set("s." + hostile_texts[i].first, variant(ustring8("s" + std::to_string(i))), 0u);
    keys.set(hostile_texts[i].first, variant(ustring8("t" + std::to_string(i))), 0u);
  }
  for (const char* odd : {"k-", "k+", ".lead", "trail.", "a..b", "x[]", "x[].y", "k:=", "k-="})
    keys.set(odd, variant(ustring8(odd)), 0u);
  const file_item keys_back = saved_and_loaded(keys);
  // An empty key is not stored at all; a key ending in "[]" would be read back as an array.
  std::size_t written = 0;
  for (std::size_t i = 0; i < hostile_texts.size(); ++i) {
    const std::string& text = hostile_texts[i].first;
    const std::string want = text.empty() ? text : hostile_texts[i].second;
    const bool array_like = text.size() >= 2 && text.compare(text.size() - 2, 2, "[]") == 0;
    const std::string n = std::to_string(i);
    for (const auto& [key, value] : {std::pair(want, "t" + n), std::pair("s." + want, "s" + n)}) {
      const auto* node = keys_back.get_value(key);
      if (array_like || key.empty()) {
        EXPECT_EQ(nullptr, node) << key;
        continue;
      }
      EXPECT_TRUE(node != nullptr && node->second.as_string() == value) << key;
      ++written;
    }
  }
  EXPECT_EQ(nullptr, keys_back.get_value("x[]"));  // read back as an array: not written
  for (const char* odd : {"k-", "k+", ".lead", "trail.", "a..b", "x[].y", "k:=", "k-="}) {
    const auto* value = keys_back.get_value(odd);
    EXPECT_TRUE(value != nullptr && value->second.as_string() == odd) << odd;
  }
  EXPECT_EQ(written + 8, keys_back.get_tree().size());
}

// Keys of 200000 dotted pieces, the deepest a file or command line makes cheaply: every
// operation on them must stay flat (no recursion per piece).
TEST(ConfigFileItem, DeepKeys) {
  std::string key = "a";
  for (int i = 1; i < 200000; ++i)
    key += ".a";
  mota_test::temp_dir dir;
  file_item item(dir / "deep.cfg");
  item.parse(key + " = 1\n[" + key + "]\nx[] = p, q\n");
  item.set(key + ".a", variant(ustring8("set")), 0u);
  ASSERT_NE(nullptr, item.get_value(key));
  EXPECT_EQ("1", item.get_value(key)->second.as_string());
  std::vector<std::pair<ustring8, variant>> elements;
  EXPECT_TRUE(item.get_value_pair_array(key + ".x", elements));
  EXPECT_EQ(2u, elements.size());

  std::ostringstream dump;
  item.dump(dump);
  EXPECT_NE(std::string::npos, dump.str().find(key + ".a|\t\tset\n"));

  const std::string argument = "-" + key + "=v";
  const char* const argv[] = {"prog", argument.c_str(), nullptr};
  mota::config::commandline_item line(2, argv);
  line.load();
  ASSERT_NE(nullptr, line.get_value(key));
  EXPECT_EQ("v", line.get_value(key)->second.as_string());

  std::unique_ptr<file_item> copy(item.clone());
  const file_item reread = saved_and_loaded(*copy);
  EXPECT_EQ(render(item), render(reread));
  item.unload();
  EXPECT_TRUE(item.get_tree().empty());
}
