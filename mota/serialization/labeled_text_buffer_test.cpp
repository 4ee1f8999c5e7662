#include <mota/memory/rc_pointer.hpp>
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/types/variant.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <cstddef>
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

  // A value beside a non-empty group comes first under the bare label; a nil value with no
  // group is written as empty text.
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
  group.add_value("name", variant("a\x01z"));
  group.create_group("deep").add_value("pi", variant(3.5));

  const labeled_text_buffer copy(tree.as_str());
  EXPECT_EQ(tree.as_str(), copy.as_str());
  EXPECT_TRUE(copy.retrieve_value("count").type() == typeid(std::string));
  EXPECT_EQ("1", copy.retrieve_value("g").as_string());
  EXPECT_EQ("3.5",
            copy.retrieve_group("g")->retrieve_group("deep")->retrieve_value("pi").as_string());
}

TEST(LabeledTextBuffer, AddTrimsLabelsButLookupsDoNot) {
  labeled_text_buffer tree;
  EXPECT_FALSE(tree.add_value(" \t k \r\n", variant(1)));
  EXPECT_TRUE(tree.has_label("k"));
  EXPECT_FALSE(tree.has_label(" k "));
  EXPECT_EQ(1, tree.retrieve_value("k").as_int());
  EXPECT_TRUE(tree.retrieve_value(" k ") == mota::types::nil);
  EXPECT_TRUE(tree.add_value("k", variant(2)));  // replaced a value
  tree.add_value("\vv\v", variant(1));           // only the four blanks are trimmed
  EXPECT_TRUE(tree.has_label("\vv\v"));

  tree.create_group(" h\t");
  EXPECT_TRUE(tree.has_label("h"));
  EXPECT_FALSE(tree.has_value("h"));
  EXPECT_FALSE(tree.has_group("h"));              // the group exists but is empty
  EXPECT_FALSE(tree.add_value("h", variant(3)));  // its value was nil
  tree.create_group("h").add_value("x", variant(1));
  EXPECT_TRUE(tree.has_group("h"));
  EXPECT_EQ(3, tree.retrieve_value("h").as_int());
}

TEST(LabeledTextBuffer, ParsesRawTextEdgeCases) {
  // A label ending in a space always announces a group; a text ending after a label gives an
  // empty string value.
  labeled_text_buffer tree(item("k ") + item(item("x") + item("1")) + item("tail"));
  EXPECT_TRUE(tree.has_group("k"));
  EXPECT_FALSE(tree.has_label("k "));
  EXPECT_EQ("1", tree.retrieve_group("k")->retrieve_value("x").as_string());
  EXPECT_TRUE(tree.retrieve_value("tail").type() == typeid(std::string));
  EXPECT_EQ("", tree.retrieve_value("tail").as_string());

  const std::string raw = item("a") + item("b");
  tree.assign(raw.data(), static_cast<int>(raw.size()));  // replaces every entry
  EXPECT_FALSE(tree.has_label("k"));
  EXPECT_EQ("b", tree.retrieve_value("a").as_string());
  tree.assign(raw.data(), 0);
  EXPECT_TRUE(tree.is_empty());
}

TEST(LabeledTextBuffer, MalformedTextThrowsAndKeepsWhatWasRead) {
  labeled_text_buffer tree;
  // The second label's length overshoots, so its value is read from beyond the text.
  const std::string text = item("a") + item("1") + "20\x01" + "zz\x01" + item("c");
  EXPECT_THROWS_STD(tree.assign(text), std::out_of_range,
                    "basic_string::substr: __pos (which is 32) > this->size() (which is 18)");
  EXPECT_EQ("1", tree.retrieve_value("a").as_string());
  EXPECT_FALSE(tree.has_label("c"));

  // Inside a group the same fault reports its position in the group's own text.
  EXPECT_THROWS_STD(tree.assign(item("a") + item("1") + item("k ") + item(text)), std::out_of_range,
                    "basic_string::substr: __pos (which is 32) > this->size() (which is 18)");
  EXPECT_EQ("1", tree.retrieve_value("a").as_string());
  ASSERT_NE(nullptr, tree.retrieve_group("k"));
  EXPECT_EQ("1", tree.retrieve_group("k")->retrieve_value("a").as_string());
}

// A chain of `depth` groups labeled g, with the value "v<level>" beside every 1000th and `leaf`
// under the label leaf at the bottom.
void build_chain(labeled_text_buffer& tree, std::size_t depth, const std::string& leaf) {
  labeled_text_buffer* group = &tree;
  for (std::size_t level = 0; level < depth; ++level) {
    if (level % 1000 == 0) group->add_value("v", variant("v" + std::to_string(level)));
    group = &group->create_group("g");
  }
  group->add_value("leaf", variant(leaf));
}

