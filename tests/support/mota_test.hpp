// Shared helpers for the unit tests: exception checks that look at type, text and throw site
// together, and a scratch directory that removes itself.
#ifndef MOTA_TESTS_SUPPORT_MOTA_TEST_HPP
#define MOTA_TESTS_SUPPORT_MOTA_TEST_HPP

#include <mota/exceptions/exception.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <random>
#include <string>
#include <type_traits>
#include <typeinfo>

// The one family of throw checks: `statement` throws exactly `type` (not a class derived from
// it) with exactly the message `text` and, for the library's exceptions, from `function` as
// recorded at the throw site (standard exceptions carry none). For example:
//   EXPECT_THROWS(d.day(32), exceptions::out_of_range, "day value out of valid range", "day");
//   EXPECT_THROWS_STD(list.at(5u), std::out_of_range, "varg_list::at");
#define EXPECT_THROWS(statement, type, text, function) \
  EXPECT_TRUE(::mota_test::throws<type>([&] { statement; }, text, function)) << #statement
#define EXPECT_THROWS_STD(statement, type, text) \
  EXPECT_TRUE(::mota_test::throws<type>([&] { statement; }, text, nullptr)) << #statement

namespace mota_test {

using ::testing::AssertionFailure;

// Runs `body` and describes how what it threw differs from the expectation. `function` is
// compared only for the library's exceptions.
template <class Expected, class Body>
::testing::AssertionResult throws(Body&& body, const char* text, const char* function) {
  static_assert(std::is_base_of_v<std::exception, Expected> ||
                    std::is_base_of_v<mota::exceptions::exception, Expected>,
                "EXPECT_THROWS checks the library's or the standard library's exceptions");
  try {
    body();
  } catch (const Expected& e) {
    if (typeid(e) != typeid(Expected))
      return AssertionFailure() << "threw " << typeid(e).name()
                                << ", a class derived from the one expected";
    std::string message;
    const char* where = nullptr;
    if constexpr (std::is_base_of_v<std::exception, Expected>) {
      message = e.what();
    } else {
      message = e.get_message();
      where = e.get_state().function;
    }
    if (message != text)
      return AssertionFailure() << "message \"" << message << "\", expected \"" << text << "\"";
    if (function && std::string(where) != function)
      return AssertionFailure() << "thrown by \"" << where << "\", expected \"" << function << "\"";
    return ::testing::AssertionSuccess();
  } catch (const mota::exceptions::exception& e) {
    return AssertionFailure() << "threw another library exception: " << typeid(e).name() << " \""
                              << e.get_message() << "\"";
  } catch (const std::exception& e) {
    return AssertionFailure() << "threw another standard exception: " << typeid(e).name() << " \""
                              << e.what() << "\"";
  } catch (...) {
    return AssertionFailure() << "threw something that is not an exception class";
  }
  return AssertionFailure() << "threw nothing";
}

// A fresh directory under the system's temporary directory, removed with everything in it
// when the object goes out of scope.
class temp_dir {
 public:
  temp_dir() {
    std::random_device rd;
    do {
      path_ = std::filesystem::temp_directory_path() / ("mota-test-" + std::to_string(rd()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~temp_dir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
  }
  temp_dir(const temp_dir&) = delete;
  temp_dir& operator=(const temp_dir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string str() const { return path_.string(); }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// The source tree's root, for tests that read checked-in test data.
inline std::string source_dir() {
  const char* dir = std::getenv("MOTA_SOURCE_DIR");
  return dir ? dir : ".";
}

}  // namespace mota_test

#endif  // MOTA_TESTS_SUPPORT_MOTA_TEST_HPP
