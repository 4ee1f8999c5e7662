#include <mota/config/config_manager.hpp>
#include <mota/config/std_config_dispatch.hpp>

#include <gtest/gtest.h>
#include <mota_test.hpp>

#include <fstream>
#include <string>
#include <vector>

namespace {

using mota::config::config_manager;
using mota::strings::ustring8;

std::string text(const config_manager& m, const char* key) {
  return m.get_value(ustring8(key), mota::types::variant(ustring8("<unset>"))).as_string();
}

// docs/config-format.md runs the precedence of the values and each way of naming the file on
// its own; here the items' order, "cfg_file" on the command line winning over the one in the
// environment, and saving, which writes the file item back with what it read.
TEST(StdConfigDispatch, ItemsCfgFileOfTheCommandLineFirstAndSave) {
  mota_test::temp_dir dir;
  std::ofstream(dir / "env.cfg") << "from = env_file\n";
  std::ofstream(dir / "cmd.cfg") << "from = cmd_file\n";
  const std::string env_entry = "cfg_file=" + (dir / "env.cfg");
  const std::string cmd_entry = "-cfg_file=" + (dir / "cmd.cfg");
  const char* argv[] = {"app", cmd_entry.c_str(), nullptr};
  const char* envp[] = {env_entry.c_str(), nullptr};
  config_manager m;
  m.init(mota::config::std_config_dispatch(2, argv, envp, ustring8(dir / "given")));
  std::vector<std::string> ids;
  for (const auto& item : m.get_items())
    ids.push_back(item->get_id());
  EXPECT_EQ((std::vector<std::string>{"command line", "standard file", "enviroment"}), ids);

  m.load();
  EXPECT_EQ("cmd_file", text(m, "from"));
  m.get_config_item("standard file")->set("added", mota::types::variant(ustring8("new")), 0u);
  m.save();
  m.unload();
  EXPECT_EQ("<unset>", text(m, "from"));
  m.load();
  EXPECT_EQ("new", text(m, "added"));
  EXPECT_EQ("cmd_file", text(m, "from"));
}

}  // namespace
