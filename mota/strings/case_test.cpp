#include <mota/strings/case.hpp>

#include <gtest/gtest.h>

#include <string>

namespace s = mota::strings;

TEST(Case, MapsSingleUnitLettersOnly) {
  EXPECT_EQ(s::ustring8("mixed 1-\xC3\x89t\xC3\xA9"),
            s::to_lower(s::ustring8("MiXeD 1-\xC3\x89T\xC3\xA9")));
  EXPECT_EQ(s::ustring8("MIXED 1-\xC3\x89T\xC3\xA9"),
            s::to_upper(s::ustring8("MiXeD 1-\xC3\x89t\xC3\xA9")));
  EXPECT_EQ(s::ustring32(L"abc\x0100\x1F600"), s::to_lower(s::ustring32(L"ABC\x0100\x1F600")));
  const s::ustring16 upper16{0x41, 0x5A, 0x141, 0xFF41};
  EXPECT_EQ((s::ustring16{0x61, 0x7A, 0x141, 0xFF41}), s::to_lower(upper16));
  EXPECT_EQ((s::ustring16{0x41, 0x5A, 0x141, 0xFF41}),
            s::to_upper(s::ustring16{0x61, 0x7A, 0x141, 0xFF41}));
}

TEST(Case, LowerCaseMapsOnlyTheGivenRange) {
  struct {
    unsigned int start;
    unsigned int end;
    const char* out;
  } const cases[] = {
      {1, 0xFFFFFFFFu, "Abcd"}, {0, 0xFFFFFFFFu, "abcd"}, {1, 3, "AbcD"},           {0, 0, "ABCD"},
      {3, 1, "ABCD"},           {2, 99, "ABcd"},          {9, 0xFFFFFFFFu, "ABCD"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(s::ustring8(c.out), s::lower_case(s::ustring8("ABCD"), c.start, c.end))
        << c.start << ".." << c.end;
  }
  EXPECT_EQ(s::ustring32(L"Abcd"), s::lower_case(s::ustring32(L"ABCD"), 1, 0xFFFFFFFFu));
  EXPECT_EQ((s::ustring16{0x41, 0x62, 0x43}), s::lower_case(s::ustring16{0x41, 0x42, 0x43}, 1, 2));
}
