#include <mota/config/file_item.hpp>

#include <gtest/gtest.h>
#include <config_test.hpp>
#include <mota_test.hpp>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

using mota::config::file_item;
using mota_test::render;

std::string parse(const std::string& text) {
  file_item item("");
  item.parse(text);
  return render(item);
}

}  // namespace

// docs/config-format.md runs the plain forms (quoting, sections, comments, arrays, keys that
// run on); the rows here are the edges it does not show.
TEST(ConfigFileSyntax, ScalarsSectionsCommentsAndArrays) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"\tx\t=\t-1.5\t\r\ny=2\r\n", "x=0:-1.5\ny=0:2\n"},
      {"x = 1 */ 2\n*/ y = 3\nz = 4", "x=0:1\nz=0:4\n"},
      {"x =\ny = # nothing\nz = \"\"", ""},
      {"[\"my sec\"] k = v", "my sec.k=0:v\n"},
      {"= 5\nlone", ""},     // empty key; key without "="
      {"[open\nx = 1", ""},  // a header that never closes
      {"x = \"unterminated", "x=0:unterminated\n"},
      {"\"a key\" = v", "a key=0:v\n"},
      {"k\xC3\xA9y = \xC3\xA9", "k\xC3\xA9y=0:\xC3\xA9\n"},
      {"list[] = 1\n 2\nz = 5", "2z=0:5\nlist=3:1\nlist.0=0:1\n"},
      {"l[] = \"\"\nx = 1", "l=3:0\nx=0:1\n"},
      {"[s]\nl[] = a,b // c", "s.l=3:2\ns.l.0=0:a\ns.l.1=0:b\n"},
      {"l[] = a,", "l=3:1\nl.0=0:a\n"},
  };
  for (const auto& [text, want] : cases)
    EXPECT_EQ(want, parse(text)) << text;
}

TEST(ConfigFileSyntax, ParseCommentStopsBeforeTheLineEnd) {
  using T = mota::config::config_token;
  T tok;
  unsigned pos = 1;
  EXPECT_EQ(T::T_NEWLINE, file_item::parse_comment("# a b\r\nx", pos, tok));
  EXPECT_EQ(5u, pos);
  pos = 0;
  EXPECT_EQ(T::T_END, file_item::parse_comment("// x", pos, tok));
  EXPECT_EQ(4u, pos);
}

TEST(ConfigFileItem, LoadsReplacesAndFailsQuietly) {
  mota_test::temp_dir dir;
  const std::string path = dir / "app.cfg";
  std::ofstream(path) << "a = 1\nb = 2\n";
  file_item item(path);
  EXPECT_TRUE(item.load_file());
  EXPECT_EQ("a=0:1\nb=0:2\n", render(item));
  std::ofstream(path) << "c = 3\n";
  item.load();
  EXPECT_EQ("c=0:3\n", render(item));
  const std::unique_ptr<file_item> copy(item.clone());
  EXPECT_EQ("c=0:3\n", render(*copy));
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
