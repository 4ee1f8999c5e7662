#include <mota/system/io.hpp>

#include <mota/strings/utf.hpp>

#include <mota_test.hpp>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <fstream>

namespace fs = std::filesystem;
namespace io = mota::system::io;

namespace {

void touch(const std::string& path, const char* text = "") {
  std::ofstream(path) << text;
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
  const int s = ::socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_GE(s, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(socket_path.size(), sizeof(address.sun_path));
  std::strcpy(address.sun_path, socket_path.c_str());
  ASSERT_EQ(0, ::bind(s, reinterpret_cast<sockaddr*>(&address), sizeof(address)));
  ::close(s);

  const struct {
    std::string path;
    bool exists, file, directory;
  } cases[] = {
      {dir / "file", true, true, false},      {dir / "file_link", true, true, false},
      {dir / "dir_link", true, false, true},  {dir / "dangling", false, false, false},
      {dir / "missing", false, false, false}, {socket_path, true, true, true},
      {"/dev/null", true, false, false},      {"", false, false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.exists, io::exists(c.path)) << c.path;
    EXPECT_EQ(c.file, io::is_file(c.path)) << c.path;
    EXPECT_EQ(c.directory, io::is_directory(c.path)) << c.path;
  }
  touch(dir / "a", "A");
  io::move(dir / "a", dir / "b");
  io::move(dir / "missing", dir / "c");  // nothing happens, nothing thrown
  EXPECT_FALSE(fs::exists(dir / "a") || fs::exists(dir / "c"));
  EXPECT_TRUE(fs::exists(dir / "b"));
  for (const char* sub : {"empty", "empty2", "full"})
    fs::create_directory(dir / sub);
  touch(dir / "full/x");
  io::remove_dir(dir / "b");  // not a directory
  io::remove_dir(dir / "full");
  io::remove_dir(dir / "empty");
  EXPECT_TRUE(fs::exists(dir / "b") && fs::exists(dir / "full/x"));
  EXPECT_FALSE(fs::exists(dir / "empty"));
  io::remove_file(dir / "b");
  io::remove_file(dir / "empty2");  // remove() takes empty directories too
  io::remove_file(dir / "full");
  io::remove_file(dir / "missing");
  EXPECT_FALSE(fs::exists(dir / "b") || fs::exists(dir / "empty2"));
  EXPECT_TRUE(fs::exists(dir / "full/x"));
  // mkdir creates every component.
  io::mkdir(dir / "a/b/c");
  EXPECT_TRUE(fs::is_directory(dir / "a/b/c"));
  io::mkdir(dir / "t/u/");
  EXPECT_TRUE(fs::is_directory(dir / "t/u"));
  touch(dir / "f");
  io::mkdir(dir / "f/g");  // blocked by a file: nothing made, nothing thrown
  EXPECT_FALSE(fs::exists(dir / "f/g"));
  EXPECT_TRUE(fs::is_regular_file(dir / "f"));
  io::mkdir("");

  const fs::path previous = fs::current_path();
  fs::current_path(dir.path());
  io::mkdir("./dot/two");
  io::mkdir("solo");
  fs::current_path(previous);
  for (const char* p : {"dot/two", "solo"})
    EXPECT_TRUE(fs::is_directory(dir / p)) << p;
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
