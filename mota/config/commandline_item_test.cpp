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

// A value in the next argument, and an option after a switch, are run by docs/config-format.md.
TEST(ConfigCommandLine, ProgramNameAndValueInTheNextArgument) {
  const std::vector<std::pair<std::vector<const char*>, std::string>> cases = {
      {{"/usr/bin/my.tool.bin"},
       "application.name=0:my.tool.bin\napplication.name.extention=0:bin\n"
       "application.name.raw=0:mytool\n"},
      {{"./prog"}, "application.name=0:prog\napplication.name.raw=0:prog\n"},
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

TEST(ConfigCommandLine, KeysValuesArraysFlagsAndUnknownArguments) {
  const auto [tree, printed] =
      load({"", "-a=1", "/b:2", "-c:=3", "-d", "-e", "val", "-f=x,y,,z", "-g+=5", "-h>=6",
            "-i=", "-j", "-k=a b", "-l", "-m=n=o", "-p.q=r", "-", "-s*=t"});
  EXPECT_EQ("", printed);
  EXPECT_EQ(
      "a=0:1\nb=0:2\nc=0:3\nd=0:1\ne=0:val\n"
      "f=3:3\nf.0=0:x\nf.1=0:y\nf.2=0:z\n"
      "g=0:5\nh=0:6\ni=0:\nj=0:1\nk=0:a b\nl=0:1\nm=0:n=o\np.q=0:r\ns=0:t\n",
      tree);

  // unknown arguments warn and are skipped
  const auto [rest, warnings] = load({"", "x=1", "-k=v", "plain", ""});
  EXPECT_EQ("k=0:v\n", rest);
  EXPECT_EQ(
      "Warning! unknown key:x=1\nIgnoring key and continuing\n"
      "Warning! unknown key:plain\nIgnoring key and continuing\n"
      "Warning! unknown key:\nIgnoring key and continuing\n",
      warnings);
}

TEST(ConfigCommandLine, ReloadAndNullEntries) {
  std::vector<const char*> argv = {"prog", nullptr, "-a=1"};
  commandline_item item(3, argv.data());
  EXPECT_EQ("command line", item.get_id());
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
