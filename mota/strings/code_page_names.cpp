#include <mota/strings/code_page_names.hpp>

#include <algorithm>
#include <cstring>

namespace MOTA_2_18 {
namespace strings {

namespace {

using cp = code_page;

// Names reduced to upper-case letters and digits, as normalized() leaves them.
struct alias_t {
  const char* name;
  cp::encoding_type code;
};
const alias_t aliases[] = {
    {"UTF8", cp::utf_8},          {"LATIN1", cp::iso_8859_1},
    {"LATIN2", cp::iso_8859_2},   {"LATIN3", cp::iso_8859_3},
    {"LATIN4", cp::iso_8859_4},   {"LATIN5", cp::iso_8859_9},
    {"LATIN9", cp::iso_8859_15},  {"L1", cp::iso_8859_1},
    {"CYRILLIC", cp::iso_8859_5}, {"ARABIC", cp::iso_8859_6},
    {"GREEK", cp::iso_8859_7},    {"HEBREW", cp::iso_8859_8},
    {"ASCII", cp::ascii},         {"USASCII", cp::ascii},
    {"SJIS", cp::windows_31j},    {"SHIFTJIS", cp::windows_31j},
    {"CP932", cp::windows_31j},   {"MS932", cp::windows_31j},
    {"CP936", cp::gbk},           {"UHC", cp::cp949},
    {"CP950", cp::big5},
};

std::string normalized(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c >= 'a' && c <= 'z') {
      out += static_cast<char>(c - 'a' + 'A');
    } else if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
      out += c;
    } else if (c != '-' && c != '_' && c != '.') {
      return std::string();  // no name of ours holds other characters
    }
  }
  return out;
}

}  // namespace

const std::vector<code_page::encoding_type>& code_page_codes() {
  static const std::vector<cp::encoding_type> codes{
      cp::system,       cp::utf_8,        cp::windows_31j,  cp::gbk,          cp::cp949,
      cp::big5,         cp::windows_1250, cp::windows_1251, cp::windows_1252, cp::windows_1253,
      cp::windows_1254, cp::windows_1255, cp::windows_1256, cp::windows_1257, cp::windows_1258,
      cp::koi8_r,       cp::koi8_u,       cp::iso_8859_1,   cp::iso_8859_2,   cp::iso_8859_3,
      cp::iso_8859_4,   cp::iso_8859_5,   cp::iso_8859_6,   cp::iso_8859_7,   cp::iso_8859_8,
      cp::iso_8859_9,   cp::iso_8859_15,  cp::ascii,
  };
  return codes;
}

std::string code_page_display_name(code_page::encoding_type code) {
  if (code == cp::system) return "SYSTEM";
  return code_page().to_system_type(code);
}

bool code_page_from_name(const std::string& text, code_page::encoding_type& code) {
  if (!text.empty() && text.size() <= 6 &&
      text.find_first_not_of("0123456789") == std::string::npos) {
    const long number = std::stol(text);
    if (number == cp::system_ansi || number == cp::system_oem) {
      code = static_cast<cp::encoding_type>(number);
      return true;
    }
    const auto& codes = code_page_codes();
    const auto found = std::find(codes.begin(), codes.end(), number);
    if (found == codes.end()) return false;
    code = *found;
    return true;
  }
  const std::string wanted = normalized(text);
  if (wanted.empty()) return false;
  for (const cp::encoding_type known : code_page_codes()) {
    if (normalized(code_page_display_name(known)) == wanted) {
      code = known;
      return true;
    }
  }
  for (const alias_t& alias : aliases) {
    if (wanted == alias.name) {
      code = alias.code;
      return true;
    }
  }
  // "WINDOWS-1252" and "WIN1252": the iconv name's number under another prefix.
  for (const char* prefix : {"WINDOWS", "WIN"}) {
    const std::size_t length = std::strlen(prefix);
    if (wanted.size() > length && wanted.compare(0, length, prefix) == 0 &&
        wanted.find_first_not_of("0123456789", length) == std::string::npos) {
      return code_page_from_name("CP" + wanted.substr(length), code);
    }
  }
  return false;
}

}  // namespace strings
}  // namespace MOTA_2_18
