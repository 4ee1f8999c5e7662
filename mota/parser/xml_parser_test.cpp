#include <mota/functor/member_function.hpp>
#include <mota/parser/xml_parser.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <tuple>

namespace {

using mota::parser::xml_parser;
using mota::strings::ustring8;
using error = xml_parser::parse_error;

// Logs every event as one line: S start, E end, A attribute, C character, W space, M comment.
struct recorder {
  std::string log;
  template <char kind>
  void event(const ustring8& s) {
    log += std::string(1, kind) + ":" + s + "\n";
  }
  void attribute(const ustring8& n, const ustring8& v) { log += "A:" + n + "=" + v + "\n"; }
};

using one = mota::functor::member_function_t<recorder, void(const ustring8&)>;
using two = mota::functor::member_function_t<recorder, void(const ustring8&, const ustring8&)>;

void listen(xml_parser& parser, recorder& r) {
  parser.set_element_start_handler(one(&r, &recorder::event<'S'>));
  parser.set_element_end_handler(one(&r, &recorder::event<'E'>));
  parser.set_attribute_handler(two(&r, &recorder::attribute));
  parser.set_character_handler(one(&r, &recorder::event<'C'>));
  parser.set_space_handler(one(&r, &recorder::event<'W'>));
  parser.set_comment_handler(one(&r, &recorder::event<'M'>));
}

// The error's kind, line and text, then the events delivered.
using outcome = std::tuple<error::error_type, std::uint32_t, std::string, std::string>;

outcome run(const std::string& text) {
  xml_parser parser;
  recorder r;
  listen(parser, r);
  const error e = parser.parse(text);
  return {e.type, e.line, e.text, r.log};
}

// Rows: the input, then the outcome.
using parse_case =
    std::tuple<const char*, error::error_type, std::uint32_t, const char*, const char*>;

}  // namespace

