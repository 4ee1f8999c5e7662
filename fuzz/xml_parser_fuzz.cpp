// Feeds arbitrary bytes to the XML scanner with every handler installed. Checks that the
// error kind is one of the eleven known ones, that the line never exceeds the number of line
// feeds in the input, and (through the poisoned neighbours) that nothing outside the input
// is read.
#include "xml_guarded_input.hpp"

#include <mota/functor/member_function.hpp>
#include <mota/parser/xml_parser.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using mota::parser::xml_parser;
using mota::strings::ustring8;

struct sink {
  std::size_t bytes = 0;
  void one(const ustring8& s) { bytes += s.size(); }
  void two(const ustring8& n, const ustring8& v) { bytes += n.size() + v.size(); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using one = mota::functor::member_function_t<sink, void(const ustring8&)>;
  using two = mota::functor::member_function_t<sink, void(const ustring8&, const ustring8&)>;
  sink s;
  xml_parser parser;
  parser.set_element_start_handler(one(&s, &sink::one));
  parser.set_element_end_handler(one(&s, &sink::one));
  parser.set_attribute_handler(two(&s, &sink::two));
  parser.set_character_handler(one(&s, &sink::one));
  parser.set_space_handler(one(&s, &sink::one));
  parser.set_comment_handler(one(&s, &sink::one));

  const guarded_input input(data, size);
  const auto newlines = static_cast<std::uint32_t>(std::count(data, data + size, '\n'));
  for (int round = 0; round < 2; ++round) {  // the second round starts with leftover state
    const xml_parser::parse_error e = parser.parse(input.begin(), input.end());
    if (e.type < xml_parser::parse_error::no_error ||
        e.type > xml_parser::parse_error::data_after_root)
      std::abort();
    if (e.line > newlines) std::abort();
    if (e.type == xml_parser::parse_error::no_error && !e.text.empty()) std::abort();
  }
  return 0;
}
