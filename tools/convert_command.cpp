// mota convert: standard input from one code page to another, streamed.
#include "arguments.hpp"
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/exceptions/exception.hpp>
#include <mota/strings/code_page_converter.hpp>
#include <mota/strings/code_page_names.hpp>

#include <iomanip>
#include <vector>

namespace mota_tool {
namespace {

using mota::strings::code_page;
using mota::strings::code_page_converter;

int list_codes(std::ostream& out) {
  for (code_page::encoding_type known : mota::strings::code_page_codes()) {
    out << std::setw(6) << static_cast<long>(known) << "  "
        << mota::strings::code_page_display_name(known) << "\n";
  }
  return exit_ok;
}

const char* fault_text(code_page_converter::fault_type fault) {
  switch (fault) {
    case code_page_converter::unrepresentable:
      return "a character the target code page cannot hold";
    case code_page_converter::truncated_sequence:
      return "an incomplete sequence at the end of the input";
    default:
      return "an invalid sequence";
  }
}

// Streams `in` through the converter a piece at a time, so memory stays bounded whatever the
// input's size.
int convert(std::istream& in, std::ostream& out, std::ostream& err, code_page::encoding_type from,
            code_page::encoding_type to, bool strict) {
  code_page_converter converter(from, to, strict);
  std::vector<char> piece(1 << 16);
  std::string converted;
  bool ok = true;
  while (ok && in) {
    in.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    converted.clear();
    ok = converter.convert(piece.data(), static_cast<std::size_t>(in.gcount()), converted);
    out.write(converted.data(), static_cast<std::streamsize>(converted.size()));
  }
  if (ok) {
    converted.clear();
    ok = converter.finish(converted);
    out.write(converted.data(), static_cast<std::streamsize>(converted.size()));
  }
  if (!ok) {
    return failure(err, std::string("convert: ") + fault_text(converter.fault()) +
                            " at byte offset " + std::to_string(converter.fault_offset()));
  }
  if (converter.substitutions() > 0) {
    err << "mota: warning: " << converter.substitutions()
        << " sequence(s) could not be converted and became '?'\n";
  }
  return exit_ok;
}

}  // namespace

int run_convert(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                std::ostream& err) {
  arguments args({"--from", "--to"}, {"--list", "--strict"});
  if (!args.parse(words, false)) return usage_error(err, printable(args.error()), convert_usage);
  if (args.has("--help")) {
    out << convert_usage;
    return exit_ok;
  }
  if (args.has("--list")) return list_codes(out);
  if (!args.positional().empty()) {
    return usage_error(err, "unexpected argument \"" + printable(args.positional()[0]) + "\"",
                       convert_usage);
  }
  if (!args.has("--from") || !args.has("--to")) {
    return usage_error(err, "convert needs --from and --to", convert_usage);
  }
  code_page::encoding_type from = code_page::nil_code, to = code_page::nil_code;
  for (const char* option : {"--from", "--to"}) {
    const std::string text = args.value(option);
    if (!mota::strings::code_page_from_name(text, std::string(option) == "--from" ? from : to)) {
      return usage_error(err,
                         "unknown code page \"" + printable(text) +
                             "\" (mota convert --list shows the known ones)",
                         convert_usage);
    }
  }

  return convert(in, out, err, from, to, args.has("--strict"));
}

}  // namespace mota_tool
