#include <mota/system/file_utility.hpp>

#include <mota/strings/utf.hpp>

#include <mota_test.hpp>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
namespace sys = mota::system;
using mota::strings::ustring8;

namespace {

void write_bytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string read_bytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void make_link(const std::string& target, const std::string& link) {
  ASSERT_EQ(0, ::symlink(target.c_str(), link.c_str())) << link;
}

mode_t mode_of(const std::string& path) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

mode_t current_umask() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return mask;
}

std::multiset<std::string> names_in(const std::string& directory) {
  std::multiset<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory))
    names.insert(entry.path().filename().string());
  return names;
}

std::multiset<std::string> as_set(const std::vector<ustring8>& paths) {
  return std::multiset<std::string>(paths.begin(), paths.end());
}

// Whether both forms of load_file refuse `path` and leave the strings as they were.
bool load_refused(const std::string& path) {
  ustring8 content = "untouched";
  std::string plain = "untouched";
  return sys::load_file(path, content) + sys::load_file(path, plain) == 2 &&
         content == "untouched" && plain == "untouched";
}

}  // namespace

// No mark is taken off, no line end or zero byte changes; links, devices and the like are refused.
TEST(LoadFile, KeepsTheBytesExactlyAndRefusesAllButRegularFiles) {
  mota_test::temp_dir dir;
  for (const std::string& bytes : {std::string(), std::string("\xEF\xBB\xBFtext\n"),
                                   std::string("\xFF\xFEh\0\x01\r\n\x1A\0", 9)}) {
    write_bytes(dir / "file", bytes);
    ustring8 as_ustring = "previous";
    std::string as_string = "previous";
    EXPECT_EQ(0,
              sys::load_file(dir / "file", as_ustring) + sys::load_file(dir / "file", as_string));
    EXPECT_EQ(bytes, static_cast<const std::string&>(as_ustring));
    EXPECT_EQ(bytes, as_string);
  }
  write_bytes(dir / "real", "content");
  make_link(dir / "real", dir / "link");
  // /dev/zero is endless: its size says nothing.
  for (const std::string& path :
       {dir / "link", dir / "missing", dir.str(), std::string(), std::string("/dev/zero")})
    EXPECT_TRUE(load_refused(path)) << path;
  write_bytes(dir / "secret", "x");
  ::chmod((dir / "secret").c_str(), 0200);
  EXPECT_EQ(::geteuid() != 0, load_refused(dir / "secret"));  // root reads anyway
  write_bytes(dir / "big", "");
  ASSERT_EQ(0, ::truncate64((dir / "big").c_str(), 2147483648LL));  // sparse
  ustring8 content = "untouched";
  EXPECT_THROWS(sys::load_file(dir / "big", content), mota::exceptions::runtime_error,
                "2147483648 is large than a string can hold", "load_file");
  EXPECT_EQ("untouched", content);
  ASSERT_EQ(0, ::mkfifo((dir / "fifo").c_str(), 0600));
  // No writer ever opens the FIFO: a reader that waits for one never comes back.
  EXPECT_EXIT(
      {
        ::alarm(10);
        std::exit(load_refused(dir / "fifo") && sys::store_file(dir / "fifo", "x") == 1 ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST(StoreFile, WritesTruncatesAndRefusesLinks) {
  mota_test::temp_dir dir;
  const std::string path = dir / "out.bin";
  ASSERT_EQ(0, sys::store_file(path, std::string("\xEF\xBB\xBF\0tail", 8)));
  EXPECT_EQ(0, sys::store_file(path, "ab"));  // shorter: truncated
  EXPECT_EQ("ab", read_bytes(path));

  write_bytes(dir / "target", "original");
  make_link(dir / "target", dir / "link");
  make_link(dir / "nowhere", dir / "dangling");
  // Links are refused; a device is written where it is, and a failed write is reported.
  for (const std::string& refused : {dir / "link", dir / "dangling", dir / "no/such/dir"})
    EXPECT_EQ(1, sys::store_file(refused, "x")) << refused;
  EXPECT_EQ("original", read_bytes(dir / "target"));
  EXPECT_FALSE(fs::exists(dir / "nowhere"));
  EXPECT_EQ(0, sys::store_file("/dev/null", "x"));
  EXPECT_EQ(1, sys::store_file("/dev/full", "x"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  // The stream openers refuse links too; other failures show in the stream.
  std::ifstream in;
  std::ofstream out;
  EXPECT_FALSE(sys::safe_iopen<ustring8>(dir / "link", in) ||
               sys::safe_oopen<ustring8>(dir / "link", out) || in.is_open() || out.is_open());
  EXPECT_TRUE(sys::safe_iopen<ustring8>(dir / "missing", in));
  EXPECT_TRUE(in.fail());
  EXPECT_TRUE(sys::safe_oopen<ustring8>(path, out));
  out.close();
  EXPECT_EQ("", read_bytes(path));  // truncated
}

TEST(StoreFile, AFailureMidwayKeepsTheOldFileAndLeavesNoTemporary) {
  mota_test::temp_dir dir;
  const std::string path = dir / "settings.cfg";
  write_bytes(path, "old content");
  // The file size limit makes the write fail after 1 KiB, as a full disk would.
  const rlimit limit = {1024, 1024};
  EXPECT_EXIT(
      {
        ::signal(SIGXFSZ, SIG_IGN);
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) std::exit(2);
        std::exit(sys::store_file(path, std::string(64 * 1024, 'n')));
      },
      ::testing::ExitedWithCode(1), "");
  EXPECT_EQ("old content", read_bytes(path));
  EXPECT_EQ(std::multiset<std::string>{"settings.cfg"}, names_in(dir.str()));
}

TEST(StoreFile, KeepsPermissionBitsAndFallsBackInPlace) {
  mota_test::temp_dir dir;
  const std::string path = dir / "private.cfg";
  write_bytes(path, "old");
  ::chmod(path.c_str(), 0604);
  EXPECT_EQ(0, sys::store_file(path, "new"));
  EXPECT_EQ("new", read_bytes(path));
  EXPECT_EQ(0604u, mode_of(path));
  EXPECT_EQ(0, sys::store_file(dir / "fresh.cfg", "new"));
  EXPECT_EQ(0666u & ~current_umask(), mode_of(dir / "fresh.cfg"));

  // No room for the temporary's longer name: the file is rewritten where it is.
  const std::string long_name = dir / std::string(250, 'l');
  write_bytes(long_name, "old");
  EXPECT_EQ(0, sys::store_file(long_name, "new"));
  EXPECT_EQ("new", read_bytes(long_name));

  // A read-only kernel attribute is refused even to root, whose permission checks the
  // file's own bits do not stop.
  const char* const attribute = "/sys/devices/system/cpu/online";
  struct stat attribute_status;
  if (::stat(attribute, &attribute_status) == 0 && S_ISREG(attribute_status.st_mode)) {
    EXPECT_EQ(1, sys::store_file(attribute, "0"));
  }

  if (::geteuid() == 0) return;  // root creates files in any directory
  ::chmod(dir.str().c_str(), 0555);
  EXPECT_EQ(0, sys::store_file(path, "in place"));
  EXPECT_EQ("in place", read_bytes(path));
  EXPECT_EQ(1, sys::store_file(dir / "new.cfg", "x"));
  ::chmod(path.c_str(), 0444);
  EXPECT_EQ(1, sys::store_file(path, "refused"));
  EXPECT_EQ("in place", read_bytes(path));
  ::chmod(dir.str().c_str(), 0755);
  EXPECT_EQ(1, sys::store_file(path, "refused"));  // a read-only file stays read-only
  EXPECT_EQ("in place", read_bytes(path));
  EXPECT_EQ((std::multiset<std::string>{"fresh.cfg", "private.cfg", std::string(250, 'l')}),
            names_in(dir.str()));
}

// A link swapped in after the check must never be written through.
TEST(StoreFile, ALinkSwappedInIsNeverFollowed) {
  mota_test::temp_dir dir;
  const std::string target = dir / "target", pointee = dir / "pointee";
  write_bytes(pointee, "pointee");
  write_bytes(target, "file");
  std::atomic<bool> stop{false};
  // The swapper flips the target between the file and a link with one exchange at a time, and
  // puts a link back beside it whenever a store has replaced the one it had.
  std::thread swapper([&] {
    const std::string other = dir / "other", fresh = dir / "fresh";
    const auto is_link = [](const std::string& path) {
      struct stat info;
      return ::lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
    };
    while (!stop) {
      if (!is_link(other) && !is_link(target) && ::symlink(pointee.c_str(), fresh.c_str()) == 0)
        ::rename(fresh.c_str(), other.c_str());
      ::renameat2(AT_FDCWD, other.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE);
    }
  });
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  while (std::chrono::steady_clock::now() < end)
    sys::store_file(target, "written");
  stop = true;
  swapper.join();
  EXPECT_EQ("pointee", read_bytes(pointee));
}

// The result is that of the last mkdir.
TEST(CreateDirectory, CreatesPrefixesButNotTheLastComponent) {
  mota_test::temp_dir dir;
  const fs::path previous = fs::current_path();
  fs::current_path(dir.path());
  for (const char* path : {"x/y", "p/q/", "./dot/inner", "m/n/o"})
    EXPECT_TRUE(sys::create_directory(path)) << path;
  for (const char* p : {"x", "p/q", "dot", "m/n"})
    EXPECT_TRUE(fs::is_directory(p)) << p;
  for (const char* p : {"x/y", "dot/inner", "m/n/o"})
    EXPECT_FALSE(fs::exists(p)) << p;
  EXPECT_EQ(0775u & ~current_umask(), mode_of("p/q"));
  fs::create_directory("have");
  EXPECT_TRUE(sys::create_directory("have"));       // exists: no mkdir at all
  EXPECT_FALSE(sys::create_directory("have/new"));  // mkdir("have") failed last
  EXPECT_FALSE(fs::exists("have/new"));
  write_bytes("plain", "");
  EXPECT_FALSE(sys::create_directory("plain"));
  EXPECT_FALSE(sys::create_directory(""));
  // An absolute path skips its leading "/"; the existing parents fail quietly.
  EXPECT_TRUE(sys::create_directory(dir / "abs/"));
  EXPECT_TRUE(fs::is_directory(dir / "abs"));
  fs::current_path(previous);
}

TEST(GetDirectoryFiles, FilesFirstThenSubdirectoriesDepthFirstOnlyReadableOnes) {
  // Group and others may read hidden.txt, not the owner; the directory closed has no owner read.
  mota_test::temp_dir dir;
  const std::string d = dir / "d";
  for (const char* sub : {"", "/sub1", "/sub1/deep", "/sub2", "/closed"})
    fs::create_directories(d + sub);
  for (const char* file : {"/a.txt", "/b.txt", "/hidden.txt", "/sub1/c.txt", "/sub1/deep/e.txt",
                           "/sub2/f.txt", "/closed/g.txt"})
    write_bytes(d + file, file);
  ::chmod((d + "/hidden.txt").c_str(), 0244);
  ::chmod((d + "/closed").c_str(), 0300);
  std::vector<ustring8> files{"kept"};
  sys::get_directory_files(d, files);
  ASSERT_EQ(6u, files.size());
  EXPECT_EQ("kept", files[0]);
  const std::vector<ustring8> found(files.begin() + 1, files.end());
  EXPECT_EQ(as_set({d + "/a.txt", d + "/b.txt", d + "/sub1/c.txt", d + "/sub1/deep/e.txt",
                    d + "/sub2/f.txt"}),
            as_set(found));
  // The directory's own files come first; each subdirectory's files before its subdirectories'.
  EXPECT_EQ(as_set({d + "/a.txt", d + "/b.txt"}), as_set({found[0], found[1]}));
  const auto at = [&](const std::string& p) {
    return std::find(found.begin(), found.end(), p) - found.begin();
  };
  EXPECT_EQ(at(d + "/sub1/c.txt") + 1, at(d + "/sub1/deep/e.txt"));
  EXPECT_TRUE(at(d + "/sub2/f.txt") == 2 || at(d + "/sub2/f.txt") == 4);
  // A trailing "/" stays in the names; a missing directory or a file adds nothing.
  std::vector<ustring8> sub2;
  for (const std::string& path : {d + "/sub2/", dir / "missing", d + "/a.txt"})
    sys::get_directory_files(path, sub2);
  EXPECT_EQ(std::vector<ustring8>{d + "/sub2//f.txt"}, sub2);

  // list_directory gives every entry, unfiltered and flat.
  make_link("nowhere", d + "/dangling");
  // have_read_access tests the owner's read bit and refuses links.
  EXPECT_TRUE(sys::have_read_access(d));
  for (const std::string& path : {d + "/hidden.txt", d + "/dangling", d + "/missing"})
    EXPECT_FALSE(sys::have_read_access(path)) << path;
  EXPECT_EQ(as_set({d + "/a.txt", d + "/b.txt", d + "/hidden.txt", d + "/sub1", d + "/sub2",
                    d + "/closed", d + "/dangling"}),
            as_set(sys::list_directory(d)));
  EXPECT_EQ(std::vector<ustring8>{d + "/sub2//f.txt"}, sys::list_directory(d + "/sub2/"));
  EXPECT_TRUE(sys::list_directory(d + "/a.txt").empty());
}

TEST(GetDirectoryFiles, FollowsLinksButNotBackIntoItsOwnPath) {
  mota_test::temp_dir dir;
  const std::string d = dir / "d";
  fs::create_directories(d + "/x/y");
  fs::create_directories(d + "/z");
  for (const std::string& file : {d + "/x/y/deep.txt", d + "/z/zz.txt", dir / "outside.txt"})
    write_bytes(file, "");
  make_link(dir / "outside.txt", d + "/to_file");
  make_link("..", d + "/x/y/up1");      // loops to x
  make_link("../..", d + "/x/y/up2");   // loops to d
  make_link(d, d + "/x/root");          // loops to d
  make_link("../z", d + "/x/sibling");  // a sibling: walked
  make_link("nowhere", d + "/dangling");
  // Guard against a walk that never ends before looking at the result.
  EXPECT_EXIT(
      {
        ::alarm(20);
        std::vector<ustring8> files;
        sys::get_directory_files(d, files);
        std::exit(0);
      },
      ::testing::ExitedWithCode(0), "");
  if (HasFailure()) return;
  std::vector<ustring8> files;
  sys::get_directory_files(d, files);
  EXPECT_EQ(as_set({d + "/to_file", d + "/x/y/deep.txt", d + "/x/sibling/zz.txt", d + "/z/zz.txt"}),
            as_set(files));
}

// Every wide form converts the path to UTF-8 and forwards; a character outside the BMP takes a
// surrogate pair in UTF-16.
TEST(WidePaths, ConvertToUtf8AndBack) {
  mota_test::temp_dir dir;
  const std::string d = dir / "caf\xC3\xA9";
  const std::string file = d + "/\xF0\x9F\x98\x80.txt";
  const auto check = [&](auto widen) {
    using wide = decltype(widen(d));
    EXPECT_TRUE(sys::create_directory(widen(d + "/")));
    EXPECT_EQ(0, sys::store_file(widen(file), "wide"));
    ustring8 as_ustring;
    std::string as_string;
    EXPECT_EQ(0, sys::load_file(widen(file), as_ustring) + sys::load_file(widen(file), as_string));
    EXPECT_EQ("wide", as_ustring);
    EXPECT_EQ("wide", as_string);
    EXPECT_TRUE(sys::have_read_access(widen(file)));
    std::vector<wide> files{widen("kept")};
    sys::get_directory_files(widen(d), files);
    EXPECT_EQ((std::vector<wide>{widen("kept"), widen(file)}), files);
    EXPECT_EQ(std::vector<wide>{widen(file)}, sys::list_directory(widen(d)));
    make_link(file, d + "/link");
    std::ofstream out;
    std::ifstream in;
    EXPECT_FALSE(sys::safe_oopen(widen(d + "/link"), out) ||
                 sys::safe_iopen(widen(d + "/link"), in));
    fs::remove_all(d);
  };
  check([](const std::string& s) { return mota::strings::utf8_to_utf16(s); });
  check([](const std::string& s) { return mota::strings::utf8_to_utf32(s); });
}
