#include <mota/functor/delegate.hpp>
#include <mota/functor/member_function.hpp>

#include <gtest/gtest.h>

#include <string>

namespace {

struct target {
  std::string seen;
  void a(const std::string& s) { seen += "a" + s; }
  void b(const std::string& s) { seen += "b" + s; }
};

using sig = void(const std::string&);
using bound = mota::functor::member_function_t<target, sig>;
using delegate = mota::functor::delegate_t<sig>;

}  // namespace

TEST(Delegate, MemberFunctionsInvokeCompareAndCloneDelegatesOwnClones) {
  target t, u;
  bound fa(&t, &target::a);
  fa.invoke("1");
  EXPECT_EQ("a1", t.seen);

  EXPECT_TRUE(fa.do_equal(bound(&t, &target::a)));
  EXPECT_FALSE(fa.do_equal(bound(&t, &target::b)));
  EXPECT_FALSE(fa.do_equal(bound(&u, &target::a)));

  auto* copy = fa.do_clone();
  EXPECT_TRUE(copy->do_equal(fa));
  copy->invoke("2");
  EXPECT_EQ("a1a2", t.seen);
  delete copy;
  // A delegate owns a clone and copies by cloning.
  t.seen.clear();
  delegate empty;
  EXPECT_TRUE(empty.empty());

  delegate d{bound(&t, &target::b)};
  ASSERT_FALSE(d.empty());
  delegate dup = d;
  EXPECT_NE(d.get(), dup.get());
  EXPECT_TRUE(dup.equal(d));
  dup("x");
  d("y");
  EXPECT_EQ("bxby", t.seen);

  dup = empty;
  EXPECT_TRUE(dup.empty());
  EXPECT_TRUE(dup.equal(empty));
  EXPECT_FALSE(dup.equal(d));
}
