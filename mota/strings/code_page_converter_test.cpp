#include <mota/exceptions/logic_error.hpp>
#include <mota/strings/code_page_converter.hpp>

#include <mota_test.hpp>

#include <string>
#include <tuple>

namespace {

using mota::strings::code_page;
using mota::strings::code_page_converter;

// Feeds `input` in pieces of `piece` bytes, so characters are cut between calls.
std::string convert_in_pieces(code_page_converter& c, const std::string& input, std::size_t piece,
                              bool& ok) {
  std::string out;
  ok = true;
  for (std::size_t i = 0; ok && i < input.size(); i += piece)
    ok = c.convert(input.data() + i, std::min(piece, input.size() - i), out);
  if (ok) ok = c.finish(out);
  return out;
}

TEST(CodePageConverter, CharactersCutBetweenPiecesAreJoinedFaultsStopOrBecomeQuestionMarks) {
  const std::string text = "gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x98\x80 \xE6\x97\xA5";
  for (std::size_t piece : {1u, 2u, 3u, 100u}) {
    code_page_converter to_utf8(code_page::utf_8, code_page::utf_8, true);
    bool ok = false;
    EXPECT_EQ(text, convert_in_pieces(to_utf8, text, piece, ok)) << piece;
    EXPECT_TRUE(ok);
    code_page_converter to_gbk(code_page::utf_8, code_page::gbk, true);
    code_page_converter back(code_page::gbk, code_page::utf_8, true);
    const std::string gbk = convert_in_pieces(to_gbk, "\xE6\x97\xA5\xE6\x9C\xAC", piece, ok);
    EXPECT_EQ("\xE6\x97\xA5\xE6\x9C\xAC", convert_in_pieces(back, gbk, piece, ok)) << piece;
  }

  // Strict conversion stops at the first fault with its kind and offset in the whole input;
  // lenient conversion writes one "?" per fault and counts them.
  // From UTF-8 into a page: the input, the fault, its offset and the lenient result.
  const std::tuple<code_page::encoding_type, std::string, code_page_converter::fault_type,
                   std::uint64_t, std::string>
      rows[] = {
          {code_page::utf_8, "ab\xFF-", code_page_converter::invalid_sequence, 2, "ab?-"},
          {code_page::iso_8859_1, "\xC3\xA9 \xE2\x82\xAC!", code_page_converter::unrepresentable, 3,
           "\xE9 ?!"},
          {code_page::windows_1252, "abc\xE2\x82", code_page_converter::truncated_sequence, 3,
           "abc?"},
      };
  for (const auto& [to, input, fault, offset, lenient_output] : rows) {
    for (std::size_t piece : {1u, 64u}) {
      code_page_converter strict(code_page::utf_8, to, true);
      bool ok = true;
      const std::string before = convert_in_pieces(strict, input, piece, ok);
      EXPECT_FALSE(ok);
      EXPECT_EQ(fault, strict.fault()) << input;
      EXPECT_EQ(offset, strict.fault_offset()) << input << " " << piece;
      EXPECT_EQ(lenient_output.substr(0, lenient_output.find('?')), before);
      std::string more;
      EXPECT_FALSE(strict.convert("x", 1, more));
      EXPECT_EQ("", more);

      code_page_converter lenient(code_page::utf_8, to);
      EXPECT_EQ(lenient_output, convert_in_pieces(lenient, input, piece, ok));
      EXPECT_TRUE(ok);
      EXPECT_EQ(1u, lenient.substitutions());
    }
  }
  EXPECT_THROWS(code_page_converter(code_page::nil_code, code_page::utf_8),
                mota::exceptions::invalid_argument_value, "Not valid code_page type",
                "to_system_type");
}

}  // namespace
