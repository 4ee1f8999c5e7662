#include <mota/strings/bom.hpp>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace s = mota::strings;

TEST(Bom, SwappingAndRemovingTheMark) {
  const s::ustring16 text{0x1234, 0x00FF, 0xFEFF}, swapped{0x3412, 0xFF00, 0xFFFE};
  EXPECT_EQ(swapped, s::swap_string_bytes_order(text));
  s::ustring16 in_place = text;
  s::modify_swap_string_bytes_order(in_place);
  EXPECT_EQ(swapped, in_place);
  // check_BOM_and_swap swaps only when the first unit is a swapped mark. Its in-place form
  // agrees with the copying one: the utf fuzz target checks that.
  EXPECT_EQ((s::ustring16{0xFEFF, 0x0041}), s::check_BOM_and_swap(s::ustring16{0xFFFE, 0x4100}));
  for (const auto& unchanged :
       {s::ustring16{0xFEFF, 0x4100}, s::ustring16{0x4100, 0xFFFE}, s::ustring16()})
    EXPECT_EQ(unchanged, s::check_BOM_and_swap(unchanged));
  const std::pair<const char*, const char*> cases[] = {
      {"\xEF\xBB\xBFz", "z"},
      {"\xEF\xBB\xBF", ""},
      {"\xEF\xBBz", "\xEF\xBBz"},
      {"z\xEF\xBB\xBF", "z\xEF\xBB\xBF"},
      {"\xEF\xBB\xBF\xEF\xBB\xBFz", "\xEF\xBB\xBFz"},  // only one mark
  };
  for (const auto& [in, out] : cases)
    EXPECT_EQ(s::ustring8(out), s::remove_BOM(s::ustring8(in))) << in;

  EXPECT_EQ((s::ustring16{0x41}), s::remove_BOM(s::ustring16{0xFEFF, 0x41}));
  EXPECT_EQ((s::ustring16{0xFFFE, 0x41}), s::remove_BOM(s::ustring16{0xFFFE, 0x41}));
  EXPECT_EQ(s::ustring16(), s::remove_BOM(s::ustring16()));
  EXPECT_EQ(s::ustring32(L"z"), s::remove_BOM(s::ustring32(L"\xFEFFz")));
  EXPECT_EQ(s::ustring32(L"\xFFFEz"), s::remove_BOM(s::ustring32(L"\xFFFEz")));
}
