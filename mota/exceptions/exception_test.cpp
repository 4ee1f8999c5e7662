#include <mota/exceptions/logic_error.hpp>
#include <mota/exceptions/runtime_error.hpp>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace ex = mota::exceptions;

TEST(Exception, CarriesMessageAndState) {
  const ex::runtime_error e("x", 7, "a", "f");
  EXPECT_STREQ("x", e.get_message());
  EXPECT_EQ(7u, e.get_state().line);
  EXPECT_STREQ("a", e.get_state().file);
  EXPECT_STREQ("f", e.get_state().function);

  const ex::runtime_error copy(e);
  EXPECT_STREQ("x", copy.get_message());
  EXPECT_EQ(7u, copy.get_state().line);
  EXPECT_STREQ("a", copy.get_state().file);
  EXPECT_STREQ("f", copy.get_state().function);

  const ex::overflow_error from_state("y", e.get_state());
  EXPECT_STREQ("y", from_state.get_message());
  EXPECT_STREQ("f", from_state.get_state().function);
}

TEST(Exception, StateCutsLongTextsAndToleratesNull) {
  const std::string long_name(300, 'n');
  const ex::exception::state s(1, long_name.c_str(), nullptr);
  EXPECT_EQ(std::string(255, 'n'), s.file);
  EXPECT_STREQ("", s.function);
}

template <class Thrown, class Caught>
bool caught_as() {
  try {
    throw Thrown("m", 1, "f", "g");
  } catch (const Caught&) {
    return true;
  } catch (...) {
    return false;
  }
}

TEST(Exception, HierarchyRoutesHandlers) {
  EXPECT_TRUE((caught_as<ex::invalid_argument_value, ex::logic_error>()));
  EXPECT_FALSE((caught_as<ex::invalid_argument_value, ex::runtime_error>()));
  EXPECT_TRUE((caught_as<ex::out_of_range, ex::exception>()));
  EXPECT_TRUE((caught_as<ex::length_error, ex::logic_error>()));
  EXPECT_TRUE((caught_as<ex::underflow_error, ex::runtime_error>()));
  EXPECT_TRUE((caught_as<ex::empty_error, ex::runtime_error>()));
  EXPECT_TRUE((caught_as<ex::full_error, ex::exception>()));
  EXPECT_FALSE((caught_as<ex::overflow_error, ex::logic_error>()));
  EXPECT_FALSE((caught_as<ex::overflow_error, std::exception>()));
  static_assert(!std::is_base_of_v<std::exception, ex::exception>);
  static_assert(std::is_abstract_v<ex::exception>);
}
