// mota xml check: runs the library's XML reader over one file and reports the first error.
#include "arguments.hpp"
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/parser/xml_parser.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

namespace mota_tool {
namespace {

using mota::parser::xml_parser;

const char* kind_name(xml_parser::parse_error::error_type kind) {
  switch (kind) {
    case xml_parser::parse_error::no_error:
      return "no_error";
    case xml_parser::parse_error::unexpected_eof:
      return "unexpected_eof";
    case xml_parser::parse_error::mismatched_end_element:
      return "mismatched_end_element";
    case xml_parser::parse_error::no_root_element:
      return "no_root_element";
    case xml_parser::parse_error::invalid_header:
      return "invalid_header";
    case xml_parser::parse_error::unexpected_character:
      return "unexpected_character";
    case xml_parser::parse_error::missing_quote:
      return "missing_quote";
    case xml_parser::parse_error::unknown_entity:
      return "unknown_entity";
    case xml_parser::parse_error::missing_equals:
      return "missing_equals";
    case xml_parser::parse_error::attribute_redefined:
      return "attribute_redefined";
    case xml_parser::parse_error::data_after_root:
      return "data_after_root";
  }
  return "unknown_error";
}

}  // namespace

int run_xml(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  arguments args({}, {});
  if (!args.parse(words, false)) return usage_error(err, printable(args.error()), xml_usage);
  if (args.has("--help")) {
    out << xml_usage;
    return exit_ok;
  }
  const std::vector<std::string>& words_left = args.positional();
  if (words_left.empty() || words_left[0] != "check") {
    return usage_error(err,
                       words_left.empty()
                           ? std::string("xml needs a subcommand")
                           : "unknown xml subcommand \"" + printable(words_left[0]) + "\"",
                       xml_usage);
  }
  if (words_left.size() != 2) {
    return usage_error(err, words_left.size() < 2 ? "xml check needs a FILE" : "too many files",
                       xml_usage);
  }
  const mota::strings::ustring8 path(words_left[1]);
  mota::strings::ustring8 text;
  if (mota::system::load_file(path, text) != 0) {
    return failure(err, "cannot read \"" + printable(path) + "\"" +
                            (mota::system::io::exists(path) ? "" : ": no such file"));
  }
  xml_parser parser;
  const xml_parser::parse_error result = parser.parse(text);
  if (result.type == xml_parser::parse_error::no_error) {
    out << "ok\n";
    return exit_ok;
  }
  out << kind_name(result.type) << " at line " << result.line;
  if (!result.text.empty()) out << ": \"" << printable(result.text) << "\"";
  out << "\n";
  return exit_failure;
}

}  // namespace mota_tool
