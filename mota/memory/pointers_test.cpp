#include <mota/exceptions/logic_error.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/memory/shared_pointer.hpp>

#include <mota_test.hpp>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

int g_alive = 0;

struct counted : mota::generic::abilities::reference_count_pointer_ability<counted>,
                 mota::generic::abilities::clone_ability {
  counted() { ++g_alive; }
  counted(const counted& other) : reference_count_pointer_ability(other), clone_ability(other) {
    ++g_alive;
  }
  ~counted() override { --g_alive; }
  counted* clone() const override { return new counted(*this); }
};

counted* make_owned() {
  auto* c = new counted;
  c->delete_on_zero(true);
  return c;
}

}  // namespace

using mota::memory::pointers::rc_pointer;
using mota::memory::pointers::shared_pointer;

TEST(RcPointer, CountsCopiesAndDeletesWithTheLast) {
  {
    rc_pointer<counted> a(make_owned());
    EXPECT_EQ(1, a->reference_count());
    {
      rc_pointer<counted> b = a;
      rc_pointer<counted> c;
      c = b;
      c = c;
      EXPECT_EQ(3, a->reference_count());
      EXPECT_EQ(a, c);
    }
    EXPECT_EQ(1, a->reference_count());
    a = rc_pointer<counted>(make_owned());
    EXPECT_EQ(1, g_alive);
  }
  EXPECT_EQ(0, g_alive);
}

TEST(RcPointer, WithoutTheDeleteFlagTheObjectSurvives) {
  counted on_stack;
  {
    rc_pointer<counted> p(&on_stack);
    EXPECT_EQ(1, on_stack.reference_count());
  }
  EXPECT_EQ(0, on_stack.reference_count());
  EXPECT_EQ(1, g_alive);
}

TEST(RcPointer, CloneStartsUncounted) {
  rc_pointer<counted> a(make_owned());
  counted* copy = a->clone();
  EXPECT_EQ(0, copy->reference_count());
  EXPECT_FALSE(copy->delete_on_zero());
  delete copy;
}

TEST(SharedPointer, OwnsAnyTypeAndDeletesWithTheLast) {
  struct plain {
    explicit plain(int* alive) : alive(alive) { ++*alive; }
    ~plain() { --*alive; }
    int* alive;
  };
  int alive = 0;
  {
    shared_pointer<plain> a(new plain(&alive));
    shared_pointer<plain> b = a;
    EXPECT_EQ(2, a.use_count());
    b.reset();
    EXPECT_EQ(1, a.use_count());
    EXPECT_EQ(0, b.use_count());
    EXPECT_FALSE(b);
  }
  EXPECT_EQ(0, alive);
}

TEST(SharedPointer, DereferencingAnEmptyPointerThrows) {
  shared_pointer<std::string> empty;
  EXPECT_THROW_MSG(empty->size(), mota::exceptions::logic_error, "unreferanced object");
  EXPECT_THROW_MSG(*empty, mota::exceptions::logic_error, "unreferanced object");
  try {
    empty->size();
  } catch (const mota::exceptions::logic_error& e) {
    EXPECT_STREQ("operator->", e.get_state().function);
    EXPECT_NE(nullptr, std::strstr(e.get_state().file, "shared_pointer.hpp"));
  }
  try {
    *empty;
  } catch (const mota::exceptions::logic_error& e) {
    EXPECT_STREQ("operator*", e.get_state().function);
  }
  // get() and the bool test stay silent
  EXPECT_EQ(nullptr, empty.get());
  EXPECT_FALSE(empty);
}
