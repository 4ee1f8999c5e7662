#include <mota/strings/code_page_names.hpp>

#include <gtest/gtest.h>

namespace {

using mota::strings::code_page;

TEST(CodePageNames, NumbersIconvNamesAndAliases) {
  // A number, a system name, an alias, a "Windows-" form; case, "-" and "_" do not count.
  const std::pair<const char*, code_page::encoding_type> found[] = {
      {"1252", code_page::windows_1252},         {"3", code_page::system_oem},
      {"cp1252", code_page::windows_1252},       {"UTF_8", code_page::utf_8},
      {"latin1", code_page::iso_8859_1},         {"us-ascii", code_page::ascii},
      {"Windows-1252", code_page::windows_1252}, {"system", code_page::system}};
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
