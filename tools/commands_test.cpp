// The tool's commands run in-process: arguments, standard input and environment of each case's
// own, output and exit code checked. What the library renders or loads is its own tests'
// business; these check what the tool adds: its options, its wording and its output format.
#include "commands.hpp"

#include <mota_test.hpp>

#include <mota/version.hpp>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct run_result {
  int code = -1;
  std::string out, err;
};

run_result run(const std::vector<std::string>& words, const std::string& input = "",
               const std::vector<std::string>& env = {}) {
  std::istringstream in(input);
  std::ostringstream out, err;
  std::vector<const char*> envp;
  for (const std::string& entry : env)
    envp.push_back(entry.c_str());
  envp.push_back(nullptr);
  const int code = mota_tool::run_mota(words, in, out, err, envp.data());
  return {code, out.str(), err.str()};
}

std::string example(const std::string& relative) {
  return mota_test::source_dir() + "/examples/" + relative;
}

std::vector<std::string> words(std::vector<std::string> head,
                               const std::vector<std::string>& tail) {
  head.insert(head.end(), tail.begin(), tail.end());
  return head;
}

// Expects `args` to exit with `code` and to print exactly `out` and `err`.
void expect_run(const std::vector<std::string>& args, int code, const std::string& out,
                const std::string& err = "", const std::vector<std::string>& env = {},
                const std::string& input = "") {
  const run_result r = run(args, input, env);
  EXPECT_EQ(code, r.code) << args.back() << ": " << r.err;
  EXPECT_EQ(out, r.out) << args.back();
  EXPECT_EQ(err, r.err) << args.back();
}

std::vector<std::string> render(const std::vector<std::string>& rest,
                                const std::string& locale = "en") {
  return words({"catalog", "render", example("catalogs"), "--locale", locale}, rest);
}

}  // namespace

TEST(ToolDispatch, UsageErrorsExit64WithTheSynopsisOnStandardError) {
  const std::string d = example("catalogs");
  const std::string main = "usage: mota COMMAND", convert = "usage: mota convert --from CODE",
                    xml = "usage: mota xml check FILE", check = "usage: mota catalog check PATH",
                    config = "usage: mota config get KEY";
  const std::vector<std::string> render{"catalog", "render", d, "--locale", "en", "shop"};
  const struct {
    std::vector<std::string> args;
    std::string message;   // the first line
    std::string synopsis;  // a line of the synopsis that follows it
  } cases[] = {
      {{}, "no command given", main},
      {{"caf\xE9\x01"}, "unknown command \"caf\\xE9\\x01\"", main},  // escaped, not raw
      // The option reader, shown through convert.
      {{"convert", "--from", "1252"}, "convert needs --from and --to", convert},
      {{"convert", "--from"}, "option --from needs a value", convert},
      {{"convert", "--from=1252", "--to=4", "extra"}, "unexpected argument \"extra\"", convert},
      {{"convert", "--list=yes"}, "option --list takes no value", convert},
      {{"convert", "--bogus"}, "unknown option --bogus", convert},
      {{"convert", "--from", "1252", "--to", "4", "--"}, "unexpected \"--\"", convert},
      {{"convert", "--from", "1252x", "--to", "4"},
       "unknown code page \"1252x\" (mota convert --list shows the known ones)",
       convert},
      {{"xml"}, "xml needs a subcommand", xml},
      {{"xml", "lint", "a"}, "unknown xml subcommand \"lint\"", xml},
      {{"catalog", "load", d, "--locale", "en"}, "unknown catalog subcommand \"load\"", check},
      {{"catalog", "check", d}, "--locale is required", check},
      {{"catalog", "check", "--locale", "en"}, "catalog check needs a PATH", check},
      {{"catalog", "check", d, "--locale", "en", "--list-args"},
       "--list-args belongs to catalog render",
       check},
      {words(render, {"cart", "--messages"}), "--messages belongs to catalog check", check},
      {render, "catalog render needs PATH, CATALOG and MESSAGE", check},
      {words(render, {"greeting", "user"}), "expected NAME=VALUE, got \"user\"", check},
      {words(render, {"greeting", "user=a", "user=b"}), "argument \"user\" given twice", check},
      {words(render, {"greeting", "user=a", "--list-args"}), "--list-args takes no NAME=VALUE",
       check},
      {{"config", "get"}, "config get needs a KEY", config},
      {{"config", "get", "a", "b"}, "too many keys", config},
      {{"config", "dump", "x"}, "unexpected argument \"x\"", config},
      {{"config", "set", "a"}, "unknown config subcommand \"set\"", config},
      {{"config", "get", "a", "--program="}, "--program needs a name", config},
      {{"config", "check"}, "config check needs a FILE", config},
      {{"config", "check", "f", "--env"}, "config check takes FILE... and --json only", config},
      {{"config", "get", "a", "--json"}, "--json belongs to config check", config},
      {{"config", "get", "a", "--env"}, "--env belongs to config dump", config},
  };
  for (const auto& c : cases) {
    const run_result r = run(c.args);
    EXPECT_EQ(64, r.code) << c.message;
    EXPECT_EQ(0u, r.err.find("mota: " + c.message + "\n" + c.synopsis)) << r.err;
    EXPECT_NE(std::string::npos, r.err.find("Run with --help for details.\n")) << r.err;
    EXPECT_EQ("", r.out);
  }
}

