// Shared helpers for the unit tests: exception checks that look at type and text together,
// and a scratch directory that removes itself.
#ifndef MOTA_TESTS_SUPPORT_MOTA_TEST_HPP
#define MOTA_TESTS_SUPPORT_MOTA_TEST_HPP

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

// Expects `statement` to throw exactly `type` (caught by reference) whose get_message() is
// `text`; works for the library's exception hierarchy.
#define EXPECT_THROW_MSG(statement, type, text)                             \
  do {                                                                      \
    bool mota_caught_ = false;                                              \
    try {                                                                   \
      statement;                                                            \
    } catch (const type& e) {                                               \
      mota_caught_ = true;                                                  \
      EXPECT_STREQ(text, e.get_message()) << "thrown by: " #statement;      \
    } catch (...) {                                                         \
      ADD_FAILURE() << #statement " threw an exception of another type";    \
      mota_caught_ = true;                                                  \
    }                                                                       \
    if (!mota_caught_) ADD_FAILURE() << #statement " did not throw " #type; \
  } while (false)

// Expects `statement` to throw a standard exception of `type` whose what() is `text`.
#define EXPECT_THROW_WHAT(statement, type, text)                            \
  do {                                                                      \
    bool mota_caught_ = false;                                              \
    try {                                                                   \
      statement;                                                            \
    } catch (const type& e) {                                               \
      mota_caught_ = true;                                                  \
      EXPECT_STREQ(text, e.what()) << "thrown by: " #statement;             \
    } catch (...) {                                                         \
      ADD_FAILURE() << #statement " threw an exception of another type";    \
      mota_caught_ = true;                                                  \
    }                                                                       \
    if (!mota_caught_) ADD_FAILURE() << #statement " did not throw " #type; \
  } while (false)

namespace mota_test {

// A fresh directory under the system's temporary directory, removed with everything in it
// when the object goes out of scope.
class temp_dir {
 public:
  temp_dir() {
    std::random_device rd;
    auto base = std::filesystem::temp_directory_path();
    for (;;) {
      path_ = base / ("mota-test-" + std::to_string(rd()));
      if (std::filesystem::create_directory(path_)) break;
    }
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
