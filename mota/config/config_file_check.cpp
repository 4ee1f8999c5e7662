#include <mota/config/_private/file_writer.hpp>
#include <mota/config/config_file_check.hpp>

#include <algorithm>
#include <map>

namespace MOTA_2_18 {
namespace config {

namespace {

using T = config_token;

bool is_blank(int kind) {
  return kind == T::T_SPACE || kind == T::T_TABCHAR || kind == T::T_NEWLINE;
}
bool is_comment(int kind) {
  return kind == T::T_POUND || kind == T::T_FSFS;
}

}  // namespace

// Walks the tokens the way file_item::parse does, statement by statement, keeping line
// numbers and the details parse throws away.
class config_file_check::reader {
 public:
  reader(const strings::ustring8& text, config_file_check& check) : m_text(text), m_check(check) {}

  void run() {
    for (;;) {
      int kind = next();
      if (kind == T::T_END) return;
      if (is_blank(kind)) continue;
      if (is_comment(kind)) {
        skip_comment();
        continue;
      }
      if (kind == T::T_SBRACKET) {
        std::string section;
        for (;;) {
          kind = next();
          if (kind == T::T_END || kind == T::T_EBRACKET) break;
          if (!is_blank(kind)) section += m_tok.text;
        }
        m_prefix = section.empty() ? std::string() : section + ".";
        if (kind == T::T_END) return;
        continue;
      }
      if (!read_key(kind)) return;
      const bool array = m_key.size() >= 2 && m_key.compare(m_key.size() - 2, 2, "[]") == 0;
      if (array) {
        m_key.resize(m_key.size() - 2);
        read_array();
      } else {
        read_value();
      }
    }
  }

 private:
  int next() { return base_config_item::get_token(m_text, m_pos, m_tok); }

  // The line (from 1) of byte `at`; positions are asked for in increasing order mostly.
  unsigned line_at(unsigned at) {
    if (at < m_counted) {
      m_counted = 0;
      m_line = 1;
    }
    for (; m_counted < at && m_counted < m_text.size(); ++m_counted)
      m_line += m_text[m_counted] == '\n';
    return m_line;
  }

  // The text of the line holding byte `at`, without its line end.
  std::string line_text(unsigned at) const {
    const std::size_t begin = at == 0 ? 0 : m_text.rfind('\n', at - 1) + 1;
    std::size_t end = m_text.find('\n', begin);
    if (end == std::string::npos) end = m_text.size();
    if (end > begin && m_text[end - 1] == '\r') --end;
    return m_text.substr(begin, end - begin);
  }

  // The rest of the line from byte `at`, without its line end.
  std::string rest_of_line(unsigned at) const {
    const std::string line = line_text(at);
    const std::size_t begin = at == 0 ? 0 : m_text.rfind('\n', at - 1) + 1;
    return line.substr(std::min<std::size_t>(at - begin, line.size()));
  }

  void skip_comment() {
    for (;;) {
      const int kind = next();
      if (kind == T::T_END) return;
      if (kind == T::T_NEWLINE) {
        m_pos = m_tok.start;
        return;
      }
    }
  }

  void warn(warning_kind kind, unsigned line, const std::string& key, unsigned other_line = 0,
            const std::string& detail = std::string()) {
    m_check.m_warnings.push_back({kind, line, key, std::string(), other_line, detail});
  }

  // Reads a key up to "="; false at the end of the text. A line break inside the key means a
  // line without "=" whose text became part of the key.
  bool read_key(int kind) {
    const unsigned start = m_tok.start;
    const unsigned line = line_at(start);
    m_key.clear();
    bool joined = false;
    while (kind != T::T_EQ) {
      if (kind == T::T_NEWLINE && !m_key.empty()) joined = true;
      if (!is_blank(kind)) m_key += m_tok.text;
      kind = next();
      if (kind == T::T_END) {
        warn(key_without_equals, line, std::string(), 0, line_text(start));
        return false;
      }
    }
    m_key_line = line;
    if (joined) warn(key_without_equals, line, m_prefix + m_key, 0, line_text(start));
    return true;
  }

  // A comment directly after value text, or in place of the value, cut what was meant.
  void comment_in_value(bool text_before, bool blank_before) {
    const std::string key = m_prefix + m_key;
    if (!text_before || !blank_before)
      warn(value_cut_by_comment, line_at(m_tok.start), key, 0, rest_of_line(m_tok.start));
    skip_comment();
  }

  void note_string() {
    // Only the opening quote is outside the text when the string runs to the end.
    if (m_tok.end - m_tok.start == m_tok.text.size() + 1)
      warn(open_quote, line_at(m_tok.start), m_prefix + m_key);
  }

  void read_value() {
    const std::string key = m_prefix + m_key;
    std::string value, written;
    bool blank = false, dropped = false, empty_string = false;
    for (;;) {
      const int kind = next();
      if (kind == T::T_END || kind == T::T_NEWLINE) break;
      if (kind == T::T_SPACE || kind == T::T_TABCHAR) {
        blank = true;
        if (!written.empty()) written += m_text.substr(m_tok.start, m_tok.end - m_tok.start);
        continue;
      }
      if (is_comment(kind)) {
        comment_in_value(!value.empty(), blank);
        continue;
      }
      if (blank && !value.empty()) dropped = true;
      blank = false;
      if (kind == T::T_STRING) {
        note_string();
        empty_string = empty_string || m_tok.text.empty();
      }
      written += m_text.substr(m_tok.start, m_tok.end - m_tok.start);
      value += m_tok.text;
    }
    while (!written.empty() && (written.back() == ' ' || written.back() == '\t'))
      written.pop_back();
    if (dropped) warn(blanks_dropped, m_key_line, key, 0, written);
    if (value.empty() && empty_string) warn(empty_quoted_value, m_key_line, key);
    if (!value.empty() && !(m_prefix.empty() && m_key.empty()))
      m_check.m_definitions.push_back({key, m_key_line, false});
  }

