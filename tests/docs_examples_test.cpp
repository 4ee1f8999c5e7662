// Runs every example of the data-file documents in docs/ through the library, so that what the
// documents promise stays true.
//
// Two kinds of fenced blocks matter: a data file (```xml file=shop.xmc), which every check of
// its document sees (so names must differ), and a check (```text check). Each check is one
// test case named after the line of its opening fence; it runs in a fresh temporary directory
// holding the data files, made the working directory so that paths in messages read as in the
// document.
#include <mota/config/config_manager.hpp>
#include <mota/config/std_config_dispatch.hpp>
#include <mota/i18n/message_catalogs.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using mota::strings::ustring8;
using mota::types::variant;

struct example {
  int line = 0;
  std::map<std::string, std::string> files;
  std::vector<std::string> check;
  std::string problem;  // set when the document itself cannot be read
};

std::string trim(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  return begin == std::string::npos ? ""
                                    : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::vector<std::string> words(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

// True when `line` reads "label: value"; `value` is then the trimmed rest.
bool labeled(const std::string& line, const std::string& label, std::string& value) {
  if (line.compare(0, label.size() + 1, label + ":") != 0) return false;
  value = trim(line.substr(label.size() + 1));
  return true;
}

std::vector<example> examples_of(const std::string& name) {
  const std::string path = std::string(MOTA_DOCS_DIR) + "/" + name;
  std::ifstream in(path);
  std::vector<example> out;
  std::map<std::string, std::string> files;
  std::string problem, line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (line.compare(0, 3, "```") != 0) continue;
    example block{number, {}, {}, ""};
    std::string file;
    bool check = false;
    for (const std::string& word : words(line.substr(3))) {
      if (word.compare(0, 5, "file=") == 0) file = word.substr(5);
      check = check || word == "check";
    }
    std::string text;
    for (++number; std::getline(in, line) && line != "```"; ++number) {
      block.check.push_back(line);
      text += line + "\n";
    }
    if (!file.empty() && !files.emplace(file, text).second) problem = "two files named " + file;
    if (file.empty() && check) out.push_back(block);
  }
  if (out.empty()) problem = "no check found in " + path;
  if (!problem.empty()) return {example{0, {}, {}, problem}};
  for (example& e : out)
    e.files = files;
  return out;
}

std::string case_name(const testing::TestParamInfo<example>& info) {
  return "line_" + std::to_string(info.param.line);
}

void PrintTo(const example& e, std::ostream* out) {
  *out << "the check at line " << e.line;
}

// Writes the files into a fresh directory and makes it the working directory while it lives.
struct example_dir {
  explicit example_dir(const std::map<std::string, std::string>& files) {
    for (const auto& [name, text] : files) {
      fs::create_directories((dir.path() / name).parent_path());
      std::ofstream(dir.path() / name, std::ios::binary) << text;
    }
    fs::current_path(dir.path());
  }
  ~example_dir() { fs::current_path(previous); }
  mota_test::temp_dir dir;
  fs::path previous = fs::current_path();
};

// docs/xmc-format.md. A check reads "load: PATH" and "locale: LOCALE", then either "error:"
// and the load's whole message to the end of the block, or any number of "message: CATALOG
// MESSAGE", "arguments: NAME=VALUE ..." (passed as text, as a program reading them from a user
// would) and "renders: TEXT" (further lines of TEXT follow until the next "message:").
class XmcFormat : public testing::TestWithParam<example> {};

TEST_P(XmcFormat, ExampleRendersAsWritten) {
  const example& e = GetParam();
  ASSERT_EQ(e.problem, "");
  example_dir dir(e.files);

  struct render {
    std::vector<std::string> names;
    std::string arguments, expected;
    bool continued = false;
  };
  std::vector<render> renders;
  std::string path, locale, value, error;
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
      renders.push_back(render{words(value), "", "", false});
      ASSERT_EQ(renders.back().names.size(), 2u) << line;
    } else if (!renders.empty() && labeled(line, "arguments", value)) {
      renders.back().arguments = value;
    } else if (!renders.empty() && labeled(line, "renders", value)) {
      renders.back().expected = value;
      renders.back().continued = true;
    } else if (!renders.empty() && renders.back().continued) {
      renders.back().expected += "\n" + line;
    } else {
      FAIL() << "line not understood: " << line;
    }
  }
  ASSERT_FALSE(path.empty() || locale.empty()) << "no load: or no locale:";
  ASSERT_TRUE(expects_error || !renders.empty()) << "nothing to check";

  mota::i18n::message_catalogs catalogs;
  const auto result = catalogs.load(ustring8(path), ustring8(locale));
  if (expects_error) {
    EXPECT_NE(result.type, mota::i18n::message_catalogs::no_error);
    // A blank line that closes the expected text belongs to the layout, not to the message.
    EXPECT_EQ(std::string(result.message), error.erase(error.find_last_not_of('\n') + 1));
    return;
  }
  ASSERT_EQ(result.type, mota::i18n::message_catalogs::no_error) << std::string(result.message);
  for (const render& r : renders) {
    const ustring8 catalog(r.names[0]), message(r.names[1]);
    ASSERT_TRUE(catalogs.has_message(catalog, message)) << r.names[1];
    mota::generic::varg_list args;
    for (const std::string& argument : words(r.arguments)) {
      const std::size_t eq = argument.find('=');
      ASSERT_NE(eq, std::string::npos) << "argument without =: " << argument;
      args.push_back(ustring8(argument.substr(0, eq)), variant(ustring8(argument.substr(eq + 1))));
    }
    EXPECT_EQ(catalogs.message(catalog, message).as_string(args), r.expected)
        << r.names[0] << " " << r.names[1] << " " << r.arguments;
  }
}

