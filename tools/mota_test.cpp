// End-to-end tests of the mota tool: each case runs the built executable with arguments,
// standard input and environment of its own, and checks its output and exit status.
#include <mota_test.hpp>

#include <mota/version.hpp>

#include <fcntl.h>
#include <sys/stat.h>
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

// Runs the tool with `args`, `input` on standard input, either the test's own environment or
// exactly `env` (plus the sanitizer settings, so sanitized builds keep them), in the working
// directory `cwd` (the test's own when empty). With `alarm_seconds`, the tool is killed by
// SIGALRM (code 142) when it runs longer, for cases where the fault is that it never returns.
run_result run(const std::vector<std::string>& args, const std::string& input = "",
               const std::vector<std::string>* env = nullptr, const std::string& cwd = "",
               unsigned alarm_seconds = 0) {
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
    if (!cwd.empty() && chdir(cwd.c_str()) != 0) _exit(126);
    dup2(in, 0);
    dup2(out, 1);
    dup2(err, 2);
    if (alarm_seconds != 0) alarm(alarm_seconds);  // kept across execve
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
    std::string message;   // the first line
    std::string synopsis;  // a line of the synopsis that follows it
  };
  const std::string d = "examples/catalogs";
  const std::string main = "usage: mota COMMAND", convert = "usage: mota convert --from CODE",
                    xml = "usage: mota xml check FILE", check = "usage: mota catalog check PATH",
                    config = "usage: mota config get KEY";
  const usage_case cases[] = {
      {{}, "no command given", main},
      {{"frobnicate"}, "unknown command \"frobnicate\"", main},
      {{"convert", "--from", "1252"}, "convert needs --from and --to", convert},
      {{"convert", "--from"}, "option --from needs a value", convert},
      {{"convert", "--from=1252", "--to=4", "extra"}, "unexpected argument \"extra\"", convert},
      {{"convert", "--list=yes"}, "option --list takes no value", convert},
      {{"convert", "--bogus"}, "unknown option --bogus", convert},
      {{"convert", "--from", "1252", "--to", "4", "--"}, "unexpected \"--\"", convert},
      {{"xml"}, "xml needs a subcommand", xml},
      {{"xml", "check"}, "xml check needs a FILE", xml},
      {{"xml", "check", "a", "b"}, "too many files", xml},
      {{"xml", "lint", "a"}, "unknown xml subcommand \"lint\"", xml},
      {{"catalog"}, "catalog needs a subcommand", check},
      {{"catalog", "load", d, "--locale", "en"}, "unknown catalog subcommand \"load\"", check},
      {{"catalog", "check", d}, "--locale is required", check},
      {{"catalog", "check", "--locale", "en"}, "catalog check needs a PATH", check},
      {{"catalog", "check", d, "--locale", "en", "--list-args"},
       "--list-args belongs to catalog render",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop", "cart", "--messages"},
       "--messages belongs to catalog check",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop"},
       "catalog render needs PATH, CATALOG and MESSAGE",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop", "greeting", "user"},
       "expected NAME=VALUE, got \"user\"",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop", "greeting", "=Anna"},
       "expected NAME=VALUE, got \"=Anna\"",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop", "greeting", "user=a", "user=b"},
       "argument \"user\" given twice",
       check},
      {{"catalog", "render", d, "--locale", "en", "shop", "greeting", "user=a", "--list-args"},
       "--list-args takes no NAME=VALUE",
       check},
      {{"config"}, "config needs a subcommand", config},
      {{"config", "get"}, "config get needs a KEY", config},
      {{"config", "get", "a", "b"}, "too many keys", config},
      {{"config", "dump", "x"}, "unexpected argument \"x\"", config},
      {{"config", "set", "a"}, "unknown config subcommand \"set\"", config},
      {{"config", "get", "a", "--file"}, "option --file needs a value", config},
      {{"config", "get", "a", "--program="}, "--program needs a name", config},
  };
  for (const usage_case& c : cases) {
    const run_result r = run(c.args);
    EXPECT_EQ(64, r.code) << c.message;
    EXPECT_EQ(0u, r.err.find("mota: " + c.message + "\n" + c.synopsis)) << r.err;
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

TEST(ToolXml, UnreadableFiles) {
  run_result r = run({"xml", "check", "/no/such/file.xml"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot read \"/no/such/file.xml\": no such file\n", r.err);
  r = run({"xml", "check", example("catalogs")});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot read \"" + example("catalogs") + "\"\n", r.err);
}

// ---------------------------------------------------------------------------------------
// catalog check

TEST(ToolCatalogCheck, ListsCatalogsWithMessageCountsAndLanguagesPerLocale) {
  struct check_case {
    std::vector<std::string> args;
    std::string output;
  };
  const std::string dir = example("catalogs"), shop = example("catalogs/shop.xmc");
  const check_case cases[] = {
      {{dir, "--locale", "de_DE"},
       "kinds: 20 messages; languages: .\nshop: 6 messages; languages: de en\n"},
      {{dir, "--locale", "fr-FR.UTF-8"},
       "kinds: 20 messages; languages: .\nshop: 6 messages; languages: en fr\n"},
      {{dir, "--locale", "it"},
       "kinds: 20 messages; languages: .\nshop: 6 messages; languages: en\n"},
      {{dir, "--locale", "de", "--catalog", "shop"}, "shop: 6 messages; languages: de en\n"},
      // The German variants arrive through the include of the English file.
      {{shop, "--locale", "de"}, "shop: 6 messages; languages: de en\n"},
      {{"--locale=en", shop, example("catalogs/kinds.xmc")},
       "kinds: 20 messages; languages: .\nshop: 6 messages; languages: en\n"},
      // The best variant of each message, with the language it came from.
      {{shop, "--locale", "de_CH", "--messages"},
       "shop: 6 messages; languages: de en\n  cart [de]\n  distance [de]\n  download [de]\n"
       "  farewell [en]\n  greeting [de]\n  receipt [en]\n"},
  };
  for (const check_case& c : cases) {
    std::vector<std::string> args{"catalog", "check"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const run_result r = run(args);
    EXPECT_EQ(0, r.code) << c.output << r.err;
    EXPECT_EQ(c.output, r.out);
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolCatalogCheck, FaultyCatalogsPrintTheLoaderMessageWithItsTrail) {
  struct broken_case {
    const char* file;
    std::string message;  // "@" stands for the file's path
  };
  const std::string invalid = "message_catalogs::result_type - XMC file is not valid\n ";
  const broken_case cases[] = {
      {"unknown_attribute.xmc", invalid + "xmc_file_loader::load_error - Invalid attibute \"typ\"\n"
                                          " in message element: \"cart\"\n"
                                          " in catalog element: \"shop\"\n"
                                          " in file: \"@\""},
      {"mismatched_end_tag.xmc",
       "message_catalogs::result_type - XML parse error, XML file not well formed\n "
       "xmc_file_loader::load_error - Mismatched end element \"mgs\" was found\n"
       " at line: \"4\"\n"
       " in file: \"@\""},
      {"unknown_element.xmc", invalid +
                                  "xmc_file_loader::load_error - Invalid element \"catalogue\"\n"
                                  " in file: \"@\""},
      {"unsupported_version.xmc",
       invalid + "xmc_file_loader::load_error - XMC version \"2.0\" is not supported\n"
                 " in file: \"@\""},
      {"wrong_root.xmc", invalid +
                             "xmc_file_loader::load_error - Not XMC file, root element is not "
                             "XMC but \"messages\"\n in file: \"@\""},
      {"br_with_content.xmc", invalid +
                                  "xmc_file_loader::load_error - Expected BR end tag not found\n"
                                  " in catalog element: \"shop\"\n"
                                  " in file: \"@\""},
      {"no_language.xmc", "message_catalogs::result_type - No catalog was loaded in file: \"@\""},
      {"include_cycle.xmc",
       "message_catalogs::result_type - Unexpected error happened during loading\n "
       "xmc_file_loader::load_error - Unexpected parse error happen!\n"
       " in file: \"@\"\n"
       " in file: \"@\""},
  };
  for (const broken_case& c : cases) {
    const std::string path = example(std::string("broken/") + c.file);
    std::string expected = c.message;
    for (std::size_t at = expected.find('@'); at != std::string::npos; at = expected.find('@'))
      expected.replace(at, 1, path);
    const run_result r = run({"catalog", "check", path, "--locale", "en"});
    EXPECT_EQ(1, r.code) << c.file;
    EXPECT_EQ(expected + "\n", r.err) << c.file;
    EXPECT_EQ("", r.out);
  }
}

TEST(ToolCatalogCheck, MissingFilesAndIncludes) {
  const std::string including = example("broken/missing_include.xmc");
  run_result r = run({"catalog", "check", including, "--locale", "en"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(
      "message_catalogs::result_type - File was not found on disk\n "
      "xmc_file_loader::load_error - File \"" +
          example("broken/no_such_file.xmc") + "\" was not found on disk\n in file: \"" +
          including + "\"\n",
      r.err);

  r = run({"catalog", "check", "/no/such/place", "--locale", "en"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(
      "message_catalogs::result_type - Entity (file or directory) \"/no/such/place\" was not "
      "found on disk\n",
      r.err);

  // A directory holding one faulty file fails as a whole.
  r = run({"catalog", "check", example("broken"), "--locale", "en"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(0u, r.err.find("message_catalogs::result_type - ")) << r.err;
  EXPECT_EQ("", r.out);

  // Several paths of which none suits the locale.
  r = run({"catalog", "check", example("broken/no_language.xmc"), example("broken/no_language.xmc"),
           "--locale", "en"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(0u, r.err.find("message_catalogs::result_type - No catalog was loaded in file: \""))
      << r.err;
}

TEST(ToolCatalogCheck, DamagedCatalogsNeverCrashTheLoader) {
  // Every prefix-cut and byte-flipped variant of a valid catalog loads or fails cleanly.
  std::ifstream in(example("catalogs/shop.xmc"), std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  const std::string original = text.str();
  mota_test::temp_dir dir;
  const std::string path = dir / "damaged.xmc";
  for (std::size_t i = 0; i < 24; ++i) {
    std::string damaged = original;
    const std::size_t at = (i * 7919) % damaged.size();
    if (i % 3 == 0) {
      damaged.resize(at);
    } else {
      damaged[at] = "<>&\"/\x01\xFF="[i % 8];
    }
    write_file(path, damaged);
    const run_result r = run({"catalog", "check", path, "--locale", "de"});
    EXPECT_TRUE(r.code == 0 || r.code == 1) << "variant " << i << " exit " << r.code;
    if (r.code == 1) {
      EXPECT_EQ(0u, r.err.find("message_catalogs::result_type - ")) << r.err;
    }
  }
}

// ---------------------------------------------------------------------------------------
// catalog render

run_result render(const std::string& locale, const std::vector<std::string>& rest) {
  std::vector<std::string> args{"catalog", "render", example("catalogs"), "--locale", locale};
  args.insert(args.end(), rest.begin(), rest.end());
  return run(args);
}

TEST(ToolCatalogRender, TheSameMessageInEachLanguageWithFallbackToEnglish) {
  struct render_case {
    std::string locale;
    std::vector<std::string> rest;
    std::string output;
  };
  const render_case cases[] = {
      {"en_US", {"shop", "greeting", "user=Anna"}, "Hello, Anna!\n"},
      {"de_AT", {"shop", "greeting", "user=Anna"}, "Hallo, Anna!\n"},
      {"fr", {"shop", "greeting", "user=Anna"}, "Bonjour, Anna !\n"},
      {"en", {"shop", "cart", "count=3", "total=59.9"}, "Your cart holds 3 items for 59.90 EUR.\n"},
      {"de_DE",
       {"shop", "cart", "total=5", "count=12"},
       "Ihr Warenkorb enth\xC3\xA4lt 12 Artikel f\xC3\xBCr 5.00 EUR.\n"},
      {"fr_CA",
       {"shop", "cart", "count=1", "total=0.5"},
       "Votre panier contient 1 articles pour 0.50 EUR.\n"},
      // No German variant: the English text stands in.
      {"de_DE", {"shop", "farewell"}, "Goodbye & thank you for shopping with us.\n"},
      {"de_DE", {"shop", "receipt", "order=255", "count=7"}, "Order 0xff\nItems:    7\n"},
  };
  for (const render_case& c : cases) {
    const run_result r = render(c.locale, c.rest);
    EXPECT_EQ(0, r.code) << c.output << r.err;
    EXPECT_EQ(c.output, r.out);
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolCatalogRender, EveryArgumentKind) {
  struct kind_case {
    std::string message;
    std::string value;
    std::string output;
  };
  const kind_case cases[] = {
      {"string", "v=some text", "[some text]"},
      {"default", "v=12abc", "[12abc]"},
      {"unknown_word", "v=x", "[x]"},
      {"int", "v=-42", "[-42]"},
      {"double", "v=2.5", "[2.500]"},
      {"double_field", "v=3.14159", "[     3.1]"},
      // Read, but never rendered: kept that way by the library.
      {"number", "v=1", "[?invalid?]"},
      {"time", "v=1", "[?invalid?]"},
      {"date", "v=1", "[?invalid?]"},
      // The kind "value" is literal text: the argument's name.
      {"value", "", "[v]"},
  };
  for (const kind_case& c : cases) {
    std::vector<std::string> rest{"kinds", c.message};
    if (!c.value.empty()) rest.push_back(c.value);
    const run_result r = render("en", rest);
    EXPECT_EQ(0, r.code) << c.message << r.err;
    EXPECT_EQ(c.output + "\n", r.out) << c.message;
  }
}

TEST(ToolCatalogRender, ListArgsShowsNamesKindsAndFormats) {
  struct list_case {
    std::string catalog, message, output;
  };
  const list_case cases[] = {
      {"shop", "cart", "count int\ntotal double precision=2\n"},
      {"shop", "download",
       "size memory base_unit=B target_unit=any\nsize memory_unit base_unit=B target_unit=any\n"
       "elapsed duration short_form=true prec=1\n"},
      {"kinds", "int_hex", "v int hex=true\n"},
      {"kinds", "mem",
       "v memory base_unit=KB target_unit=any\n"
       "v memory_unit base_unit=KB target_unit=any\n"},
      {"kinds", "two_args", "a string\nb int\n"},
      {"kinds", "value", ""},
      {"kinds", "no_args", ""},
  };
  for (const list_case& c : cases) {
    const run_result r = render("en", {c.catalog, c.message, "--list-args"});
    EXPECT_EQ(0, r.code) << c.message << r.err;
    EXPECT_EQ(c.output, r.out) << c.message;
  }
}

TEST(ToolCatalogRender, MissingUnknownAndMistypedArguments) {
  run_result r = render("en", {"shop", "greeting"});
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("Hello, ?invalid?!\n", r.out);
  EXPECT_EQ("mota: warning: argument \"user\" not given\n", r.err);

  r = render("en", {"kinds", "two_args", "b=2"});
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("?invalid? and 2\n", r.out);
  EXPECT_EQ("mota: warning: argument \"a\" not given\n", r.err);

  r = render("en", {"shop", "greeting", "user=Anna", "name=Bob"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: message \"greeting\" has no argument \"name\" (--list-args shows them)\n",
            r.err);
  EXPECT_EQ("", r.out);

  for (const char* value : {"count=three", "count=1.5", "count=", "count=12abc", "count=0x"}) {
    r = render("en", {"shop", "cart", value, "total=1"});
    EXPECT_EQ(1, r.code) << value;
    EXPECT_EQ(0u, r.err.find("mota: argument \"count\" is of kind int and needs a number, not \""))
        << r.err;
  }
  for (const char* value : {"total=1.", "total=.5", "total=1e", "total=--1", "total=nan"}) {
    r = render("en", {"shop", "cart", "count=1", value});
    EXPECT_EQ(1, r.code) << value;
    EXPECT_NE(std::string::npos, r.err.find("is of kind double and needs a number")) << r.err;
  }
  for (const char* value : {"count=+7", "count=0x1F", "count=-0"}) {
    r = render("en", {"shop", "cart", value, "total=-1.5e2"});
    EXPECT_EQ(0, r.code) << value << r.err;
  }
}

TEST(ToolCatalogRender, UnknownCatalogsAndMessagesAndBadWords) {
  run_result r = render("en", {"store", "greeting"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: no catalog \"store\" was loaded (loaded: kinds, shop)\n", r.err);

  r = render("en", {"shop", "greting"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: catalog \"shop\" has no message \"greting\"\n", r.err);

  // The catalog filter leaves the other catalog unloaded.
  r = run({"catalog", "render", example("catalogs"), "--locale", "en", "--catalog", "shop", "kinds",
           "int", "v=1"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: no catalog \"kinds\" was loaded (loaded: shop)\n", r.err);

  // Text that is not UTF-8 is escaped in the output.
  r = render("en", {"kinds", "string",
                    "v=a\xFF"
                    "b"});
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("[a\\xFFb]\n", r.out);

  r = run({"catalog", "render", example("broken/unknown_attribute.xmc"), "--locale", "en", "shop",
           "greeting"});
  EXPECT_EQ(1, r.code);
  EXPECT_EQ(0u, r.err.find("message_catalogs::result_type - XMC file is not valid\n")) << r.err;
}

// ---------------------------------------------------------------------------------------
// config

run_result config(const std::vector<std::string>& args, const std::vector<std::string>& env) {
  std::vector<std::string> words{"config"};
  words.insert(words.end(), args.begin(), args.end());
  return run(words, "", &env);
}

TEST(ToolConfig, CommandLineOverFileOverEnvironment) {
  const std::string file = example("config/app.cfg");
  const std::vector<std::string> env{"log.level=debug", "only.env=yes"};
  struct get_case {
    std::vector<std::string> args;
    std::string output;
  };
  const get_case cases[] = {
      {{"get", "log.level"}, "debug\n"},
      {{"get", "log.level", "--file", file}, "info\n"},
      {{"get", "log.level", "--file", file, "--", "-log.level=trace"}, "trace\n"},
      {{"get", "only.env", "--file", file, "--", "-log.level=trace"}, "yes\n"},
      {{"get", "server.port", "--file", file}, "8080\n"},
      {{"get", "server.limits.clients", "--file", file}, "64\n"},
      {{"get", "application.title", "--file", file}, "Mota demo shop\n"},
      {{"get", "greeting", "--file", file}, "Hello, world\n"},
      {{"--file=" + file, "get", "server.colours"}, "red\ngreen\nblue\n"},
      {{"get", "languages", "--file", file}, "en\nde\nfr\n"},
      {{"get", "list", "--", "-list=a,b,c"}, "a\nb\nc\n"},
  };
  for (const get_case& c : cases) {
    const run_result r = config(c.args, env);
    EXPECT_EQ(0, r.code) << c.output << r.err;
    EXPECT_EQ(c.output, r.out);
    EXPECT_EQ("", r.err);
  }
}

TEST(ToolConfig, AbsentKeysExitTwo) {
  for (const char* key : {"nope", "server", "server.port.x", ""}) {
    const run_result r = config({"get", key, "--file", example("config/app.cfg")}, {"a=1"});
    EXPECT_EQ(2, r.code) << key;
    EXPECT_EQ("", r.out);
    EXPECT_EQ("mota: \"" + std::string(key) + "\" is not set\n", r.err);
  }
}

TEST(ToolConfig, AnUnreadableFileIsReportedButTheOtherSourcesStillAnswer) {
  const run_result r = config({"get", "x", "--file", "/no/such/app.cfg"}, {"x=1"});
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("1\n", r.out);
  EXPECT_EQ("mota: warning: cannot read configuration file \"/no/such/app.cfg\"\n", r.err);
}

TEST(ToolConfig, WithoutAFileTheProgramNameChoosesIt) {
  mota_test::temp_dir dir;
  write_file(dir / "shopd.cfg", "colour = green\n");
  write_file(dir / "mota.cfg", "colour = blue\n");
  const std::vector<std::string> env;
  run_result r = run({"config", "get", "colour", "--program", "shopd"}, "", &env, dir.str());
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ("green\n", r.out);
  r = run({"config", "get", "colour"}, "", &env, dir.str());
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ("blue\n", r.out);
}

TEST(ToolConfig, DumpListsEverySource) {
  const run_result r =
      config({"dump", "--file", example("config/app.cfg"), "--", "-port=1"}, {"from.env=1"});
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ(0u, r.out.find("config_manager:\n")) << r.out;
  EXPECT_EQ(3, [&] {
    int n = 0;
    for (std::size_t at = r.out.find("\nconfig_item:\n"); at != std::string::npos;
         at = r.out.find("\nconfig_item:\n", at + 1))
      ++n;
    return n;
  }());
  const std::string tail = "\nno more config_items!\n\nending output\n";
  ASSERT_GE(r.out.size(), tail.size());
  EXPECT_EQ(tail, r.out.substr(r.out.size() - tail.size()));
  for (const char* word : {"port", "colours", "clients", "from", "env"}) {
    EXPECT_NE(std::string::npos, r.out.find(word)) << word;
  }
}

// A FIFO that no one writes to is refused like any file that cannot be read, at once.
TEST(ToolFiles, AFifoIsUnreadableAndNeverWaitedOn) {
  mota_test::temp_dir dir;
  const std::string fifo = dir / "fifo.cfg";  // the extension keeps config from adding one
  ASSERT_EQ(0, mkfifo(fifo.c_str(), 0600));
  run_result r = run({"xml", "check", fifo}, "", nullptr, "", 20);
  EXPECT_EQ(1, r.code);
  EXPECT_EQ("mota: cannot read \"" + fifo + "\"\n", r.err);
  const std::vector<std::string> env{"x=1"};
  r = run({"config", "get", "x", "--file", fifo}, "", &env, "", 20);
  EXPECT_EQ(0, r.code);
  EXPECT_EQ("1\n", r.out);
  EXPECT_EQ("mota: warning: cannot read configuration file \"" + fifo + "\"\n", r.err);
}

}  // namespace
