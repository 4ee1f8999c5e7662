// Not part of the public interface.
//
// A read position in an xmc_token_buffer, with the steps every part of the XMC reader takes:
// looking at the current token, passing over text between elements, and reading the
// attributes of a start tag.
#ifndef MOTA_I18N_PRIVATE_XMC_CURSOR_HPP
#define MOTA_I18N_PRIVATE_XMC_CURSOR_HPP

#include <mota/i18n/_private/xmc_file_loader.hpp>
#include <mota/i18n/_private/xmc_tokens.hpp>

#include <string_view>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

class xmc_cursor {
 public:
  using token = parser::xml_token_stream::token;
  using load_error = xmc_file_loader::load_error;

  explicit xmc_cursor(const xmc_token_buffer& tokens)
      : m_tokens(tokens),
        m_pos(tokens.tokens().data()),
        m_end(tokens.tokens().data() + tokens.tokens().size()) {}

  bool at_end() const { return m_pos == m_end; }
  // Kind and text of the current token; not at the end.
  xmc_token_kind kind() const { return m_pos->kind; }
  std::string_view value() const { return m_tokens.text(*m_pos); }
  void next() { ++m_pos; }

  // Whether the current token is of kind `k` with the text `name`.
  bool is(xmc_token_kind k, std::string_view name) const {
    return !at_end() && kind() == k && value() == name;
  }

  // Passes over comments, white space and character data.
  void skip_ignorable() {
    while (!at_end() &&
           (kind() == token::comment || kind() == token::space || kind() == token::character)) {
      next();
    }
  }

  // The error for a token list that stops where more was expected.
  static load_error unexpected_end() {
    return load_error(xmc_file_loader::unexpected_parse_error, "Unexpected end of tokens.");
  }

  // Reads the attributes of the start tag just entered, calling fn(name, value) for each, up
  // to and including the end of the start tag; comments among them are passed over. Returns
  // false when the start tag does not end properly.
  template <class Fn>
  bool read_attributes(Fn&& fn) {
    for (;;) {
      if (at_end()) return false;
      switch (kind()) {
        case token::comment:
          next();
          break;
        case token::attribute_name: {
          const std::string_view name = value();
          next();
          if (!at_end() && kind() == token::attribute_value) {
            const std::string_view text = value();
            next();
            fn(name, text);
          } else {
            fn(name, std::string_view());
          }
          break;
        }
        case token::start_tag_end:
          next();
          return true;
        default:
          return false;
      }
    }
  }

 private:
  const xmc_token_buffer& m_tokens;
  const xmc_token* m_pos;
  const xmc_token* m_end;
};

// A detail text for a load error.
inline strings::ustring8 detail(std::string_view text) {
  return strings::ustring8(text.data(), text.size());
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_CURSOR_HPP
