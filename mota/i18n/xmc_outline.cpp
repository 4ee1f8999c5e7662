#include <mota/i18n/xmc_outline.hpp>

#include <mota/i18n/_private/type_keywords.hpp>
#include <mota/parser/xml_token_stream.hpp>

#include <cctype>
#include <string>

namespace MOTA_2_18 {
namespace i18n {
namespace {

using token = parser::xml_token_stream::token;

void append_without_space(strings::ustring8& key, const std::string& text) {
  for (const char c : text) {
    if (!std::isspace(static_cast<unsigned char>(c))) key += c;
  }
}

// Walks the token list keeping the chain of open elements, so that each element is taken only
// where the loader would take it.
class outline_reader {
 public:
  explicit outline_reader(xmc_outline& outline) : m_outline(outline) {}

  void read(const parser::xml_token_stream& tokens) {
    for (const token& t : tokens) {
      switch (t.type()) {
        case token::element_start:
          start(t.value());
          break;
        case token::element_end:
          if (!m_open.empty()) m_open.pop_back();
          break;
        case token::attribute_name:
          m_attribute = t.value();
          break;
        case token::attribute_value:
          attribute(t.value());
          break;
        case token::character:
          if (parent() == message) append_key(t.value());
          break;
        default:
          break;
      }
    }
  }

 private:
  enum place { other, root, catalog, include, message, argument };

  place parent() const { return m_open.empty() ? other : m_open.back(); }

  void start(const strings::ustring8& name) {
    const place up = parent();
    place here = other;
    if (m_open.empty() && name == "xmc") {
      here = root;
    } else if (up == root && name == "catalog") {
      here = catalog;
      m_outline.sections.emplace_back();
    } else if (up == root && name == "include") {
      here = include;
    } else if (up == catalog && name == "msg") {
      here = message;
      m_outline.sections.back().messages.emplace_back();
    } else if (up == message && (name == "arg" || name == "argument")) {
      here = argument;
      m_outline.sections.back().messages.back().arguments.emplace_back();
    }
    // Below an element the loader refuses, nothing counts.
    if (up == other && !m_open.empty()) here = other;
    m_open.push_back(here);
  }

  void attribute(const strings::ustring8& value) {
    switch (parent()) {
      case catalog: {
        xmc_outline::section& s = m_outline.sections.back();
        if (m_attribute == "name") s.catalog = value;
        if (m_attribute == "lang") {
          s.lang = value;
          s.has_lang = true;
        }
        break;
      }
      case include:
        if (m_attribute == "file") m_outline.includes.push_back(value);
        break;
      case message: {
        xmc_outline::message& m = m_outline.sections.back().messages.back();
        if (m_attribute == "name") {
          m.name = value;
          m.named = true;
        }
        break;
      }
      case argument: {
        xmc_outline::argument& a = m_outline.sections.back().messages.back().arguments.back();
        if (m_attribute == "name") {
          a.name = value;
          append_key(value);
        }
        if (m_attribute == "type") a.type = value;
        break;
      }
      default:
        break;
    }
  }

  void append_key(const strings::ustring8& text) {
    append_without_space(m_outline.sections.back().messages.back().key, text);
  }

  xmc_outline& m_outline;
  std::vector<place> m_open;
  strings::ustring8 m_attribute;
};

}  // namespace

xmc_outline read_xmc_outline(const strings::ustring8& content) {
  xmc_outline outline;
  parser::xml_token_stream tokens;
  outline.well_formed = tokens.parse(content).type == parser::xml_parser::parse_error::no_error;
  outline_reader(outline).read(tokens);
  return outline;
}

strings::ustring8 message_key(const message_t& message) {
  strings::ustring8 key;
  for (const message_item& item : message)
    append_without_space(key, item.type() == message_item::text ? item.data() : item.name());
  return key;
}

bool is_type_keyword(const strings::ustring8& word) {
  message_item::type_t kind = message_item::string;
  return _private::find_type_keyword(word, kind);
}

message_item::type_t kind_of_keyword(const strings::ustring8& word) {
  message_item::type_t kind = message_item::string;
  _private::find_type_keyword(word, kind);
  return kind;
}

bool always_renders_invalid(message_item::type_t kind) {
  return kind == message_item::number || kind == message_item::time || kind == message_item::date ||
         kind < message_item::text || kind > message_item::duration;
}

}  // namespace i18n
}  // namespace MOTA_2_18
