// The pool behind small variant values, seen through variants: storage is reused on one
// thread, travels safely between threads, and never mixes up values.
#include <mota/types/_private/value_pool.hpp>
#include <mota/types/variant.hpp>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using mota::types::variant;

const void* storage_of(const variant& v) {
  return &v.held();
}

TEST(ValuePool, StorageOfAReleasedSmallValueIsReusedOnTheSameThread) {
  if (MOTA_VALUE_POOL_OFF) GTEST_SKIP() << "values go to the heap under AddressSanitizer";
  const void* first = nullptr;
  {
    const variant v(1);
    first = storage_of(v);
  }
  const variant w(2.5);  // another small type takes the same block
  EXPECT_EQ(storage_of(w), first);
  EXPECT_EQ(w.as_double(), 2.5);
  // A copy shares the block rather than taking one.
  const variant copy(w);
  EXPECT_EQ(storage_of(copy), storage_of(w));
}

// Many values alive at once, released in an order other than the one they were made in, and
// made again: every variant keeps its own value.
TEST(ValuePool, InterleavedValuesKeepTheirOwnStorage) {
  std::vector<variant> values;
  for (int i = 0; i < 1000; ++i) {
    if (i % 3 == 0)
      values.emplace_back(static_cast<long long>(i) << 33);
    else if (i % 3 == 1)
      values.emplace_back(i);
    else
      values.emplace_back(static_cast<long double>(i) / 4);
  }
  for (std::size_t i = 0; i < values.size(); i += 2)
    values[i] = variant(static_cast<short>(-static_cast<int>(i)));
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i % 2 == 0)
      EXPECT_EQ(values[i].as_int(), -static_cast<int>(i)) << i;
    else if (i % 3 == 0)
      EXPECT_EQ(values[i].as_int64(), static_cast<long long>(i) << 33) << i;
    else if (i % 3 == 1)
      EXPECT_EQ(values[i].as_int(), static_cast<int>(i)) << i;
    else
      EXPECT_EQ(values[i].as_long_double(), static_cast<long double>(i) / 4) << i;
  }
}

// Values made on threads that have ended are released here; threads that each make and drop
// their own values run side by side. Run under the sanitizers, this also shows that every
// block goes back to the heap exactly once.
TEST(ValuePool, ValuesMadeOnOneThreadAreReleasedOnAnother) {
  std::vector<variant> made_elsewhere[2];
  auto work = [](std::vector<variant>& keep, int base) {
    for (int round = 0; round < 200; ++round) {
      std::vector<variant> scratch;
      for (int i = 0; i < 300; ++i)
        scratch.emplace_back(base + i);
      for (int i = 0; i < 300; ++i)
        if (scratch[i].as_int() != base + i) return;
    }
    for (int i = 0; i < 500; ++i)
      keep.emplace_back(base + i);
  };
  std::thread a(work, std::ref(made_elsewhere[0]), 0);
  std::thread b(work, std::ref(made_elsewhere[1]), 100000);
  a.join();
  b.join();
  for (int t = 0; t < 2; ++t) {
    ASSERT_EQ(made_elsewhere[t].size(), 500u);
    for (int i = 0; i < 500; ++i)
      EXPECT_EQ(made_elsewhere[t][i].as_int(), t * 100000 + i);
  }
  made_elsewhere[0].clear();  // into this thread's list, and past its bound to the heap
  const variant after(7);
  EXPECT_EQ(after.as_int(), 7);
}

// Only the small values skip their destructor on release; a text's must run, and a copy made by
// clone() starts unmarked whatever it holds.
TEST(ValuePool, OnlySmallValuesGoBackWithoutTheirDestructor) {
  for (const variant& small : {variant(), variant(true), variant(7), variant(2.5L)})
    EXPECT_TRUE(small.held().releases_to_pool()) << small.type().name();
  EXPECT_FALSE(variant("a text longer than the small-string buffer").held().releases_to_pool());
  EXPECT_FALSE(variant(std::wstring(L"wide")).held().releases_to_pool());
  mota::types::variant_type* const copy = variant(7).held().clone();
  EXPECT_FALSE(copy->releases_to_pool());
  EXPECT_EQ(copy->as_int(), 7);
  delete copy;
}

}  // namespace
