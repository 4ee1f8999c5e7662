#include <mota/parser/xml_token_stream.hpp>

#include <mota/functor/member_function.hpp>

#include <utility>

namespace MOTA_2_18 {
namespace parser {

namespace {

using text_method = functor::member_function_t<xml_token_stream, void(const strings::ustring8&)>;
using pair_method = functor::member_function_t<xml_token_stream, void(const strings::ustring8&,
                                                                      const strings::ustring8&)>;

}  // namespace

xml_token_stream::token::token(token_type kind, const strings::ustring8& text)
    : m_type(kind), m_value(text) {}

xml_token_stream::token::token(token_type kind, strings::ustring8&& text)
    : m_type(kind), m_value(std::move(text)) {}

xml_token_stream::token::~token() = default;

xml_token_stream::xml_token_stream() : m_start_tag_closed(true) {
  install_handlers();
}

xml_token_stream::xml_token_stream(const xml_token_stream& other)
    : m_start_tag_closed(other.m_start_tag_closed),
      m_tokens(other.m_tokens),
      m_parser(other.m_parser) {
  install_handlers();
}

xml_token_stream& xml_token_stream::operator=(const xml_token_stream& other) {
  if (this != &other) {
    m_start_tag_closed = other.m_start_tag_closed;
    m_tokens = other.m_tokens;
    m_parser = other.m_parser;
    install_handlers();
  }
  return *this;
}

xml_token_stream::~xml_token_stream() = default;

void xml_token_stream::install_handlers() {
  m_parser.set_attribute_handler(pair_method(this, &xml_token_stream::on_attribute));
  m_parser.set_element_start_handler(text_method(this, &xml_token_stream::on_element_start));
  m_parser.set_character_handler(text_method(this, &xml_token_stream::on_character));
  m_parser.set_comment_handler(text_method(this, &xml_token_stream::on_comment));
  m_parser.set_element_end_handler(text_method(this, &xml_token_stream::on_element_end));
  m_parser.set_space_handler(text_method(this, &xml_token_stream::on_space));
}

xml_parser::parse_error xml_token_stream::parse(const strings::ustring8& text) {
  m_start_tag_closed = true;
  return m_parser.parse(text);
}

xml_parser::parse_error xml_token_stream::parse(const iterator& first, const iterator& last) {
  m_start_tag_closed = true;
  return m_parser.parse(first, last);
}

void xml_token_stream::close_start_tag() {
  if (!m_start_tag_closed) {
    m_tokens.emplace_back(token::start_tag_end, strings::ustring8());
    m_start_tag_closed = true;
  }
}

void xml_token_stream::on_element_start(const strings::ustring8& name) {
  close_start_tag();
  m_tokens.emplace_back(token::element_start, name);
  m_start_tag_closed = false;
}

void xml_token_stream::on_attribute(const strings::ustring8& name, const strings::ustring8& value) {
  m_tokens.emplace_back(token::attribute_name, name);
  m_tokens.emplace_back(token::attribute_value, value);
}

void xml_token_stream::on_character(const strings::ustring8& text) {
  close_start_tag();
  m_tokens.emplace_back(token::character, text);
}

void xml_token_stream::on_space(const strings::ustring8& text) {
  close_start_tag();
  m_tokens.emplace_back(token::space, text);
}

void xml_token_stream::on_element_end(const strings::ustring8& name) {
  close_start_tag();
  m_tokens.emplace_back(token::element_end, name);
}

// A comment leaves the start-tag state alone, so one right after a start tag comes before
// that tag's start_tag_end token; intended.
void xml_token_stream::on_comment(const strings::ustring8& text) {
  m_tokens.emplace_back(token::comment, text);
}

}  // namespace parser
}  // namespace MOTA_2_18
