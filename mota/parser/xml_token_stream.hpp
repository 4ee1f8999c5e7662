// The events of an xml_parser as a flat list of tokens in document order, for loaders that
// walk the document with list iterators, looking ahead and backing up as they please.
//
//   mota::parser::xml_token_stream tokens;
//   if (tokens.parse(text).type == xml_parser::parse_error::no_error)
//     for (const auto& t : tokens) use(t.type(), t.value());
#ifndef MOTA_PARSER_XML_TOKEN_STREAM_HPP
#define MOTA_PARSER_XML_TOKEN_STREAM_HPP

#include <mota/export.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/strings/ustring.hpp>

#include <cstddef>
#include <cstdint>
#include <list>

namespace MOTA_2_18 {
namespace parser {

// Runs an xml_parser over a document and records its events as a list of tokens.
class MOTA_API xml_token_stream {
 public:
  // A position in the UTF-8 text being parsed.
  using iterator = xml_parser::iterator;

  // One parser event: its kind and its text (a name, a value, character data, a comment).
  class MOTA_API token {
   public:
    // The event kinds; start_tag_end carries no text.
    enum token_type : std::int32_t {
      element_start = 0,
      element_end = 1,
      attribute_name = 2,
      attribute_value = 3,
      start_tag_end = 4,  // ends the attributes of the latest element_start
      comment = 5,
      space = 6,
      character = 7  // character data, CDATA content included
    };

    //@{
    // A token of `kind` holding `text` (copied or moved).
    token(token_type kind, const strings::ustring8& text);
    token(token_type kind, strings::ustring8&& text);
    //@}
    ~token();

    // The token's kind.
    token_type type() const { return m_type; }
    // The token's text.
    const strings::ustring8& value() const { return m_value; }

   private:
    token_type m_type;
    strings::ustring8 m_value;
  };

  // The tokens in document order.
  using token_list = std::list<token>;

  // Registers this stream's handlers with its parser.
  xml_token_stream();
  //@{
  // Copies the tokens and the parse state; the copy's parser reports to the copy.
  xml_token_stream(const xml_token_stream& other);
  xml_token_stream& operator=(const xml_token_stream& other);
  ~xml_token_stream();
  //@}

  //@{
  // Parses `text` and appends its tokens; returns the parser's result unchanged. Tokens made
  // before a failure stay in the list. A second call appends to the first call's tokens and
  // continues with the parser's open elements: one stream is meant for one document.
  xml_parser::parse_error parse(const strings::ustring8& text);
  xml_parser::parse_error parse(const iterator& first, const iterator& last);
  //@}

  //@{
  // The tokens in document order, and how many there are.
  token_list::iterator begin() { return m_tokens.begin(); }
  token_list::iterator end() { return m_tokens.end(); }
  token_list::const_iterator begin() const { return m_tokens.begin(); }
  token_list::const_iterator end() const { return m_tokens.end(); }
  std::size_t size() const { return m_tokens.size(); }
  //@}

  //@{
  // Handlers called by the parser.
  void on_element_start(const strings::ustring8& name);
  void on_element_end(const strings::ustring8& name);
  void on_attribute(const strings::ustring8& name, const strings::ustring8& value);
  void on_character(const strings::ustring8& text);
  void on_space(const strings::ustring8& text);
  void on_comment(const strings::ustring8& text);
  //@}

 private:
  void install_handlers();
  void close_start_tag();

  bool m_start_tag_closed;  // no element_start is waiting for its start_tag_end
  token_list m_tokens;
  xml_parser m_parser;
};

}  // namespace parser
}  // namespace MOTA_2_18

#endif  // MOTA_PARSER_XML_TOKEN_STREAM_HPP
