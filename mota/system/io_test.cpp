#include <mota/system/io.hpp>

#include <mota/strings/utf.hpp>

#include <mota_test.hpp>

#include <sys/stat.h>

#include <fstream>
#include <string>
#include <tuple>

namespace fs = std::filesystem;
namespace io = mota::system::io;
using namespace std::string_literals;

namespace {

void touch(const std::string& path) {
  std::ofstream{path};
}

}  // namespace

TEST(Io, TypeTestsFollowLinksActionsIgnoreFailures) {
  mota_test::temp_dir dir;
  touch(dir / "file");
  fs::create_directory(dir / "sub");
  fs::create_symlink(dir / "file", dir / "file_link");
  fs::create_symlink(dir / "sub", dir / "dir_link");
  fs::create_symlink(dir / "nowhere", dir / "dangling");
  // A socket's mode (0xC000) has both bits set.
  const std::string socket_path = dir / "sock";
  ASSERT_EQ(0, ::mknod(socket_path.c_str(), S_IFSOCK | 0600, 0));

  // Whether each path exists, is a file and is a directory.
  const std::tuple<std::string, bool, bool, bool> cases[] = {
      {dir / "file", true, true, false},      {dir / "file_link", true, true, false},
      {dir / "dir_link", true, false, true},  {dir / "dangling", false, false, false},
      {dir / "missing", false, false, false}, {socket_path, true, true, true},
      {"/dev/null", true, false, false},      {"", false, false, false},
  };
  for (const auto& [path, exists, file, directory] : cases)
    EXPECT_EQ(std::make_tuple(exists, file, directory),
              std::make_tuple(io::exists(path), io::is_file(path), io::is_directory(path)))
        << path;
  touch(dir / "a");
  io::move(dir / "a", dir / "b");
  io::move(dir / "missing", dir / "c");  // nothing happens, nothing thrown
  EXPECT_FALSE(fs::exists(dir / "a") || fs::exists(dir / "c"));
  EXPECT_TRUE(fs::exists(dir / "b"));
  for (const char* sub : {"empty", "empty2", "full"})
    fs::create_directory(dir / sub);
  touch(dir / "full/x");
  // remove_dir takes only empty directories, remove_file files and empty directories.
  for (const char* path : {"b", "full", "empty"})
    io::remove_dir(dir / path);
  EXPECT_TRUE(fs::exists(dir / "b") && fs::exists(dir / "full/x"));
  EXPECT_FALSE(fs::exists(dir / "empty"));
  for (const char* path : {"b", "empty2", "full", "missing"})
    io::remove_file(dir / path);
  EXPECT_FALSE(fs::exists(dir / "b") || fs::exists(dir / "empty2"));
  EXPECT_TRUE(fs::exists(dir / "full/x"));
  // mkdir creates every component, and leaves an existing directory or a file in the way.
  touch(dir / "f");
  for (const std::string& path : {dir / "a/b/c", dir / "t/u/", dir / "a/b/c", dir / "f/g", ""s})
    io::mkdir(path);
  EXPECT_TRUE(fs::is_directory(dir / "a/b/c") && fs::is_directory(dir / "t/u"));
  EXPECT_FALSE(fs::exists(dir / "f/g"));
  EXPECT_TRUE(fs::is_regular_file(dir / "f"));
}

TEST(IoWidePaths, ConvertToUtf8) {
  using mota::strings::utf8_to_utf16;
  using mota::strings::utf8_to_utf32;
  mota_test::temp_dir dir;
  const std::string base = dir / "\xC3\xBC";
  io::mkdir(utf8_to_utf16(base + "/a"));
  io::mkdir(utf8_to_utf32(base + "/b"));
  EXPECT_TRUE(io::is_directory(utf8_to_utf16(base + "/a")));
  EXPECT_TRUE(io::is_directory(utf8_to_utf32(base + "/b")));
  touch(base + "/f\xE2\x82\xAC");
  EXPECT_TRUE(io::is_file(utf8_to_utf32(base + "/f\xE2\x82\xAC")));
  io::move(utf8_to_utf16(base + "/f\xE2\x82\xAC"), utf8_to_utf16(base + "/g"));
  io::move(utf8_to_utf32(base + "/g"), utf8_to_utf32(base + "/h"));
  EXPECT_TRUE(io::exists(utf8_to_utf16(base + "/h")) && io::is_file(utf8_to_utf16(base + "/h")));
  io::remove_file(utf8_to_utf16(base + "/h"));
  io::remove_dir(utf8_to_utf16(base + "/a"));
  io::remove_dir(utf8_to_utf32(base + "/b"));
  io::remove_file(utf8_to_utf32(base));
  EXPECT_FALSE(io::exists(utf8_to_utf32(base)));
}
