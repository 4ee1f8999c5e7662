#include "config_check.hpp"

#include "json_output.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/config/config_file_check.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <map>

namespace mota_tool {
namespace {

using check_t = mota::config::config_file_check;

// Warnings fit on one line: line ends inside a value are shown as \n.
std::string one_line(const std::string& text) {
  std::string out;
  for (const char c : printable(text)) {
    if (c == '\n') {
      out += "\\n";
    } else if (c == '\t') {
      out += "\\t";
    } else {
      out += c;
    }
  }
  return out;
}

std::string quoted(const std::string& text) {
  return "\"" + one_line(text) + "\"";
}

// What the library stores under the warning's key: a quoted text, an array's elements, or
// nothing.
std::string stored(const check_t& check, const check_t::warning& w) {
  const auto* node = check.stored().get_node(w.key);
  if (w.key.empty() || node == nullptr) return "nothing";
  const std::string text = one_line(w.stored);
  return mota::config::config_tree::is_array(node->first) ? "[" + text + "]" : "\"" + text + "\"";
}

// The same for machines: null, a JSON string, or an array of strings.
std::string stored_json(const check_t& check, const std::string& key) {
  const auto* node = check.stored().get_node(key);
  if (key.empty() || node == nullptr) return "null";
  if (!mota::config::config_tree::is_array(node->first)) return json_string(check.stored_text(key));
  std::vector<std::pair<mota::strings::ustring8, mota::types::variant>> elements;
  check.stored().get_value_pair_array(key, elements);
  std::string text;
  for (const auto& element : elements)
    text += (text.empty() ? "" : ", ") + json_string(element.second.as_string());
  return "[" + text + "]";
}

const char* kind_name(check_t::warning_kind kind) {
  switch (kind) {
    case check_t::value_cut_by_comment:
      return "value_cut_by_comment";
    case check_t::blanks_dropped:
      return "blanks_dropped";
    case check_t::key_without_equals:
      return "key_without_equals";
    case check_t::array_swallows_line:
      return "array_swallows_line";
    case check_t::duplicate_key:
      return "duplicate_key";
    case check_t::empty_quoted_value:
      return "empty_quoted_value";
    case check_t::open_quote:
      return "open_quote";
    case check_t::not_saved_exactly:
      return "not_saved_exactly";
  }
  return "unknown";
}

std::string message(const check_t::warning& w) {
  const std::string key = quoted(w.key);
  switch (w.kind) {
    case check_t::value_cut_by_comment:
      return "the value of " + key + " is cut where a comment begins (" + quoted(w.detail) +
             " is not part of it)";
    case check_t::blanks_dropped:
      return "blanks dropped from the unquoted value " + quoted(w.detail) + " of " + key +
             " (quote the value to keep them)";
    case check_t::key_without_equals:
      if (w.key.empty()) return "the line " + quoted(w.detail) + " has no \"=\" and sets nothing";
      return "the line " + quoted(w.detail) + " has no \"=\": its text joins the next key, " + key;
    case check_t::array_swallows_line:
      return "the array " + key + ", left open by a trailing \",\" on line " +
             std::to_string(w.other_line) + ", takes in the line " + quoted(w.detail);
    case check_t::duplicate_key:
      return key + " is set again (before on line " + std::to_string(w.other_line) +
             "): this line wins";
    case check_t::empty_quoted_value:
      return "the empty quoted value of " + key + " sets nothing";
    case check_t::open_quote:
      return "the quote in the value of " + key + " is never closed: the value runs to the end";
    case check_t::not_saved_exactly:
      return "a save would not write " + key + " back as it is (it would read back as " +
             (w.detail.empty() ? std::string("nothing") : quoted(w.detail)) + ")";
  }
  return "";
}

struct file_result {
  std::string file;
  bool readable = false;
  std::vector<std::pair<const check_t::warning*, std::string>> warnings;  // with its text
};

void write_text(const file_result& r, const check_t* check, std::ostream& out) {
  const std::string file = printable(r.file);
  if (!r.readable) {
    out << file << ": error: cannot read the file\n";
    return;
  }
  for (const auto& w : r.warnings) {
    out << file << ":" << w.first->line << ": warning: " << w.second
        << "; stored: " << stored(*check, *w.first) << "\n";
  }
  out << file << ": "
      << (r.warnings.empty() ? std::string("ok")
                             : std::to_string(r.warnings.size()) + " warning(s)")
      << "\n";
}

void write_json(const file_result& r, const check_t* check, std::ostream& out) {
  out << "  {\"file\": " << json_string(r.file)
      << ", \"readable\": " << (r.readable ? "true" : "false") << ", \"warnings\": [";
  const char* separator = "\n";
  std::map<std::string, std::string> stored;  // an array's elements are listed once per key
  for (const auto& w : r.warnings) {
    const check_t::warning& warning = *w.first;
    auto found = stored.find(warning.key);
    if (found == stored.end())
      found = stored.emplace(warning.key, stored_json(*check, warning.key)).first;
    out << separator << "    {\"line\": " << warning.line << ", \"kind\": \""
        << kind_name(warning.kind) << "\", \"key\": " << json_string(warning.key)
        << ", \"stored\": " << found->second << ", \"message\": " << json_string(w.second) << "}";
    separator = ",\n";
  }
  out << (r.warnings.empty() ? "]}" : "\n  ]}");
}

}  // namespace

int check_config_files(const std::vector<std::string>& files, bool json, std::ostream& out) {
  bool unreadable = false, warned = false;
  if (json) out << "[";
  const char* separator = "\n";
  for (const std::string& file : files) {
    file_result result;
    result.file = file;
    mota::strings::ustring8 text;
    result.readable = mota::system::io::is_file(mota::strings::ustring8(file)) &&
                      mota::system::load_file(mota::strings::ustring8(file), text) == 0;
    const check_t check(text);
    if (result.readable) {
      for (const check_t::warning& w : check.warnings())
        result.warnings.emplace_back(&w, message(w));
    }
    unreadable = unreadable || !result.readable;
    warned = warned || !result.warnings.empty();
    if (json) {
      out << separator;
      write_json(result, &check, out);
      separator = ",\n";
    } else {
      write_text(result, &check, out);
    }
  }
  if (json) out << "\n]\n";
  return unreadable ? exit_failure : warned ? exit_warnings : exit_ok;
}

}  // namespace mota_tool
