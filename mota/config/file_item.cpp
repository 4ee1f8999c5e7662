#include <mota/config/_private/file_writer.hpp>
#include <mota/config/_private/lexer.hpp>
#include <mota/config/file_item.hpp>
#include <mota/exceptions/exception.hpp>
#include <mota/system/file_utility.hpp>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace MOTA_2_18 {
namespace config {

namespace {

using T = config_token;

// Reads tokens as spans of the text: the parser appends token texts straight from the source.
struct lexer {
  const char* data;
  std::uint32_t size;
  unsigned pos = 0;
  _private::token_span span{};

  explicit lexer(const std::string& text)
      : data(text.data()),
        size(text.size() > UINT32_MAX ? UINT32_MAX : static_cast<std::uint32_t>(text.size())) {}

  int next() { return _private::scan_token(data, size, pos, span); }

  // Appends the current token's text to `out`.
  void append_text(std::string& out) const { out.append(data + span.text_start, span.text_size); }

  // Consumes a comment up to the line feed (left for the caller) or the end.
  int skip_comment() {
    for (;;) {
      const int kind = next();
      if (kind == T::T_END) return kind;
      if (kind == T::T_NEWLINE) {
        pos = span.start;
        return kind;
      }
    }
  }
};

bool is_blank(int kind) {
  return kind == T::T_SPACE || kind == T::T_TABCHAR || kind == T::T_NEWLINE;
}

bool is_comment(int kind) {
  return kind == T::T_POUND || kind == T::T_FSFS;
}

bool has_extension(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
  return path.find('.', name) != std::string::npos;
}

}  // namespace

file_item::file_item(const strings::ustring8& filename)
    : base_config_item("standard file"), m_given(filename), m_filename(filename) {}
file_item::file_item(const file_item& other) = default;
file_item::~file_item() = default;

strings::ustring8 file_item::choose_filename(const item_list& items) const {
  for (const item_pointer& item : items) {
    if (!item || item.get() == this) continue;
    const node_t* node = item->get_value("cfg_file");
    if (node == nullptr || config_tree::is_array(node->first)) continue;
    const strings::ustring8 name = node->second.as_string();
    if (!name.empty()) return name;
  }
  if (!m_given.empty()) return has_extension(m_given) ? m_given : m_given + ".cfg";
  for (const item_pointer& item : items) {
    if (!item || item.get() == this) continue;
    const node_t* node = item->get_value("application.name.raw");
    if (node == nullptr || config_tree::is_array(node->first)) continue;
    const strings::ustring8 raw = node->second.as_string();
    if (!raw.empty()) return raw + ".cfg";
  }
  return strings::ustring8();
}

void file_item::load(item_list& items) {
  m_filename = choose_filename(items);
  load();
}

void file_item::load() {
  load_file();
}

bool file_item::load_file() {
  m_tree.clear();
  if (m_filename.empty()) return false;
  strings::ustring8 text;
  try {
    if (system::load_file(m_filename, text) != 0) return false;
  } catch (const exceptions::exception&) {
    return false;  // too large to hold: treated like an unreadable file
  }
  parse(text);
  return true;
}

int file_item::parse_comment(const strings::ustring8& text, unsigned& position, config_token& tok) {
  const std::uint32_t size =
      text.size() > UINT32_MAX ? UINT32_MAX : static_cast<std::uint32_t>(text.size());
  // The caller's token receives the last token read, as a fresh record would hold it.
  config_token read;
  int kind;
  for (;;) {
    kind = _private::lex_token(text.data(), size, position, read);
    if (kind == T::T_END) break;
    if (kind == T::T_NEWLINE) {
      position = read.start;
      break;
    }
  }
  tok = read;
  return kind;
}

void file_item::parse(const strings::ustring8& text) {
  lexer lex(text);
  // A key takes some 24 bytes of text or more (name, "=", value, line end, comments and
  // blank lines between), so sizing the tree once for that many avoids growing it on the way.
  // Past a few megabytes the tree grows as it fills: a huge text of long lines must not cost
  // room for keys it does not hold.
  constexpr std::size_t bytes_per_key = 24;
  constexpr std::size_t most_reserved = std::size_t(1) << 18;
  m_tree.reserve(m_tree.size() + std::min(text.size() / bytes_per_key, most_reserved));
  std::string prefix, key, full_key;
  strings::ustring8 value, element;
  // Array elements go to the tree directly, unnamed, as set_array with no indexes stores them.
  std::vector<std::pair<std::string, types::variant>> elements;
  for (;;) {
    int kind = lex.next();
    if (kind == T::T_END) return;
    if (is_blank(kind)) continue;
    if (is_comment(kind)) {
      lex.skip_comment();
      continue;
    }

    if (kind == T::T_SBRACKET) {
      std::string section;
      for (;;) {
        kind = lex.next();
        if (kind == T::T_END || kind == T::T_EBRACKET) break;
        if (!is_blank(kind)) lex.append_text(section);
      }
      prefix = section.empty() ? std::string() : section + ".";
      if (kind == T::T_END) return;
      continue;
    }

    // A key: every token text up to "=", blanks and line ends contributing nothing.
    key.clear();
    while (kind != T::T_EQ) {
      if (!is_blank(kind)) lex.append_text(key);
      kind = lex.next();
      if (kind == T::T_END) return;  // a key without "=" stores nothing
    }

    const bool array = key.size() >= 2 && key.compare(key.size() - 2, 2, "[]") == 0;
    if (!array) {
      value.clear();
      for (;;) {
        kind = lex.next();
        if (kind == T::T_END || kind == T::T_NEWLINE) break;
        if (kind == T::T_SPACE || kind == T::T_TABCHAR) continue;
        if (is_comment(kind)) {
          lex.skip_comment();
          continue;
        }
        lex.append_text(value);
      }
      if (!value.empty() && !(prefix.empty() && key.empty())) {
        full_key.assign(prefix).append(key);
        m_tree.set_node(full_key, types::variant(value), 0u);
      }
      continue;
    }

    // An array: elements separated by ",", ended by a line end that follows element text.
    key.resize(key.size() - 2);
    elements.clear();
    element.clear();
    bool after_text = false;
    auto flush = [&] {
      if (!element.empty()) elements.emplace_back(std::string(), types::variant(element));
      element.clear();
    };
    for (;;) {
      kind = lex.next();
      if (kind == T::T_END) break;
      if (kind == T::T_NEWLINE) {
        if (after_text) break;
        continue;
      }
      if (kind == T::T_SPACE || kind == T::T_TABCHAR) continue;
      if (is_comment(kind)) {
        lex.skip_comment();
        continue;
      }
      if (kind == T::T_NON_ALPHA_NUM && lex.data[lex.span.start] == ',') {
        flush();
        after_text = false;
        continue;
      }
      lex.append_text(element);
      after_text = true;
    }
    flush();
    if (!(prefix.empty() && key.empty())) {
      full_key.assign(prefix).append(key);
      m_tree.set_array(full_key, elements);
    }
  }
}

void file_item::save(item_list& items) {
  m_filename = choose_filename(items);
  save();
}

void file_item::save() {
  save_file();
}

bool file_item::save_file() const {
  if (m_filename.empty()) return false;

  std::string out = _private::write_config_text(m_tree);
  return system::store_file(m_filename, strings::ustring8(std::move(out))) == 0;
}

void file_item::unload() {
  m_tree.clear();
}

file_item* file_item::clone() const {
  return new file_item(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
