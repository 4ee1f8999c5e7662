// End-to-end tests of the mota tool: each case runs the built executable with arguments,
// standard input and environment of its own, and checks its output and exit status.
#include <mota_test.hpp>

#include <mota/version.hpp>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct run_result {
  int code = -1;  // exit status, or 128 + signal number when the tool was killed
  std::string out;
  std::string err;
};

std::string read_file(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void write_file(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
}

// Runs the tool with `args`, `input` on standard input, and either the test's own
// environment or exactly `env` (plus the sanitizer settings, so sanitized builds keep them).
run_result run(const std::vector<std::string>& args, const std::string& input = "",
               const std::vector<std::string>* env = nullptr) {
  mota_test::temp_dir dir;
  const std::string in_path = dir / "in", out_path = dir / "out", err_path = dir / "err";
  write_file(in_path, input);

  std::vector<std::string> words{MOTA_TOOL_PATH};
  words.insert(words.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& word : words)
    argv.push_back(&word[0]);
  argv.push_back(nullptr);

  std::vector<std::string> env_words;
  if (env) {
    env_words = *env;
    for (char** entry = environ; *entry; ++entry) {
      const std::string text(*entry);
      if (text.rfind("ASAN_", 0) == 0 || text.rfind("UBSAN_", 0) == 0 ||
          text.rfind("LSAN_", 0) == 0) {
        env_words.push_back(text);
      }
    }
  }
  std::vector<char*> envp;
  for (std::string& word : env_words)
    envp.push_back(&word[0]);
  envp.push_back(nullptr);

  const pid_t pid = fork();
  if (pid == 0) {
    const int in = open(in_path.c_str(), O_RDONLY);
    const int out = open(out_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int err = open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (in < 0 || out < 0 || err < 0) _exit(126);
    dup2(in, 0);
    dup2(out, 1);
    dup2(err, 2);
    execve(argv[0], argv.data(), env ? envp.data() : environ);
    _exit(127);
  }
  run_result result;
  int status = 0;
  if (pid < 0 || waitpid(pid, &status, 0) != pid) return result;
  result.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.out = read_file(out_path);
  result.err = read_file(err_path);
  return result;
}

std::string example(const std::string& relative) {
  return mota_test::source_dir() + "/examples/" + relative;
}

// ---------------------------------------------------------------------------------------
// Dispatch and usage

TEST(ToolDispatch, UsageErrorsExit64WithTheSynopsisOnStandardError) {
  struct usage_case {
    std::vector<std::string> args;
    std::string message;
  };
  const usage_case cases[] = {
      {{}, "mota: no command given\n"},
      {{"frobnicate"}, "mota: unknown command \"frobnicate\"\n"},
      {{"convert", "--from", "1252"}, "mota: convert needs --from and --to\n"},
      {{"convert", "--from"}, "mota: option --from needs a value\n"},
      {{"convert", "--from=1252", "--to=4", "extra"}, "mota: unexpected argument \"extra\"\n"},
      {{"convert", "--list=yes"}, "mota: option --list takes no value\n"},
      {{"convert", "--bogus"}, "mota: unknown option --bogus\n"},
      {{"convert", "--from", "1252", "--to", "4", "--"}, "mota: unexpected \"--\"\n"},
  };
  for (const usage_case& c : cases) {
    const run_result r = run(c.args);
    EXPECT_EQ(64, r.code) << c.message;
    EXPECT_EQ(0u, r.err.find(c.message)) << r.err;
    EXPECT_NE(std::string::npos, r.err.find("usage: mota")) << r.err;
    EXPECT_NE(std::string::npos, r.err.find("Run with --help for details.\n")) << r.err;
    EXPECT_EQ("", r.out);
  }
}

TEST(ToolDispatch, HelpGoesToStandardOutputForEveryCommand) {
  const std::vector<std::vector<std::string>> cases = {
      {"--help"},
      {"help"},
      {"-h"},
      {"catalog", "--help"},
      {"catalog", "check", "--help"},
      {"catalog", "render", "-h"},
      {"config", "--help"},
      {"config", "get", "--help"},
      {"config", "dump", "--help"},
      {"convert", "--help"},
      {"xml", "--help"},
      {"xml", "check", "--help"},
  };
  for (const auto& args : cases) {
    const run_result r = run(args);
    EXPECT_EQ(0, r.code) << args.back();
    EXPECT_EQ(0u, r.out.find("usage: mota")) << r.out;
    // The full text, not only the synopsis.
    EXPECT_NE(std::string::npos, r.out.find("--help")) << r.out;
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolDispatch, VersionNamesTheLibraryVersion) {
  const run_result r = run({"--version"});
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("mota " + std::to_string(MOTA_VERSION_MAJOR) + "." +
                std::to_string(MOTA_VERSION_MINOR) + "." + std::to_string(MOTA_VERSION_PATCH) +
                "\n",
            r.out);
}

TEST(ToolDispatch, BytesThatAreNotUtf8AreEscapedInMessages) {
  const run_result r = run({"caf\xE9\x01"});
  EXPECT_EQ(64, r.code);
  EXPECT_EQ(0u, r.err.find("mota: unknown command \"caf\\xE9\\x01\"\n")) << r.err;
}

// ---------------------------------------------------------------------------------------
// convert

TEST(ToolConvert, Cp1252ToUtf8ByNumberAndByName) {
  const std::string latin("caf\xE9 \x80 10");  // 0x80 is the euro sign in CP1252
  for (const char* from : {"1252", "CP1252", "cp1252"}) {
    const run_result r = run({"convert", "--from", from, "--to", "UTF-8"}, latin);
    EXPECT_EQ(0, r.code) << from << r.err;
    EXPECT_EQ("caf\xC3\xA9 \xE2\x82\xAC 10", r.out) << from;
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolConvert, Utf8ToSingleByteSetsAndBack) {
  const std::string text = "\xE2\x82\xAC \xC3\xA4\xC3\xB6";  // euro, a and o with umlaut
  run_result r = run({"convert", "--from=utf-8", "--to=28605"}, text);
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ("\xA4 \xE4\xF6", r.out);  // ISO-8859-15 has the euro at 0xA4
  r = run({"convert", "--from", "ISO-8859-15", "--to", "4"}, r.out);
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ(text, r.out);
}

TEST(ToolConvert, UndecodableBytesBecomeQuestionMarks) {
  const run_result r = run({"convert", "--from", "UTF-8", "--to", "UTF-8"},
                           "a\xFF"
                           "b");
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ("a?b", r.out);
}

TEST(ToolConvert, EmptyAndLargeInputs) {
  run_result r = run({"convert", "--from", "1252", "--to", "4"}, "");
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("", r.out);

  std::string latin;
  for (int i = 0; i < 200000; ++i)
    latin += static_cast<char>(0xC0 + i % 32);
  r = run({"convert", "--from", "28591", "--to", "4"}, latin);
  ASSERT_EQ(0, r.code) << r.err;
  EXPECT_EQ(2 * latin.size(), r.out.size());
  r = run({"convert", "--from", "4", "--to", "28591"}, r.out);
  ASSERT_EQ(0, r.code) << r.err;
  EXPECT_TRUE(r.out == latin);
}

TEST(ToolConvert, CodesOutsideTheTableAreUsageErrors) {
  for (const char* code : {"0", "28600", "1249", "UTF8", "", "-4", "99999999999", "1252x"}) {
    const run_result r = run({"convert", "--from", code, "--to", "4"}, "x");
    EXPECT_EQ(64, r.code) << code;
    EXPECT_EQ(0u, r.err.find("mota: unknown code page \"" + std::string(code) + "\"")) << r.err;
    EXPECT_EQ("", r.out);
  }
  // 2 and 3 are further names of the process's own set.
  EXPECT_EQ(0, run({"convert", "--from", "2", "--to", "3"}, "abc").code);
}

TEST(ToolConvert, ListShowsEveryCodeWithItsName) {
  const run_result r = run({"convert", "--list"});
  EXPECT_EQ(0, r.code);
  for (const char* line :
       {"     1  SYSTEM\n", "     4  UTF-8\n", "   932  WINDOWS-31J\n", "  1252  CP1252\n",
        " 20866  KOI8-R\n", " 28605  ISO-8859-15\n", "125100  ANSI_X3.4-1968\n"}) {
    EXPECT_NE(std::string::npos, r.out.find(line)) << line;
  }
  EXPECT_EQ(28u, static_cast<unsigned>(std::count(r.out.begin(), r.out.end(), '\n')));
}

// ---------------------------------------------------------------------------------------
// xml check

TEST(ToolXml, ReportsOkOrTheFirstErrorWithKindLineAndDetail) {
  struct xml_case {
    std::string document;
    std::string output;
  };
  const xml_case cases[] = {
      {"<?xml?><a/>", "ok\n"},
      {"\xEF\xBB\xBF<?xml version='1.0'?>\n<a>x&amp;y<!-- c --></a>\n", "ok\n"},
      {"<?xm", "invalid_header at line 0\n"},
      {"<?xml version='1.0'?>  \n\n ", "no_root_element at line 2\n"},
      {"<?xml?><a x='1' x='2'/>", "attribute_redefined at line 0: \"x\"\n"},
      {"<?xml?>\n<a>\n</b>", "mismatched_end_element at line 2: \"b\"\n"},
      {"<?xml?><a/><b/>", "data_after_root at line 0\n"},
      {"<?xml?><a>&zz;</a>", "unknown_entity at line 0\n"},
      {"<?xml?><a>", "unexpected_eof at line 0\n"},
      {"<?xml?><a b=1/>", "missing_quote at line 0\n"},
      {"<?xml?><a b/>", "missing_equals at line 0: \"b\"\n"},
      {"<?xml?>\n\n<x-y/>", "unexpected_character at line 2: \"-\"\n"},
      // A detail byte that is not UTF-8 is shown escaped.
      {"<?xml?><\xC3\xA9/>", "unexpected_character at line 0: \"\\xC3\"\n"},
  };
  mota_test::temp_dir dir;
  const std::string path = dir / "doc.xml";
  for (const xml_case& c : cases) {
    write_file(path, c.document);
    const run_result r = run({"xml", "check", path});
    EXPECT_EQ(c.output, r.out) << c.document;
    EXPECT_EQ(c.output == "ok\n" ? 0 : 1, r.code) << c.document;
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolXml, TheExampleCatalogsAreWellFormedAndOneBrokenOneIsNot) {
  for (const char* file : {"catalogs/shop.xmc", "catalogs/de/shop.xmc", "catalogs/fr/shop.xmc",
                           "catalogs/kinds.xmc", "broken/unknown_attribute.xmc"}) {
    const run_result r = run({"xml", "check", example(file)});
    EXPECT_EQ(0, r.code) << file;
    EXPECT_EQ("ok\n", r.out) << file;
  }
  const run_result r = run({"xml", "check", example("broken/mismatched_end_tag.xmc")});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mismatched_end_element at line 4: \"mgs\"\n", r.out);
}

TEST(ToolXml, UnreadableFilesAndBadCommandLines) {
  run_result r = run({"xml", "check", "/no/such/file.xml"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot read \"/no/such/file.xml\": no such file\n", r.err);
  r = run({"xml", "check", example("catalogs")});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot read \"" + example("catalogs") + "\"\n", r.err);

  const std::vector<std::vector<std::string>> bad = {{"xml"},
                                                     {"xml", "check"},
                                                     {"xml", "check", "a", "b"},
                                                     {"xml", "lint", "a"},
                                                     {"xml", "check", "--strict", "a"}};
  for (const auto& args : bad) {
    r = run(args);
    EXPECT_EQ(64, r.code) << args.back();
    EXPECT_NE(std::string::npos, r.err.find("usage: mota xml check FILE")) << r.err;
  }
}

TEST(ToolXml, ArbitraryBytesNeverCrashTheReader) {
  mota_test::temp_dir dir;
  const std::string path = dir / "noise.xml";
  std::string prefix = "<?xml?><a b='";
  for (int seed = 1; seed <= 20; ++seed) {
    std::string text = seed % 2 ? prefix : "";
    unsigned state = static_cast<unsigned>(seed) * 2654435761u;
    for (int i = 0; i < 300; ++i) {
      state = state * 1103515245u + 12345u;
      const char pick[] = "<>/&;#x?!-=\"' \n\t\0ab[]CDATA";
      text += pick[(state >> 16) % (sizeof pick - 1)];
    }
    write_file(path, text);
    const run_result r = run({"xml", "check", path});
    EXPECT_TRUE(r.code == 0 || r.code == 1) << "seed " << seed << " exit " << r.code;
  }
}

}  // namespace
