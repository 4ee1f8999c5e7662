// mota convert: standard input from one code page to another, by way of UTF-8.
#include "arguments.hpp"
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/exceptions/exception.hpp>
#include <mota/strings/code_page.hpp>

#include <cctype>
#include <iomanip>
#include <iterator>

namespace mota_tool {
namespace {

using mota::strings::code_page;

// Every code the library converts; 2 and 3 are further names of the process's own set (1)
// and are accepted by number only.
const code_page::encoding_type known_codes[] = {
    code_page::system,       code_page::utf_8,        code_page::windows_31j,
    code_page::gbk,          code_page::cp949,        code_page::big5,
    code_page::windows_1250, code_page::windows_1251, code_page::windows_1252,
    code_page::windows_1253, code_page::windows_1254, code_page::windows_1255,
    code_page::windows_1256, code_page::windows_1257, code_page::windows_1258,
    code_page::koi8_r,       code_page::koi8_u,       code_page::iso_8859_1,
    code_page::iso_8859_2,   code_page::iso_8859_3,   code_page::iso_8859_4,
    code_page::iso_8859_5,   code_page::iso_8859_6,   code_page::iso_8859_7,
    code_page::iso_8859_8,   code_page::iso_8859_9,   code_page::iso_8859_15,
    code_page::ascii,
};

std::string upper(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

// The name a code is listed under: "SYSTEM" for the process's own set, else the iconv name.
std::string display_name(code_page::encoding_type code) {
  if (code == code_page::system) return "SYSTEM";
  return code_page().to_system_type(code);
}

// Reads a code-page number or name; false when `text` names no code the library converts.
bool parse_code(const std::string& text, code_page::encoding_type& code) {
  const bool numeric = !text.empty() && text.size() <= 6 &&
                       text.find_first_not_of("0123456789") == std::string::npos;
  if (numeric) {
    const long number = std::stol(text);
    if (number == code_page::system_ansi || number == code_page::system_oem) {
      code = static_cast<code_page::encoding_type>(number);
      return true;
    }
    for (code_page::encoding_type known : known_codes) {
      if (known == number) {
        code = known;
        return true;
      }
    }
    return false;
  }
  const std::string wanted = upper(text);
  for (code_page::encoding_type known : known_codes) {
    if (display_name(known) == wanted) {
      code = known;
      return true;
    }
  }
  return false;
}

int list_codes(std::ostream& out) {
  for (code_page::encoding_type known : known_codes) {
    out << std::setw(6) << static_cast<long>(known) << "  " << display_name(known) << "\n";
  }
  return exit_ok;
}

}  // namespace

int run_convert(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                std::ostream& err) {
  arguments args({"--from", "--to"}, {"--list"});
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
    if (!parse_code(text, std::string(option) == "--from" ? from : to)) {
      return usage_error(err,
                         "unknown code page \"" + printable(text) +
                             "\" (mota convert --list shows the known ones)",
                         convert_usage);
    }
  }

  const std::string input((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  try {
    const mota::strings::ustring8 text = code_page(from).as_utf8(input);
    const std::string output = code_page(to).encode(text);
    out.write(output.data(), static_cast<std::streamsize>(output.size()));
  } catch (const mota::exceptions::exception& e) {
    return failure(err, "convert: " + printable(e.get_message()));
  }
  return exit_ok;
}

}  // namespace mota_tool
