// The built executable, for what only a process shows: the exit code of a command line, a
// standard output that cannot be written, files found from the working directory, and FIFOs
// that must never be waited on.
#include <mota_test.hpp>

#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

struct run_result {
  int code = -1;
  std::string out, err;
};

std::string read_file(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// Runs the tool through the shell with `args` (quoted by the caller), only the environment
// `env`, in `cwd`, standard output going to `out`. A tool still running after 20 seconds is
// stopped (exit code 124), so one that blocks fails the test instead of hanging it.
run_result run(const std::string& args, const std::string& env = "", const std::string& cwd = ".",
               std::string out = "") {
  mota_test::temp_dir dir;
  const bool own_out = out.empty();  // a device such as /dev/full is not read back
  if (own_out) out = dir / "out";
  const std::string line = "cd '" + cwd + "' && env -i " + env +
                           " timeout 20 '" MOTA_TOOL_PATH "' " + args + " </dev/null >'" + out +
                           "' 2>'" + dir / "err" + "'";
  const int status = std::system(line.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, own_out ? read_file(out) : "",
          read_file(dir / "err")};
}

}  // namespace

TEST(ToolProcess, ExitCodesFollowTheCommand) {
  EXPECT_EQ(0, run("--version").code);
  EXPECT_EQ(64, run("").code);
  EXPECT_EQ(1, run("xml check /no/such/file.xml").code);
  EXPECT_EQ(2, run("config get nope").code);
  EXPECT_EQ(3, run("config check '" MOTA_SOURCE_DIR "/examples/config/broken.cfg'").code);
  // The library's warning about an ignored argument stays off the answer's stream.
  const run_result r = run("config get x -- stray", "x=1");
  EXPECT_EQ("1\n", r.out);
  EXPECT_EQ("Warning! unknown key:stray\nIgnoring key and continuing\n", r.err);
}

TEST(ToolProcess, OutputThatCannotBeWrittenIsAFailure) {
  const run_result r = run("--help", "", ".", "/dev/full");
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot write the output\n", r.err);
}

TEST(ToolProcess, WithoutAFileTheProgramNameChoosesItInTheWorkingDirectory) {
  mota_test::temp_dir dir;
  std::ofstream(dir / "shopd.cfg") << "colour = green\n";
  std::ofstream(dir / "mota.cfg") << "colour = blue\n";
  EXPECT_EQ("green\n", run("config get colour --program shopd", "", dir.str()).out);
  EXPECT_EQ("blue\n", run("config get colour", "", dir.str()).out);
}

// A FIFO that no one writes to is refused like any file that cannot be read, at once.
TEST(ToolProcess, AFifoIsUnreadableAndNeverWaitedOn) {
  mota_test::temp_dir dir;
  const std::string fifo = dir / "fifo.cfg";  // the extension keeps config from adding one
  ASSERT_EQ(0, mkfifo(fifo.c_str(), 0600));
  run_result r = run("xml check '" + fifo + "'");
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(fifo + ": unreadable: cannot read the file\n", r.out);
  r = run("config get x --file '" + fifo + "'", "x=1");
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("1\n", r.out);
  EXPECT_EQ("mota: warning: cannot read configuration file \"" + fifo + "\"\n", r.err);
}
