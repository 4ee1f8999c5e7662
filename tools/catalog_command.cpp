// mota catalog check|render: loads message catalogs as an application would and shows what
// was loaded, or renders one message with arguments given on the command line.
#include "arguments.hpp"
#include "catalog_files.hpp"
#include "commands.hpp"
#include "json_output.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/generic/varg_list.hpp>
#include <mota/i18n/argument_comparison.hpp>
#include <mota/i18n/message_catalogs.hpp>
#include <mota/system/io.hpp>
#include <mota/types/variant.hpp>

#include <cctype>
#include <set>

namespace mota_tool {
namespace {

using mota::i18n::catalog_t;
using mota::i18n::message_catalogs;
using mota::i18n::message_item;
using mota::i18n::message_t;
using mota::strings::ustring8;

// The kinds that read their argument as a number; all others show it as text.
bool is_numeric(message_item::type_t kind) {
  return kind == message_item::int_ || kind == message_item::double_ ||
         kind == message_item::memory || kind == message_item::memory_unit ||
         kind == message_item::metric || kind == message_item::metric_unit ||
         kind == message_item::duration;
}

std::size_t skip_digits(const std::string& text, std::size_t i, const std::string& digits) {
  while (i < text.size() &&
         digits.find(static_cast<char>(std::tolower(static_cast<unsigned char>(text[i])))) !=
             std::string::npos) {
    ++i;
  }
  return i;
}

// True for text the library reads as a number without dropping anything: an optional sign,
// then decimal digits with an optional fraction and exponent, or (integers only) 0x hex.
bool is_number_text(const std::string& text, bool integer) {
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  if (integer && text.size() > i + 2 && text[i] == '0' && (text[i + 1] | 0x20) == 'x') {
    return skip_digits(text, i + 2, "0123456789abcdef") == text.size();
  }
  const std::size_t start = i;
  i = skip_digits(text, i, "0123456789");
  if (i == start) return false;
  if (integer) return i == text.size();
  if (i < text.size() && text[i] == '.') {
    const std::size_t fraction = ++i;
    i = skip_digits(text, i, "0123456789");
    if (i == fraction) return false;
  }
  if (i < text.size() && (text[i] | 0x20) == 'e') {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    const std::size_t exponent = i;
    i = skip_digits(text, i, "0123456789");
    if (i == exponent) return false;
  }
  return i == text.size();
}

std::vector<ustring8> to_paths(const std::vector<std::string>& words) {
  return std::vector<ustring8>(words.begin(), words.end());
}

int report(const message_catalogs::result_type& result, std::ostream& err) {
  err << printable(result.message) << "\n";
  return exit_failure;
}

// Loads `paths` for the locale (and catalog id) of `args` into `catalogs`; on failure writes
// the loader's message to `err` and returns false.
bool load(const std::vector<std::string>& paths, const arguments& args, message_catalogs& catalogs,
          std::ostream& err) {
  const ustring8 locale(args.value("--locale"));
  const bool filtered = args.has("--catalog");
  const ustring8 id(args.value("--catalog"));
  message_catalogs::result_type result(message_catalogs::no_error, ustring8());
  if (paths.size() == 1) {
    result = filtered ? catalogs.load(ustring8(paths[0]), locale, id)
                      : catalogs.load(ustring8(paths[0]), locale);
  } else {
    result = filtered ? catalogs.load(to_paths(paths), locale, id)
                      : catalogs.load(to_paths(paths), locale);
    if (result.type == message_catalogs::no_error && catalogs.size() == 0) {
      // A single path gets this report from the library itself.
      std::string joined;
      for (const std::string& path : paths)
        joined += (joined.empty() ? "" : ", ") + path;
      result = message_catalogs::result_type(message_catalogs::no_catalog_loaded, joined);
    }
  }
  if (result.type != message_catalogs::no_error) {
    report(result, err);
    return false;
  }
  return true;
}

// Loads one file for the locale (and catalog id) of `args`; a failure's message goes to
// `failures`.
void load_one(const std::string& file, const arguments& args, message_catalogs& catalogs,
              std::vector<std::string>& failures) {
  const ustring8 locale(args.value("--locale"));
  const message_catalogs::result_type result =
      args.has("--catalog")
          ? catalogs.load_file(ustring8(file), locale, ustring8(args.value("--catalog")))
          : catalogs.load_file(ustring8(file), locale);
  if (result.type != message_catalogs::no_error) failures.push_back(result.message);
}

void write_check_text(const message_catalogs& catalogs, const std::vector<std::string>& failures,
                      bool messages, std::ostream& out, std::ostream& err) {
  for (const std::string& failure : failures)
    err << printable(failure) << "\n";
  for (const auto& entry : catalogs) {
    const catalog_t& catalog = *entry.second;
    out << printable(entry.first) << ": " << catalog.size()
        << (catalog.size() == 1 ? " message" : " messages") << "; languages:";
    for (auto lang = catalog.languages_begin(); lang != catalog.languages_end(); ++lang) {
      out << " " << (lang->empty() ? std::string("\"\"") : printable(*lang));
    }
    out << "\n";
    if (!messages) continue;
    for (const auto& message : catalog) {
      out << "  " << printable(message.first) << " [" << printable(message.second._orginal_locale())
          << "]\n";
    }
  }
}

// {"catalogs": [{"name", "messages", "languages"[, "message_languages"]}...], "errors": [...],
//  "status": N}
void write_check_json(const message_catalogs& catalogs, const std::vector<std::string>& failures,
                      bool messages, int status, std::ostream& out) {
  out << "{\n  \"catalogs\": [";
  bool first = true;
  for (const auto& entry : catalogs) {
    const catalog_t& catalog = *entry.second;
    out << (first ? "\n" : ",\n") << "    {\"name\": " << json_string(entry.first)
        << ", \"messages\": " << catalog.size() << ", \"languages\": "
        << json_strings(
               std::vector<std::string>(catalog.languages_begin(), catalog.languages_end()));
    first = false;
    if (messages) {
      out << ", \"message_languages\": {";
      bool first_message = true;
      for (const auto& message : catalog) {
        out << (first_message ? "" : ", ") << json_string(message.first) << ": "
            << json_string(message.second._orginal_locale());
        first_message = false;
      }
      out << "}";
    }
    out << "}";
  }
  out << (first ? "],\n" : "\n  ],\n") << "  \"errors\": " << json_strings(failures)
      << ",\n  \"status\": " << status << "\n}\n";
}

// Loads every file of every path on its own, so that each broken file is reported, and lists
// what the good ones loaded.
int check(const arguments& args, std::ostream& out, std::ostream& err) {
  const std::vector<std::string> paths(args.positional().begin() + 1, args.positional().end());
  if (paths.empty()) return usage_error(err, "catalog check needs a PATH", catalog_usage);
  message_catalogs catalogs;
  std::vector<std::string> failures;
  for (const std::string& path : paths) {
    if (mota::system::io::is_file(ustring8(path))) {
      load_one(path, args, catalogs, failures);
    } else if (mota::system::io::is_directory(ustring8(path))) {
      std::vector<std::string> files;
      collect_catalog_files(path, files);
      for (const std::string& file : files)
        load_one(file, args, catalogs, failures);
    } else {
      failures.push_back(
          message_catalogs::result_type(message_catalogs::entity_not_found, ustring8(path))
              .message);
    }
  }
  if (failures.empty() && catalogs.size() == 0) {
    std::string joined;
    for (const std::string& path : paths)
      joined += (joined.empty() ? "" : ", ") + path;
    failures.push_back(
        message_catalogs::result_type(message_catalogs::no_catalog_loaded, joined).message);
  }
  const int status = failures.empty() ? exit_ok : exit_failure;
  if (args.has("--json")) {
    write_check_json(catalogs, failures, args.has("--messages"), status, out);
  } else {
    write_check_text(catalogs, failures, args.has("--messages"), out, err);
  }
  return status;
}

// The format pairs after an argument's name ("key=value ..."), as the catalog spelled them.
std::string format_text(const ustring8& data) {
  std::string text;
  std::size_t pos = data.find(message_item::separator);
  while (pos != std::string::npos) {
    const std::size_t key_end = data.find(message_item::separator, pos + 1);
    const std::string key =
        data.substr(pos + 1, key_end == std::string::npos ? std::string::npos : key_end - pos - 1);
    std::string value;
    pos = std::string::npos;
    if (key_end != std::string::npos) {
      const std::size_t value_end = data.find(message_item::separator, key_end + 1);
      value = data.substr(key_end + 1, value_end == std::string::npos ? std::string::npos
                                                                      : value_end - key_end - 1);
      pos = value_end;
    }
    text += " " + key + "=" + value;
  }
  return text;
}

int list_args(const message_t& message, std::ostream& out) {
  std::set<std::string> shown;
  for (const message_item& item : message) {
    if (item.type() == message_item::text) continue;
    std::string line = printable(item.name()) + " " + mota::i18n::kind_keyword(item.type());
    line += printable(format_text(item.data()));
    if (shown.insert(line).second) out << line << "\n";
  }
  return exit_ok;
}

int render(const arguments& args, std::ostream& out, std::ostream& err) {
  const std::vector<std::string>& words = args.positional();
  if (words.size() < 4) {
    return usage_error(err, "catalog render needs PATH, CATALOG and MESSAGE", catalog_usage);
  }
  const std::string &catalog_name = words[2], &message_name = words[3];
  // NAME=VALUE pairs, checked for form before anything is loaded.
  std::vector<std::pair<std::string, std::string>> values;
  for (std::size_t i = 4; i < words.size(); ++i) {
    const std::string::size_type eq = words[i].find('=');
    if (eq == std::string::npos || eq == 0) {
      return usage_error(err, "expected NAME=VALUE, got \"" + printable(words[i]) + "\"",
                         catalog_usage);
    }
    const std::string name = words[i].substr(0, eq);
    for (const auto& earlier : values) {
      if (earlier.first == name) {
        return usage_error(err, "argument \"" + printable(name) + "\" given twice", catalog_usage);
      }
    }
    values.emplace_back(name, words[i].substr(eq + 1));
  }
  if (args.has("--list-args") && !values.empty()) {
    return usage_error(err, "--list-args takes no NAME=VALUE", catalog_usage);
  }

  message_catalogs catalogs;
  if (!load({words[1]}, args, catalogs, err)) return exit_failure;
  if (!catalogs.has_catalog(ustring8(catalog_name))) {
    std::string loaded;
    for (const auto& entry : catalogs)
      loaded += (loaded.empty() ? "" : ", ") + entry.first;
    return failure(err, "no catalog \"" + printable(catalog_name) +
                            "\" was loaded (loaded: " + printable(loaded) + ")");
  }
  if (!catalogs.has_message(ustring8(catalog_name), ustring8(message_name))) {
    return failure(err, "catalog \"" + printable(catalog_name) + "\" has no message \"" +
                            printable(message_name) + "\"");
  }
  const message_t& message = catalogs.message(ustring8(catalog_name), ustring8(message_name));
  if (args.has("--list-args")) return list_args(message, out);

  // Each value must name an argument of the message, and numeric kinds need a number.
  mota::generic::varg_list list;
  for (const auto& value : values) {
    bool found = false;
    for (const message_item& item : message) {
      if (item.type() == message_item::text || item.name() != value.first) continue;
      found = true;
      if (is_numeric(item.type()) &&
          !is_number_text(value.second, item.type() == message_item::int_)) {
        return failure(err, "argument \"" + printable(value.first) + "\" is of kind " +
                                mota::i18n::kind_keyword(item.type()) +
                                " and needs a number, not \"" + printable(value.second) + "\"");
      }
    }
    if (!found) {
      return failure(err, "message \"" + printable(message_name) + "\" has no argument \"" +
                              printable(value.first) + "\" (--list-args shows them)");
    }
    list.push_back(ustring8(value.first), mota::types::variant(ustring8(value.second)));
  }
  std::set<std::string> missing;
  for (const message_item& item : message) {
    if (item.type() != message_item::text && !list.has_argument(item.name())) {
      if (missing.insert(item.name()).second) {
        err << "mota: warning: argument \"" << printable(item.name()) << "\" not given\n";
      }
    }
  }
  out << printable(message.as_utf8(list)) << "\n";
  return exit_ok;
}

}  // namespace

int run_catalog(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  if (!words.empty() && words[0] == "lint") {
    return run_catalog_lint(std::vector<std::string>(words.begin() + 1, words.end()), out, err);
  }
  arguments args({"--locale", "--catalog"}, {"--list-args", "--messages", "--json"});
  if (!args.parse(words, false)) return usage_error(err, printable(args.error()), catalog_usage);
  if (args.has("--help")) {
    out << catalog_usage;
    return exit_ok;
  }
  const std::vector<std::string>& positional = args.positional();
  if (positional.empty()) return usage_error(err, "catalog needs a subcommand", catalog_usage);
  const std::string& command = positional[0];
  if (command != "check" && command != "render") {
    return usage_error(err, "unknown catalog subcommand \"" + printable(command) + "\"",
                       catalog_usage);
  }
  if (!args.has("--locale")) return usage_error(err, "--locale is required", catalog_usage);
  if (command == "check" && args.has("--list-args")) {
    return usage_error(err, "--list-args belongs to catalog render", catalog_usage);
  }
  if (command == "render" && args.has("--json")) {
    return usage_error(err, "--json belongs to catalog check", catalog_usage);
  }
  if (command == "render" && args.has("--messages")) {
    return usage_error(err, "--messages belongs to catalog check", catalog_usage);
  }
  return command == "check" ? check(args, out, err) : render(args, out, err);
}

}  // namespace mota_tool