  void read_array() {
    const std::string key = m_prefix + m_key;
    std::string element;
    bool after_text = false, blank = false;
    bool continued = false;    // past a line end that did not end the array
    unsigned open_line = 0;    // the line that left the array open
    unsigned swallowed = 0;    // the line last reported as taken in
    unsigned blanks_line = 0;  // the line last reported for dropped blanks
    for (;;) {
      const int kind = next();
      if (kind == T::T_END) break;
      if (kind == T::T_NEWLINE) {
        if (after_text) break;
        if (!continued) open_line = line_at(m_tok.start);
        continued = true;
        continue;
      }
      if (kind == T::T_SPACE || kind == T::T_TABCHAR) {
        blank = true;
        continue;
      }
      if (is_comment(kind)) {
        comment_in_value(!element.empty(), blank);
        continue;
      }
      const unsigned line = line_at(m_tok.start);
      // A continued line that reads as a statement of its own was not meant as elements.
      if (continued && line != swallowed &&
          (kind == T::T_EQ || (kind == T::T_SBRACKET && element.empty()))) {
        swallowed = line;
        warn(array_swallows_line, line, key, open_line, line_text(m_tok.start));
      }
      if (kind == T::T_NON_ALPHA_NUM && m_tok.text.size() == 1 && m_tok.text[0] == ',') {
        after_text = false;
        blank = false;
        element.clear();
        continue;
      }
      // One warning a line at most, so that a long line costs no more than its length.
      if (blank && !element.empty() && line != swallowed && line != blanks_line) {
        blanks_line = line;
        warn(blanks_dropped, line, key, 0, line_text(m_tok.start));
      }
      blank = false;
      if (kind == T::T_STRING) note_string();
      element += m_tok.text;
      after_text = true;
    }
    if (!(m_prefix.empty() && m_key.empty()))
      m_check.m_definitions.push_back({key, m_key_line, true});
  }

  const strings::ustring8& m_text;
  config_file_check& m_check;
  unsigned m_pos = 0;
  config_token m_tok;
  std::string m_prefix, m_key;
  unsigned m_key_line = 0;
  unsigned m_counted = 0, m_line = 1;
};

config_file_check::config_file_check(const strings::ustring8& text) : m_item(strings::ustring8()) {
  m_item.parse(text);
  reader(text, *this).run();
  check_duplicates();
  check_round_trip();
  std::map<std::string, std::string> texts;  // an array's text is built once, however often named
  for (warning& w : m_warnings) {
    auto found = texts.find(w.key);
    if (found == texts.end()) found = texts.emplace(w.key, stored_text(w.key)).first;
    w.stored = found->second;
  }
  std::stable_sort(m_warnings.begin(), m_warnings.end(),
                   [](const warning& a, const warning& b) { return a.line < b.line; });
}

unsigned config_file_check::line_of(const std::string& key) const {
  for (auto d = m_definitions.rbegin(); d != m_definitions.rend(); ++d)
    if (d->key == key) return d->line;
  return 0;
}

std::string config_file_check::stored_text(const std::string& key) const {
  const config_tree::node_t* node = stored().get_node(key);
  if (node == nullptr) return std::string();
  if (!config_tree::is_array(node->first)) return node->second.as_string();
  std::vector<std::pair<strings::ustring8, types::variant>> elements;
  stored().get_value_pair_array(key, elements);
  std::string text;
  for (const auto& element : elements)
    text += (text.empty() ? "" : ", ") + element.second.as_string();
  return text;
}

void config_file_check::check_duplicates() {
  std::map<std::string, unsigned> first;
  for (const definition& d : m_definitions) {
    const auto found = first.find(d.key);
    if (found == first.end()) {
      first.emplace(d.key, d.line);
    } else {
      m_warnings.push_back({duplicate_key, d.line, d.key, std::string(), found->second, ""});
      found->second = d.line;
    }
  }
}

// Saves the values as file_item::save_file writes them, reads the text back and compares.
void config_file_check::check_round_trip() {
  file_item reread{strings::ustring8()};
  reread.parse(strings::ustring8(_private::write_config_text(stored())));
  std::map<std::string, bool> seen;
  for (auto d = m_definitions.rbegin(); d != m_definitions.rend(); ++d) {
    if (!seen.emplace(d->key, true).second) continue;
    const std::string before = stored_text(d->key);
    const config_tree::node_t* node = reread.get_tree().get_node(d->key);
    std::string after;
    if (node != nullptr) {
      if (config_tree::is_array(node->first)) {
        std::vector<std::pair<strings::ustring8, types::variant>> elements;
        reread.get_tree().get_value_pair_array(d->key, elements);
        for (const auto& element : elements)
          after += (after.empty() ? "" : ", ") + element.second.as_string();
      } else {
        after = node->second.as_string();
      }
    }
    const bool same_shape = node != nullptr && stored().get_node(d->key) != nullptr &&
                            config_tree::is_array(node->first) ==
                                config_tree::is_array(stored().get_node(d->key)->first);
    if (before != after || !same_shape)
      m_warnings.push_back({not_saved_exactly, d->line, d->key, std::string(), 0, after});
  }
}

}  // namespace config
}  // namespace MOTA_2_18