// Each --help prints its "```help NAME" block of the manual, the texts' one source.
TEST(ToolDispatch, HelpTextsAreTheManualsBlocks) {
  std::ifstream manual(mota_test::source_dir() + "/tools/manual.md");
  std::string line, name, text;
  int blocks = 0;
  while (std::getline(manual, line)) {
    if (line.compare(0, 8, "```help ") == 0) {
      name = line.substr(8);
      text.clear();
    } else if (!name.empty() && line == "```") {
      expect_run(name == "main" ? std::vector<std::string>{"--help"}
                                : std::vector<std::string>{name, "--help"},
                 0, text);
      name.clear();
      ++blocks;
    } else if (!name.empty()) {
      text += line + "\n";
    }
  }
  EXPECT_EQ(5, blocks);
}

TEST(ToolDispatch, HelpAndVersionGoToStandardOutput) {
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"-h"},
                                             {"catalog", "render", "-h"},
                                             {"config", "dump", "--help"},
                                             {"convert", "--help"},
                                             {"xml", "check", "--help"}}) {
    const run_result r = run(args);
    EXPECT_EQ(0, r.code) << args.back();
    EXPECT_EQ(0u, r.out.find("usage: mota")) << r.out;
    EXPECT_NE(std::string::npos, r.out.find("--help")) << r.out;  // the whole text
    EXPECT_EQ("", r.err);
  }
  EXPECT_EQ("mota " + std::to_string(MOTA_VERSION_MAJOR) + "." +
                std::to_string(MOTA_VERSION_MINOR) + "." + std::to_string(MOTA_VERSION_PATCH) +
                "\n",
            run({"--version"}).out);
}

TEST(ToolConvert, CodePagesByNumberNameOrAliasBothWays) {
  const std::vector<std::string> to_utf8{"convert", "--from", "cp1252", "--to", "UTF-8"};
  expect_run(to_utf8, 0, "caf\xC3\xA9 \xE2\x82\xAC", "", {}, "caf\xE9 \x80");  // 0x80: euro
  expect_run({"convert", "--from=utf8", "--to=28605"}, 0, "\xA4 \xE4", "", {},
             "\xE2\x82\xAC \xC3\xA4");
  expect_run({"convert", "--from", "latin9", "--to", "4"}, 0, "\xE2\x82\xAC", "", {}, "\xA4");
  expect_run({"convert", "--from", "2", "--to", "3"}, 0, "");  // more names of the process's set
  const run_result r = run({"convert", "--list"});
  for (const char* line : {"     1  SYSTEM\n", "   932  WINDOWS-31J\n", "125100  ANSI_X3.4-1968\n"})
    EXPECT_NE(std::string::npos, r.out.find(line)) << line;
  EXPECT_EQ(28, std::count(r.out.begin(), r.out.end(), '\n'));
}

// Lenient conversion substitutes and says how often; --strict stops with the byte offset.
TEST(ToolConvert, UnconvertibleInputIsCountedOrStopsWithItsOffset) {
  const std::string input = std::string(70000, 'a') + "\xE2\x82\xAC" + "b\xFF";
  const run_result lenient = run({"convert", "--from", "utf8", "--to", "latin1"}, input);
  EXPECT_EQ(0, lenient.code);
  EXPECT_EQ(std::string(70000, 'a') + "?b?", lenient.out);
  EXPECT_EQ("mota: warning: 2 sequence(s) could not be converted and became '?'\n", lenient.err);
  expect_run({"convert", "--from", "utf8", "--to", "latin1", "--strict"}, 1,
             std::string(70000, 'a'),
             "mota: convert: a character the target code page cannot hold at byte offset 70000\n",
             {}, input);
  expect_run({"convert", "--from", "utf8", "--to", "utf8", "--strict"}, 1, "a",
             "mota: convert: an invalid sequence at byte offset 1\n", {}, "a\xC3(");
}

