// Growth of a buffer's bytes: whole powers of two from the first capacity on, the bytes kept.
#include <mota/serialization/_private/content_growth.hpp>

#include <gtest/gtest.h>

#include <string>

namespace p = mota::serialization::_private;

namespace {

bool power_of_two(std::size_t n) {
  return n != 0 && (n & (n - 1)) == 0;
}

}  // namespace

TEST(ContentGrowth, CapacityGrowsToPowersOfTwoKeepingTheBytes) {
  std::string content;
  std::string expected;
  for (std::size_t extra : {20u, 200u, 57u, 3000u, 1u, 100000u}) {
    p::reserve_more(content, extra);
    EXPECT_GE(content.capacity(), content.size() + extra);
    EXPECT_GE(content.capacity(), p::first_content_capacity);
    EXPECT_TRUE(power_of_two(content.capacity())) << content.capacity();
    const std::string more(extra, static_cast<char>('a' + extra % 26));
    content += more;
    expected += more;
  }
  EXPECT_EQ(expected, content);
  // Room that is already there changes nothing.
  const std::size_t capacity = content.capacity();
  p::reserve_more(content, capacity - content.size());
  EXPECT_EQ(capacity, content.capacity());
}
