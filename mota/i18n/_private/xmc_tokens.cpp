#include <mota/i18n/_private/xmc_tokens.hpp>

#include <mota/functor/member_function.hpp>

#include <limits>
#include <stdexcept>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

using token = parser::xml_token_stream::token;
using text_method = functor::member_function_t<xmc_token_buffer, void(const strings::ustring8&)>;
using pair_method = functor::member_function_t<xmc_token_buffer, void(const strings::ustring8&,
                                                                      const strings::ustring8&)>;

}  // namespace

xmc_token_buffer::xmc_token_buffer() {
  m_parser.set_attribute_handler(pair_method(this, &xmc_token_buffer::on_attribute));
  m_parser.set_element_start_handler(text_method(this, &xmc_token_buffer::on_element_start));
  m_parser.set_character_handler(text_method(this, &xmc_token_buffer::on_character));
  m_parser.set_comment_handler(text_method(this, &xmc_token_buffer::on_comment));
  m_parser.set_element_end_handler(text_method(this, &xmc_token_buffer::on_element_end));
  m_parser.set_space_handler(text_method(this, &xmc_token_buffer::on_space));
}

xmc_token_buffer::~xmc_token_buffer() = default;

parser::xml_parser::parse_error xmc_token_buffer::parse(const strings::ustring8& text) {
  // Token texts never take more than twice the input (an empty element's name is stored for
  // its start and again for its end), so 32-bit offsets hold for inputs below 2 GiB.
  if (text.size() >= std::numeric_limits<std::uint32_t>::max() / 2) {
    throw std::length_error("xmc_token_buffer: input too large");
  }
  // Most of the input ends up as token text; a token comes with every few bytes of a
  // message file. Reserving both avoids regrowing them while scanning.
  m_text.reserve(m_text.size() + text.size());
  m_tokens.reserve(m_tokens.size() + text.size() / 6);
  m_start_tag_closed = true;
  return m_parser.parse(text);
}

void xmc_token_buffer::add(xmc_token_kind kind, const std::string& text) {
  m_tokens.push_back(xmc_token{kind, static_cast<std::uint32_t>(text.size()),
                               static_cast<std::uint32_t>(m_text.size())});
  m_text.append(text);
}

void xmc_token_buffer::close_start_tag() {
  if (!m_start_tag_closed) {
    m_tokens.push_back(
        xmc_token{token::start_tag_end, 0, static_cast<std::uint32_t>(m_text.size())});
    m_start_tag_closed = true;
  }
}

void xmc_token_buffer::on_element_start(const strings::ustring8& name) {
  close_start_tag();
  add(token::element_start, name);
  m_start_tag_closed = false;
}

void xmc_token_buffer::on_attribute(const strings::ustring8& name, const strings::ustring8& value) {
  add(token::attribute_name, name);
  add(token::attribute_value, value);
}

void xmc_token_buffer::on_character(const strings::ustring8& text) {
  close_start_tag();
  add(token::character, text);
}

void xmc_token_buffer::on_space(const strings::ustring8& text) {
  close_start_tag();
  add(token::space, text);
}

void xmc_token_buffer::on_element_end(const strings::ustring8& name) {
  close_start_tag();
  add(token::element_end, name);
}

// Like the token stream, a comment leaves the start tag open: one right after a start tag
// comes before that tag's start_tag_end.
void xmc_token_buffer::on_comment(const strings::ustring8& text) {
  add(token::comment, text);
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
