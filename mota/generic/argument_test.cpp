#include <mota/generic/argument.hpp>

#include <gtest/gtest.h>

using mota::generic::argument;
using mota::types::nil;
using mota::types::nil_t;
using mota::types::variant;

TEST(Argument, NilMeansUnnamedWithANilValueAssignFormsSetValueOrBoth) {
  EXPECT_TRUE(argument() == nil);
  EXPECT_TRUE(argument(nil).equal(nil));
  EXPECT_TRUE(argument(variant()) == nil);
  EXPECT_FALSE(argument(variant(0)) == nil);
  // A name alone makes the argument non-nil, even with a nil value.
  const argument named("x", variant());
  EXPECT_TRUE(named != nil);
  EXPECT_TRUE(named.value() == nil);
  // The assign forms set the value or both.
  argument a("n", 1);
  a = variant(2);
  EXPECT_EQ("n", a.name());
  EXPECT_EQ(2, a.value().as_int());
  a.assign("m", variant("3"));
  EXPECT_EQ("m", a.name());
  EXPECT_EQ(3, a.value().as_int());
  argument b;
  b = a;
  EXPECT_EQ("m", b.name());
  b.name("");
  EXPECT_FALSE(b.has_name());
  b.value(nil);
  EXPECT_TRUE(b == nil);
}
