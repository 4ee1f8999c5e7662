#include <mota/strings/utf8_check.hpp>

#include <gtest/gtest.h>

TEST(Utf8Check, GivesTheOffsetOfTheFirstBadSequence) {
  const std::size_t none = std::string::npos;
  const std::pair<std::string, std::size_t> cases[] = {
      {"", none},
      {"plain \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80", none},
      {"a\x80", 1},             // stray continuation byte
      {"ab\xC0\xAF", 2},        // overlong two-byte form
      {"\xE0\x80\xAF", 0},      // overlong three-byte form
      {"x\xED\xA0\x80", 1},     // surrogate
      {"\xF4\x90\x80\x80", 0},  // above U+10FFFF
      {"ok\xE2\x82", 2},        // cut short at the end
      {"\xC3\xA4\xC3(", 2},     // bad continuation
  };
  for (const auto& [text, offset] : cases)
    EXPECT_EQ(offset, mota::strings::invalid_utf8_offset(text)) << text;
}
