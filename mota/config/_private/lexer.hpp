// Not part of the public interface.
//
// The configuration lexer, inline so that the file parser runs it without a call per token.
// base_config_item::get_token is its public face.
#ifndef MOTA_CONFIG_PRIVATE_LEXER_HPP
#define MOTA_CONFIG_PRIVATE_LEXER_HPP

#include <mota/config/config_token.hpp>

#include <cstddef>
#include <cstdint>

namespace MOTA_2_18 {
namespace config {
namespace _private {

// The kind of the "*/" token; get_token reports it as T_FSFS.
constexpr config_token::tok_types comment_end_type = static_cast<config_token::tok_types>(24);

inline bool is_alpha(unsigned char c) {
  return static_cast<unsigned char>((c | 0x20) - 'a') < 26;
}
inline bool is_digit(unsigned char c) {
  return static_cast<unsigned char>(c - '0') < 10;
}

// Where a token lies in the text: its bytes [start, end) and the bytes of its text
// [text_start, text_start + text_size). The text is always a piece of the source: a string's
// lies between its quotes, and a carriage return and line feed pair's is the line feed.
struct token_span {
  std::uint32_t start;
  std::uint32_t end;
  std::uint32_t text_start;
  std::uint32_t text_size;
  config_token::tok_types type;
};

// Reads one token of data[0, size) at pos, advances pos past it and returns its kind (T_FSFS for
// "*/", whose type is 24). At the end only the type is set (T_END); a run of blanks sets no text.
// See base_config_item::get_token.
inline int scan_token(const char* data, std::uint32_t size, unsigned& pos, token_span& span) {
  using T = config_token;
  if (pos >= size) {
    span.type = T::T_END;
    return T::T_END;
  }
  const unsigned first = pos;
  unsigned p = pos;
  while (p < size && data[p] == ' ')
    ++p;
  if (p != first) {
    pos = p;
    span.start = first;
    span.end = p;
    span.type = T::T_SPACE;
    return T::T_SPACE;
  }

  const char c = data[p];
  // The byte after c, or NUL at the end of the text; NUL pairs with no operator.
  const char next = p + 1 < size ? data[p + 1] : '\0';
  T::tok_types type = T::T_NON_ALPHA_NUM;
  int result = -1;
  unsigned length = 1;
  // The text is the token's bytes, except for a string and a carriage return pair.
  bool text_is_token = true;
  unsigned text_start = p;
  unsigned text_size = 0;

  // Single byte operators, or the two byte form when the next byte is '='.
  auto with_eq = [&](T::tok_types single, T::tok_types double_form) {
    if (next == '=') {
      type = double_form;
      length = 2;
    } else {
      type = single;
    }
  };

  switch (c) {
    case '\t':
      type = T::T_TABCHAR;
      break;
    case '\n':
      type = T::T_NEWLINE;
      break;
    case '\r':
      if (next == '\n') {
        type = T::T_NEWLINE;
        length = 2;
        text_is_token = false;
        text_start = p + 1;
        text_size = 1;
      } else {
        type = T::T_UNKNOWN;
      }
      break;
    case '#':
      type = T::T_POUND;
      break;
    case '.':
      type = T::T_DOT;
      break;
    case '[':
      type = T::T_SBRACKET;
      break;
    case ']':
      type = T::T_EBRACKET;
      break;
    case '*':
      if (next == '/') {
        // A comment terminator: reported as "//", typed 24. Intended asymmetry.
        type = comment_end_type;
        result = T::T_FSFS;
        length = 2;
      } else {
        with_eq(T::T_TIMES, T::T_TIMESEQ);
      }
      break;
    case '/':
      if (next == '/') {
        type = T::T_FSFS;
        length = 2;
      } else {
        with_eq(T::T_DIV, T::T_DIVEQ);
      }
      break;
    case '+':
      with_eq(T::T_PLUS, T::T_PLUSEQ);
      break;
    case '-':
      with_eq(T::T_MINUS, T::T_MINUSEQ);
      break;
    case ':':
      with_eq(T::T_COLON, T::T_COLONEQ);
      break;
    case '<':
      with_eq(T::T_LT, T::T_LTEQ);
      break;
    case '>':
      with_eq(T::T_GT, T::T_GTEQ);
      break;
    case '=':
      with_eq(T::T_EQ, T::T_EQEQ);
      break;
    case '"': {
      // A string runs to the next unescaped quote or the end of the text; backslashes are
      // kept together with the byte they escape.
      type = T::T_STRING;
      text_is_token = false;
      unsigned q = p + 1;
      text_start = q;
      while (q < size && data[q] != '"')
        q += (data[q] == '\\' && q + 1 < size) ? 2 : 1;
      text_size = q - text_start;
      length = (q < size ? q + 1 : size) - p;
      break;
    }
    default: {
      const auto u = static_cast<unsigned char>(c);
      if (is_digit(u)) {
        type = T::T_NUM;
        while (p + length < size && is_digit(static_cast<unsigned char>(data[p + length])))
          ++length;
      } else if (is_alpha(u)) {
        type = T::T_VAR;
        while (p + length < size && is_alpha(static_cast<unsigned char>(data[p + length])))
          ++length;
      }
      break;
    }
  }
  pos = p + length;
  span.start = p;
  span.end = pos;
  span.type = type;
  span.text_start = text_start;
  span.text_size = text_is_token ? length : text_size;
  return result < 0 ? static_cast<int>(type) : result;
}

// scan_token, filling a token record: its text is copied, except at the end and for blanks,
// which leave the previous text in place.
inline int lex_token(const char* data, std::uint32_t size, unsigned& pos, config_token& tok) {
  token_span span;
  const int kind = scan_token(data, size, pos, span);
  tok.type = span.type;
  if (kind == config_token::T_END) return kind;
  tok.start = span.start;
  tok.end = span.end;
  if (kind != config_token::T_SPACE) tok.text.assign(data + span.text_start, span.text_size);
  return kind;
}

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_PRIVATE_LEXER_HPP
