// Trees built by every operation (labels with blanks, groups, overlays, assignments, clones,
// copies, reads back) and the text they write are checked against a plain model by the labeled
// buffer fuzz target, and chains far deeper than any stack by the hostile run; these read raw
// text, which that model does not follow.
#include <mota/serialization/labeled_text_buffer.hpp>
#include <mota/types/variant.hpp>

#include <mota_test.hpp>

#include <stdexcept>
#include <string>
#include <typeinfo>

namespace {

using mota::serialization::labeled_text_buffer;

// One string item of the text encoding: length, 0x01, bytes, 0x01.
std::string item(const std::string& bytes) {
  return std::to_string(bytes.size()) + "\x01" + bytes + "\x01";
}

TEST(LabeledTextBuffer, ParsesRawTextUpToAFault) {
  // A label ending in a space always announces a group; a text ending after a label gives an
  // empty string value.
  labeled_text_buffer parsed(item("k ") + item(item("x") + item("1")) + item("tail"));
  EXPECT_TRUE(parsed.has_group("k"));
  EXPECT_FALSE(parsed.has_label("k "));
  EXPECT_EQ("1", parsed.retrieve_group("k")->retrieve_value("x").as_string());
  EXPECT_TRUE(parsed.retrieve_value("tail").type() == typeid(std::string));
  EXPECT_EQ("", parsed.retrieve_value("tail").as_string());

  const std::string raw = item("a") + item("b");
  parsed.assign(raw.data(), static_cast<int>(raw.size()));  // replaces every entry
  EXPECT_FALSE(parsed.has_label("k"));
  EXPECT_EQ("b", parsed.retrieve_value("a").as_string());
  parsed.assign(raw.data(), 0);
  EXPECT_TRUE(parsed.is_empty());

  // Malformed text throws and keeps what was read. The second label's length overshoots, so its
  // value is read from beyond the text.
  const std::string text = item("a") + item("1") + "20\x01" + "zz\x01" + item("c");
  EXPECT_THROWS_STD(parsed.assign(text), std::out_of_range,
                    "basic_string::substr: __pos (which is 32) > this->size() (which is 18)");
  EXPECT_EQ("1", parsed.retrieve_value("a").as_string());
  EXPECT_FALSE(parsed.has_label("c"));

  // Inside a group the same fault reports its position in the group's own text.
  EXPECT_THROWS_STD(parsed.assign(item("a") + item("1") + item("k ") + item(text)),
                    std::out_of_range,
                    "basic_string::substr: __pos (which is 32) > this->size() (which is 18)");
  EXPECT_EQ("1", parsed.retrieve_value("a").as_string());
  ASSERT_NE(nullptr, parsed.retrieve_group("k"));
  EXPECT_EQ("1", parsed.retrieve_group("k")->retrieve_value("a").as_string());
}

}  // namespace