INSTANTIATE_TEST_SUITE_P(Docs, XmcFormat, testing::ValuesIn(examples_of("xmc-format.md")),
                         case_name);

// docs/config-format.md. A check reads "command line: PROGRAM ARGUMENT ..." (default: "shop"
// alone), "file: NAME" (the name the program hands over) and "environment: NAME=VALUE ..."
// (the whole environment), then lines "KEY = VALUE" (VALUE verbatim after "= "), "KEY[] = A,
// B" for the elements of an array and "KEY = (not set)" for a key without a value.
class ConfigFormat : public testing::TestWithParam<example> {};

TEST_P(ConfigFormat, ExampleReadsAsWritten) {
  const example& e = GetParam();
  ASSERT_EQ(e.problem, "");
  example_dir dir(e.files);

  std::vector<std::string> command_line{"shop"}, environment;
  std::string file, value;
  std::vector<std::pair<std::string, std::string>> expected;
  for (const std::string& line : e.check) {
    const std::size_t eq = line.find(" =");
    if (labeled(line, "command line", value)) {
      command_line = words(value);
    } else if (labeled(line, "file", value)) {
      file = value;
    } else if (labeled(line, "environment", value)) {
      environment = words(value);
    } else if (eq != std::string::npos) {
      // Blanks in the value count; an empty value may lose its blank to an editor.
      expected.emplace_back(trim(line.substr(0, eq)), line.substr(std::min(eq + 3, line.size())));
    } else if (!trim(line).empty()) {
      FAIL() << "line not understood: " << line;
    }
  }
  ASSERT_FALSE(expected.empty()) << "no key to check";

  std::vector<const char*> argv, envp;
  for (const std::string& word : command_line)
    argv.push_back(word.c_str());
  for (const std::string& entry : environment)
    envp.push_back(entry.c_str());
  argv.push_back(nullptr);
  envp.push_back(nullptr);
  mota::config::config_manager config;
  config.init(mota::config::std_config_dispatch(static_cast<int>(command_line.size()), argv.data(),
                                                envp.data(), ustring8(file)));
  config.load();

  for (const auto& [key, want] : expected) {
    const bool array = key.size() > 2 && key.compare(key.size() - 2, 2, "[]") == 0;
    const ustring8 name(array ? key.substr(0, key.size() - 2) : key);
    std::string got =
        config.value_exist(name) ? std::string(config.get_value(name).as_string()) : "(not set)";
    if (array) {
      EXPECT_TRUE(config.is_array(name)) << key;
      std::vector<variant> values;
      config.get_array(name, values);
      got.clear();
      for (const variant& v : values)
        got += (got.empty() ? "" : ", ") + std::string(v.as_string());
    }
    EXPECT_EQ(got, want) << key;
  }
}

INSTANTIATE_TEST_SUITE_P(Docs, ConfigFormat, testing::ValuesIn(examples_of("config-format.md")),
                         case_name);

}  // namespace