TEST(XmlParser, HeaderTagsAttributesTextEntitiesAndWhiteSpace) {
  const parse_case cases[] = {
      {"<?xml?><a/>", error::no_error, 0, "", "S:a\nE:a\n"},
      {"\xEF\xBB\xBF<?xml?><a/>", error::no_error, 0, "", "S:a\nE:a\n"},
      {"XYZ<?xml?><a/>", error::no_error, 0, "", "S:a\nE:a\n"},
      {" <?xml?><a/>", error::invalid_header, 0, "", ""},
      {"", error::invalid_header, 0, "", ""},
      {"<?xml", error::no_root_element, 0, "", ""},
      {"<?xml <a/>", error::invalid_header, 0, "", ""},
      {"<?xml version='1.0'?> \n\t\n", error::no_root_element, 2, "", ""},
      {"<?xml version='1.0'?><!-- c -->", error::no_error, 0, "", "M: c \n"},
      {"<?xml encoding='x' ? ?><a/>", error::no_error, 0, "", "S:a\nE:a\n"},
      // tags and attributes
      {"<?xml?><a x='1' x='2'/>", error::attribute_redefined, 0, "x", "S:a\nA:x=1\n"},
      {"<?xml?><a></b>", error::mismatched_end_element, 0, "b", "S:a\n"},
      {"<?xml?><a/><b/>", error::data_after_root, 0, "", "S:a\nE:a\n"},
      {"<?xml?><a></a/>", error::mismatched_end_element, 0, "", "S:a\nE:a\n"},
      {"<?xml?><a><b></b/></a>", error::no_error, 0, "", "S:a\nS:b\nE:b\nE:a\nE:a\n"},
      {"<?xml?></x>", error::no_error, 0, "", "E:x\n"},
      {"<?xml?><a></a x='1' >", error::no_error, 0, "", "S:a\nE:a\nA:x=1\n"},
      {"<?xml?>\n<a>\n</a", error::unexpected_eof, 2, "", "S:a\nW:\n\n"},
      {"<?xml?><a>\n\n", error::unexpected_eof, 0, "", "S:a\nW:\n\n\n"},
      {"<?xml?><a>>", error::unexpected_character, 0, ">", "S:a\n"},
      {"<?xml?><a <b/>", error::unexpected_character, 0, "<", "S:a\n"},
      {"<?xml?><a/x>", error::unexpected_character, 0, "x", "S:a\n"},
      {"<?xml?><", error::unexpected_character, 0, "", ""},
      {"<?xml?><x-y/>", error::unexpected_character, 0, "-", "S:x\n"},
      {"<?xml?><_a/>", error::unexpected_character, 0, "_", ""},
      {"<?xml?><a_1B9/>", error::no_error, 0, "", "S:a_1B9\nE:a_1B9\n"},
      {"<?xml?><a x=\"'\" y='\"'/>", error::no_error, 0, "", "S:a\nA:x='\nA:y=\"\nE:a\n"},
      {"<?xml?><a x \n=\n '1'\n/>", error::no_error, 0, "", "S:a\nA:x=1\nE:a\n"},
      {"<?xml?><a x='a\n\tb  c'/>", error::no_error, 0, "", "S:a\nA:x=a\n\tb  c\nE:a\n"},
      {"<?xml?><a x='&lt;&amp;&#65;'/>", error::no_error, 0, "", "S:a\nA:x=<&A\nE:a\n"},
      {"<?xml?><a x\n\n'1'>", error::missing_equals, 2, "x", "S:a\n"},
      {"<?xml?><a x=1>", error::missing_quote, 0, "", "S:a\n"},
      {"<?xml?><a x='1\">", error::missing_quote, 0, "x", "S:a\nA:x=1\">\n"},
      {"<?xml?><a x='<'/>", error::unexpected_character, 0, "<", "S:a\n"},
      // text, entities and white space
      {"<?xml?><a>x&nbsp;y</a>", error::no_error, 0, "", "S:a\nC:x y\nE:a\n"},
      {"<?xml?><a>&amp;&apos;&gt;&lt;&quot;</a>", error::no_error, 0, "", "S:a\nC:&'><\"\nE:a\n"},
      {"<?xml?><a>&#300;</a>", error::no_error, 0, "", "S:a\nC:\xFF\nE:a\n"},
      {"<?xml?><a>&#065;</a>", error::no_error, 0, "", "S:a\nC:5\nE:a\n"},
      {"<?xml?><a>&zz;</a>", error::unknown_entity, 0, "", "S:a\n"},
      {"<?xml?><a>&ampx;</a>", error::unexpected_character, 0, "x", "S:a\n"},
      {"<?xml?><a>&#X41;</a>", error::unexpected_character, 0, "X", "S:a\n"},
      {"<?xml?><a>&", error::unexpected_character, 0, "", "S:a\n"},
      {"<?xml?><a>one two</a>", error::no_error, 0, "", "S:a\nC:one two\nE:a\n"},
      {"<?xml?><a>one  two</a>", error::no_error, 0, "", "S:a\nC:one\nW:  \nC:two\nE:a\n"},
      {"<?xml?><a> x </a>", error::no_error, 0, "", "S:a\nW: \nC:x \nE:a\n"},
      {"<?xml?><a><![CDATA[<b>&amp; ]] ]]]></a>", error::no_error, 0, "",
       "S:a\nC:<b>&amp; ]] ]\nE:a\n"},
      {"<?xml?><a><![CDATA[x]]</a>", error::unexpected_eof, 0, "", "S:a\n"},
      {"<?xml?><a><!-- a -- b --></a>", error::no_error, 0, "", "S:a\nM: a -- b \nE:a\n"},
      {"<?xml?><a><!---->x</a>", error::no_error, 0, "", "S:a\nM:\nC:x\nE:a\n"},
      {"<?xml?><a>\n<!-- x -></a>", error::unexpected_eof, 1, "", "S:a\nW:\n\n"},
      {"<?xml?><a>x > y</a>", error::no_error, 0, "", "S:a\nC:x > y\nE:a\n"},
      {"<?xml?><a>x  > y</a>", error::unexpected_character, 0, ">", "S:a\nC:x\nW:  \n"},
      {"<?xml?><a/>trailing", error::no_error, 0, "", "S:a\nE:a\nC:trailing\n"},
  };
  for (const auto& [input, type, line, text, log] : cases)
    EXPECT_EQ(outcome(type, line, text, log), run(input)) << input;
}