TEST(ToolXml, ReportsOkOrTheFirstErrorOfEachFileWithKindLineAndDetail) {
  mota_test::temp_dir dir;
  const std::string path = dir / "doc.xml";
  const auto check = [&](const std::string& document, int code, const std::string& out) {
    std::ofstream(path, std::ios::binary) << document;
    expect_run({"xml", "check", path}, code, out.empty() ? "" : path + out);
  };
  check("\xEF\xBB\xBF<?xml version='1.0'?>\n<a>x&amp;y<!-- c --></a>\n", 0, ": ok\n");
  check("<?xm", 1, ":1: invalid_header: the document does not begin with an <?xml ...?> header\n");
  check("<?xml?>\n<a>\n</b>", 1,
        ":3: mismatched_end_element: end tag \"b\" does not close the "
        "open element\n");
  check("<?xml?><\xC3\xA9/>", 1, ":1: unexpected_character: unexpected character \"\\xC3\"\n");
  check("<?xml?><a x='1' x='2'/>", 1, ":1: attribute_redefined: attribute \"x\" given twice\n");
  check("<?xml?><a b/>", 1, ":1: missing_equals: attribute \"b\" without \"=\"\n");
  check("<?xml?><a b=1/>", 1, ":1: missing_quote: attribute value without quotes\n");
  check("<?xml?><a>&zz;</a>", 1, ":1: unknown_entity: unknown entity reference\n");
  check("<?xml?><a/><b/>", 1, ":1: data_after_root: content after the root element\n");
  check("<?xml?>\n<a>\n\n", 1, ":3: unexpected_eof: the document ends inside an element\n");
  check("<?xml?>\n\n ", 1, ":3: no_root_element: no root element after the header\n");
  const std::string tag = example("broken/mismatched_end_tag.xmc");
  expect_run({"xml", "check", example("catalogs/shop.xmc"), tag}, 1,
             example("catalogs/shop.xmc") + ": ok\n" + tag +
                 ":5: mismatched_end_element: end tag \"mgs\" does not close the open element\n");
  // Several files, one line each, in order; one bad file fails the run.
  std::ofstream(path, std::ios::binary) << "<?xml?><a/>";
  expect_run({"xml", "check", path, "/no/such/file.xml", example("catalogs")}, 1,
             path + ": ok\n/no/such/file.xml: unreadable: no such file\n" + example("catalogs") +
                 ": unreadable: cannot read the file\n");
  expect_run({"xml", "check", "--json", path, "/no/such/\"file"}, 1,
             "[\n  {\"file\": \"" + path +
                 "\", \"ok\": true},\n  {\"file\": \"/no/such/\\\"file\", "
                 "\"ok\": false, \"line\": 0, \"kind\": \"unreadable\", \"detail\": \"no such "
                 "file\"}\n]\n");
}

TEST(ToolCatalogCheck, ListsCatalogsWithMessageCountsAndLanguages) {
  const std::string shop = example("catalogs/shop.xmc");
  expect_run({"catalog", "check", example("catalogs"), "--locale", "de_DE"}, 0,
             "kinds: 20 messages; languages: .\nshop: 6 messages; languages: de en\n");
  expect_run({"catalog", "check", example("catalogs"), "--locale", "de", "--catalog", "shop"}, 0,
             "shop: 6 messages; languages: de en\n");
  // The best variant of each message, with the language it came from.
  expect_run({"catalog", "check", shop, "--locale", "de_CH", "--messages"}, 0,
             "shop: 6 messages; languages: de en\n  cart [de]\n  distance [de]\n  download [de]\n"
             "  farewell [en]\n  greeting [de]\n  receipt [en]\n");
}

