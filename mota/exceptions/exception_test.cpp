#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeinfo>

namespace ex = mota::exceptions;

namespace {

// Every way of making an `E` keeps the message and the throw site, and a handler for `Base`
// (logic_error or runtime_error) catches it while one for the other branch does not.
template <class E, class Base, class Other>
void expect_exception_class() {
  SCOPED_TRACE(typeid(E).name());
  const E e("x", 7, "a", "f");
  const E copy(e);
  const E from_state("y", e.get_state());
  for (const E* made : {&e, &copy}) {
    EXPECT_STREQ("x", made->get_message());
    EXPECT_EQ(7u, made->get_state().line);
    EXPECT_STREQ("a", made->get_state().file);
    EXPECT_STREQ("f", made->get_state().function);
  }
  EXPECT_STREQ("y", from_state.get_message());
  EXPECT_STREQ("f", from_state.get_state().function);
  static_assert(std::is_base_of_v<Base, E> && !std::is_base_of_v<Other, E>);
  static_assert(!std::is_base_of_v<std::exception, E>);
  bool caught = false;
  try {
    throw E("m", 1, "f", "g");
  } catch (const Other&) {
  } catch (const Base&) {
    caught = true;
  }
  EXPECT_TRUE(caught);
}

// A class of the user's own assigns through the protected base operator.
struct own_error : ex::logic_error {
  using logic_error::logic_error;
  own_error& operator=(const own_error& other) {
    exception::operator=(other);
    return *this;
  }
};

}  // namespace

TEST(Exception, EveryClassCarriesMessageAndStateAndSitsUnderItsBase) {
  expect_exception_class<ex::logic_error, ex::exception, ex::runtime_error>();
  expect_exception_class<ex::out_of_range, ex::logic_error, ex::runtime_error>();
  expect_exception_class<ex::length_error, ex::logic_error, ex::runtime_error>();
  expect_exception_class<ex::invalid_argument_value, ex::logic_error, ex::runtime_error>();
  expect_exception_class<ex::runtime_error, ex::exception, ex::logic_error>();
  expect_exception_class<ex::overflow_error, ex::runtime_error, ex::logic_error>();
  expect_exception_class<ex::underflow_error, ex::runtime_error, ex::logic_error>();
  expect_exception_class<ex::empty_error, ex::runtime_error, ex::logic_error>();
  expect_exception_class<ex::full_error, ex::runtime_error, ex::logic_error>();
  static_assert(std::is_abstract_v<ex::exception>);
  const std::string long_name(300, 'n');
  const ex::exception::state s(1, long_name.c_str(), nullptr);
  EXPECT_EQ(std::string(255, 'n'), s.file);
  EXPECT_STREQ("", s.function);
  // The base assignment copies the throw site.
  own_error a("a", 1, "file", "f"), b("b", 2, "other", "g");
  const own_error& itself = a;
  a = b;
  a = itself;
  EXPECT_STREQ("a", a.get_message());
  EXPECT_STREQ("g", a.get_state().function);
}
