#include <mota/config/config_file_check.hpp>

#include <gtest/gtest.h>
#include <mota_test.hpp>

#include <fstream>
#include <sstream>
#include <string>
#include <tuple>

namespace {

using check_t = mota::config::config_file_check;
using mota::strings::ustring8;

// The warnings of `text`, one "line kind key=stored @other_line" per line.
std::string warnings_of(const std::string& text) {
  const check_t check{ustring8(text)};
  std::ostringstream all;
  for (const check_t::warning& w : check.warnings()) {
    all << w.line << " " << w.kind << " " << w.key << "=" << w.stored;
    if (w.other_line != 0) all << " @" << w.other_line;
    all << "\n";
  }
  return all.str();
}

TEST(ConfigFileCheck, WarnsWhereTheStoredValueIsNotTheWrittenOne) {
  const std::tuple<const char*, const char*> rows[] = {
      {"url = http://x/y\n", "1 0 url=http:\n"},
      {"c = a#b\nd = # nothing\ne = xy // z\n", "1 0 c=a\n2 0 d=\n"},
      {"l[] = a, b#c\n", "1 0 l=a, b\n"},
      {"t = a b\tc\nq = \"a b\" c\n", "1 1 t=abc\n2 1 q=a bc\n"},
      {"[s]\nx\ny = 1\n", "2 2 s.xy=1\n"},
      {"x = 1\ntrailing", "2 2 =\n"},
      {"h[] = a,\nport = 80\n[sec]\nz = 1\n", "2 3 h=a, port=80 @1\n"},
      {"h[] = a,\n\n[sec]\n", "3 3 h=a, [sec] @1\n"},
      {"k = 1\n[a]\nb = 2\n[]\nk = 3\na.b = 4\n", "5 4 k=3 @1\n6 4 a.b=4 @3\n"},
      {"e = \"\"\n", "1 5 e=\n"},
      {"e = \"open\nf = 1\n", "1 6 e=open\nf = 1\n\n"},
  };
  for (const auto& [text, warnings] : rows)
    EXPECT_EQ(warnings, warnings_of(text)) << text;
}

// The reader's keys and lines agree with what file_item stores, on every example file.
TEST(ConfigFileCheck, EveryStoredKeyHasTheLineThatSetIt) {
  for (const char* name : {"app.cfg", "broken.cfg"}) {
    std::ifstream file(mota_test::source_dir() + "/examples/config/" + name);
    std::stringstream text;
    text << file.rdbuf();
    const check_t check{ustring8(text.str())};
    std::size_t stored_keys = 0;
    check.stored().visit([&](const std::string& key, const mota::config::config_tree::node_t& node,
                             const std::vector<std::string>&) {
      // Array elements are stored under "<array>.<n>"; the array's own line covers them. An
      // inner node of a dotted key has neither a line nor a value.
      const std::string::size_type dot = key.rfind('.');
      const bool element = dot != std::string::npos && check.line_of(key.substr(0, dot)) != 0 &&
                           key.find_first_not_of("0123456789", dot + 1) == std::string::npos;
      if (element || (check.line_of(key) == 0 && node.second.as_string().empty())) return;
      ++stored_keys;
      EXPECT_NE(0u, check.line_of(key)) << name << ": " << key;
    });
    EXPECT_LT(0u, stored_keys);
    for (const check_t::definition& d : check.definitions())
      EXPECT_NE(nullptr, check.stored().get_node(d.key)) << name << ": " << d.key;
  }
}

}  // namespace