TEST(ToolCatalogCheck, LoadFailuresPrintTheLibrarysMessageWithItsTrail) {
  const std::string path = example("broken/unknown_attribute.xmc");
  expect_run({"catalog", "check", path, "--locale", "en"}, 1, "",
             "message_catalogs::result_type - XMC file is not valid\n "
             "xmc_file_loader::load_error - Invalid attibute \"typ\"\n"
             " in message element: \"cart\"\n in catalog element: \"shop\"\n in file: \"" +
                 path + "\"\n");
  // Several paths of which none suits the locale.
  const std::string none = example("broken/no_language.xmc");
  expect_run({"catalog", "check", none, none, "--locale", "en"}, 1, "",
             "message_catalogs::result_type - No catalog was loaded in file: \"" + none + ", " +
                 none + "\"\n");
  for (const char* broken : {"broken", "broken/include_cycle.xmc", "no/such/place"}) {
    const run_result r = run({"catalog", "check", example(broken), "--locale", "en"});
    EXPECT_EQ(1, r.code) << broken;
    EXPECT_EQ(0u, r.err.find("message_catalogs::result_type - ")) << r.err;
  }
}

TEST(ToolCatalogRender, ArgumentsAreReadByTheirKind) {
  expect_run(render({"shop", "greeting", "user=Anna"}, "de_AT"), 0, "Hallo, Anna!\n");
  expect_run(render({"shop", "cart", "count=0x1F", "total=-1.5e2"}), 0,
             "Your cart holds 31 items for -150.00 EUR.\n");
  expect_run(render({"kinds", "string",
                     "v=a\xFF"
                     "b"}),
             0, "[a\\xFFb]\n");  // escaped
  expect_run(render({"kinds", "double", "v=2.5"}), 0, "[2.500]\n");
  expect_run(render({"kinds", "string", "v=\xF0\x9F\x98\x80"}), 0, "[\xF0\x9F\x98\x80]\n");
  expect_run(render({"shop", "cart", "--list-args"}), 0, "count int\ntotal double precision=2\n");
  expect_run(render({"kinds", "no_args", "--list-args"}), 0, "");
  expect_run(render({"kinds", "value"}), 0, "[v]\n");
  expect_run(render({"kinds", "two_args", "b=2"}), 0, "?invalid? and 2\n",
             "mota: warning: argument \"a\" not given\n");
}

TEST(ToolCatalogRender, WrongArgumentsCatalogsAndMessagesFail) {
  const char* const needs = " needs a number, not ";
  expect_run(render({"shop", "greeting", "name=Bob"}), 1, "",
             "mota: message \"greeting\" has no argument \"name\" (--list-args shows them)\n");
  expect_run(render({"shop", "cart", "count=1.5", "total=1"}), 1, "",
             std::string("mota: argument \"count\" is of kind int and") + needs + "\"1.5\"\n");
  expect_run(render({"shop", "cart", "count=", "total=1"}), 1, "",
             std::string("mota: argument \"count\" is of kind int and") + needs + "\"\"\n");
  expect_run(render({"shop", "cart", "count=1", "total=nan"}), 1, "",
             std::string("mota: argument \"total\" is of kind double and") + needs + "\"nan\"\n");
  expect_run(render({"store", "greeting"}), 1, "",
             "mota: no catalog \"store\" was loaded (loaded: kinds, shop)\n");
  expect_run(render({"shop", "greting"}), 1, "",
             "mota: catalog \"shop\" has no message \"greting\"\n");
  expect_run(render({"--catalog", "shop", "kinds", "int", "v=1"}), 1, "",
             "mota: no catalog \"kinds\" was loaded (loaded: shop)\n");
}

TEST(ToolConfig, CommandLineOverFileOverEnvironmentAndAbsentKeys) {
  const std::string file = example("config/app.cfg");
  const std::vector<std::string> env{"log.level=debug", "only.env=yes"};
  expect_run({"config", "get", "log.level"}, 0, "debug\n", "", env);
  expect_run({"config", "get", "log.level", "--file", file}, 0, "info\n", "", env);
  expect_run({"config", "get", "log.level", "--file", file, "--", "-log.level=trace"}, 0, "trace\n",
             "", env);
  expect_run({"config", "get", "only.env", "--file", file}, 0, "yes\n", "", env);
  expect_run({"config", "--file=" + file, "get", "server.colours"}, 0, "red\ngreen\nblue\n");
  expect_run({"config", "get", "list", "--", "-list=a,b,c"}, 0, "a\nb\nc\n");
  for (const std::string key : {"nope", "server"}) {
    expect_run({"config", "get", key, "--file", example("config/app.cfg")}, 2, "",
               "mota: \"" + key + "\" is not set\n");
  }
  // cfg_file in the environment names the file; the library's warning about an ignored
  // argument goes to standard error, so standard output holds the answer alone.
  expect_run({"config", "get", "log.level", "--", "stray"}, 0, "info\n",
             "Warning! unknown key:stray\nIgnoring key and continuing\n", {"cfg_file=" + file});
  // The other sources still answer.
  expect_run({"config", "get", "x", "--file", "/no/such/app.cfg"}, 0, "1\n",
             "mota: warning: cannot read configuration file \"/no/such/app.cfg\"\n", {"x=1"});
}

