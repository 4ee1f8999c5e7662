#include <mota/config/_private/file_writer.hpp>
#include <mota/config/_private/lexer.hpp>
#include <mota/config/base_config_item.hpp>

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
namespace config {
namespace _private {

namespace {

using node_t = config_tree::node_t;

// Where a text stands on a line; what follows it differs: "=" or "[]=" after a key, "]"
// after a section name, "," or a line end after an array element, a line end after a value.
enum class place { key, section, value, element };

// Bytes that read back as themselves outside quotes, whatever byte follows them.
bool bare_byte(unsigned char u) {
  switch (u) {
    case '_':
    case '-':
    case '.':
    case '+':
    case '@':
    case '%':
    case '~':
    case '^':
    case '$':
    case '!':
    case '?':
    case '&':
    case '|':
    case ';':
    case '\\':
      return true;
    default:
      return is_alpha(u) || is_digit(u) || u >= 0x80;
  }
}

// True when the text, written without quotes at this place, reads back as itself.
bool reads_bare(const std::string& text, place where) {
  if (text.empty()) return false;
  for (const char c : text)
    if (!bare_byte(static_cast<unsigned char>(c))) return false;
  // Before "=", a final "-" or "+" would lex as "-=" or "+=", which do not end a key.
  return where != place::key || (text.back() != '-' && text.back() != '+');
}

// The text as double-quoted string tokens, with backslashes that cannot stay inside a string
// written between them. The text must be carriable(): each quote follows a backslash.
//
// Inside a string the lexer takes a backslash together with the byte after it, so a quote
// behind a backslash stays in the string and the backslash stays in the text. A backslash
// that is not before a quote is harmless there too (it takes an ordinary byte along), except
// at the end, where it would take the closing quote, and before the backslash of an escaped
// quote, which it would take away from its quote. Such a backslash is written between two
// strings, where it is a token of its own.
std::string string_tokens(const std::string& text) {
  std::string out;
  out.reserve(text.size() + 2);
  bool open = false;
  const auto enter = [&] {
    if (!open) out += '"';
    open = true;
  };
  const std::size_t n = text.size();
  for (std::size_t i = 0; i < n;) {
    if (text[i] != '\\') {
      enter();
      out += text[i++];
      continue;
    }
    if (i + 1 < n && text[i + 1] == '"') {
      enter();
      out += "\\\"";
      i += 2;
      continue;
    }
    const bool alone = i + 1 == n || (text[i + 1] == '\\' && i + 2 < n && text[i + 2] == '"');
    if (alone) {
      if (open) out += '"';
      open = false;
      out += '\\';
      ++i;
      continue;
    }
    enter();
    out.append(text, i, 2);
    i += 2;
  }
  if (open || out.empty()) {
    if (!open) out += '"';
    out += '"';
  }
  return out;
}

// The carriable text as it is written at a place: itself when it reads back bare, what
// quote_value makes of it when that reads back (the text has no quote or backslash), string
// tokens otherwise.
std::string written(const std::string& text, place where) {
  if (reads_bare(text, where)) return text;
  if (text.find_first_of("\"\\") == std::string::npos) {
    strings::ustring8 quoted = quote_value(text);
    if (quoted.size() != text.size()) return std::move(quoted);
  }
  return string_tokens(text);
}

// The number an array node holds as its value, or the largest size when it holds none.
std::size_t count_of(const types::variant& value) {
  constexpr std::size_t none = static_cast<std::size_t>(-1);
  const std::string text = value.as_string();
  if (text.empty() || text.size() > 18) return none;
  unsigned long long count = 0;
  for (const char c : text) {
    if (!is_digit(static_cast<unsigned char>(c))) return none;
    count = count * 10 + static_cast<unsigned long long>(c - '0');
  }
  return count > none ? none : static_cast<std::size_t>(count);
}

bool ends_with_brackets(const std::string& key) {
  return key.size() >= 2 && key.compare(key.size() - 2, 2, "[]") == 0;
}

std::size_t depth(const std::string& key) {
  return static_cast<std::size_t>(std::count(key.begin(), key.end(), '.'));
}

class writer {
 public:
  explicit writer(const config_tree& tree) : m_tree(tree) {}