// Walks two chains made by build_chain side by side, without recursion; false at the first
// difference in labels or values.
bool same_chain(const labeled_text_buffer& a, const labeled_text_buffer& b, std::size_t depth) {
  const labeled_text_buffer* x = &a;
  const labeled_text_buffer* y = &b;
  for (std::size_t level = 0; level < depth; ++level) {
    if (x->retrieve_value("v").as_string() != y->retrieve_value("v").as_string()) return false;
    x = x->retrieve_group("g");
    y = y->retrieve_group("g");
    if (x == nullptr || y == nullptr) return false;
  }
  return x->retrieve_value("leaf").as_string() == y->retrieve_value("leaf").as_string() &&
         !x->has_label("g") && !y->has_label("g");
}

template <class Tree>
Tree& bottom(Tree& tree, std::size_t depth) {
  Tree* group = &tree;
  for (std::size_t level = 0; level < depth; ++level)
    group = group->retrieve_group("g");
  return *group;
}

TEST(LabeledTextBuffer, TreesOfAnyDepthWriteReadCopyOverlayAndDie) {
  // Far deeper than any call stack would take one level per frame.
  constexpr std::size_t depth = 200000;
  labeled_text_buffer tree;
  build_chain(tree, depth, "end");
  EXPECT_TRUE(tree.has_group("g"));

  const std::string text = tree.as_str();
  labeled_text_buffer back(text);
  EXPECT_TRUE(same_chain(tree, back, depth));
  EXPECT_EQ(text, back.as_str());

  {
    mota::memory::pointers::rc_pointer<labeled_serialize_buffer> clone(tree.clone());
    EXPECT_TRUE(same_chain(tree, static_cast<const labeled_text_buffer&>(*clone), depth));
  }

  labeled_text_buffer copy(tree);
  bottom(back, depth).add_value("leaf", variant("new"));
  copy.overlay(back);
  EXPECT_EQ("new", bottom(copy, depth).retrieve_value("leaf").as_string());
  EXPECT_EQ("end", bottom(tree, depth).retrieve_value("leaf").as_string());

  copy = tree;
  EXPECT_TRUE(same_chain(tree, copy, depth));
}

TEST(LabeledTextBuffer, LargeValueUnderManyGroupsReadsBack) {
  // The value's bytes are in the text once; each group adds only its label and length.
  constexpr std::size_t depth = 255;
  const std::string large(std::size_t{4} << 20, 'x');
  labeled_text_buffer tree;
  build_chain(tree, depth, large);
  const std::string text = tree.as_str();
  EXPECT_LT(text.size(), large.size() + depth * 32);

  const labeled_text_buffer back(text);
  EXPECT_EQ(large, bottom(back, depth).retrieve_value("leaf").as_string());
  EXPECT_EQ(text, back.as_str());
}

TEST(LabeledTextBuffer, OverlayMergesEntryByEntryWithItsAsymmetry) {
  labeled_text_buffer target;
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
  EXPECT_TRUE(target.has_label("cleared"));
  EXPECT_FALSE(target.has_value("cleared"));
  EXPECT_EQ(3, target.retrieve_value("grouped").as_int());
  EXPECT_EQ(4, target.retrieve_group("grouped")->retrieve_value("inner").as_int());
  EXPECT_EQ(6, target.retrieve_group("grouped")->retrieve_value("more").as_int());
  EXPECT_EQ(7, target.retrieve_value("replaced").as_int());

  source.retrieve_group("new")->add_value("x", variant(0));  // the copy is the target's own
  EXPECT_EQ(8, target.retrieve_group("new")->retrieve_value("x").as_int());
}

TEST(LabeledTextBuffer, CopiesAreDeepAndMayComeFromOwnGroups) {
  labeled_text_buffer tree;
  tree.create_group("g").create_group("g").add_value("x", variant(1));
  tree.add_value("y", variant(2));
  mota::memory::pointers::rc_pointer<labeled_serialize_buffer> clone(tree.clone());
  EXPECT_TRUE(clone->delete_on_zero());
  clone->retrieve_group("g")->add_value("z", variant(3));
  EXPECT_FALSE(tree.retrieve_group("g")->has_label("z"));

  tree.overlay(*tree.retrieve_group("g"));  // adds x beside g
  EXPECT_EQ(1, tree.retrieve_group("g")->retrieve_value("x").as_int());
  tree.assign(*tree.retrieve_group("g"));
  EXPECT_FALSE(tree.has_label("y"));
  EXPECT_EQ(1, tree.retrieve_group("g")->retrieve_value("x").as_int());
}

}  // namespace
