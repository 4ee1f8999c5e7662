#include <mota/config/base_config_item.hpp>
#include <mota/config/config_token.hpp>

#include <gtest/gtest.h>

#include <set>
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

}  // namespace

TEST(ConfigLexer, FirstTokenOfEachKind) {
  const std::tuple<std::string, int, int, std::string, unsigned> cases[] = {
      {"abc1", T::T_VAR, T::T_VAR, "abc", 3},
      {"0123x", T::T_NUM, T::T_NUM, "0123", 4},
      {"\nx", T::T_NEWLINE, T::T_NEWLINE, "\n", 1},
      {"\r\nx", T::T_NEWLINE, T::T_NEWLINE, "\n", 2},
      {"\rx", T::T_UNKNOWN, T::T_UNKNOWN, "\r", 1},
      {"\t\t", T::T_TABCHAR, T::T_TABCHAR, "\t", 1},
      {"=x", T::T_EQ, T::T_EQ, "=", 1},
      {"==", T::T_EQEQ, T::T_EQEQ, "==", 2},
      {">", T::T_GT, T::T_GT, ">", 1},
      {">=", T::T_GTEQ, T::T_GTEQ, ">=", 2},
      {"<>", T::T_LT, T::T_LT, "<", 1},
      {"<=", T::T_LTEQ, T::T_LTEQ, "<=", 2},
      {":", T::T_COLON, T::T_COLON, ":", 1},
      {":=", T::T_COLONEQ, T::T_COLONEQ, ":=", 2},
      {"##", T::T_POUND, T::T_POUND, "#", 1},
      {"//x", T::T_FSFS, T::T_FSFS, "//", 2},
      {"/", T::T_DIV, T::T_DIV, "/", 1},
      {"/=", T::T_DIVEQ, T::T_DIVEQ, "/=", 2},
      {"..", T::T_DOT, T::T_DOT, ".", 1},
      {"[]", T::T_SBRACKET, T::T_SBRACKET, "[", 1},
      {"]", T::T_EBRACKET, T::T_EBRACKET, "]", 1},
      {"+1", T::T_PLUS, T::T_PLUS, "+", 1},
      {"+=", T::T_PLUSEQ, T::T_PLUSEQ, "+=", 2},
      {"-3", T::T_MINUS, T::T_MINUS, "-", 1},
      {"-=", T::T_MINUSEQ, T::T_MINUSEQ, "-=", 2},
      {"*", T::T_TIMES, T::T_TIMES, "*", 1},
      {"*=", T::T_TIMESEQ, T::T_TIMESEQ, "*=", 2},
      {"*/", T::T_FSFS, 24, "*/", 2},
      {"**/", T::T_TIMES, T::T_TIMES, "*", 1},
      {"_", T::T_NON_ALPHA_NUM, T::T_NON_ALPHA_NUM, "_", 1},
      {"\xC3\xA9", T::T_NON_ALPHA_NUM, T::T_NON_ALPHA_NUM, "\xC3", 1},
      {std::string("\0a", 2), T::T_NON_ALPHA_NUM, T::T_NON_ALPHA_NUM, std::string(1, '\0'), 1},
      {"\"a b\"c", T::T_STRING, T::T_STRING, "a b", 5},
      {"\"\"", T::T_STRING, T::T_STRING, "", 2},
      {"\"a\\\"b\"", T::T_STRING, T::T_STRING, "a\\\"b", 6},
      {"\"open", T::T_STRING, T::T_STRING, "open", 5},
      {"\"ends\\", T::T_STRING, T::T_STRING, "ends\\", 6},
      {"\"two\nlines\" x", T::T_STRING, T::T_STRING, "two\nlines", 11},
  };
  for (const auto& [line, returned, type, text, end] : cases) {
    SCOPED_TRACE(line);
    config_token tok;
    unsigned pos = 0;
    EXPECT_EQ(returned, next(line, pos, tok));
    EXPECT_EQ(type, static_cast<int>(tok.type));
    EXPECT_EQ(text, tok.text);
    EXPECT_EQ(0u, tok.start);
    EXPECT_EQ(end, tok.end);
    EXPECT_EQ(end, pos);
  }
}

namespace {

// kind, text (a blank keeps the text of the token before it), start and end
using seen = std::tuple<int, std::string, unsigned, unsigned>;

// Lexes the whole line and compares every token's kind, text, indexes and the position after it.
void expect_tokens(const ustring8& line, const std::vector<seen>& want) {
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
  EXPECT_EQ(T::T_END, next(line, pos, tok));
}

}  // namespace

TEST(ConfigLexer, SequencesCarryPositions) {
  expect_tokens("a  = 1", {{T::T_VAR, "a", 0, 1},
                           {T::T_SPACE, "a", 1, 3},
                           {T::T_EQ, "=", 3, 4},
                           {T::T_SPACE, "=", 4, 5},
                           {T::T_NUM, "1", 5, 6}});
  expect_tokens("x\r\n", {{T::T_VAR, "x", 0, 1}, {T::T_NEWLINE, "\n", 1, 3}});
  expect_tokens("k=\"v w\"#c", {{T::T_VAR, "k", 0, 1},
                                {T::T_EQ, "=", 1, 2},
                                {T::T_STRING, "v w", 2, 7},
                                {T::T_POUND, "#", 7, 8},
                                {T::T_VAR, "c", 8, 9}});
  // the tab is not part of the run of blanks
  expect_tokens("ab   \tc", {{T::T_VAR, "ab", 0, 2},
                             {T::T_SPACE, "ab", 2, 5},
                             {T::T_TABCHAR, "\t", 5, 6},
                             {T::T_VAR, "c", 6, 7}});
}

TEST(ConfigLexer, EndLeavesTheTokenUntouched) {
  config_token tok;
  tok.text = "kept";
  tok.start = 7;
  tok.end = 9;
  for (const auto& [line, start] : std::vector<std::pair<std::string, unsigned>>{
           {"", 0}, {"ab", 2}, {"ab", 3}, {"ab", 4000000000u}}) {
    unsigned pos = start;
    EXPECT_EQ(T::T_END, next(line, pos, tok));
    EXPECT_EQ(T::T_END, tok.type);
    EXPECT_EQ(start, pos);
    EXPECT_EQ("kept", tok.text);
    EXPECT_EQ(7u, tok.start);
    EXPECT_EQ(9u, tok.end);
  }
}

// Every kind prints its own name; the two values between the kinds (one is the comment
// terminator's) and those beyond them print as unknown.
TEST(ConfigLexer, PrintableNames) {
  config_token tok;
  tok.text = "key";
  std::set<std::string> names;
  int unknown = 0;
  for (int kind = -1; kind <= 32; ++kind) {
    tok.type = static_cast<T::tok_types>(kind);
    const std::string name = tok.CvtTokStr();
    unknown += name == "unknown type";
    names.insert(name);
  }
  EXPECT_EQ(4, unknown);
  EXPECT_EQ(31u, names.size());
  tok.type = T::T_VAR;
  EXPECT_EQ("T_VAR :[key]", tok.CvtTokStr());
  tok.type = T::T_DIVEQ;
  EXPECT_EQ("T_DIVEQ", tok.CvtTokStr());
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
