#include <mota/i18n/_private/xmc_message_reader.hpp>

#include <mota/i18n/_private/type_keywords.hpp>

#include <iterator>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

using token = xmc_cursor::token;
using load_error = xmc_cursor::load_error;

// Format attributes an argument element may carry besides "name" and "type".
bool is_format_key(std::string_view key) {
  static constexpr std::string_view kKeys[] = {"precision", "prec",      "fieldsize", "spaced_dec",
                                               "hex",       "oct",       "bin",       "target_unit",
                                               "base_unit", "short_form"};
  for (std::string_view k : kKeys) {
    if (key == k) return true;
  }
  return false;
}

// The item kind of a "type" keyword; unknown words give string.
message_item::type_t type_from_keyword(std::string_view keyword) {
  message_item::type_t kind = message_item::string;
  find_type_keyword(keyword, kind);
  return kind;
}

}  // namespace

message_t xmc_message_reader::read(xmc_cursor& at) {
  at.next();
  m_name.clear();
  m_meta.clear();
  m_piece.clear();
  m_items.clear();
  const bool closed = at.read_attributes([this](std::string_view key, std::string_view text) {
    if (key == "name") {
      m_name.assign(text.data(), text.size());
    } else if (key == "meta") {
      m_meta.assign(text.data(), text.size());
    } else {
      throw load_error(xmc_file_loader::invalid_attribute, detail(key));
    }
  });
  if (!closed) throw load_error(xmc_file_loader::msg_end_tag_missing, m_name);

  for (;;) {
    if (at.at_end()) throw xmc_cursor::unexpected_end();
    switch (at.kind()) {
      case token::character:
        m_piece.append(at.value().data(), at.value().size());
        at.next();
        break;
      case token::space:
        // One blank per run: none at the very start, none after a blank; right after an
        // argument the (empty) piece still takes one.
        if ((!m_piece.empty() || !m_items.empty()) && (m_piece.empty() || m_piece.back() != ' ')) {
          m_piece.push_back(' ');
        }
        at.next();
        break;
      case token::comment:
        at.next();
        break;
      case token::element_start:
        if (at.value() == "br") {
          read_br(at);
          m_piece.push_back('\n');
        } else if (at.value() == "arg" || at.value() == "argument") {
          if (!m_piece.empty()) {
            m_items.emplace_back(m_piece);
            m_piece.clear();
          }
          // Only an argument's errors name the message: the message's own errors (end tag,
          // br, foreign elements) carry the catalog line alone.
          try {
            read_argument(at);
          } catch (load_error& e) {
            e.append_error_stack(load_error::in_message, m_name);
            throw;
          }
        } else {
          throw load_error(xmc_file_loader::invalid_element, detail(at.value()));
        }
        break;
      case token::element_end: {
        if (at.value() != "msg") throw load_error(xmc_file_loader::msg_end_tag_missing, m_name);
        at.next();
        if (!m_piece.empty()) m_items.emplace_back(m_piece);
        // One allocation of the exact size for the items; the working list keeps its room.
        message_t::items_type items(std::make_move_iterator(m_items.begin()),
                                    std::make_move_iterator(m_items.end()));
        m_items.clear();
        return message_t(m_name, std::move(items), m_meta);
      }
      default:
        throw load_error(xmc_file_loader::msg_end_tag_missing, m_name);
    }
  }
}

void xmc_message_reader::read_br(xmc_cursor& at) {
  at.next();
  while (!at.at_end() && at.kind() == token::comment)
    at.next();
  if (at.at_end() || at.kind() != token::start_tag_end) {
    throw load_error(xmc_file_loader::br_end_tag_missing, strings::ustring8());
  }
  at.next();
  if (!at.is(token::element_end, "br")) {
    throw load_error(xmc_file_loader::br_end_tag_missing, strings::ustring8());
  }
  at.next();
}

void xmc_message_reader::read_argument(xmc_cursor& at) {
  const std::string_view tag = at.value() == "arg" ? "arg" : "argument";
  at.next();
  m_data.clear();
  message_item::type_t type = message_item::string;
  const bool closed = at.read_attributes([&](std::string_view key, std::string_view text) {
    if (key == "name") {
      // Replaces the whole text: format attributes written before "name" are lost, which is
      // intended.
      m_data.assign(text.data(), text.size());
    } else if (key == "type") {
      type = type_from_keyword(text);
    } else if (is_format_key(key)) {
      m_data.push_back(message_item::separator);
      m_data.append(key.data(), key.size());
      m_data.push_back(message_item::separator);
      m_data.append(text.data(), text.size());
    } else {
      throw load_error(xmc_file_loader::invalid_attribute, detail(key));
    }
  });
  m_items.emplace_back(m_data, type);
  if (!closed || !at.is(token::element_end, tag)) {
    throw load_error(xmc_file_loader::arg_end_tag_missing, m_items.back().name());
  }
  at.next();
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
