// Runs every example of the data-file documents in docs/ through the library, so that what the
// documents promise stays true.
//
// A document holds two kinds of fenced blocks that matter here:
//   - a data file: a block whose info string carries file=NAME (```xml file=shop.xmc); every
//     check sees every data file of its document, so names must differ;
//   - a check: a block whose info string carries the word check. In docs/xmc-format.md it loads
//     a path for a locale and then renders messages or expects a load error; in
//     docs/config-format.md it runs a program with a command line, a file name and an
//     environment and lists the values of keys.
// Each check is one test case named after its line in the document. It runs in a fresh
// temporary directory (the working directory for the run, so that paths in messages read as
// in the document) holding the data files.
#include <mota/config/config_manager.hpp>
#include <mota/config/std_config_dispatch.hpp>
#include <mota/i18n/message_catalogs.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using mota::strings::ustring8;
using mota::types::variant;

struct example {
  std::string document;
  int line = 0;  // of the check block's opening fence
  std::map<std::string, std::string> files;
  std::vector<std::string> check;
  std::string problem;  // set when the document itself cannot be read
};

std::string trim(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string::npos) return std::string();
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::vector<std::string> words(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> out;
  for (std::string word; in >> word;)
    out.push_back(word);
  return out;
}

// "label: value" when the line starts with one of the labels; the value is trimmed.
bool labeled(const std::string& line, const std::string& label, std::string& value) {
  if (line.compare(0, label.size() + 1, label + ":") != 0) return false;
  value = trim(line.substr(label.size() + 1));
  return true;
}

// The checks of one document, each with every data file of the document.
std::vector<example> examples_of(const std::string& name) {
  const std::string path = std::string(MOTA_DOCS_DIR) + "/" + name;
  std::ifstream in(path);
  std::vector<example> out;
  std::map<std::string, std::string> files;
  std::string problem;
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    if (line.compare(0, 3, "```") != 0) continue;
    const int opened = number;
    std::string file;
    bool check = false;
    for (const std::string& word : words(line.substr(3))) {
      if (word.compare(0, 5, "file=") == 0) file = word.substr(5);
      if (word == "check") check = true;
    }
    std::vector<std::string> body;
    while (std::getline(in, line)) {
      ++number;
      if (line == "```") break;
      body.push_back(line);
    }
    if (!file.empty()) {
      std::string text;
      for (const std::string& l : body)
        text += l + "\n";
      if (!files.emplace(file, text).second) problem = "two files named " + file;
    } else if (check) {
      out.push_back(example{name, opened, {}, body, std::string()});
    }
  }
  if (out.empty()) problem = "no check found in " + path;
  if (!problem.empty()) return {example{name, 0, {}, {}, problem}};
  for (example& e : out)
    e.files = files;
  return out;
}

std::string case_name(const testing::TestParamInfo<example>& info) {
  return "line_" + std::to_string(info.param.line);
}

// Writes the files into a fresh directory and makes it the working directory while it lives.
class example_dir {
 public:
  explicit example_dir(const std::map<std::string, std::string>& files)
      : m_previous(fs::current_path()) {
    for (const auto& file : files) {
      const fs::path path = m_dir.path() / file.first;
      fs::create_directories(path.parent_path());
      std::ofstream(path, std::ios::binary) << file.second;
    }
    fs::current_path(m_dir.path());
  }
  ~example_dir() { fs::current_path(m_previous); }
  example_dir(const example_dir&) = delete;
  example_dir& operator=(const example_dir&) = delete;

 private:
  mota_test::temp_dir m_dir;
  fs::path m_previous;
};

std::string where(const example& e) {
  return e.document + ":" + std::to_string(e.line);
}

// Names a failing case by its place in the document rather than by its bytes.
void PrintTo(const example& e, std::ostream* out) {
  *out << where(e);
}

// --- docs/xmc-format.md ----------------------------------------------------------------------

// A check block reads:
//   load: PATH              locale: LOCALE
//   error: followed by the load's whole message, line for line, to the end of the block; or
//   message: CATALOG MESSAGE   arguments: NAME=VALUE ...   renders: TEXT (further lines of TEXT
//   follow until the next message:), as many times as wanted.
// Argument values are passed as text, as a program reading them from a user would.
class XmcFormat : public testing::TestWithParam<example> {};

