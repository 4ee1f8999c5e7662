#include <mota/system/file_utility.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/generic/convert/x_to_str.hpp>
#include <mota/strings/_private/to_utf8.hpp>
#include <mota/strings/utf.hpp>
#include <mota/system/_private/make_path.hpp>
#include <mota/system/io.hpp>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ctime>

namespace MOTA_2_18 {
namespace system {
namespace {

// The 64-bit stat and readdir forms are used throughout so that files of 2 GiB or more and
// large inode numbers are seen on 32-bit builds as well.

using strings::_private::to_utf8;

// The pointer only selects the target encoding.
strings::ustring16 from_utf8(const strings::ustring8& path, const strings::ustring16*) {
  return strings::utf8_to_utf16(path);
}
strings::ustring32 from_utf8(const strings::ustring8& path, const strings::ustring32*) {
  return strings::utf8_to_utf32(path);
}

bool is_symbolic_link(const std::string& path) {
  boost::system::error_code error;
  const boost::filesystem::file_status status =
      boost::filesystem::symlink_status(boost::filesystem::path(path), error);
  return status.type() == boost::filesystem::symlink_file;
}

bool is_dot_entry(const char* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

// Owns a descriptor and closes it on every way out, exceptions included. Where the result of the
// close matters, close() reports it instead.
class descriptor {
 public:
  explicit descriptor(int fd = -1) : fd_(fd) {}
  ~descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  descriptor(const descriptor&) = delete;
  descriptor& operator=(const descriptor&) = delete;

  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  void reset(int fd) {
    if (fd_ >= 0) ::close(fd_);
    fd_ = fd;
  }
  // A failed close is a failed write: the data may not have reached the file.
  bool close() {
    const int fd = fd_;
    fd_ = -1;
    return ::close(fd) == 0;
  }

 private:
  int fd_;
};

// Without it a 32-bit process cannot open a file of 2 GiB or more at all, and load_file could
// not tell such a file from a missing one.
constexpr int large_file = O_LARGEFILE;

bool clear_nonblocking(int fd) {
  const int flags = ::fcntl(fd, F_GETFL);
  return flags != -1 && ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) != -1;
}

// Only a regular file is read. The open does not wait: a FIFO without a writer would block a
// plain open for ever, and a device could, so the descriptor is opened non-blocking and judged by
// what it turned out to be. O_NOFOLLOW refuses a symbolic link on the descriptor itself, which
// leaves no gap between the check and the open.
template <class Content>
int load_into(const std::string& path, Content& content) {
  descriptor file(
      ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC | large_file));
  if (!file.valid()) return 1;
  struct stat64 info;
  if (::fstat64(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return 1;
  const std::int64_t size = static_cast<std::int64_t>(info.st_size);
  if (size >= std::int64_t(1) << 31)
    MOTA_THROW_AS(
        exceptions::runtime_error,
        generic::convert::to_str(static_cast<long long>(size)) + " is large than a string can hold",
        "load_file");
  if (!clear_nonblocking(file.get())) return 1;
  // Read straight into `content`: a caller that loads file after file into one string keeps
  // its storage. A file that shrinks meanwhile yields what it still holds; one that grows, its
  // first `size` bytes. A read error (rare on a regular file) is reported with what was read.
  content.resize(static_cast<std::size_t>(size));
  std::size_t done = 0;
  while (done < content.size()) {
    const ssize_t got = ::read(file.get(), &content[done], content.size() - done);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      content.resize(done);
      return got < 0 ? 1 : 0;
    }
    done += static_cast<std::size_t>(got);
  }
  return 0;
}

bool write_all(int fd, const std::string& content) {
  const char* data = content.data();
  std::size_t left = content.size();
  while (left > 0) {
    const ssize_t put = ::write(fd, data, left);
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    data += put;
    left -= static_cast<std::size_t>(put);
  }
  return true;
}

bool sync(int fd) {
  while (::fsync(fd) != 0)
    if (errno != EINTR) return false;
  return true;
}

// Writes the content over whatever the descriptor holds and closes it; false when any write,
// the fsync (files and block devices; character devices have nothing to sync) or the close
// failed.
bool write_and_close(descriptor& file, const std::string& content, bool synced) {
  const bool written = write_all(file.get(), content) && (!synced || sync(file.get()));
  return file.close() && written;
}

// The old way, kept for when no temporary file can be made beside the target: rewrite the file
// where it is. Character and block devices always take this way, since replacing their node would
// not write to them at all. FIFOs, sockets and directories are refused; the open is non-blocking
// and O_NOFOLLOW, so neither a FIFO nor a link put there meanwhile is waited on or followed, and
// only a regular file is truncated, after it has been seen to be one.
int store_in_place(int directory, const char* name, const std::string& content) {
  descriptor file(::openat(
      directory, name,
      O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | large_file, 0666));
  if (!file.valid()) return 1;
  struct stat64 info;
  if (::fstat64(file.get(), &info) != 0) return 1;
  const bool regular = S_ISREG(info.st_mode);
  if (!regular && !S_ISCHR(info.st_mode) && !S_ISBLK(info.st_mode)) return 1;
  if (!clear_nonblocking(file.get())) return 1;
  if (regular && ::ftruncate64(file.get(), 0) != 0) return 1;
  return write_and_close(file, content, !S_ISCHR(info.st_mode)) ? 0 : 1;
}

// A name for the temporary file beside the target: ".<name>.XXXXXX" with six letters or digits
// that differ on every try.
std::string temporary_name(const std::string& name, unsigned attempt) {
  static const char letters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  std::uint64_t bits = static_cast<std::uint64_t>(now.tv_nsec) ^
                       (static_cast<std::uint64_t>(now.tv_sec) << 30) ^
                       (static_cast<std::uint64_t>(::getpid()) << 20) ^
                       (std::uint64_t(attempt) * 0x9E3779B97F4A7C15ull);
  bits ^= bits >> 31;
  bits *= 0xBF58476D1CE4E5B9ull;
  bits ^= bits >> 29;
  std::string result = "." + name + ".";
  for (int i = 0; i < 6; ++i, bits /= 62)
    result += letters[bits % 62];
  return result;
}

// The errors of creating the temporary that leave an in-place write worth trying: the directory
// is not writable, or the longer name does not fit.
bool directory_refuses_temporary(int error) {
  return error == EACCES || error == EPERM || error == EROFS || error == ENAMETOOLONG;
}

// Replaces the file as a whole: the content goes to a new file beside it, is synced, gets the old
// file's owner and permission bits, and is renamed over the target, so a crash, a kill or a full
// disk leaves either the old file or the new one, never a part of either.
//
// Links: a symbolic link at the path is refused, as before. The check and the rename are not one
// step, but the rename never follows anything: it replaces the directory entry itself, so a link
// swapped in meanwhile is replaced by the new file, and whatever it pointed to is never written.
// The temporary is created with O_EXCL, which refuses a link of that name too. All names are
// resolved relative to one descriptor of the directory, so the directory cannot change under us
// between the steps either.
int store_to(const std::string& path, const std::string& content) {
  const std::size_t slash = path.rfind('/');
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  // "" and "dir/" name no file; a plain open for writing fails on them as well.
  if (name.empty()) return 1;
  const std::string directory_path = slash == std::string::npos ? std::string(".")
                                     : slash == 0               ? "/"
                                                                : path.substr(0, slash);
  const descriptor directory(::open(directory_path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!directory.valid()) return 1;

  struct stat64 old_file;
  bool existing = false;
  if (::fstatat64(directory.get(), name.c_str(), &old_file, AT_SYMLINK_NOFOLLOW) == 0) {
    if (S_ISLNK(old_file.st_mode)) return 1;
    if (S_ISCHR(old_file.st_mode) || S_ISBLK(old_file.st_mode))
      return store_in_place(directory.get(), name.c_str(), content);
    if (!S_ISREG(old_file.st_mode)) return 1;  // FIFO, socket, directory: never opened
    // Renaming needs only the directory's permission; the file must be writable too, as it
    // would have to be for a plain open, or a read-only file would be replaced.
    descriptor probe(
        ::openat(directory.get(), name.c_str(),
                 O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | large_file));
    if (!probe.valid() || ::fstat64(probe.get(), &old_file) != 0 || !S_ISREG(old_file.st_mode))
      return 1;
    existing = true;
  } else if (errno != ENOENT) {
    return 1;
  }

  // Mode 0666 lets the umask and the directory's default ACL shape a new file as a plain create
  // would; an existing file's bits are copied below.
  std::string temporary;
  descriptor file;
  for (unsigned attempt = 0; attempt < 100 && !file.valid(); ++attempt) {
    temporary = temporary_name(name, attempt);
    file.reset(::openat(directory.get(), temporary.c_str(),
                        O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | large_file, 0666));
    if (!file.valid() && errno != EEXIST) break;
  }
  if (!file.valid())
    return directory_refuses_temporary(errno)
               ? store_in_place(directory.get(), name.c_str(), content)
               : 1;
  const auto discard = [&] { ::unlinkat(directory.get(), temporary.c_str(), 0); };

  if (existing) {
    // A file that cannot keep its owner or its bits is rewritten in place, which keeps both.
    struct stat64 fresh;
    const bool kept = ::fstat64(file.get(), &fresh) == 0 &&
                      ((fresh.st_uid == old_file.st_uid && fresh.st_gid == old_file.st_gid) ||
                       ::fchown(file.get(), old_file.st_uid, old_file.st_gid) == 0) &&
                      ::fchmod(file.get(), old_file.st_mode & 07777) == 0;
    if (!kept) {
      file.close();
      discard();
      return store_in_place(directory.get(), name.c_str(), content);
    }
  }
  if (!write_and_close(file, content, true) ||
      ::renameat(directory.get(), temporary.c_str(), directory.get(), name.c_str()) != 0) {
    discard();
    return 1;
  }
  // Make the rename itself durable; the file is complete either way, so a failure here is not
  // one of the store.
  descriptor listing(::openat(directory.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (listing.valid()) sync(listing.get());
  return 0;
}

// A directory's identity, to recognise a walk that has come back to one of its ancestors
// through a symbolic link.
struct directory_id {
  std::uint64_t device;
  std::uint64_t inode;
};

bool is_on_walk(const std::vector<directory_id>& walk, const directory_id& id) {
  for (const directory_id& ancestor : walk)
    if (ancestor.device == id.device && ancestor.inode == id.inode) return true;
  return false;
}

void walk_directory(const std::string& directory, std::vector<directory_id>& walk,
                    std::vector<strings::ustring8>& files) {
  DIR* handle = ::opendir(directory.c_str());
  if (handle == nullptr) return;
  ::rewinddir(handle);
  const int descriptor = ::dirfd(handle);
  std::vector<std::pair<std::string, directory_id>> subdirectories;
  while (const dirent64* entry = ::readdir64(handle)) {
    if (is_dot_entry(entry->d_name)) continue;
    std::string full;
    full.reserve(directory.size() + 1 + std::strlen(entry->d_name));
    full.append(directory).append(1, '/').append(entry->d_name);
    // One stat answers is_file, is_directory and have_read_access alike; relative to the open
    // directory, so the kernel does not resolve the whole path again for every entry.
    struct stat64 info;
    if (::fstatat64(descriptor, entry->d_name, &info, 0) != 0) continue;
    const unsigned int mode = static_cast<unsigned int>(info.st_mode);
    if ((mode & 0400u) == 0) continue;
    if (mode & 0x8000u)
      files.emplace_back(std::move(full));
    else if (mode & 0x4000u)
      subdirectories.emplace_back(std::move(full),
                                  directory_id{static_cast<std::uint64_t>(info.st_dev),
                                               static_cast<std::uint64_t>(info.st_ino)});
  }
  ::closedir(handle);
  for (const auto& subdirectory : subdirectories) {
    if (is_on_walk(walk, subdirectory.second)) continue;
    walk.push_back(subdirectory.second);
    walk_directory(subdirectory.first, walk, files);
    walk.pop_back();
  }
}

void walk_from(const std::string& directory, std::vector<strings::ustring8>& files) {
  std::vector<directory_id> walk;
  struct stat64 info;
  if (::stat64(directory.c_str(), &info) == 0)
    walk.push_back(directory_id{static_cast<std::uint64_t>(info.st_dev),
                                static_cast<std::uint64_t>(info.st_ino)});
  walk_directory(directory, walk, files);
}

std::vector<strings::ustring8> list_from(const std::string& directory) {
  std::vector<strings::ustring8> entries;
  DIR* handle = ::opendir(directory.c_str());
  if (handle == nullptr) return entries;
  ::rewinddir(handle);
  while (const dirent64* entry = ::readdir64(handle)) {
    if (is_dot_entry(entry->d_name)) continue;
    strings::ustring8 full;
    full.reserve(directory.size() + 1 + std::strlen(entry->d_name));
    full.append(directory).append(1, '/').append(entry->d_name);
    entries.push_back(std::move(full));
  }
  ::closedir(handle);
  return entries;
}

}  // namespace

template <class S>
bool safe_iopen(S path, std::ifstream& stream) {
  const std::string& bytes = to_utf8(path);
  if (is_symbolic_link(bytes)) return false;
  stream.open(bytes.c_str(), std::ios::in | std::ios::binary);
  return true;
}

template <class S>
bool safe_oopen(S path, std::ofstream& stream) {
  const std::string& bytes = to_utf8(path);
  if (is_symbolic_link(bytes)) return false;
  stream.open(bytes.c_str(), std::ios::out | std::ios::binary);
  return true;
}

template MOTA_API bool safe_iopen<strings::ustring8>(strings::ustring8, std::ifstream&);
template MOTA_API bool safe_iopen<strings::ustring16>(strings::ustring16, std::ifstream&);
template MOTA_API bool safe_iopen<strings::ustring32>(strings::ustring32, std::ifstream&);
template MOTA_API bool safe_oopen<strings::ustring8>(strings::ustring8, std::ofstream&);
template MOTA_API bool safe_oopen<strings::ustring16>(strings::ustring16, std::ofstream&);
template MOTA_API bool safe_oopen<strings::ustring32>(strings::ustring32, std::ofstream&);

int load_file(const strings::ustring8& path, strings::ustring8& content) {
  return load_into(path, content);
}

int load_file(const strings::ustring8& path, std::string& content) {
  return load_into(path, content);
}

int store_file(const strings::ustring8& path, const strings::ustring8& content) {
  return store_to(path, content);
}

bool create_directory(const strings::ustring8& path) {
  if (io::exists(path) && io::is_directory(path)) return true;
  return _private::make_path_prefixes(path);
}

bool have_read_access(const strings::ustring8& path) {
  struct stat64 info;
  return ::stat64(path.c_str(), &info) == 0 && (info.st_mode & 0400) != 0;
}

void get_directory_files(const strings::ustring8& directory,
                         std::vector<strings::ustring8>& files) {
  walk_from(directory, files);
}

std::vector<strings::ustring8> list_directory(const strings::ustring8& directory) {
  return list_from(directory);
}

// The wide forms convert the path to UTF-8 and forward.

int load_file(const strings::ustring16& path, strings::ustring8& content) {
  return load_into(to_utf8(path), content);
}
int load_file(const strings::ustring16& path, std::string& content) {
  return load_into(to_utf8(path), content);
}
int load_file(const strings::ustring32& path, strings::ustring8& content) {
  return load_into(to_utf8(path), content);
}
int load_file(const strings::ustring32& path, std::string& content) {
  return load_into(to_utf8(path), content);
}

int store_file(const strings::ustring16& path, const strings::ustring8& content) {
  return store_file(to_utf8(path), content);
}
int store_file(const strings::ustring32& path, const strings::ustring8& content) {
  return store_file(to_utf8(path), content);
}

bool create_directory(const strings::ustring16& path) {
  return create_directory(to_utf8(path));
}
bool create_directory(const strings::ustring32& path) {
  return create_directory(to_utf8(path));
}

bool have_read_access(const strings::ustring16& path) {
  return have_read_access(to_utf8(path));
}
bool have_read_access(const strings::ustring32& path) {
  return have_read_access(to_utf8(path));
}

namespace {

template <class Wide>
void get_wide_directory_files(const Wide& directory, std::vector<Wide>& files) {
  std::vector<strings::ustring8> found;
  walk_from(to_utf8(directory), found);
  files.reserve(files.size() + found.size());
  for (const strings::ustring8& path : found)
    files.push_back(from_utf8(path, static_cast<const Wide*>(nullptr)));
}

template <class Wide>
std::vector<Wide> list_wide_directory(const Wide& directory) {
  const std::vector<strings::ustring8> found = list_from(to_utf8(directory));
  std::vector<Wide> entries;
  entries.reserve(found.size());
  for (const strings::ustring8& path : found)
    entries.push_back(from_utf8(path, static_cast<const Wide*>(nullptr)));
  return entries;
}

}  // namespace

void get_directory_files(const strings::ustring16& directory,
                         std::vector<strings::ustring16>& files) {
  get_wide_directory_files(directory, files);
}
void get_directory_files(const strings::ustring32& directory,
                         std::vector<strings::ustring32>& files) {
  get_wide_directory_files(directory, files);
}

std::vector<strings::ustring16> list_directory(const strings::ustring16& directory) {
  return list_wide_directory(directory);
}
std::vector<strings::ustring32> list_directory(const strings::ustring32& directory) {
  return list_wide_directory(directory);
}

}  // namespace system
}  // namespace MOTA_2_18
