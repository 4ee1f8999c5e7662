#include <mota/exceptions/logic_error.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/types/variant.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>

namespace {

using mota::serialization::labeled_serialize_buffer;
using mota::serialization::labeled_text_buffer;
using mota::types::variant;

// One string item of the text encoding: length, 0x01, bytes, 0x01.
std::string item(const std::string& bytes) {
  return std::to_string(bytes.size()) + "\x01" + bytes + "\x01";
}

TEST(LabeledTextBuffer, WritesFlatLabelPayloadPairsInLabelOrder) {
  labeled_text_buffer tree;
  tree.create_group("g").add_value("x", variant("ok"));
  tree.add_value("a", variant(1));
  const std::string nested = item("x") + item("ok");
  EXPECT_EQ(item("a") + item("1") + item("g ") + item(nested), tree.as_str());

  // A value beside a non-empty group is written first under the bare label; a nil value with
  // no group is written as empty text.
  tree.add_value("g", variant(2.5));
  tree.create_group("n");
  EXPECT_EQ(item("a") + item("1") + item("g") + item("2.5") + item("g ") + item(nested) +
                item("n") + item(""),
            tree.as_str());
}

TEST(LabeledTextBuffer, ReadsBackLabelsGroupsAndValuesAsStdStrings) {
  labeled_text_buffer tree;
  tree.add_value("count", variant(42));
  tree.add_value("g", variant(true));
  labeled_text_buffer& group = tree.create_group("g");
  group.add_value("name", variant("a\x01"
                                  "b"));
  group.create_group("deep").add_value("pi", variant(3.5));

  const labeled_text_buffer copy(tree.as_str());
  EXPECT_EQ(tree.as_str(), copy.as_str());
  const variant count = copy.retrieve_value("count");
  EXPECT_TRUE(count.type() == typeid(std::string));
  EXPECT_EQ(42, count.as_int());
  EXPECT_EQ("1", copy.retrieve_value("g").as_string());
  ASSERT_NE(nullptr, copy.retrieve_group("g"));
  EXPECT_EQ(
      "a\x01"
      "b",
      copy.retrieve_group("g")->retrieve_value("name").as_string());
  const labeled_text_buffer* deep = copy.retrieve_group("g")->retrieve_group("deep");
  ASSERT_NE(nullptr, deep);
  EXPECT_EQ(3.5, deep->retrieve_value("pi").as_double());
  EXPECT_TRUE(copy.has_group("g"));
  EXPECT_FALSE(copy.has_group("count"));
}

TEST(LabeledTextBuffer, AddTrimsLabelsButLookupsDoNot) {
  labeled_text_buffer tree;
  EXPECT_FALSE(tree.add_value(" \t k \r\n", variant(1)));
  EXPECT_TRUE(tree.has_label("k"));
  EXPECT_FALSE(tree.has_label(" k "));
  EXPECT_EQ(1, tree.retrieve_value("k").as_int());
  EXPECT_TRUE(tree.retrieve_value(" k ") == mota::types::nil);
  EXPECT_EQ(nullptr, tree.retrieve_group(" k "));
  tree.create_group(" h\t").add_value("x", variant(1));
  EXPECT_TRUE(tree.has_group("h"));
  // Only the four blanks are trimmed.
  tree.add_value("\vv\v", variant(1));
  EXPECT_TRUE(tree.has_label("\vv\v"));
}

TEST(LabeledTextBuffer, AddReportsWhetherAValueWasReplaced) {
  labeled_text_buffer tree;
  EXPECT_TRUE(tree.is_empty());
  tree.create_group("k");
  EXPECT_TRUE(tree.has_label("k"));
  EXPECT_FALSE(tree.has_value("k"));
  EXPECT_FALSE(tree.has_group("k"));  // the group exists but is empty
  EXPECT_FALSE(tree.add_value("k", variant(1)));
  EXPECT_TRUE(tree.has_value("k"));
  EXPECT_TRUE(tree.add_value("k", variant(2)));
  EXPECT_EQ(2, tree.retrieve_value("k").as_int());
  EXPECT_FALSE(tree.is_empty());
}

TEST(LabeledTextBuffer, ParsesRawTextEdgeCases) {
  // A label ending in a space always announces a group.
  labeled_text_buffer tree(item("k ") + item(item("x") + item("1")) + item("tail"));
  EXPECT_TRUE(tree.has_group("k"));
  EXPECT_FALSE(tree.has_label("k "));
  EXPECT_EQ("1", tree.retrieve_group("k")->retrieve_value("x").as_string());
  // Text that ends after a label gives an empty string value.
  EXPECT_TRUE(tree.has_value("tail"));
  EXPECT_TRUE(tree.retrieve_value("tail").type() == typeid(std::string));
  EXPECT_EQ("", tree.retrieve_value("tail").as_string());

  // Parsing replaces every entry.
  tree.assign(item("only") + item("v"));
  EXPECT_FALSE(tree.has_label("k"));
  const std::string raw = item("a") + item("b");
  tree.assign(raw.data(), static_cast<int>(raw.size()));
  EXPECT_EQ("b", tree.retrieve_value("a").as_string());
  tree.assign(raw.data(), 0);
  EXPECT_TRUE(tree.is_empty());
}

TEST(LabeledTextBuffer, MalformedLengthsThrowAndKeepWhatWasRead) {
  labeled_text_buffer tree;
  // The second label's length overshoots, so its value is read from beyond the text.
  const std::string text = item("a") + item("1") +
                           "20\x01"
                           "bb\x01" +
                           item("c");
  EXPECT_THROW_WHAT(tree.assign(text), std::out_of_range,
                    "basic_string::substr: __pos (which is 32) > this->size() (which is 18)");
  EXPECT_EQ("1", tree.retrieve_value("a").as_string());
  EXPECT_FALSE(tree.has_label("c"));
  // A value's overshooting length merely ends the text.
  tree.assign(item("a") +
              "20\x01"
              "bb\x01" +
              item("c"));
  EXPECT_EQ(
      "bb\x01"
      "1\x01"
      "c\x01",
      tree.retrieve_value("a").as_string());
}

TEST(LabeledTextBuffer, RefusesGroupsNestedBeyondTheLimit) {
  auto nest = [](unsigned int levels) {
    std::string text = item("v") + item("1");
    for (unsigned int i = 0; i < levels; ++i)
      text = item("g ") + item(text);
    return text;
  };
  labeled_text_buffer tree(nest(labeled_text_buffer::max_depth));
  const labeled_text_buffer* group = &tree;
  for (unsigned int i = 0; i < labeled_text_buffer::max_depth; ++i) {
    group = group->retrieve_group("g");
    ASSERT_NE(nullptr, group);
  }
  EXPECT_EQ("1", group->retrieve_value("v").as_string());
  EXPECT_THROW_MSG(tree.assign(nest(labeled_text_buffer::max_depth + 1)),
                   mota::exceptions::length_error, "Labeled text nested too deeply");
}

TEST(LabeledTextBuffer, OverlayMergesEntryByEntryWithItsAsymmetry) {
  labeled_text_buffer target;
  target.add_value("kept", variant(1));
  target.add_value("cleared", variant(2));
  target.add_value("grouped", variant(3));
  target.create_group("grouped").add_value("inner", variant(4));
  target.add_value("replaced", variant(5));

  labeled_text_buffer source;
  source.create_group("cleared");  // nil value, empty group: clears the target's value
  source.create_group("grouped").add_value("more", variant(6));  // nil value, non-empty group
  source.add_value("replaced", variant(7));
  source.create_group("new").add_value("x", variant(8));

  target.overlay(source);
  EXPECT_EQ(1, target.retrieve_value("kept").as_int());
  EXPECT_TRUE(target.has_label("cleared"));
  EXPECT_FALSE(target.has_value("cleared"));
  EXPECT_EQ(3, target.retrieve_value("grouped").as_int());
  EXPECT_EQ(4, target.retrieve_group("grouped")->retrieve_value("inner").as_int());
  EXPECT_EQ(6, target.retrieve_group("grouped")->retrieve_value("more").as_int());
  EXPECT_EQ(7, target.retrieve_value("replaced").as_int());
  EXPECT_EQ(8, target.retrieve_group("new")->retrieve_value("x").as_int());

  source.retrieve_group("grouped")->add_value("more", variant(9));
  source.add_value("grouped", variant(10));
  target.overlay(source);
  EXPECT_EQ(10, target.retrieve_value("grouped").as_int());
  EXPECT_EQ(9, target.retrieve_group("grouped")->retrieve_value("more").as_int());
  // The copied group is the target's own.
  EXPECT_EQ(8, target.retrieve_group("new")->retrieve_value("x").as_int());
}

TEST(LabeledTextBuffer, AssignAndOverlayFromOwnGroupsAreSafe) {
  labeled_text_buffer tree;
  tree.create_group("g").create_group("g").add_value("x", variant(1));
  tree.add_value("y", variant(2));
  tree.overlay(*tree.retrieve_group("g"));
  EXPECT_EQ(1, tree.retrieve_group("g")->retrieve_value("x").as_int());
  EXPECT_EQ(2, tree.retrieve_value("y").as_int());
  tree.assign(*tree.retrieve_group("g"));
  EXPECT_FALSE(tree.has_label("y"));
  EXPECT_EQ(1, tree.retrieve_group("g")->retrieve_value("x").as_int());
  const labeled_serialize_buffer& self = tree;
  tree.assign(self);
  EXPECT_TRUE(tree.has_group("g"));
}

TEST(LabeledTextBuffer, CloneCopiesGroupsAndCreateIsEmpty) {
  labeled_text_buffer tree;
  tree.create_group("g").add_value("x", variant(1));
  mota::memory::pointers::rc_pointer<labeled_serialize_buffer> clone(tree.clone());
  EXPECT_TRUE(clone->delete_on_zero());
  EXPECT_EQ(1, clone->reference_count());
  clone->retrieve_group("g")->add_value("x", variant(2));
  EXPECT_EQ(1, tree.retrieve_group("g")->retrieve_value("x").as_int());
  EXPECT_EQ(2, clone->retrieve_group("g")->retrieve_value("x").as_int());
  std::unique_ptr<labeled_text_buffer> fresh(tree.create());
  EXPECT_TRUE(fresh->delete_on_zero());
  EXPECT_TRUE(fresh->is_empty());
}

}  // namespace
