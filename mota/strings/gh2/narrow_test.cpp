#include <mota/strings/gh2/narrow.hpp>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace gh2 = mota::strings::gh2;

TEST(Gh2Utf8, ClassifiesAndValidatesTheFirstSequence) {
  // The bytes, the size given, the length and whether the sequence is valid.
  const std::tuple<const char*, unsigned int, unsigned int, bool> cases[] = {
      // Whole sequences agree with the UTF-8 decoder (the utf fuzz target checks that); these
      // are the lengths given for sequences that are not whole, and the range beyond U+10FFFF.
      {"\xF7\xBF\xBF\xBF", 4, 4, true},
      {"\xC3\xA9", 1, 2, false},  // size too small for the sequence
      {"\xC3\x41", 2, 2, false},
      {"\xE2\x82\xAC", 2, 3, false},
      {"\xEF\xC0\x80", 3, 3, false},
      {"\xF0\x9F\x98\x7F", 4, 4, false},
      {"\xF8\x88\x80\x80", 4, 0, false},
      {"\xFF", 1, 0, false},
      {"\x80", 1, 0, false},
      {"A", 0, 0, false},
  };
  for (const auto& [text, size, length, valid] : cases) {
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(text);
    EXPECT_EQ(length, gh2::get_utf8_length(text, size)) << text;
    EXPECT_EQ(length, gh2::get_utf8_length(bytes, size)) << text;
    EXPECT_EQ(valid, gh2::validate_utf8(text, size)) << text;
    EXPECT_EQ(valid, gh2::validate_utf8(bytes, size)) << text;
  }
  EXPECT_EQ(0u, gh2::get_utf8_length(static_cast<const char*>(nullptr), 4));
  EXPECT_FALSE(gh2::validate_utf8(static_cast<const unsigned char*>(nullptr), 4));
}

// replace_all is checked against a plain model by the strings fuzz target.
TEST(Gh2Narrow, CaseMappingWorksPerByte) {
  EXPECT_EQ("abc-\xC3\x89", gh2::tolower("AbC-\xC3\x89"));
  EXPECT_EQ("ABC-\xC3\xA9", gh2::toupper("aBc-\xC3\xA9"));
}
