// Feeds arbitrary bytes to the token stream. On success the list must be well formed: each
// element_start is followed by (attribute_name, attribute_value) pairs, possibly with
// comments among them, then by exactly one start_tag_end, and is closed by an element_end of
// the same name. Extra element_end tokens with no element open are legal, as are attribute
// pairs after an element_end (attributes of an end tag).
#include "xml_guarded_input.hpp"

#include <mota/parser/xml_token_stream.hpp>

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

namespace {

using mota::parser::xml_token_stream;
using token = xml_token_stream::token;

void check_well_formed(const xml_token_stream& stream) {
  std::vector<mota::strings::ustring8> open;
  bool pending = false;  // an element_start still waiting for its start_tag_end
  for (auto it = stream.begin(); it != stream.end(); ++it) {
    switch (it->type()) {
      case token::element_start:
        if (pending) std::abort();
        open.push_back(it->value());
        pending = true;
        break;
      case token::attribute_name: {
        const auto value = std::next(it);
        if (value == stream.end() || value->type() != token::attribute_value) std::abort();
        it = value;
        break;
      }
      case token::attribute_value:
        std::abort();  // never without its name
      case token::start_tag_end:
        if (!pending || !it->value().empty()) std::abort();
        pending = false;
        break;
      case token::comment:
        break;
      case token::element_end:
        if (pending) std::abort();
        if (!open.empty()) {
          if (open.back() != it->value()) std::abort();
          open.pop_back();
        }
        break;
      case token::space:
      case token::character:
        if (pending) std::abort();
        break;
      default:
        std::abort();
    }
  }
  if (pending || !open.empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const guarded_input input(data, size);
  xml_token_stream stream;
  const auto e = stream.parse(input.begin(), input.end());
  if (e.type == mota::parser::xml_parser::parse_error::no_error) check_well_formed(stream);
  return 0;
}
