// Behaviour shared by both encodings, run through the abstract interface.
#include <mota/memory/rc_pointer.hpp>
#include <mota/serialization/serialize_binary_buf.hpp>
#include <mota/serialization/serialize_text_buf.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

namespace {

using mota::memory::pointers::rc_pointer;
using mota::serialization::serialize_binary_buf;
using mota::serialization::serialize_buffer;
using mota::serialization::serialize_text_buf;

template <class T>
bool same_bits(T a, T b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// One empty buffer of each encoding.
std::unique_ptr<serialize_buffer> encodings[] = {std::make_unique<serialize_binary_buf>(),
                                                 std::make_unique<serialize_text_buf>()};

TEST(SerializeBuffer, RoundTripsEveryWidthBitForBit) {
  const std::string awkward("\0\x01x\x01", 4);
  for (const auto& prototype : encodings) {
    const bool binary = dynamic_cast<serialize_binary_buf*>(prototype.get()) != nullptr;
    std::unique_ptr<serialize_buffer> out(prototype->create());
    out->append_int16(-32768);
    out->append_uint8(255);
    out->append_uint16(65535);
    out->append_uint32(4294967295u);
    out->append_uint64(std::numeric_limits<unsigned long long>::max());
    out->append_float(0.1f);
    out->append_double(-0.0);
    out->append_string(awkward);
    out->append_string("");
    out->append_double(std::numeric_limits<double>::quiet_NaN());

    const serialize_buffer& in = *out;
    EXPECT_EQ(-32768, in.read_int16());
    EXPECT_EQ(255, in.read_uint8());
    EXPECT_EQ(65535, in.read_uint16());
    EXPECT_EQ(4294967295u, in.read_uint32());
    EXPECT_EQ(std::numeric_limits<unsigned long long>::max(), in.read_uint64());
    EXPECT_TRUE(same_bits(0.1f, in.read_float()));
    EXPECT_TRUE(same_bits(-0.0, in.read_double()));
    EXPECT_EQ(awkward, in.read_string());
    EXPECT_FALSE(in.at_end());
    EXPECT_EQ("", in.read_string());
    // The text "nan" is no number to the parsers: only the binary encoding keeps a NaN.
    EXPECT_EQ(binary, std::isnan(in.read_double()));
    EXPECT_TRUE(in.at_end());
  }
}

TEST(SerializeBuffer, AssignKeepsThePositionClonesAndNestedBuffersTakeTheEncoding) {
  serialize_text_buf text;
  text.append_int32(5);
  for (const auto& prototype : encodings) {
    std::unique_ptr<serialize_buffer> buf(prototype->create());
    for (int v : {1, 2, 3})
      buf->append_int32(v);
    EXPECT_EQ(1, buf->read_int32());
    std::unique_ptr<serialize_buffer> other(prototype->create());
    for (int v : {4, 5, 6})
      other->append_int32(v);
    buf->assign(*other);
    EXPECT_EQ(5, buf->read_int32());

    rc_pointer<serialize_buffer> clone(buf->clone());
    EXPECT_TRUE(clone->delete_on_zero());
    const serialize_buffer& original = *buf;
    const serialize_buffer& cloned = *clone;
    EXPECT_EQ(typeid(original), typeid(cloned));
    EXPECT_EQ(6, clone->read_int32());
    EXPECT_EQ(6, buf->read_int32());
    buf->assign(*buf);
    EXPECT_EQ(other->as_str(), buf->as_str());
    buf->assign(other->as_str().data(), -1);
    EXPECT_EQ("", buf->as_str());

    EXPECT_TRUE(rc_pointer<serialize_buffer>(buf->create())->delete_on_zero());

    buf.reset(prototype->create());
    buf->append_buffer(text);
    buf->append_buffer(*buf);  // itself as it stood before this append
    buf->append_int8(1);
    rc_pointer<serialize_buffer> inner(buf->read_buffer());
    const serialize_buffer& outer = *buf;
    const serialize_buffer& nested = *inner;
    EXPECT_EQ(typeid(outer), typeid(nested));
    EXPECT_TRUE(inner->delete_on_zero());
    EXPECT_EQ("5\x01", inner->as_str());
    std::unique_ptr<serialize_buffer> self(buf->read_buffer());
    std::unique_ptr<serialize_buffer> text_again(self->read_buffer());
    EXPECT_EQ("5\x01", text_again->as_str());
    EXPECT_EQ(1, buf->read_int8());
  }
}

}  // namespace
