// A small command-line reader for the tool's subcommands: long options with or without a
// value ("--locale de" or "--locale=de"), flags, positional words, and everything after "--"
// kept apart untouched.
#ifndef MOTA_TOOLS_ARGUMENTS_HPP
#define MOTA_TOOLS_ARGUMENTS_HPP

#include <map>
#include <string>
#include <vector>

namespace mota_tool {

class arguments {
 public:
  // The options a subcommand accepts: names (with their leading "--") that take a value, and
  // names that are plain flags. "--help" is always accepted as a flag.
  arguments(std::vector<std::string> valued, std::vector<std::string> flags);

  // Reads `words`. Returns false and sets error() for an unknown option, an option whose
  // value is missing, or a value given to a flag. When `keep_rest` is false a "--" is an
  // error; otherwise every word after it goes to rest().
  bool parse(const std::vector<std::string>& words, bool keep_rest);

  const std::string& error() const { return m_error; }
  bool has(const std::string& option) const;
  // The option's value (the last one when given twice), or empty.
  std::string value(const std::string& option) const;
  const std::vector<std::string>& positional() const { return m_positional; }
  const std::vector<std::string>& rest() const { return m_rest; }
  bool has_rest() const { return m_has_rest; }

 private:
  bool is_valued(const std::string& name) const;
  bool is_flag(const std::string& name) const;

  std::vector<std::string> m_valued;
  std::vector<std::string> m_flags;
  std::map<std::string, std::string> m_values;
  std::vector<std::string> m_positional;
  std::vector<std::string> m_rest;
  bool m_has_rest = false;
  std::string m_error;
};

}  // namespace mota_tool

#endif  // MOTA_TOOLS_ARGUMENTS_HPP
