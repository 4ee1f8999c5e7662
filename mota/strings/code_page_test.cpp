#include <mota/strings/ansi.hpp>
#include <mota/strings/code_page.hpp>

#include <mota/exceptions/logic_error.hpp>

#include <mota_test.hpp>

#include <langinfo.h>

#include <string>
#include <tuple>
#include <utility>

namespace strings = mota::strings;
namespace ex = mota::exceptions;
using strings::code_page;

namespace {

code_page::encoding_type code(std::int32_t value) {
  return static_cast<code_page::encoding_type>(value);
}

const char* const invalid = "Not valid code_page type";

}  // namespace

TEST(CodePage, SystemNamesFollowTheTableOtherCodesAndTheNilPageAreRejected) {
  const std::pair<std::int32_t, const char*> cases[] = {
      // The pages that conversions below and in the cache test use are left out: a wrong name
      // fails those.
      {932, "WINDOWS-31J"}, {949, "CP949"},    {950, "BIG5"},         {1250, "CP1250"},
      {1258, "CP1258"},     {21866, "KOI8-U"}, {28599, "ISO-8859-9"},
  };
  code_page page;
  for (const auto& [value, name] : cases)
    EXPECT_EQ(name, page.to_system_type(code(value))) << value;
  for (std::int32_t c = 1; c <= 3; ++c)
    EXPECT_EQ(std::string(nl_langinfo(CODESET)), page.to_system_type(code(c)));
  for (std::int32_t c : {0, 5, 931, 1259, 28606, 125101, -1})
    EXPECT_THROWS(page.to_system_type(code(c)), ex::invalid_argument_value, invalid,
                  "to_system_type");

  EXPECT_TRUE(page == mota::types::nil);
  EXPECT_EQ(code_page::nil_code, page.type());
  // A conversion reports the invalid code in its own name, not the look-up's.
  EXPECT_THROWS(page.encode(strings::ustring8("a")), ex::invalid_argument_value, invalid, "encode");
  EXPECT_THROWS(page.as_utf8("a"), ex::invalid_argument_value, invalid, "as_utf8");
  EXPECT_THROWS(code_page(code(7)).as_utf32("a"), ex::invalid_argument_value, invalid, "as_utf8");

  page = code_page::gbk;
  EXPECT_TRUE(page == code_page::gbk && page != code_page::big5);
  page.assign(mota::types::nil);
  EXPECT_TRUE(page == mota::types::nil);
  page.type(code_page::koi8_r);
  EXPECT_EQ(20866, page.type());
  EXPECT_TRUE(code_page(mota::types::nil) == code_page());
}

// as_utf8 reads the page's bytes; encode writes them from UTF-8. The README's example converts
// CP1252 both ways, a character that grows past its byte included.
TEST(CodePage, ConvertsBothWaysInEveryWidth) {
  using conversion = std::tuple<code_page::encoding_type, std::string, std::string>;
  const conversion as_utf8[] = {
      {code_page::windows_1252, "", ""},
      {code_page::gbk, "\xD6\xD0\xCE\xC4", "\xE4\xB8\xAD\xE6\x96\x87"},
      {code_page::gbk, "a\xD6", "a"},  // incomplete last character dropped
      {code_page::utf_8, "a\xFF\xFEz", "a??z"},
      {code_page::ascii, "caf\xE9", "caf?"},
  };
  const conversion encode[] = {
      {code_page::utf_8, "a\xFFz", "a?z"},
      {code_page::windows_1252, "a\xE4\xB8\xADz", "a???z"},  // one "?" per byte
      {code_page::windows_1252, "ab\xE2\x82", "ab"},
      {code_page::windows_1252, "", ""},
  };
  for (const auto& [page, input, output] : as_utf8)
    EXPECT_EQ(output, code_page(page).as_utf8(input)) << input;
  for (const auto& [page, input, output] : encode)
    EXPECT_EQ(output, code_page(page).encode(strings::ustring8(input))) << input;
  const code_page gbk(code_page::gbk);
  const strings::ustring16 zhong16(1, static_cast<unsigned short>(0x4E2D));
  const strings::ustring32 zhong32(1, static_cast<wchar_t>(0x4E2D));
  EXPECT_EQ("\xD6\xD0", gbk.encode(zhong16));
  EXPECT_EQ("\xD6\xD0", gbk.encode(zhong32));
  EXPECT_EQ(zhong16, gbk.as_utf16("\xD6\xD0"));
  EXPECT_EQ(zhong32, gbk.as_utf32("\xD6\xD0"));
  // A character outside the BMP goes through a surrogate pair and back.
  const code_page utf8(code_page::utf_8);
  const strings::ustring16 pair{0xD83D, 0xDE00};
  EXPECT_EQ("\xF0\x9F\x98\x80", utf8.encode(pair));
  EXPECT_EQ(pair, utf8.as_utf16("\xF0\x9F\x98\x80"));
  // Text the UTF-16 reader rejects arrives as its "-1" marker.
  EXPECT_EQ("-1", utf8.encode(strings::ustring16{0xDC00}));
}

TEST(Ansi, UsesTheProcessCharacterSet) {
  // No locale is set in the test process, so its set is plain ASCII.
  ASSERT_STREQ("ANSI_X3.4-1968", nl_langinfo(CODESET));
  EXPECT_EQ("caf??", strings::gh2::to_ansi("caf\xC3\xA9"));
  EXPECT_EQ("caf?", strings::gh2::from_ansi("caf\xE9"));
}
