#include <mota/i18n/argument_comparison.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

using mota::i18n::message_item;
using mota::i18n::message_t;

namespace {

// An argument slot; "|" in `text` stands for the separator of its format pairs.
message_item arg(std::string text, message_item::type_t kind) {
  std::replace(text.begin(), text.end(), '|', '\x01');
  return message_item(text, kind);
}

// The differences written as "kind:name:reference:translation", one per entry.
std::vector<std::string> differences(const message_t::items_type& reference,
                                     const message_t::items_type& translation) {
  std::vector<std::string> text;
  for (const auto& d :
       mota::i18n::compare_arguments(message_t("m", reference), message_t("m", translation)))
    text.push_back(std::to_string(d.kind) + ":" + d.name + ":" + d.reference + ":" + d.translation);
  return text;
}

}  // namespace

TEST(ArgumentComparison, FindsEachKindOfDifference) {
  const message_item size = arg("size|base_unit|B", message_item::memory);
  const message_item size_unit = arg("size|base_unit|B", message_item::memory_unit);
  const message_item count = arg("count", message_item::int_);
  const message_item n = arg("n", message_item::int_);
  using items = message_t::items_type;
  const std::tuple<items, items, std::vector<std::string>> cases[] = {
      // Same slots in another order, with other text around them and a repeated slot.
      {{message_item("Got "), size, size_unit, message_item(" in "), count},
       {count, message_item(" x "), size_unit, size, size},
       {}},
      {{size, count}, {size}, {"0:count::"}},
      {{size}, {size, count}, {"1:count::"}},
      {{count}, {n}, {"2:count::n"}},
      // Two vanished and one new name: the first pairs up, the second is missing.
      {{count, arg("total", message_item::double_)}, {n}, {"2:count::n", "0:total::"}},
      {{size, size_unit},
       {arg("size", message_item::double_)},
       {"3:size:memory, memory_unit:double"}},
      // Format pairs compare without regard to their order.
      {{arg("t|precision|2|fieldsize|8", message_item::double_)},
       {arg("t|fieldsize|8|precision|2", message_item::double_)},
       {}},
      {{arg("t|precision|2", message_item::double_)},
       {arg("t|precision|3", message_item::double_)},
       {"4:t:precision=2:precision=3"}},
      // A "value" slot is text, not an argument.
      {{message_item("v", message_item::text)}, {}, {}},
  };
  for (const auto& [reference, translation, expected] : cases)
    EXPECT_EQ(expected, differences(reference, translation))
        << (expected.empty() ? "" : expected[0]);
}