TEST(ToolConfig, DumpListsEverySourceTheEnvironmentOnlyWhenAsked) {
  const std::vector<std::string> dump{"config", "dump", "--file", example("config/app.cfg")};
  const run_result r = run(words(dump, {"--", "-port=1"}), "", {"from.env=1"});
  EXPECT_EQ(0, r.code) << r.err;
  EXPECT_EQ(0u, r.out.find("config_manager:\n")) << r.out;
  for (const char* word : {"\nconfig_item:\n", "port", "colours", "no more config_items!"})
    EXPECT_NE(std::string::npos, r.out.find(word)) << word;
  EXPECT_EQ(std::string::npos, r.out.find("from")) << r.out;
  EXPECT_NE(std::string::npos, run(words(dump, {"--env"}), "", {"from.env=1"}).out.find("from"));
}

// The source that answers: command line, file with the line that set the key, environment.
TEST(ToolConfig, ShowOriginNamesTheAnsweringSource) {
  const std::string file = example("config/broken.cfg");
  const std::vector<std::string> env{"log.level=env", "only.env=yes"};
  const std::vector<std::string> get{"config", "get", "--show-origin", "--file", file};
  expect_run(words(get, {"title"}), 0, "file:" + file + ":7\tMotaDemoShop\n", "", env);
  expect_run(
      words(get, {"hosts"}), 0,
      "file:" + file + ":12\talpha\nfile:" + file + ":12\tbeta\nfile:" + file + ":12\tport=8080\n");
  expect_run(words(get, {"log.level", "--", "-log.level=cmd"}), 0, "command line\tcmd\n", "", env);
  expect_run(words(get, {"only.env"}), 0, "environment\tyes\n", "", env);
  const run_result dump =
      run({"config", "dump", "--show-origin", "--env", "--file", file, "--", "-title=x"}, "", env);
  for (const std::string& line : std::vector<std::string>{
           std::string("command line\ttitle=x\n"),
           "file:" + file + ":7\ttitle=MotaDemoShop\t(overridden)\n",
           "file:" + file + ":16\tlog.level=debug\n", "environment\tlog.level=env\t(overridden)\n",
           "file:" + file + ":12\thosts[]=alpha, beta, port=8080\n"})
    EXPECT_NE(std::string::npos, dump.out.find(line)) << line << dump.out;
}

// One line per warning naming the line and the stored result; exit 3 for warnings only.
TEST(ToolConfigCheck, WarningsExitThreeUnreadableFilesOne) {
  const std::string app = example("config/app.cfg"), broken = example("config/broken.cfg");
  expect_run({"config", "check", app}, 0, app + ": ok\n");
  const run_result r = run({"config", "check", broken});
  EXPECT_EQ(3, r.code);
  EXPECT_EQ(8, std::count(r.out.begin(), r.out.end(), '\n')) << r.out;
  for (const std::string& line : std::vector<std::string>{
           ":7: warning: blanks dropped from the unquoted value \"Mota Demo Shop\" of \"title\" "
           "(quote the value to keep them); stored: \"MotaDemoShop\"\n",
           ":13: warning: the array \"hosts\", left open by a trailing \",\" on line 12, takes in "
           "the line \"port = 8080\"; stored: [alpha, beta, port=8080]\n",
           ":18: warning: the empty quoted value of \"motd\" sets nothing; stored: nothing\n",
           ": 7 warning(s)\n"})
    EXPECT_NE(std::string::npos, r.out.find(broken + line)) << line << r.out;
  expect_run({"config", "check", app, "/no/such.cfg"}, 1,
             app + ": ok\n/no/such.cfg: error: cannot read the file\n");
  const run_result json = run({"config", "check", "--json", broken});
  EXPECT_EQ(3, json.code);
  EXPECT_NE(std::string::npos, json.out.find("{\"line\": 13, \"kind\": \"array_swallows_line\", "
                                             "\"key\": \"hosts\", \"stored\": [\"alpha\", "
                                             "\"beta\", \"port=8080\"], \"message\": "))
      << json.out;
}
