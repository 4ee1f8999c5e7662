// Not part of the public interface.
//
// The loader's own compact form of an XML document's token list: the same tokens in the same
// order as parser::xml_token_stream makes them (kinds, texts, the start_tag_end rule, the
// comment before start_tag_end), but held as one array of small records whose texts lie end
// to end in one buffer, instead of one list node and one string per token.
//
//   xmc_token_buffer tokens;
//   if (tokens.parse(content).type == parser::xml_parser::parse_error::no_error)
//     for (const xmc_token& t : tokens.tokens()) use(t.kind, tokens.text(t));
#ifndef MOTA_I18N_PRIVATE_XMC_TOKENS_HPP
#define MOTA_I18N_PRIVATE_XMC_TOKENS_HPP

#include <mota/export.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/parser/xml_token_stream.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

using xmc_token_kind = parser::xml_token_stream::token::token_type;

// One token: its kind and where its text lies in the buffer's text store.
struct xmc_token {
  xmc_token_kind kind;
  std::uint32_t size;
  std::uint32_t offset;
};

class xmc_token_buffer {
 public:
  xmc_token_buffer();
  ~xmc_token_buffer();
  xmc_token_buffer(const xmc_token_buffer&) = delete;
  xmc_token_buffer& operator=(const xmc_token_buffer&) = delete;

  // Scans `text` and records its tokens; returns the scanner's result unchanged. Tokens made
  // before a failure stay. Throws std::length_error for a text of 2 GiB or more, whose token
  // texts could not be placed.
  parser::xml_parser::parse_error parse(const strings::ustring8& text);

  const std::vector<xmc_token>& tokens() const { return m_tokens; }
  std::string_view text(const xmc_token& token) const {
    return std::string_view(m_text.data() + token.offset, token.size);
  }

  // Scanner events.
  void on_element_start(const strings::ustring8& name);
  void on_element_end(const strings::ustring8& name);
  void on_attribute(const strings::ustring8& name, const strings::ustring8& value);
  void on_character(const strings::ustring8& text);
  void on_space(const strings::ustring8& text);
  void on_comment(const strings::ustring8& text);

 private:
  void add(xmc_token_kind kind, const std::string& text);
  void close_start_tag();

  bool m_start_tag_closed = true;
  std::vector<xmc_token> m_tokens;
  // The texts of all tokens, end to end.
  std::string m_text;
  parser::xml_parser m_parser;
};

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_TOKENS_HPP
