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

// cfg_file names the file from the command line or the environment, whichever comes first in
// the list; the name given to the dispatch is the fallback. The precedence of the values stays
// command line, file, environment.
TEST(StdConfigDispatch, CfgFileFromTheCommandLineOrTheEnvironmentNamesTheFile) {
  mota_test::temp_dir dir;
  std::ofstream(dir / "env.cfg") << "from = env_file\nshared = file\n";
  std::ofstream(dir / "cmd.cfg") << "from = cmd_file\n";
  std::ofstream(dir / "given.cfg") << "from = given_file\n";
  const std::string env_entry = "cfg_file=" + (dir / "env.cfg");
  const std::string cmd_entry = "-cfg_file=" + (dir / "cmd.cfg");
  const char* envp[] = {env_entry.c_str(), "shared=env", nullptr};
  struct row {
    std::vector<const char*> argv;
    const char* const* envp;
    const char* from;
    const char* shared;  // set by env.cfg over the environment
  };
  const char* const no_env[] = {nullptr};
  for (const row& r : {row{{"app"}, envp, "env_file", "file"},
                       row{{"app", cmd_entry.c_str()}, envp, "cmd_file", "env"},
                       row{{"app"}, no_env, "given_file", "<unset>"}}) {
    config_manager m;
    m.init(mota::config::std_config_dispatch(static_cast<int>(r.argv.size()), r.argv.data(), r.envp,
                                             ustring8(dir / "given")));
    m.load();
    EXPECT_EQ(r.from, text(m, "from"));
    EXPECT_EQ(r.shared, text(m, "shared"));
  }
}

}  // namespace