// Open elements carry over to the next parse, the line count does not; empty slots drop their
// events; a copy holds handlers of its own (leaks and double frees of the handlers' clones are
// the sanitizer suite's to find); a handler's exception propagates.
TEST(XmlParser, StateCarriesOverHandlersMayBeEmptyCopiedOrThrow) {
  xml_parser parser;
  EXPECT_EQ(error::no_error, parser.parse(ustring8("<?xml?><a x='1'> t <!--c--></a>")).type);
  recorder r;
  listen(parser, r);
  EXPECT_EQ(error::unexpected_eof, parser.parse(ustring8("<?xml?>\n<a><b>")).type);
  const error e = parser.parse(ustring8("<?xml?>\n\n</c>"));
  EXPECT_EQ(error::mismatched_end_element, e.type);
  EXPECT_EQ(2u, e.line);
  EXPECT_EQ(error::no_error, parser.parse(ustring8("<?xml?></b></a>")).type);
  EXPECT_EQ("S:a\nS:b\nE:b\nE:a\n", r.log);
  // an iterator range
  r.log.clear();
  const std::string text = "junk<?xml?><a/>junk";
  EXPECT_EQ(error::no_error, parser.parse(text.begin() + 4, text.end() - 4).type);
  EXPECT_EQ("S:a\nE:a\n", r.log);
  EXPECT_EQ(error::invalid_header, parser.parse(text.end(), text.begin()).type);

  r.log.clear();
  parser.set_attribute_handler(nullptr);
  parser.set_space_handler(nullptr);
  EXPECT_EQ(error::no_error, parser.parse(ustring8("<?xml?><a x='1'>  t<!--c--></a>")).type);
  EXPECT_EQ("S:a\nC:t\nM:c\nE:a\n", r.log);

  xml_parser copy(parser);
  parser.set_element_start_handler(nullptr);
  r.log.clear();
  copy.parse(ustring8("<?xml?><c/>"));
  parser.parse(ustring8("<?xml?><d/>"));
  EXPECT_EQ("S:c\nE:c\nE:d\n", r.log);

  struct thrower {
    void start(const ustring8&) { throw std::runtime_error("stop"); }
  } t;
  parser.set_element_start_handler(
      mota::functor::member_function_t<thrower, void(const ustring8&)>(&t, &thrower::start));
  EXPECT_THROWS_STD(parser.parse(ustring8("<?xml?><a/>")), std::runtime_error, "stop");
}

TEST(XmlParser, HostileInputFinishesWithoutRecursion) {
  const std::size_t depth = (1u << 20) / 3;  // 1 MiB of nested start tags
  std::string open, close;
  for (std::size_t i = 0; i < depth; ++i) {
    open += "<a>";
    close += "</a>";
  }
  outcome o = run("<?xml?>" + open);
  EXPECT_EQ(error::unexpected_eof, std::get<0>(o));
  EXPECT_EQ(depth * 4, std::get<3>(o).size());
  EXPECT_EQ(error::no_error, std::get<0>(run("<?xml?>" + open + close)));

  const std::string value(16u << 20, 'v');
  o = run("<?xml?><a v='" + value + "'/>");
  EXPECT_EQ(error::no_error, std::get<0>(o));
  EXPECT_TRUE(std::get<3>(o) == "S:a\nA:v=" + value + "\nE:a\n");

  std::string many = "<?xml?><a";
  for (int i = 0; i < 100000; ++i)
    many += " n" + std::to_string(i) + "='1'";
  o = run(many + " n0='2'/>");
  EXPECT_EQ(error::attribute_redefined, std::get<0>(o));
  EXPECT_EQ("n0", std::get<2>(o));
  EXPECT_EQ(100001, std::count(std::get<3>(o).begin(), std::get<3>(o).end(), '\n'));
}
