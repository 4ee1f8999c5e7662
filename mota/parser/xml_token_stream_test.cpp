#include <mota/parser/xml_token_stream.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

using mota::parser::xml_token_stream;
using mota::strings::ustring8;
using error = mota::parser::xml_parser::parse_error;
using token = xml_token_stream::token;

std::string dump(const xml_token_stream& stream) {
  std::string out;
  for (const token& t : stream)
    out += std::to_string(t.type()) + ":" + t.value() + "\n";
  return out;
}

}  // namespace

// How events become tokens (the start_tag_end rule, tokens kept before a fault) is checked
// against the scanner by the agreement fuzz target; these pin what it cannot see: state that
// lives on between parses.
TEST(XmlTokenStream, StateLivesOnBetweenParsesAndCopiesReportToThemselves) {
  xml_token_stream stream;
  EXPECT_EQ(error::unexpected_eof, stream.parse(ustring8("<?xml?><a><b x='1'")).type);
  EXPECT_EQ(5u, stream.size());
  // The pending start tag of b gets no start_tag_end: parse resets that state.
  const std::string second = "<?xml?></b></a>";
  EXPECT_EQ(error::no_error, stream.parse(second.begin(), second.end()).type);
  EXPECT_EQ("0:a\n4:\n0:b\n2:x\n3:1\n1:b\n1:a\n", dump(stream));

  // a copy reports to itself
  xml_token_stream first;
  EXPECT_EQ(error::unexpected_eof, first.parse(ustring8("<?xml?><a>")).type);
  xml_token_stream copy(first);
  EXPECT_EQ(error::no_error, copy.parse(ustring8("<?xml?>x</a>")).type);
  EXPECT_EQ("0:a\n7:x\n1:a\n", dump(copy));

  xml_token_stream assigned;
  assigned = first;
  EXPECT_EQ(error::no_error, assigned.parse(ustring8("<?xml?></a>")).type);
  EXPECT_EQ("0:a\n1:a\n", dump(assigned));
  EXPECT_EQ("0:a\n", dump(first));
}
