// A small single-pass reader for the XML subset the library's own data files use. It walks
// UTF-8 text once and reports element starts and ends, attributes, character data, white
// space and comments to caller-supplied callables; it builds no tree. Errors come back as a
// `parse_error` value, never as an exception.
//
//   mota::parser::xml_parser reader;
//   reader.set_element_start_handler(member_function_t<me, void(const ustring8&)>(this, &me::on));
//   if (reader.parse(text).type != xml_parser::parse_error::no_error) { ... }
#ifndef MOTA_PARSER_XML_PARSER_HPP
#define MOTA_PARSER_XML_PARSER_HPP

#include <mota/export.hpp>
#include <mota/functor/function_type_interface.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <stack>
#include <string>
#include <vector>

namespace MOTA_2_18 {
// The XML reader for the library's data files, as callbacks or as a token list.
namespace parser {

// The event-driven reader: parse() walks the text once and calls the installed handlers.
class MOTA_API xml_parser {
 public:
  // A position in the UTF-8 text being parsed.
  using iterator = std::string::const_iterator;
  // Callable receiving one text: element start and end, character data, white space, comment.
  using text_handler = functor::function_type_interface<void(const strings::ustring8&)>;
  // Callable receiving an attribute's name and its decoded value.
  using attribute_handler =
      functor::function_type_interface<void(const strings::ustring8&, const strings::ustring8&)>;

  // Outcome of a parse; also thrown between the scanning routines and caught by do_parse.
  class MOTA_API parse_error {
   public:
    // The kind of fault; no_error for a text read to its end.
    enum error_type : std::int32_t {
      no_error = 0,
      unexpected_eof = 1,
      mismatched_end_element = 2,
      no_root_element = 3,
      invalid_header = 4,
      unexpected_character = 5,
      missing_quote = 6,
      unknown_entity = 7,
      missing_equals = 8,
      attribute_redefined = 9,
      data_after_root = 10
    };

    parse_error();
    //@{
    // A fault of `kind` found at line `at_line` about `detail`; the copy forms copy all three
    // fields.
    parse_error(error_type kind, std::uint32_t at_line, const strings::ustring8& detail);
    parse_error(const parse_error& other);
    parse_error& operator=(const parse_error& other);
    //@}
    ~parse_error();

    // What went wrong, or no_error.
    error_type type;
    // Line counter when the error was found: newlines consumed as white space, from 0.
    std::uint32_t line;
    // An element or attribute name, the offending character, or empty.
    strings::ustring8 text;
  };

  xml_parser();
  //@{
  // Copies the parse state and clones the installed handlers.
  xml_parser(const xml_parser& other);
  xml_parser& operator=(const xml_parser& other);
  ~xml_parser();
  //@}

  //@{
  // Each setter releases the callable held in that slot and stores a clone of `handler`;
  // the pointer forms with nullptr empty the slot, so that event is dropped.
  void set_element_start_handler(const text_handler& handler);
  void set_element_start_handler(const text_handler* handler);
  void set_element_end_handler(const text_handler& handler);
  void set_element_end_handler(const text_handler* handler);
  void set_attribute_handler(const attribute_handler& handler);
  void set_attribute_handler(const attribute_handler* handler);
  void set_character_handler(const text_handler& handler);
  void set_character_handler(const text_handler* handler);
  void set_space_handler(const text_handler& handler);
  void set_space_handler(const text_handler* handler);
  void set_comment_handler(const text_handler& handler);
  void set_comment_handler(const text_handler* handler);
  //@}

  // Parses all bytes of `text`. Returns the error found (type no_error on success); events
  // reported before a failure stand. Exceptions thrown by a handler propagate unchanged.
  parse_error parse(const strings::ustring8& text);
  // The same over [first, last).
  parse_error parse(iterator first, iterator last);

 protected:
  // The scanner: reads the header, then the body; `pos` is advanced as input is consumed.
  // Resets the line counter and the in-tag flag, but keeps open elements from earlier calls.
  parse_error do_parse(iterator& pos, iterator& end);

  // The routines below start at the first byte to read and leave `pos` at the last byte they
  // consumed; they throw parse_error on bad input.
  // A name: a C-locale letter, then letters, digits and "_". unexpected_character otherwise
  // (with empty text when `pos` is already at `end`).
  strings::ustring8 parse_name(iterator& pos, const iterator& end);
  // A quoted value with entities decoded; `pos` ends on the closing quote, or at `end` when
  // the input stops first. missing_quote when it does not open with ' or ".
  strings::ustring8 parse_attrib_value(iterator& pos, const iterator& end);
  // One reference starting at "&", decoded to one byte; `pos` ends on the ";". A first letter
  // other than a, g, l, n, q or "#" is unknown_entity; any other mismatch is
  // unexpected_character naming the byte (empty text at the end of the input).
  strings::ustring8 parse_character(iterator& pos, const iterator& end);
  // A run of white space, counting its line feeds; `pos` ends on the first other byte.
  strings::ustring8 parse_whitespace(iterator& pos, const iterator& end);
  // True for tab, line feed, carriage return and space; `pos` must not be at the end.
  bool is_white_space(const iterator& pos) const;

 private:
  // The scanner proper works on raw byte pointers; each routine takes the cursor by reference.
  MOTA_HIDDEN void scan_name(const char*& p, const char* e, strings::ustring8& out);
  MOTA_HIDDEN void scan_attrib_value(const char*& p, const char* e, strings::ustring8& out);
  MOTA_HIDDEN void scan_character(const char*& p, const char* e, strings::ustring8& out);
  MOTA_HIDDEN const char* skip_whitespace(const char*& p, const char* e);
  MOTA_HIDDEN void scan_body(const char*& p, const char* e);
  MOTA_HIDDEN void scan_text(const char*& p, const char* e);
  MOTA_HIDDEN void scan_attribute(const char*& p, const char* e);
  MOTA_HIDDEN void scan_markup(const char*& p, const char* e, bool& root_seen);
  MOTA_HIDDEN void scan_end_tag(const char*& p, const char* e);
  MOTA_HIDDEN void scan_close(const char*& p, const char* e);
  MOTA_HIDDEN bool seen_attribute(const strings::ustring8& name);
  [[noreturn]] MOTA_HIDDEN void fail(parse_error::error_type kind,
                                     const strings::ustring8& detail) const;
  [[noreturn]] MOTA_HIDDEN void fail_at(const char* p, const char* e) const;

  std::unique_ptr<text_handler> m_on_element_start;
  std::unique_ptr<text_handler> m_on_element_end;
  std::unique_ptr<attribute_handler> m_on_attribute;
  std::unique_ptr<text_handler> m_on_character;
  std::unique_ptr<text_handler> m_on_space;
  std::unique_ptr<text_handler> m_on_comment;
  std::stack<strings::ustring8, std::deque<strings::ustring8>> m_elements;
  std::set<strings::ustring8> m_attribute_names;
  std::uint32_t m_line;
  bool m_in_tag;

  // Buffers reused from event to event so that steady-state parsing does not allocate.
  strings::ustring8 m_name;
  strings::ustring8 m_value;
  strings::ustring8 m_text;
  // The first few attribute names of the current start tag are checked here by a linear
  // look; the set above takes over when a tag has more.
  std::vector<strings::ustring8> m_few_names;
  std::size_t m_few_count;
};

}  // namespace parser
}  // namespace MOTA_2_18

#endif  // MOTA_PARSER_XML_PARSER_HPP
