#include <mota/strings/utf.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <tuple>
#include <vector>

namespace s = mota::strings;

namespace {

const unsigned int all_ones = 0xFFFFFFFFu;

s::ustring16 u16(std::initializer_list<unsigned short> units) {
  return s::ustring16(units);
}
s::ustring32 u32(std::initializer_list<std::uint32_t> cps) {
  return s::ustring32(cps.begin(), cps.end());
}
const s::ustring8 minus_one8 = "-1";
const s::ustring16 minus_one16 = u16({'-', '1'});

// A text of `length` ASCII letters with `insert` (in each encoding) placed at `at`, to walk the
// block boundaries of the converters' ASCII paths.
template <typename String>
String ascii_with(std::size_t length, std::size_t at, const String& insert) {
  String r;
  for (std::size_t i = 0; i < length; ++i) {
    if (i == at) r += insert;
    r.push_back(static_cast<typename String::value_type>('a' + i % 26));
  }
  if (at >= length) r += insert;
  return r;
}

}  // namespace

// Which sequences are whole is checked against the gh2 validator by the utf fuzz target; the
// validator's own rows are in narrow_test.cpp. Rows: text, size, index, code point, count.
TEST(Unichar, DecodesUtf8ByLeadByteClassUtf16PairsAndUtf32Elements) {
  const std::tuple<const char*, unsigned int, unsigned int, std::uint32_t, unsigned int> cases8[] =
      {
          {"a\xC3\xA9", 3, 1, 0xE9, 2},
          {"\xC0\x80", 2, 0, 0, 2},                  // overlong: decoded as is
          {"\xED\xA0\x80", 3, 0, 0xD800, 3},         // encoded surrogate: decoded as is
          {"\xF7\xBF\xBF\xBF", 4, 0, 0x1FFFFF, 4},   // beyond U+10FFFF: decoded as is
          {"\xC3\xA9", 1, 0, 63, all_ones},          // size cuts the sequence
          {"\xF0\x9F\xC3\x80", 4, 0, 63, all_ones},  // bad continuation
          {"AB", 2, 2, 63, all_ones},                // index at the size
      };
  unsigned int count = 12345;
  for (const auto& [bytes, size, index, code, n] : cases8) {
    EXPECT_EQ(code, s::unichar(bytes, size, index, count)) << bytes;
    EXPECT_EQ(n, count) << bytes;
  }
  const std::tuple<s::ustring16, unsigned int, unsigned int, std::uint32_t, unsigned int>
      cases16[] = {
          {u16({0x41, 0xD83D, 0xDE00}), 3, 1, 0x1F600, 2},
          {u16({0xD83D, 0xDE00}), 1, 0, 63, all_ones},  // the pair lies beyond size
          {u16({0xD83D, 0x41}), 2, 0, 63, all_ones},
          {u16({0xDE00, 0x41}), 2, 0, 63, all_ones},
          {u16({0x41}), 1, 1, 63, all_ones},
      };
  for (const auto& [units, size, index, code, n] : cases16) {
    EXPECT_EQ(code, s::unichar(units.data(), size, index, count)) << index;
    EXPECT_EQ(n, count) << index;
  }
  // A UTF-32 element is returned as it is.
  const s::ustring32 text = u32({0x41, 0x110000, 0xFFFFFFFF});
  EXPECT_EQ(0xFFFFFFFFu, s::unichar(text.data(), 3, 2, count));
  EXPECT_EQ(1u, count);
  EXPECT_EQ(63u, s::unichar(text.data(), 3, 3, count));
  EXPECT_EQ(all_ones, count);
}

// Overlongs and surrogates decode as is. Any undecodable sequence (among ASCII: the sweep below)
// makes utf8_to_utf16 give "-1"; utf8_to_utf32 replaces each undecodable byte by "?", resuming.
TEST(Conversions, UndecodableAndUnencodableTexts) {
  EXPECT_EQ(s::ustring16(), s::utf8_to_utf16(""));
  EXPECT_EQ(u16({0x0, 0xD800}),
            s::utf8_to_utf16(s::ustring8(std::string("\xC0\x80\xED\xA0\x80", 5))));
  for (const char* bad : {"\xFF", "\x80", "\xE2\x82", "\xF0\x9F\x98", "\xF8\x88\x80\x80\x80"})
    EXPECT_EQ(minus_one16, s::utf8_to_utf16(bad)) << bad;
  EXPECT_EQ(u32({63, 63, 'Z'}), s::utf8_to_utf32("\xE2\x82Z"));
  EXPECT_EQ(u32({63, 0xE9}), s::utf8_to_utf32("\x80\xC3\xA9"));
  EXPECT_EQ(s::ustring32(), s::utf8_to_utf32(""));

  // Encoding: bad surrogates give "-1", values above the range are dropped. utf16_to_utf32
  // fails on the same texts as utf16_to_utf8 (the utf fuzz target checks that); the sweep below
  // and the iconv fuzz target cover the rest of the encoders.
  for (const auto& bad : {u16({0xD83D}), u16({0xDE00}), u16({0xD83D, 0x41}), u16({0x41, 0xD83D}),
                          u16({0xDE00, 0xD83D}), u16({0xFFFE, 0x3DD8})})
    EXPECT_EQ(minus_one8, s::utf16_to_utf8(bad));
  EXPECT_EQ("AB", s::utf32_to_utf8(u32({0x41, 0xFFFFFFFF, 0x42})));  // far above, as unsigned
  EXPECT_EQ(minus_one8, s::utf32_to_utf8(u32({0x41, 0xDFFF})));
  EXPECT_EQ(minus_one8, s::utf32_to_utf8(u32({0x110000, 0xDABC})));
  // A negative value compares below 0xFFFF and is kept as one cut unit.
  EXPECT_EQ(u16({0xFFFE}), s::utf32_to_utf16(u32({0xFFFFFFFE})));
  for (std::uint32_t bad : {0xD800u, 0xDFFFu, 0x110000u})
    EXPECT_EQ(minus_one16, s::utf32_to_utf16(u32({0x41, bad}))) << bad;
}

