#include <mota/config/commandline_item.hpp>

#include <gtest/gtest.h>
#include <config_test.hpp>

#include <string>
#include <vector>

namespace {

using mota::config::commandline_item;
using mota_test::render;

std::pair<std::string, std::string> load(const std::vector<const char*>& argv) {
  commandline_item item(static_cast<unsigned>(argv.size()), argv.data());
  testing::internal::CaptureStdout();
  item.load();
  const std::string printed = testing::internal::GetCapturedStdout();
  return {render(item), printed};
}

}  // namespace

// docs/config-format.md runs the plain forms ("=", ":", "/", a value in the next argument, a
// switch, an empty value, arrays) and the fuzz target every "=", ":" and ":=" with any value.
TEST(ConfigCommandLine, ProgramNameAndValueInTheNextArgument) {
  const std::vector<std::pair<std::vector<const char*>, std::string>> cases = {
      {{"/usr/bin/my.tool.bin"},
       "application.name=0:my.tool.bin\napplication.name.extention=0:bin\n"
       "application.name.raw=0:mytool\n"},
      {{".profile"},
       "application.name=0:.profile\napplication.name.extention=0:profile\n"
       "application.name.raw=0:.profile\n"},
      {{"dir/"}, ""},
      {{"", "-x=", "y"}, "x=0:y\n"},
      {{"", "-x", "a,b"}, "x=3:2\nx.0=0:a\nx.1=0:b\n"},
  };
  for (const auto& [argv, want] : cases)
    EXPECT_EQ(want, load(argv).first) << argv.back();
}

// Unknown arguments warn and are skipped.
TEST(ConfigCommandLine, OperatorsFlagsAndUnknownArguments) {
  const auto [tree, printed] =
      load({"", "-d", "-e", "val", "-g+=5", "-h>=6", "x=1", "-j", "-", "-s*=t", ""});
  EXPECT_EQ("d=0:1\ne=0:val\ng=0:5\nh=0:6\nj=0:1\ns=0:t\n", tree);
  EXPECT_EQ(
      "Warning! unknown key:x=1\nIgnoring key and continuing\n"
      "Warning! unknown key:\nIgnoring key and continuing\n",
      printed);
}

TEST(ConfigCommandLine, ReloadAndNullEntries) {
  std::vector<const char*> argv = {"prog", nullptr, "-a=1"};
  commandline_item item(3, argv.data());
  item.load();
  item.set("extra", mota::types::variant(1), 0u);
  item.load();  // a load starts from scratch
  EXPECT_EQ("a=0:1\napplication.name=0:prog\napplication.name.raw=0:prog\n", render(item));
  item.unload();
  EXPECT_EQ("", render(item));

  commandline_item none(5, nullptr);
  none.load();
  EXPECT_EQ("", render(none));
}
