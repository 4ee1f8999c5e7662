#include <mota/i18n/argument_comparison.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using mota::i18n::argument_difference;
using mota::i18n::compare_arguments;
using mota::i18n::message_item;
using mota::i18n::message_t;

namespace {

using arg = message_item;

// The differences written as "kind:name:reference:translation", one per entry.
std::vector<std::string> differences(const message_t::items_type& reference,
                                     const message_t::items_type& translation) {
  std::vector<std::string> text;
  for (const argument_difference& d :
       compare_arguments(message_t("m", reference), message_t("m", translation))) {
    text.push_back(std::to_string(d.kind) + ":" + d.name + ":" + d.reference + ":" + d.translation);
  }
  return text;
}

}  // namespace

TEST(ArgumentComparison, FindsEachKindOfDifference) {
  const message_item size =
      arg("size\x01"
          "base_unit\x01"
          "B",
          message_item::memory);
  const message_item size_unit =
      arg("size\x01"
          "base_unit\x01"
          "B",
          message_item::memory_unit);
  const message_item count = arg("count", message_item::int_);
  const struct {
    message_t::items_type reference, translation;
    std::vector<std::string> expected;
  } cases[] = {
      // Same slots in another order, with other text around them and a repeated slot.
      {{message_item("Got "), size, size_unit, message_item(" in "), count},
       {count, message_item(" x "), size_unit, size, size},
       {}},
      {{size, count}, {size}, {"0:count::"}},
      {{size}, {size, count}, {"1:count::"}},
      {{count}, {arg("n", message_item::int_)}, {"2:count::n"}},
      // Two vanished and one new name: the first pairs up, the second is missing.
      {{count, arg("total", message_item::double_)},
       {arg("n", message_item::int_)},
       {"2:count::n", "0:total::"}},
      {{size, size_unit},
       {arg("size", message_item::double_)},
       {"3:size:memory, memory_unit:double"}},
      // Format pairs compare without regard to their order.
      {{arg("t\x01"
            "precision\x01"
            "2\x01"
            "fieldsize\x01"
            "8",
            message_item::double_)},
       {arg("t\x01"
            "fieldsize\x01"
            "8\x01"
            "precision\x01"
            "2",
            message_item::double_)},
       {}},
      {{arg("t\x01"
            "precision\x01"
            "2",
            message_item::double_)},
       {arg("t\x01"
            "precision\x01"
            "3",
            message_item::double_)},
       {"4:t:precision=2:precision=3"}},
      // A "value" slot is text, not an argument.
      {{message_item("v", message_item::text)}, {}, {}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, differences(c.reference, c.translation))
        << (c.expected.empty() ? "" : c.expected[0]);
  }
}