  std::string run() {
    std::vector<std::string> keys;
    std::unordered_set<std::string> elements;
    keys.reserve(m_tree.size());
    m_tree.visit([&](const std::string& key, const node_t&, const std::vector<std::string>& names) {
      keys.push_back(key);
      for (const std::string& name : names)
        elements.insert(key + "." + name);
    });

    // A key read below an array joins its elements. The keys directly below an array that
    // are not among its elements are therefore written first, before any array, deepest
    // first (one of them may be an array with such keys below it in turn).
    std::vector<std::pair<std::size_t, const std::string*>> early;
    for (const std::string& key : keys) {
      const std::size_t dot = key.rfind('.');
      if (dot == std::string::npos || elements.count(key) != 0) continue;
      const node_t* parent = m_tree.get_node(key.substr(0, dot));
      if (parent != nullptr && config_tree::is_array(parent->first))
        early.emplace_back(depth(key), &key);
    }
    std::stable_sort(early.begin(), early.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    for (const auto& key : early)
      emit(*key.second);
    for (const std::string& key : keys)
      emit(key);
    return std::move(m_out);
  }

 private:
  // Writes the node under the key and, for an array, its elements, the elements of those
  // that are arrays, and so on; a stack, not recursion, since the nesting comes from the data.
  void emit(const std::string& root) {
    // Keys to write, each with whether its array line wrote it already as an element.
    std::vector<std::pair<std::string, bool>> pending{{root, false}};
    std::vector<std::pair<strings::ustring8, node_t>> items;
    while (!pending.empty()) {
      const std::string key = std::move(pending.back().first);
      const bool on_parent_line = pending.back().second;
      pending.pop_back();
      if (!m_done.insert(key).second) continue;
      const node_t* node = m_tree.get_node(key);
      if (node == nullptr) continue;
      if (!config_tree::is_array(node->first)) {
        if (node->second == types::nil) continue;
        const std::string text = carriable(node->second.as_string());
        if (!text.empty()) line(key, written(text, place::value), 0, false, false);
        continue;
      }

      // The reader numbers the elements of an array line "0", "1", ...: elements named so go
      // on the line, up to the first that is not or whose text is empty (the reader drops
      // empty elements), and no more than the array's own value counts (the reader sets it to
      // the length of the line). The others follow as keys of their own, which the reader
      // appends to the array in the order read.
      items.clear();
      m_tree.get_array(key, items);
      std::string values;
      std::size_t on_line = 0;
      const std::size_t limit = std::min(items.size(), count_of(node->second));
      for (; on_line < limit; ++on_line) {
        if (items[on_line].first != std::to_string(on_line)) break;
        const std::string text = carriable(items[on_line].second.second.as_string());
        if (text.empty()) break;
        if (on_line != 0) values += ',';
        values += written(text, place::element);
      }
      // An array line must end with element text, or the reader would go on to the next line.
      if (!line(key, on_line == 0 ? std::string("\"\"") : values, on_line, true, on_parent_line))
        continue;

      const std::size_t mark = pending.size();
      for (std::size_t i = 0; i < items.size(); ++i) {
        std::string element = key + "." + items[i].first;
        // An element on the line that is an array itself gets an array line of its own.
        if (i >= on_line)
          pending.emplace_back(std::move(element), false);
        else if (config_tree::is_array(items[i].second.first))
          pending.emplace_back(std::move(element), true);
        else
          m_done.insert(std::move(element));
      }
      std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(mark), pending.end());
    }
  }

  // Writes "key=rest" or "key[]=rest", under a section header for the part of the key before
  // its last dot. False, writing nothing, when the key cannot be written without changing
  // another one: a key whose text had to change and now meets a key of the tree (for an
  // array, one of the elements on its line too), a key written already, or a scalar key that
  // ends in "[]", which the reader takes for an array. An element array whose parent's line
  // holds it already gets its own line all the same.
  bool line(const std::string& key, const std::string& rest, std::size_t on_line, bool array,
            bool on_parent_line) {
    const std::string name = carriable(key);
    if (!array && ends_with_brackets(name)) return false;
    const bool changed = name != key;
    const auto taken = [&](const std::string& k) {
      return m_written.count(k) != 0 || (changed && m_tree.get_node(k) != nullptr);
    };
    if (!on_parent_line && taken(name)) return false;
    for (std::size_t i = 0; i < on_line; ++i)
      if (taken(name + "." + std::to_string(i))) return false;
    m_written.insert(name);
    for (std::size_t i = 0; i < on_line; ++i)
      m_written.insert(name + "." + std::to_string(i));

    // A key with nothing before its last dot (".x") stays at the top level whole.
    const std::size_t dot = name.rfind('.');
    const bool top = dot == std::string::npos || dot == 0;
    const std::string section = top ? std::string() : name.substr(0, dot);
    if (section != m_section) {
      m_out += section.empty() ? std::string("[]") : "[" + written(section, place::section) + "]";
      m_out += '\n';
      m_section = section;
    }
    m_out += written(top ? name : name.substr(dot + 1), place::key);
    m_out += array ? "[]=" : "=";
    m_out += rest;
    m_out += '\n';
    return true;
  }

  const config_tree& m_tree;
  std::string m_out;
  std::string m_section;                      // the section the reader is in
  std::unordered_set<std::string> m_done;     // tree keys handled
  std::unordered_set<std::string> m_written;  // keys the text stores
};

}  // namespace

std::string carriable(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  char previous = '\0';
  for (const char c : text) {
    if (c == '"' && previous != '\\') out += '\\';
    out += c;
    previous = c;
  }
  return out;
}

std::string write_config_text(const config_tree& tree) {
  return writer(tree).run();
}

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18
