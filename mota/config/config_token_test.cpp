#include <mota/config/base_config_item.hpp>
#include <mota/config/config_token.hpp>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using mota::config::config_token;
using mota::strings::ustring8;
using T = config_token;

int next(const ustring8& line, unsigned& pos, config_token& tok) {
  return mota::config::base_config_item::get_token(line, pos, tok);
}

// Lexes the whole line, comparing every token's kind, text, start and end and the position after
// it. The end leaves all of them alone.
void expect_tokens(const ustring8& line,
                   const std::vector<std::tuple<int, std::string, unsigned, unsigned>>& want) {
  SCOPED_TRACE(line);
  config_token tok;
  unsigned pos = 0;
  for (const auto& [kind, text, start, end] : want) {
    EXPECT_EQ(kind, next(line, pos, tok));
    EXPECT_EQ(text, tok.text);
    EXPECT_EQ(start, tok.start);
    EXPECT_EQ(end, tok.end);
    EXPECT_EQ(end, pos);
  }
  const config_token last = tok;
  for (unsigned beyond : {pos, pos + 1, 4000000000u}) {
    pos = beyond;
    EXPECT_EQ(T::T_END, next(line, pos, tok));
    EXPECT_EQ(T::T_END, tok.type);
    EXPECT_EQ(beyond, pos);
    EXPECT_EQ(last.text, tok.text);
    EXPECT_EQ(last.start, tok.start);
    EXPECT_EQ(last.end, tok.end);
  }
}

}  // namespace

// Each row: the line, the kind returned (stored too, but "*/" as 24), the text and the position
// after the first token. Empty, escaped and open strings are read in the file tests and docs.
TEST(ConfigLexer, FirstTokenOfEachKind) {
  const std::tuple<std::string, int, std::string, unsigned> cases[] = {
      {"abc1", T::T_VAR, "abc", 3},
      {"0123x", T::T_NUM, "0123", 4},
      {"\nx", T::T_NEWLINE, "\n", 1},
      {"\r\nx", T::T_NEWLINE, "\n", 2},
      {"\rx", T::T_UNKNOWN, "\r", 1},
      {"\t\t", T::T_TABCHAR, "\t", 1},
      {"=x", T::T_EQ, "=", 1},
      {"==", T::T_EQEQ, "==", 2},
      {">", T::T_GT, ">", 1},
      {">=", T::T_GTEQ, ">=", 2},
      {"<>", T::T_LT, "<", 1},
      {"<=", T::T_LTEQ, "<=", 2},
      {":", T::T_COLON, ":", 1},
      {":=", T::T_COLONEQ, ":=", 2},
      {"##", T::T_POUND, "#", 1},
      {"//x", T::T_FSFS, "//", 2},
      {"/", T::T_DIV, "/", 1},
      {"/=", T::T_DIVEQ, "/=", 2},
      {"..", T::T_DOT, ".", 1},
      {"[]", T::T_SBRACKET, "[", 1},
      {"]", T::T_EBRACKET, "]", 1},
      {"+1", T::T_PLUS, "+", 1},
      {"+=", T::T_PLUSEQ, "+=", 2},
      {"-3", T::T_MINUS, "-", 1},
      {"-=", T::T_MINUSEQ, "-=", 2},
      {"*", T::T_TIMES, "*", 1},
      {"*=", T::T_TIMESEQ, "*=", 2},
      {"*/", T::T_FSFS, "*/", 2},
      {"\xC3\xA9", T::T_NON_ALPHA_NUM, "\xC3", 1},
      {std::string("\0a", 2), T::T_NON_ALPHA_NUM, std::string(1, '\0'), 1},
      {"\"a b\"c", T::T_STRING, "a b", 5},
      {"\"ends\\", T::T_STRING, "ends\\", 6}};
  for (const auto& [line, kind, text, end] : cases) {
    SCOPED_TRACE(line);
    config_token tok;
    unsigned pos = 0;
    EXPECT_EQ(kind, next(line, pos, tok));
    EXPECT_EQ(line == "*/" ? 24 : kind, static_cast<int>(tok.type));
    EXPECT_EQ(text, tok.text);
    EXPECT_EQ(end, tok.end);
    EXPECT_EQ(end, pos);
  }
}

// A run of blanks keeps the text of the token before it and stops at a tab.
TEST(ConfigLexer, SequencesCarryPositions) {
  expect_tokens("", {});
  expect_tokens("ab  \t= 1", {{T::T_VAR, "ab", 0, 2},
                              {T::T_SPACE, "ab", 2, 4},
                              {T::T_TABCHAR, "\t", 4, 5},
                              {T::T_EQ, "=", 5, 6},
                              {T::T_SPACE, "=", 6, 7},
                              {T::T_NUM, "1", 7, 8}});
}

// Every kind prints its own name; the two values between the kinds (one is the comment
// terminator's) and those beyond them print as unknown.
TEST(ConfigLexer, PrintableNames) {
  config_token tok;
  tok.text = "key";
  std::map<std::string, int> names;
  for (int kind = -1; kind <= 32; ++kind) {
    tok.type = static_cast<T::tok_types>(kind);
    ++names[tok.CvtTokStr()];
  }
  EXPECT_EQ(4, names["unknown type"]);
  EXPECT_EQ(31u, names.size());
  EXPECT_EQ(1, names["T_VAR :[key]"]);
}

TEST(ConfigCharacterClasses, ExactSets) {
  using namespace mota::config;
  const std::string delimiters(" +-*^/%=;(),<>~&|{}\n\t[]?$\r\0", 28);
  for (int i = 0; i < 256; ++i) {
    const char c = static_cast<char>(i);
    SCOPED_TRACE(i);
    EXPECT_EQ(i == 9 || i == 10 || i == 13 || i == 32, isConfigWhite(c));
    EXPECT_EQ(i == 32, isConfigSpace(c));
    EXPECT_EQ((i >= 'a' && i <= 'z') || (i >= 'A' && i <= 'Z'), isConfigAlpha(c));
    EXPECT_EQ(i >= '0' && i <= '9', isConfigDigit(c));
    EXPECT_EQ(delimiters.find(c) != std::string::npos, isConfigDelim(c));
    EXPECT_EQ(i == '.' || i == '/' || i == '\\', isConfigDotSlash(c));
  }
}