TEST(Conversions, NonAsciiAtEveryPositionAroundAsciiBlocks) {
  for (std::size_t length = 0; length < 40; ++length) {
    for (std::size_t at = 0; at <= length; ++at) {
      SCOPED_TRACE(testing::Message() << "length " << length << " at " << at);
      const s::ustring8 text8 = ascii_with<s::ustring8>(length, at, "\xC3\xA9\xF0\x9F\x98\x80");
      const s::ustring16 text16 = ascii_with<s::ustring16>(length, at, u16({0xE9, 0xD83D, 0xDE00}));
      const s::ustring32 text32 = ascii_with<s::ustring32>(length, at, u32({0xE9, 0x1F600}));
      EXPECT_EQ(text16, s::utf8_to_utf16(text8));
      EXPECT_EQ(text32, s::utf8_to_utf32(text8));
      EXPECT_EQ(text8, s::utf16_to_utf8(text16));
      EXPECT_EQ(text32, s::utf16_to_utf32(text16));
      EXPECT_EQ(text8, s::utf32_to_utf8(text32));

      EXPECT_EQ(minus_one16, s::utf8_to_utf16(ascii_with<s::ustring8>(length, at, "\xC3")));
      EXPECT_EQ(ascii_with<s::ustring32>(length, at, u32({63})),
                s::utf8_to_utf32(ascii_with<s::ustring8>(length, at, "\x80")));
      EXPECT_EQ(minus_one8, s::utf16_to_utf8(ascii_with<s::ustring16>(length, at, u16({0xDE00}))));
      EXPECT_EQ(minus_one8, s::utf32_to_utf8(ascii_with<s::ustring32>(length, at, u32({0xD800}))));
      EXPECT_EQ(ascii_with<s::ustring8>(length, at, ""),
                s::utf32_to_utf8(ascii_with<s::ustring32>(length, at, u32({0x110000}))));
    }
  }
}

TEST(StringLength, CountsElementsUpToZeroOrTheSize) {
  const unsigned short units[] = {0x41, 0xD83D, 0xDE00, 0};
  EXPECT_EQ(3u, s::string_length("a\xC3\xA9"));
  EXPECT_EQ(3u, s::string_length(units));
  EXPECT_EQ(2u, s::string_length(L"ab"));
  EXPECT_EQ(0u, s::string_length(static_cast<const char*>(nullptr)));
  EXPECT_EQ(0u, s::string_length(static_cast<const unsigned short*>(nullptr)));
  EXPECT_EQ(0u, s::string_length(static_cast<const wchar_t*>(nullptr)));
  EXPECT_EQ(4u, s::string_length(s::ustring8(std::string("a\0b\0", 4))));
  EXPECT_EQ(3u, s::string_length(u16({0, 0xD83D, 0xDE00})));
  EXPECT_EQ(2u, s::string_length(u32({0, 0x1F600})));
}

TEST(CharacterIndex, WalksWholeCharactersTestingOnlyTheFirstUnitForALoneLowSurrogate) {
  // Each character's index in turn, up to the first -1.
  const auto walk = [](const auto& text) {
    std::vector<int> out;
    for (unsigned int n = 0; n <= text.size() && (out.empty() || out.back() != -1); ++n)
      out.push_back(s::character_index(text, n));
    return out;
  };
  using indexes = std::vector<int>;
  EXPECT_EQ(indexes({0, 1, 4, 5, -1}), walk(s::ustring8("a\xE2\x82\xACz")));
  EXPECT_EQ(indexes({-1}), walk(s::ustring8("")));
  EXPECT_EQ(indexes({0, -1}), walk(s::ustring8("\x80z")));
  EXPECT_EQ(indexes({0, 1, 2, -1}), walk(s::ustring8("ab\xFF")));
  EXPECT_EQ(indexes({0, 1, -1}), walk(s::ustring8("a\xE2\x82zz")));
  EXPECT_EQ(indexes({0, 1, 2, -1}), walk(s::ustring8("ab\xF0\x9F\x98")));
  EXPECT_EQ(indexes({0, 1, 3, 4, -1}), walk(u16({0x41, 0xD83D, 0xDE00, 0x42})));
  EXPECT_EQ(indexes({0, -1}), walk(u16({0xDC00, 0x41, 0x42})));
  EXPECT_EQ(indexes({0, 1, 2, -1}), walk(u16({0x41, 0xDC00, 0x42})));
  EXPECT_EQ(indexes({0, 1, -1}), walk(u16({0x41, 0xD83D, 0x42})));
  EXPECT_EQ(indexes({0, 1, 3, -1}), walk(u16({0x41, 0xD83D, 0xDE00})));
}
