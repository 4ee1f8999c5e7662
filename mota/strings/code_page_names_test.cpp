#include <mota/strings/code_page_names.hpp>

#include <gtest/gtest.h>

namespace {

using mota::strings::code_page;

TEST(CodePageNames, NumbersIconvNamesAndAliases) {
  const std::pair<const char*, code_page::encoding_type> found[] = {
      {"1252", code_page::windows_1252},
      {"cp1252", code_page::windows_1252},
      {"Windows-1252", code_page::windows_1252},
      {"utf8", code_page::utf_8},
      {"UTF_8", code_page::utf_8},
      {"latin1", code_page::iso_8859_1},
      {"iso8859-15", code_page::iso_8859_15},
      {"latin9", code_page::iso_8859_15},
      {"us-ascii", code_page::ascii},
      {"system", code_page::system},
      {"3", code_page::system_oem},
      {"sjis", code_page::windows_31j},
      {"koi8r", code_page::koi8_r}};
  for (const auto& f : found) {
    code_page::encoding_type code = code_page::nil_code;
    EXPECT_TRUE(mota::strings::code_page_from_name(f.first, code)) << f.first;
    EXPECT_EQ(f.second, code) << f.first;
  }
  for (const char* unknown :
       {"", "0", "1249", "utf-16", "latin", "windows-", "cp 1252", "9999999"}) {
    code_page::encoding_type code = code_page::utf_8;
    EXPECT_FALSE(mota::strings::code_page_from_name(unknown, code)) << unknown;
    EXPECT_EQ(code_page::utf_8, code);
  }
}

}  // namespace
