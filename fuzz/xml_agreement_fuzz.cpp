// The XML scanner and the token stream over the same bytes must tell the same story: the
// events the scanner reports, turned into tokens by the stream's rules (a start_tag_end before
// the first non-attribute, non-comment event after an element start), are exactly the stream's
// tokens, and both return the same error kind, line and detail. A scanner without handlers
// returns that same error too.
//
// Lines: the counter starts at 0 and counts only the line feeds that the white-space scanner
// consumes, so an error's line is at least the number of line feeds in the white space reported
// before it (except for the line 0 of an unclosed element at the end of the input) and at most
// the number of line feeds in the input less those inside the comments reported (comment text
// is never white space). The detail text fits the error kind.
#include "xml_guarded_input.hpp"

#include <mota/functor/member_function.hpp>
#include <mota/parser/xml_parser.hpp>
#include <mota/parser/xml_token_stream.hpp>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using mota::parser::xml_parser;
using mota::parser::xml_token_stream;
using mota::strings::ustring8;
using error = xml_parser::parse_error;
using token = xml_token_stream::token;

void check(bool condition) {
  if (!condition) std::abort();
}

struct event {
  enum kind_t { start, end, attribute, character, space, comment } kind;
  ustring8 text;
  ustring8 value;
};

struct recorder {
  std::vector<event> events;
  void start(const ustring8& name) { events.push_back({event::start, name, {}}); }
  void end(const ustring8& name) { events.push_back({event::end, name, {}}); }
  void attribute(const ustring8& n, const ustring8& v) {
    events.push_back({event::attribute, n, v});
  }
  void character(const ustring8& t) { events.push_back({event::character, t, {}}); }
  void space(const ustring8& t) { events.push_back({event::space, t, {}}); }
  void comment(const ustring8& t) { events.push_back({event::comment, t, {}}); }
};

struct expected_token {
  token::token_type type;
  ustring8 value;
};

// The stream's emission rules applied to the scanner's events.
std::vector<expected_token> tokens_of(const std::vector<event>& events) {
  std::vector<expected_token> out;
  bool closed = true;
  auto close = [&] {
    if (!closed) out.push_back({token::start_tag_end, ustring8()});
    closed = true;
  };
  for (const event& e : events) {
    switch (e.kind) {
      case event::start:
        close();
        out.push_back({token::element_start, e.text});
        closed = false;
        break;
      case event::attribute:
        out.push_back({token::attribute_name, e.text});
        out.push_back({token::attribute_value, e.value});
        break;
      case event::comment:
        out.push_back({token::comment, e.text});
        break;
      case event::character:
        close();
        out.push_back({token::character, e.text});
        break;
      case event::space:
        close();
        out.push_back({token::space, e.text});
        break;
      case event::end:
        close();
        out.push_back({token::element_end, e.text});
        break;
    }
  }
  return out;
}

bool is_name(const ustring8& s) {
  if (s.empty() || !std::isalpha(static_cast<unsigned char>(s[0]))) return false;
  return std::all_of(s.begin() + 1, s.end(), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
  });
}

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::uint32_t line_feeds(const ustring8& s) {
  return static_cast<std::uint32_t>(std::count(s.begin(), s.end(), '\n'));
}

void check_events(const std::vector<event>& events) {
  for (const event& e : events) {
    switch (e.kind) {
      case event::start:
      case event::end:
      case event::attribute:
        check(is_name(e.text));
        break;
      case event::space:
        check(!e.text.empty() && std::all_of(e.text.begin(), e.text.end(), is_blank));
        break;
      case event::comment:
        check(e.text.find("-->") == ustring8::npos);
        break;
      case event::character:
        break;
    }
  }
}

void check_error(const error& e, const std::vector<event>& events, std::uint32_t input_feeds) {
  switch (e.type) {
    case error::no_error:
      check(e.line == 0 && e.text.empty());
      break;
    case error::invalid_header:
      check(e.line == 0 && e.text.empty() && events.empty());
      break;
    case error::no_root_element:
      check(e.text.empty() && events.empty());
      break;
    case error::unexpected_eof:
    case error::unknown_entity:
    case error::data_after_root:
      check(e.text.empty());
      break;
    case error::unexpected_character:
      check(e.text.size() <= 1);
      break;
    case error::missing_quote:
    case error::mismatched_end_element:
      check(e.text.empty() || is_name(e.text));
      break;
    case error::missing_equals:
    case error::attribute_redefined:
      check(is_name(e.text));
      break;
    default:
      std::abort();
  }
  std::uint32_t reported_feeds = 0;
  std::uint32_t comment_feeds = 0;
  for (const event& ev : events) {
    if (ev.kind == event::space) reported_feeds += line_feeds(ev.text);
    if (ev.kind == event::comment) comment_feeds += line_feeds(ev.text);
  }
  check(comment_feeds <= input_feeds);
  check(e.line <= input_feeds - comment_feeds);
  const bool line_zero_by_rule =
      e.type == error::no_error || (e.type == error::unexpected_eof && e.line == 0);
  if (!line_zero_by_rule) check(e.line >= reported_feeds);
}

bool same(const error& a, const error& b) {
  return a.type == b.type && a.line == b.line && a.text == b.text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using one = mota::functor::member_function_t<recorder, void(const ustring8&)>;
  using two = mota::functor::member_function_t<recorder, void(const ustring8&, const ustring8&)>;
  const guarded_input input(data, size);
  const auto input_feeds = static_cast<std::uint32_t>(std::count(data, data + size, '\n'));

  recorder r;
  xml_parser parser;
  parser.set_element_start_handler(one(&r, &recorder::start));
  parser.set_element_end_handler(one(&r, &recorder::end));
  parser.set_attribute_handler(two(&r, &recorder::attribute));
  parser.set_character_handler(one(&r, &recorder::character));
  parser.set_space_handler(one(&r, &recorder::space));
  parser.set_comment_handler(one(&r, &recorder::comment));
  const error scanned = parser.parse(input.begin(), input.end());
  check_events(r.events);
  check_error(scanned, r.events, input_feeds);

  xml_token_stream stream;
  const error streamed = stream.parse(input.begin(), input.end());
  check(same(scanned, streamed));
  const std::vector<expected_token> expected = tokens_of(r.events);
  check(stream.size() == expected.size());
  std::size_t i = 0;
  for (const token& t : stream) {
    check(t.type() == expected[i].type && t.value() == expected[i].value);
    ++i;
  }

  xml_parser silent;
  const error quiet = silent.parse(ustring8(std::string(input.begin(), input.end())));
  check(same(scanned, quiet));
  return 0;
}
