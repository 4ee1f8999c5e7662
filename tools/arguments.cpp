#include "arguments.hpp"

#include <algorithm>
#include <utility>

namespace mota_tool {

arguments::arguments(std::vector<std::string> valued, std::vector<std::string> flags)
    : m_valued(std::move(valued)), m_flags(std::move(flags)) {
  m_flags.push_back("--help");
}

bool arguments::is_valued(const std::string& name) const {
  return std::find(m_valued.begin(), m_valued.end(), name) != m_valued.end();
}

bool arguments::is_flag(const std::string& name) const {
  return std::find(m_flags.begin(), m_flags.end(), name) != m_flags.end();
}

bool arguments::parse(const std::vector<std::string>& words, bool keep_rest) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--") {
      if (!keep_rest) {
        m_error = "unexpected \"--\"";
        return false;
      }
      m_has_rest = true;
      m_rest.assign(words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
      return true;
    }
    // "-" alone and words not starting with "-" are positional.
    if (word.size() < 2 || word[0] != '-') {
      m_positional.push_back(word);
      continue;
    }
    if (word == "-h") {
      m_values["--help"];
      continue;
    }
    const std::string::size_type eq = word.find('=');
    const std::string name = word.substr(0, eq);
    if (is_valued(name)) {
      if (eq != std::string::npos) {
        m_values[name] = word.substr(eq + 1);
      } else if (i + 1 < words.size()) {
        m_values[name] = words[++i];
      } else {
        m_error = "option " + name + " needs a value";
        return false;
      }
    } else if (is_flag(name)) {
      if (eq != std::string::npos) {
        m_error = "option " + name + " takes no value";
        return false;
      }
      m_values[name];
    } else {
      m_error = "unknown option " + name;
      return false;
    }
  }
  return true;
}

bool arguments::has(const std::string& option) const {
  return m_values.count(option) != 0;
}

std::string arguments::value(const std::string& option) const {
  const auto found = m_values.find(option);
  return found == m_values.end() ? std::string() : found->second;
}

}  // namespace mota_tool
