#include <mota/strings/gh2/narrow.hpp>

#include <gtest/gtest.h>

#include <string>

namespace gh2 = mota::strings::gh2;

TEST(Gh2Utf8, ClassifiesAndValidatesTheFirstSequence) {
  struct {
    const char* bytes;
    unsigned int size;
    unsigned int length;
    bool valid;
  } const cases[] = {
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
  for (const auto& c : cases) {
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(c.bytes);
    EXPECT_EQ(c.length, gh2::get_utf8_length(c.bytes, c.size)) << c.bytes;
    EXPECT_EQ(c.length, gh2::get_utf8_length(bytes, c.size)) << c.bytes;
    EXPECT_EQ(c.valid, gh2::validate_utf8(c.bytes, c.size)) << c.bytes;
    EXPECT_EQ(c.valid, gh2::validate_utf8(bytes, c.size)) << c.bytes;
  }
  EXPECT_EQ(0u, gh2::get_utf8_length(static_cast<const char*>(nullptr), 4));
  EXPECT_FALSE(gh2::validate_utf8(static_cast<const unsigned char*>(nullptr), 4));
}

// replace_all is checked against a plain model by the strings fuzz target.
TEST(Gh2Narrow, CaseMappingWorksPerByte) {
  EXPECT_EQ("abc-\xC3\x89", gh2::tolower("AbC-\xC3\x89"));
  EXPECT_EQ("ABC-\xC3\xA9", gh2::toupper("aBc-\xC3\xA9"));
}
