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

TEST(MemberFunction, InvokesComparesAndClones) {
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
}

TEST(Delegate, OwnsACloneAndCopiesByCloning) {
  target t;
  delegate empty;
  EXPECT_TRUE(empty.empty());

  delegate d{bound(&t, &target::b)};
  ASSERT_FALSE(d.empty());
  delegate copy = d;
  EXPECT_NE(d.get(), copy.get());
  EXPECT_TRUE(copy.equal(d));
  copy("x");
  d("y");
  EXPECT_EQ("bxby", t.seen);

  copy = empty;
  EXPECT_TRUE(copy.empty());
  EXPECT_TRUE(copy.equal(empty));
  EXPECT_FALSE(copy.equal(d));
}
