// The token record of the configuration language, its kinds and their printable names, and the
// byte classes the configuration code is built on. Tokens are produced one at a time by
// base_config_item::get_token (<mota/config/base_config_item.hpp>).
//
//   mota::config::config_token tok;
//   unsigned pos = 0;
//   while (mota::config::base_config_item::get_token(line, pos, tok) !=
//          mota::config::config_token::T_END) std::cout << tok.CvtTokStr() << '\n';
#ifndef MOTA_CONFIG_CONFIG_TOKEN_HPP
#define MOTA_CONFIG_CONFIG_TOKEN_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <cstdint>
#include <string>

namespace MOTA_2_18 {
namespace config {

// One token of the configuration language: its kind, its text and where it lies in the line.
struct MOTA_API config_token {
  // Token kinds. 24 is the kind of the "*/" token and has no name; 25 is never produced.
  enum tok_types : std::int32_t {
    T_VAR = 0,
    T_NUM = 1,
    T_NEWLINE = 2,
    T_TABCHAR = 3,
    T_UNKNOWN = 4,
    T_END = 5,
    T_SPACE = 6,
    T_EQ = 7,
    T_EQEQ = 8,
    T_GT = 9,
    T_GTEQ = 10,
    T_LT = 11,
    T_LTEQ = 12,
    T_COLON = 13,
    T_COLONEQ = 14,
    T_POUND = 15,
    T_FSFS = 16,
    T_DOT = 17,
    T_SBRACKET = 18,
    T_EBRACKET = 19,
    T_PLUS = 20,
    T_MINUS = 21,
    T_PLUSEQ = 22,
    T_MINUSEQ = 23,
    T_TIMES = 26,
    T_DIV = 27,
    T_TIMESEQ = 28,
    T_DIVEQ = 29,
    T_STRING = 30,
    T_NON_ALPHA_NUM = 31
  };

  // The token's characters; T_END and T_SPACE leave whatever the previous token stored.
  strings::ustring8 text;
  // Index one past the token's last byte.
  std::uint32_t end = 0;
  // Index of the token's first byte.
  std::uint32_t start = 0;
  // The token's kind.
  tok_types type = T_END;

  // A printable form for diagnostics: "T_VAR :[text]", "T_UNKNOWN:[text]", "T_STRING:[text]",
  // "T_NON_ALPHA_NUM:[text]", the bare name for the other named kinds, and "unknown type" for
  // 24, 25 and any value outside 0..31.
  std::string CvtTokStr() const;
};

// Tab, line feed, carriage return or blank.
MOTA_API bool isConfigWhite(char c);
// Blank (32) only.
MOTA_API bool isConfigSpace(char c);
// An ASCII letter: the C locale's isalpha, whatever locale the process has set.
MOTA_API bool isConfigAlpha(char c);
// '0' to '9'.
MOTA_API bool isConfigDigit(char c);
// Carriage return, NUL, or one of " +-*^/%=;(),<>~&|{}\n\t[]?$".
MOTA_API bool isConfigDelim(char c);
// '.', '/' or backslash.
MOTA_API bool isConfigDotSlash(char c);

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_CONFIG_TOKEN_HPP
