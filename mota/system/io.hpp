// Existence and type tests, renaming and deletion of file-system entries. Nothing here throws
// or reports an error: the tests answer false and the actions drop the system's result.
//
//   if (mota::system::io::is_file(path)) mota::system::io::move(path, path + ".bak");
//   mota::system::io::mkdir("out/logs");
#ifndef MOTA_SYSTEM_IO_HPP
#define MOTA_SYSTEM_IO_HPP

#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

namespace MOTA_2_18 {
namespace system {
// Thin wrappers over stat, rename, remove, rmdir and mkdir, for paths in the three encodings.
namespace io {

// Every function takes a UTF-8 path; the UTF-16 and UTF-32 forms convert the path to UTF-8
// and behave alike. Symbolic links are followed.

//@{
// True when stat succeeds on the path.
MOTA_API bool exists(const strings::ustring8& path);
MOTA_API bool exists(const strings::ustring16& path);
MOTA_API bool exists(const strings::ustring32& path);
//@}
//@{
// True when stat succeeds and bit 0x8000 of the mode is set (also true for sockets).
MOTA_API bool is_file(const strings::ustring8& path);
MOTA_API bool is_file(const strings::ustring16& path);
MOTA_API bool is_file(const strings::ustring32& path);
//@}
//@{
// True when stat succeeds and bit 0x4000 of the mode is set (also true for block devices and
// sockets).
MOTA_API bool is_directory(const strings::ustring8& path);
MOTA_API bool is_directory(const strings::ustring16& path);
MOTA_API bool is_directory(const strings::ustring32& path);
//@}
//@{
// rename(from, to); the result is ignored.
MOTA_API void move(const strings::ustring8& from, const strings::ustring8& to);
MOTA_API void move(const strings::ustring16& from, const strings::ustring16& to);
MOTA_API void move(const strings::ustring32& from, const strings::ustring32& to);
//@}
//@{
// remove(path): deletes a file or an empty directory; the result is ignored.
MOTA_API void remove_file(const strings::ustring8& path);
MOTA_API void remove_file(const strings::ustring16& path);
MOTA_API void remove_file(const strings::ustring32& path);
//@}
//@{
// rmdir(path); the result is ignored.
MOTA_API void remove_dir(const strings::ustring8& path);
MOTA_API void remove_dir(const strings::ustring16& path);
MOTA_API void remove_dir(const strings::ustring32& path);
//@}
//@{
// Creates the directory and every missing parent with mode 0775, including the last
// component; failures are ignored.
MOTA_API void mkdir(const strings::ustring8& path);
MOTA_API void mkdir(const strings::ustring16& path);
MOTA_API void mkdir(const strings::ustring32& path);
//@}

}  // namespace io
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_IO_HPP
