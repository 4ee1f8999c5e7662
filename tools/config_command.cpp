// mota config get|dump: builds the standard configuration of an application (its command
// line, its file and the process environment) and answers a key or prints everything.
#include "arguments.hpp"
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/config/config_manager.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/std_config_dispatch.hpp>
#include <mota/system/io.hpp>
#include <mota/types/variant.hpp>

#include <iostream>
#include <sstream>

namespace mota_tool {
namespace {

using mota::strings::ustring8;

// The command-line item warns about arguments it ignores on standard output; while it loads,
// standard output goes to the tool's error stream so that the answer stays alone on its own.
class stdout_redirect {
 public:
  explicit stdout_redirect(std::ostream& to) : m_old(std::cout.rdbuf(to.rdbuf())) {}
  ~stdout_redirect() { std::cout.rdbuf(m_old); }
  stdout_redirect(const stdout_redirect&) = delete;
  stdout_redirect& operator=(const stdout_redirect&) = delete;

 private:
  std::streambuf* m_old;
};

// Loads the configuration into `manager`: the words after "--" act as the command line of a
// program called `program`, then the file, then `envp`. The library's warnings go to `err`.
void load(mota::config::config_manager& manager, const arguments& args, const char* const* envp,
          std::ostream& err) {
  const std::string program = args.has("--program") ? args.value("--program") : "mota";
  std::vector<const char*> argv{program.c_str()};
  for (const std::string& word : args.rest())
    argv.push_back(word.c_str());
  argv.push_back(nullptr);
  static const char* const no_environment[] = {nullptr};
  manager.init(mota::config::std_config_dispatch(static_cast<int>(argv.size() - 1), argv.data(),
                                                 envp ? envp : no_environment,
                                                 ustring8(args.value("--file"))));
  const stdout_redirect redirect(err);
  manager.load();
}

// A file that was named (with --file or cfg_file) but could not be read leaves its source
// empty; say so. The default mota.cfg is often absent on purpose.
void warn_missing_file(const mota::config::config_manager& manager, const arguments& args,
                       std::ostream& err) {
  if (!args.has("--file") && !manager.value_exist(ustring8("cfg_file"))) return;
  const auto item = manager.get_config_item("standard file");
  const auto* file = dynamic_cast<const mota::config::file_item*>(item.get());
  if (file && !mota::system::io::is_file(file->get_filename())) {
    err << "mota: warning: cannot read configuration file \"" << printable(file->get_filename())
        << "\"\n";
  }
}

int get(const std::string& key, const mota::config::config_manager& manager, std::ostream& out) {
  const ustring8 wanted(key);
  if (manager.is_array(wanted)) {
    std::vector<mota::types::variant> values;
    manager.get_array(wanted, values);
    for (const mota::types::variant& value : values)
      out << printable(value.as_string()) << "\n";
    return exit_ok;
  }
  if (!manager.value_exist(wanted)) return exit_absent;
  out << printable(manager.get_value(wanted).as_string()) << "\n";
  return exit_ok;
}

}  // namespace

int run_config(const std::vector<std::string>& words, const char* const* envp, std::ostream& out,
               std::ostream& err) {
  arguments args({"--file", "--program"}, {});
  if (!args.parse(words, true)) return usage_error(err, printable(args.error()), config_usage);
  if (args.has("--help")) {
    out << config_usage;
    return exit_ok;
  }
  const std::vector<std::string>& positional = args.positional();
  if (positional.empty()) return usage_error(err, "config needs a subcommand", config_usage);
  const std::string& command = positional[0];
  if (command == "get") {
    if (positional.size() != 2) {
      return usage_error(err, positional.size() < 2 ? "config get needs a KEY" : "too many keys",
                         config_usage);
    }
  } else if (command == "dump") {
    if (positional.size() != 1) {
      return usage_error(err, "unexpected argument \"" + printable(positional[1]) + "\"",
                         config_usage);
    }
  } else {
    return usage_error(err, "unknown config subcommand \"" + printable(command) + "\"",
                       config_usage);
  }
  if (args.has("--program") && args.value("--program").empty()) {
    return usage_error(err, "--program needs a name", config_usage);
  }

  mota::config::config_manager manager;
  load(manager, args, envp, err);
  warn_missing_file(manager, args, err);
  if (command == "get") {
    const int code = get(positional[1], manager, out);
    if (code == exit_absent) err << "mota: \"" << printable(positional[1]) << "\" is not set\n";
    return code;
  }
  std::ostringstream dump;
  manager.dump(dump);
  out << printable(dump.str());
  return exit_ok;
}

}  // namespace mota_tool