TEST_P(XmcFormat, ExampleRendersAsWritten) {
  const example& e = GetParam();
  ASSERT_EQ(e.problem, "");
  example_dir dir(e.files);

  std::string path, locale, value;
  struct render {
    std::string catalog, message, arguments, expected;
    bool continued = false;
  };
  std::vector<render> renders;
  std::string error;
  bool expects_error = false;
  for (const std::string& line : e.check) {
    if (expects_error) {
      error += (error.empty() ? "" : "\n") + line;
    } else if (labeled(line, "load", value)) {
      path = value;
    } else if (labeled(line, "locale", value)) {
      locale = value;
    } else if (labeled(line, "error", value)) {
      expects_error = true;
      error = value;
    } else if (labeled(line, "message", value)) {
      const std::vector<std::string> names = words(value);
      ASSERT_EQ(names.size(), 2u) << where(e) << ": " << line;
      renders.push_back(render{names[0], names[1], "", "", false});
    } else if (!renders.empty() && labeled(line, "arguments", value)) {
      renders.back().arguments = value;
    } else if (!renders.empty() && labeled(line, "renders", value)) {
      renders.back().expected = value;
      renders.back().continued = true;
    } else if (!renders.empty() && renders.back().continued) {
      renders.back().expected += "\n" + line;
    } else {
      FAIL() << where(e) << ": line not understood: " << line;
    }
  }
  ASSERT_FALSE(path.empty()) << where(e) << ": no load:";
  ASSERT_FALSE(locale.empty()) << where(e) << ": no locale:";
  ASSERT_TRUE(expects_error || !renders.empty()) << where(e) << ": nothing to check";

  mota::i18n::message_catalogs catalogs;
  const auto result = catalogs.load(ustring8(path), ustring8(locale));
  if (expects_error) {
    EXPECT_NE(result.type, mota::i18n::message_catalogs::no_error) << where(e);
    // A blank line that closes the expected text belongs to the layout, not to the message.
    EXPECT_EQ(std::string(result.message), error.erase(error.find_last_not_of('\n') + 1))
        << where(e);
    return;
  }
  ASSERT_EQ(result.type, mota::i18n::message_catalogs::no_error)
      << where(e) << ": " << std::string(result.message);
  for (const render& r : renders) {
    ASSERT_TRUE(catalogs.has_message(ustring8(r.catalog), ustring8(r.message)))
        << where(e) << ": no message " << r.catalog << " " << r.message;
    mota::generic::varg_list args;
    for (const std::string& argument : words(r.arguments)) {
      const std::size_t eq = argument.find('=');
      ASSERT_NE(eq, std::string::npos) << where(e) << ": argument without =: " << argument;
      args.push_back(ustring8(argument.substr(0, eq)), variant(ustring8(argument.substr(eq + 1))));
    }
    EXPECT_EQ(catalogs.message(ustring8(r.catalog), ustring8(r.message)).as_string(args),
              r.expected)
        << where(e) << ": " << r.catalog << " " << r.message << " " << r.arguments;
  }
}

INSTANTIATE_TEST_SUITE_P(Docs, XmcFormat, testing::ValuesIn(examples_of("xmc-format.md")),
                         case_name);

// --- docs/config-format.md -------------------------------------------------------------------

// A check block reads:
//   command line: PROGRAM ARGUMENT ...   (default: the program "shop" with no arguments)
//   file: NAME                           (the name the program hands over; default none)
//   environment: NAME=VALUE ...          (the whole environment the program sees; default none)
// followed by lines KEY = VALUE (VALUE verbatim after "= "): the value the program gets for KEY,
// "KEY[] = A, B, C" for the elements of an array, and "KEY = (not set)" for a key that has no
// value.
class ConfigFormat : public testing::TestWithParam<example> {};

TEST_P(ConfigFormat, ExampleReadsAsWritten) {
  const example& e = GetParam();
  ASSERT_EQ(e.problem, "");
  example_dir dir(e.files);

  std::vector<std::string> command_line{"shop"}, environment;
  std::string file, value;
  std::vector<std::pair<std::string, std::string>> expected;
  for (const std::string& line : e.check) {
    if (labeled(line, "command line", value)) {
      command_line = words(value);
    } else if (labeled(line, "file", value)) {
      file = value;
    } else if (labeled(line, "environment", value)) {
      environment = words(value);
    } else if (line.find(" =") != std::string::npos) {
      // The value is verbatim after "= ", so that blanks in it count; an empty value may
      // lose its blank to an editor.
      const std::size_t eq = line.find(" =");
      const std::string rest = line.substr(eq + 2);
      expected.emplace_back(trim(line.substr(0, eq)), rest.empty() ? rest : rest.substr(1));
    } else if (!trim(line).empty()) {
      FAIL() << where(e) << ": line not understood: " << line;
    }
  }
  ASSERT_FALSE(expected.empty()) << where(e) << ": no key to check";

  std::vector<const char*> argv, envp;
  for (const std::string& word : command_line)
    argv.push_back(word.c_str());
  argv.push_back(nullptr);
  for (const std::string& entry : environment)
    envp.push_back(entry.c_str());
  envp.push_back(nullptr);
  mota::config::config_manager config;
  config.init(mota::config::std_config_dispatch(static_cast<int>(command_line.size()), argv.data(),
                                                envp.data(), ustring8(file)));
  config.load();

  for (const auto& [key, want] : expected) {
    if (key.size() > 2 && key.compare(key.size() - 2, 2, "[]") == 0) {
      const ustring8 name(key.substr(0, key.size() - 2));
      EXPECT_TRUE(config.is_array(name)) << where(e) << ": " << key;
      std::vector<variant> values;
      config.get_array(name, values);
      std::string joined;
      for (const variant& v : values)
        joined += (joined.empty() ? "" : ", ") + std::string(v.as_string());
      EXPECT_EQ(joined, want) << where(e) << ": " << key;
    } else if (want == "(not set)") {
      EXPECT_FALSE(config.value_exist(ustring8(key)))
          << where(e) << ": " << key << " is "
          << std::string(config.get_value(ustring8(key), variant()).as_string());
    } else {
      EXPECT_TRUE(config.value_exist(ustring8(key))) << where(e) << ": " << key;
      EXPECT_EQ(std::string(config.get_value(ustring8(key), variant()).as_string()), want)
          << where(e) << ": " << key;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Docs, ConfigFormat, testing::ValuesIn(examples_of("config-format.md")),
                         case_name);

}  // namespace
