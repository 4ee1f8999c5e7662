// mota config get|dump|check: builds the standard configuration of an application (its command
// line, its file and the process environment) and answers a key, with its source if asked, or
// prints everything; check reads a file alone and reports what it stores unexpectedly.
#include "arguments.hpp"
#include "commands.hpp"
#include "config_check.hpp"
#include "config_origin.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/config/config_manager.hpp>
#include <mota/config/enviroment_item.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/std_config_dispatch.hpp>
#include <mota/system/io.hpp>
#include <mota/types/variant.hpp>

#include <algorithm>
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

int get(const std::string& key, const mota::config::config_manager& manager, bool show_origin,
        std::ostream& out) {
  const ustring8 wanted(key);
  origin_namer namer;
  std::string prefix;
  if (manager.is_array(wanted)) {
    if (show_origin) prefix = namer.name(mota::config::find_array_origin(manager, wanted)) + "\t";
    std::vector<mota::types::variant> values;
    manager.get_array(wanted, values);
    for (const mota::types::variant& value : values)
      out << prefix << printable(value.as_string()) << "\n";
    return exit_ok;
  }
  if (!manager.value_exist(wanted)) return exit_absent;
  if (show_origin) prefix = namer.name(mota::config::find_value_origin(manager, wanted)) + "\t";
  out << prefix << printable(manager.get_value(wanted).as_string()) << "\n";
  return exit_ok;
}

bool is_environment(const mota::config::base_config_item& item) {
  return dynamic_cast<const mota::config::enviroment_item*>(&item) != nullptr;
}

// Every key of every source, one a line: "ORIGIN<tab>KEY=VALUE", arrays as "KEY[]=A, B", and
// "(overridden)" after a key that an earlier source answers.
void dump_origins(const mota::config::config_manager& manager, bool environment,
                  std::ostream& out) {
  origin_namer namer;
  for (const auto& item : manager.get_items()) {
    if (!item || (is_environment(*item) && !environment)) continue;
    std::vector<std::string> elements;
    item->get_tree().visit([&](const std::string& key,
                               const mota::config::config_tree::node_t& node,
                               const std::vector<std::string>& names) {
      if (std::find(elements.begin(), elements.end(), key) != elements.end()) return;
      const bool array = mota::config::config_tree::is_array(node.first);
      if (!array && node.second == mota::types::nil) return;  // a node only on the way to others
      std::string value;
      if (array) {
        for (const std::string& name : names) {
          const std::string element = key + "." + name;
          elements.push_back(element);
          const auto* element_node = item->get_value(ustring8(element));
          value += (value.empty() ? "" : ", ") +
                   (element_node ? element_node->second.as_string() : std::string());
        }
      } else {
        value = node.second.as_string();
      }
      const mota::config::value_origin origin =
          array ? mota::config::find_array_origin(manager, ustring8(key))
                : mota::config::find_value_origin(manager, ustring8(key));
      out << namer.name(*item, key) << "\t" << printable(key) << (array ? "[]=" : "=")
          << printable(value) << (origin.item.get() == item.get() ? "" : "\t(overridden)") << "\n";
    });
  }
}

// The library's own dump, without the environment unless asked for.
void dump(const mota::config::config_manager& manager, bool environment, std::ostream& out) {
  std::ostringstream text;
  text << "config_manager:\n";
  for (const auto& item : manager.get_items()) {
    if (!item || (is_environment(*item) && !environment)) continue;
    text << "\nconfig_item:\n";
    item->dump(text);
  }
  text << "\nno more config_items!\n\nending output\n";
  out << printable(text.str());
}

}  // namespace

int run_config(const std::vector<std::string>& words, const char* const* envp, std::ostream& out,
               std::ostream& err) {
  arguments args({"--file", "--program"}, {"--show-origin", "--env", "--json"});
  if (!args.parse(words, true)) return usage_error(err, printable(args.error()), config_usage);
  if (args.has("--help")) {
    out << config_usage;
    return exit_ok;
  }
  const std::vector<std::string>& positional = args.positional();
  if (positional.empty()) return usage_error(err, "config needs a subcommand", config_usage);
  const std::string& command = positional[0];
  const auto misplaced = [&](const char* option, const char* owner) {
    return args.has(option)
               ? usage_error(err, std::string(option) + " belongs to " + owner, config_usage)
               : -1;
  };
  if (command == "check") {
    if (positional.size() < 2) return usage_error(err, "config check needs a FILE", config_usage);
    for (const char* option : {"--file", "--program", "--show-origin", "--env"}) {
      if (args.has(option) || args.has_rest()) {
        return usage_error(err, "config check takes FILE... and --json only", config_usage);
      }
    }
    return check_config_files(std::vector<std::string>(positional.begin() + 1, positional.end()),
                              args.has("--json"), out);
  }
  if (command == "get") {
    if (positional.size() != 2) {
      return usage_error(err, positional.size() < 2 ? "config get needs a KEY" : "too many keys",
                         config_usage);
    }
    const int code = misplaced("--env", "config dump");
    if (code >= 0) return code;
  } else if (command == "dump") {
    if (positional.size() != 1) {
      return usage_error(err, "unexpected argument \"" + printable(positional[1]) + "\"",
                         config_usage);
    }
  } else {
    return usage_error(err, "unknown config subcommand \"" + printable(command) + "\"",
                       config_usage);
  }
  const int code = misplaced("--json", "config check");
  if (code >= 0) return code;
  if (args.has("--program") && args.value("--program").empty()) {
    return usage_error(err, "--program needs a name", config_usage);
  }

  mota::config::config_manager manager;
  load(manager, args, envp, err);
  warn_missing_file(manager, args, err);
  if (command == "get") {
    const int result = get(positional[1], manager, args.has("--show-origin"), out);
    if (result == exit_absent) err << "mota: \"" << printable(positional[1]) << "\" is not set\n";
    return result;
  }
  if (args.has("--show-origin")) {
    dump_origins(manager, args.has("--env"), out);
  } else {
    dump(manager, args.has("--env"), out);
  }
  return exit_ok;
}

}  // namespace mota_tool
