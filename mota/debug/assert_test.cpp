#include <mota/debug/assert.hpp>
#include <mota/functor/member_function.hpp>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace debug = mota::debug;

namespace {

struct recorder {
  int calls = 0;
  std::string message;
  std::string file;
  unsigned int line = 0;

  void on_assert(const char* m, const char* f, unsigned int& l) {
    ++calls;
    message = m;
    file = f;
    line = l;
    l = 9999;  // must not be seen by the caller
  }
};

using hook_t = mota::functor::member_function_t<recorder, debug::assert_hook_signature>;

class AssertHook : public ::testing::Test {
 protected:
  void SetUp() override {
    debug::set_assert_hook(debug::assert_hook_t(hook_t(&rec, &recorder::on_assert)));
  }
  void TearDown() override { debug::set_assert_hook(mota::types::nil); }
  recorder rec;
};

}  // namespace

TEST_F(AssertHook, AssertsPassExpressionFileLineAndFormattedContext) {
  ASSERT_TRUE(debug::is_assert_hook_set());
  unsigned int line = 42;
  debug::_private::____________________ASSERT____________________("a < b", "file.cpp", line, "f");
  EXPECT_EQ(std::make_tuple(1, "a < b", "file.cpp", 42u),
            std::tie(rec.calls, rec.message, rec.file, rec.line));
  EXPECT_EQ(42u, line);
  // The macro reports only failures.
  MOTA_ASSERT(1 + 1 == 2);
  EXPECT_EQ(1, rec.calls);
  MOTA_ASSERT(1 + 1 == 3);
  EXPECT_EQ(std::make_tuple(2, "1 + 1 == 3"), std::tie(rec.calls, rec.message));
  debug::_private::_______________CONTEXT__ASSERT________________("e", "f", 1, "fn", "v=%d", 5);
  EXPECT_EQ("e : v=5", rec.message);
  debug::_private::_______________CONTEXT__ASSERT________________(
      "e", "f", 1, "fn", static_cast<const char*>(nullptr));
  EXPECT_EQ("e : ", rec.message);
  const std::string long_text(400, 'x');
  debug::_private::_______________CONTEXT__ASSERT________________("e", "f", 1, "fn", "%s",
                                                                  long_text.c_str());
  EXPECT_EQ("e : " + std::string(251, 'x'), rec.message);  // 255 bytes in all
}

TEST(AssertNoHook, EntryPointsDoNothing) {
  debug::set_assert_hook(mota::types::nil);
  EXPECT_FALSE(debug::is_assert_hook_set());
  debug::_private::____________________ASSERT____________________("x", "f", 1, "fn");
  debug::_private::_______________CONTEXT__ASSERT________________("x", "f", 1, "fn", "%d", 1);
  unsigned int line = 3;
  debug::_private::native_assert("x", "f", line, "fn");
  EXPECT_EQ(3u, line);

  // An empty delegate clears the hook as well.
  recorder rec;
  debug::set_assert_hook(debug::assert_hook_t(hook_t(&rec, &recorder::on_assert)));
  debug::set_assert_hook(debug::assert_hook_t());
  EXPECT_FALSE(debug::is_assert_hook_set());
}
