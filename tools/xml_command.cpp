// mota xml check: runs the library's XML reader over each file and reports its first error in
// the FILE:LINE: kind: detail form editors jump to.
#include "arguments.hpp"
#include "commands.hpp"
#include "json_output.hpp"
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

// What each kind means, for a reader who does not know the scanner's names.
std::string explain(const xml_parser::parse_error& error) {
  const std::string text = "\"" + printable(error.text) + "\"";
  switch (error.type) {
    case xml_parser::parse_error::unexpected_eof:
      return "the document ends inside an element";
    case xml_parser::parse_error::mismatched_end_element:
      return "end tag " + text + " does not close the open element";
    case xml_parser::parse_error::no_root_element:
      return "no root element after the header";
    case xml_parser::parse_error::invalid_header:
      return "the document does not begin with an <?xml ...?> header";
    case xml_parser::parse_error::unexpected_character:
      return "unexpected character " + text;
    case xml_parser::parse_error::missing_quote:
      return "attribute value without quotes";
    case xml_parser::parse_error::unknown_entity:
      return "unknown entity reference";
    case xml_parser::parse_error::missing_equals:
      return "attribute " + text + " without \"=\"";
    case xml_parser::parse_error::attribute_redefined:
      return "attribute " + text + " given twice";
    case xml_parser::parse_error::data_after_root:
      return "content after the root element";
    default:
      return text;
  }
}

struct file_report {
  std::string file;
  bool ok = false;
  unsigned line = 0;  // counted from 1; 0 when the file could not be read
  std::string kind, detail;
};

// The scanner counts only the line breaks it passes between markup, from 0, and gives no line
// for header errors and a document cut short: those are the first and the last line.
file_report check_file(const std::string& file) {
  file_report report;
  report.file = file;
  const mota::strings::ustring8 path(file);
  mota::strings::ustring8 text;
  if (mota::system::load_file(path, text) != 0) {
    report.kind = "unreadable";
    report.detail = mota::system::io::exists(path) ? "cannot read the file" : "no such file";
    return report;
  }
  xml_parser parser;
  const xml_parser::parse_error result = parser.parse(text);
  report.ok = result.type == xml_parser::parse_error::no_error;
  if (report.ok) return report;
  report.kind = kind_name(result.type);
  report.detail = explain(result);
  report.line = result.line + 1;
  if (result.type == xml_parser::parse_error::unexpected_eof) {
    report.line = 1;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
      report.line += text[i] == '\n';
  }
  return report;
}

void write_text(const file_report& r, std::ostream& out) {
  out << printable(r.file);
  if (r.ok) {
    out << ": ok\n";
    return;
  }
  if (r.line > 0) out << ":" << r.line;
  out << ": " << r.kind << ": " << r.detail << "\n";
}

void write_json(const std::vector<file_report>& reports, std::ostream& out) {
  out << "[";
  const char* separator = "\n";
  for (const file_report& r : reports) {
    out << separator << "  {\"file\": " << json_string(r.file)
        << ", \"ok\": " << (r.ok ? "true" : "false");
    if (!r.ok) {
      out << ", \"line\": " << r.line << ", \"kind\": " << json_string(r.kind)
          << ", \"detail\": " << json_string(r.detail);
    }
    out << "}";
    separator = ",\n";
  }
  out << "\n]\n";
}

}  // namespace

int run_xml(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  arguments args({}, {"--json"});
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
  if (words_left.size() < 2) return usage_error(err, "xml check needs a FILE", xml_usage);
  std::vector<file_report> reports;
  bool all_ok = true;
  for (std::size_t i = 1; i < words_left.size(); ++i) {
    reports.push_back(check_file(words_left[i]));
    all_ok = all_ok && reports.back().ok;
    if (!args.has("--json")) write_text(reports.back(), out);
  }
  if (args.has("--json")) write_json(reports, out);
  return all_ok ? exit_ok : exit_failure;
}

}  // namespace mota_tool
