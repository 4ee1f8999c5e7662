#include <mota/exceptions/logic_error.hpp>
#include <mota/generic/abilities/clone_ability.hpp>
#include <mota/generic/abilities/reference_count_pointer_ability.hpp>
#include <mota/memory/rc_pointer.hpp>
#include <mota/memory/shared_pointer.hpp>

#include <mota_test.hpp>

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

// Drops a pointer's reference out of line. Inlined, GCC 12 follows the path on which the
// object is deleted and then warns that the test reads freed memory, which the count or the
// delete flag rules out.
template <class Pointer>
[[gnu::noinline]] void drop(Pointer& pointer) {
  pointer.reset();
}

}  // namespace

using mota::memory::pointers::rc_pointer;
using mota::memory::pointers::shared_pointer;

TEST(RcPointer, CountsCopiesAndDeletesOnlyOwnedObjectsWithTheLast) {
  {
    rc_pointer<counted> a(make_owned());
    EXPECT_EQ(1, a->reference_count());
    {
      rc_pointer<counted> b = a;
      rc_pointer<counted> c;
      c = b;
      rc_pointer<counted>& same = c;
      c = same;  // self-assignment changes nothing
      EXPECT_EQ(3, a->reference_count());
      EXPECT_EQ(a, c);
    }
    EXPECT_EQ(1, a->reference_count());
    a = rc_pointer<counted>(make_owned());
    EXPECT_EQ(1, g_alive);
  }
  EXPECT_EQ(0, g_alive);
  // Without the delete flag the object survives; a clone starts uncounted and unowned.
  auto* unowned = new counted;
  rc_pointer<counted> p(unowned);
  EXPECT_EQ(1, unowned->reference_count());
  counted* copy = p->clone();
  EXPECT_EQ(0, copy->reference_count());
  EXPECT_FALSE(copy->delete_on_zero());
  delete copy;
  drop(p);
  EXPECT_EQ(0, unowned->reference_count());
  EXPECT_EQ(1, g_alive);
  delete unowned;
}

TEST(SharedPointer, OwnsAnyTypeAndDeletesWithTheLast) {
  {
    shared_pointer<counted> a(new counted);  // its own count plays no part
    shared_pointer<counted> b = a;
    EXPECT_EQ(2, a.use_count());
    drop(b);
    EXPECT_EQ(1, a.use_count());
    EXPECT_EQ(0, b.use_count());
    EXPECT_FALSE(b);
    EXPECT_EQ(0, a->reference_count());
  }
  EXPECT_EQ(0, g_alive);
  // Dereferencing an empty pointer throws; get() and the bool test stay silent.
  shared_pointer<std::string> empty;
  EXPECT_THROWS(empty->size(), mota::exceptions::logic_error, "unreferanced object", "operator->");
  EXPECT_THROWS(*empty, mota::exceptions::logic_error, "unreferanced object", "operator*");
  EXPECT_EQ(nullptr, empty.get());
}
