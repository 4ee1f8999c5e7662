#include <mota/system/file_utility.hpp>

#include <mota/exceptions/_private/throw.hpp>
#include <mota/generic/convert/x_to_str.hpp>
#include <mota/strings/utf.hpp>
#include <mota/system/_private/make_path.hpp>
#include <mota/system/io.hpp>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <dirent.h>
#include <sys/stat.h>

#include <cstdint>
#include <cstring>

namespace MOTA_2_18 {
namespace system {
namespace {

// The 64-bit stat and readdir forms are used throughout so that files of 2 GiB or more and
// large inode numbers are seen on 32-bit builds as well.

const std::string& to_utf8(const strings::ustring8& path) {
  return path;
}
strings::ustring8 to_utf8(const strings::ustring16& path) {
  return strings::utf16_to_utf8(path);
}
strings::ustring8 to_utf8(const strings::ustring32& path) {
  return strings::utf32_to_utf8(path);
}

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

template <class Content>
int load_into(const std::string& path, Content& content) {
  std::ifstream stream;
  if (!safe_iopen<strings::ustring8>(path, stream) || stream.fail() || stream.bad()) return 1;
  // A directory opens as a stream on Linux, but its "size" is meaningless; refuse it.
  struct stat64 info;
  if (::stat64(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return 1;
  stream.seekg(0, std::ios::end);
  const std::int64_t size = static_cast<std::int64_t>(stream.tellg());
  if (size < 0) return 1;
  if (size >= std::int64_t(1) << 31)
    MOTA_THROW_AS(
        exceptions::runtime_error,
        generic::convert::to_str(static_cast<long long>(size)) + " is large than a string can hold",
        "load_file");
  content.resize(static_cast<std::size_t>(size));
  stream.seekg(0, std::ios::beg);
  if (size > 0) stream.read(&content[0], static_cast<std::streamsize>(size));
  stream.close();
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
  std::ofstream stream;
  if (!safe_oopen<strings::ustring8>(path, stream) || stream.fail()) return 1;
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  return 0;
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
