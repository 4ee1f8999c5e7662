#include <mota/system/io.hpp>

#include <mota/strings/utf.hpp>
#include <mota/system/_private/make_path.hpp>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace MOTA_2_18 {
namespace system {
namespace io {
namespace {

// The mode of the path, or 0 when stat fails. stat64 so that files of 2 GiB or more are seen
// on 32-bit builds too.
unsigned int mode_of(const char* path) {
  struct stat64 info;
  if (::stat64(path, &info) != 0) return 0;
  return static_cast<unsigned int>(info.st_mode);
}

}  // namespace

bool exists(const strings::ustring8& path) {
  struct stat64 info;
  return ::stat64(path.c_str(), &info) == 0;
}

// Plain bit tests on purpose: directory walks rely on them.
bool is_file(const strings::ustring8& path) {
  return (mode_of(path.c_str()) & 0x8000u) != 0;
}

bool is_directory(const strings::ustring8& path) {
  return (mode_of(path.c_str()) & 0x4000u) != 0;
}

void move(const strings::ustring8& from, const strings::ustring8& to) {
  static_cast<void>(std::rename(from.c_str(), to.c_str()));
}

void remove_file(const strings::ustring8& path) {
  static_cast<void>(std::remove(path.c_str()));
}

void remove_dir(const strings::ustring8& path) {
  static_cast<void>(::rmdir(path.c_str()));
}

void mkdir(const strings::ustring8& path) {
  const std::string copy(path);
  if (exists(path) && is_directory(path)) return;
  _private::make_path_prefixes(copy);
  // The prefix walk stops before the last component; create it as well.
  static_cast<void>(::mkdir(copy.c_str(), 0775));
}

// The wide forms convert the path to UTF-8 and forward.
bool exists(const strings::ustring16& path) {
  return exists(strings::utf16_to_utf8(path));
}
bool exists(const strings::ustring32& path) {
  return exists(strings::utf32_to_utf8(path));
}
bool is_file(const strings::ustring16& path) {
  return is_file(strings::utf16_to_utf8(path));
}
bool is_file(const strings::ustring32& path) {
  return is_file(strings::utf32_to_utf8(path));
}
bool is_directory(const strings::ustring16& path) {
  return is_directory(strings::utf16_to_utf8(path));
}
bool is_directory(const strings::ustring32& path) {
  return is_directory(strings::utf32_to_utf8(path));
}
void move(const strings::ustring16& from, const strings::ustring16& to) {
  move(strings::utf16_to_utf8(from), strings::utf16_to_utf8(to));
}
void move(const strings::ustring32& from, const strings::ustring32& to) {
  move(strings::utf32_to_utf8(from), strings::utf32_to_utf8(to));
}
void remove_file(const strings::ustring16& path) {
  remove_file(strings::utf16_to_utf8(path));
}
void remove_file(const strings::ustring32& path) {
  remove_file(strings::utf32_to_utf8(path));
}
void remove_dir(const strings::ustring16& path) {
  remove_dir(strings::utf16_to_utf8(path));
}
void remove_dir(const strings::ustring32& path) {
  remove_dir(strings::utf32_to_utf8(path));
}
void mkdir(const strings::ustring16& path) {
  mkdir(strings::utf16_to_utf8(path));
}
void mkdir(const strings::ustring32& path) {
  mkdir(strings::utf32_to_utf8(path));
}

}  // namespace io
}  // namespace system
}  // namespace MOTA_2_18
