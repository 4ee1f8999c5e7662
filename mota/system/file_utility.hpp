// Whole-file load and store, directory creation, a read-access test and directory listings.
// Files are read and written as raw bytes; symbolic links are refused when a file is opened
// but followed during directory walks.
//
//   mota::strings::ustring8 text;
//   if (mota::system::load_file("conf/app.cfg", text) == 0) use(text);
//   std::vector<mota::strings::ustring8> files;
//   mota::system::get_directory_files("catalogs", files);
#ifndef MOTA_SYSTEM_FILE_UTILITY_HPP
#define MOTA_SYSTEM_FILE_UTILITY_HPP

#include <mota/exceptions/runtime_error.hpp>
#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>

#include <fstream>
#include <string>
#include <vector>

namespace MOTA_2_18 {
// Operating-system services: files, directories, dates and times.
namespace system {

// Every function takes a UTF-8 path; the UTF-16 and UTF-32 forms convert the path to UTF-8
// and behave alike. Paths reach the system as their bytes, without normalisation.

//@{
// Reads the whole file, byte for byte (no byte-order-mark handling), into `content` and
// returns 0. Returns 1 and leaves `content` untouched when the path is a symbolic link or
// anything but a regular file (a directory, a FIFO, a device) or cannot be opened; it never
// waits for a FIFO's writer. A read that fails midway returns 1 with the bytes read so far. Throws
// exceptions::runtime_error "<size> is large than a string can hold" for a file of 2^31 bytes or
// more.
MOTA_API int load_file(const strings::ustring8& path, strings::ustring8& content);
MOTA_API int load_file(const strings::ustring8& path, std::string& content);
MOTA_API int load_file(const strings::ustring16& path, strings::ustring8& content);
MOTA_API int load_file(const strings::ustring16& path, std::string& content);
MOTA_API int load_file(const strings::ustring32& path, strings::ustring8& content);
MOTA_API int load_file(const strings::ustring32& path, std::string& content);
//@}

//@{
// Writes `content` as the whole file and returns 0. The content goes to a temporary file
// beside the target (".<name>.XXXXXX"), is synced and renamed over it with the old file's
// owner and permission bits, so a crash or a failure leaves the old file as it was. Where the
// directory takes no new file, a writable file is rewritten in place, as is a character or block
// device. Returns 1, with no temporary left, when the path is a symbolic link, a FIFO, a socket
// or a directory, the file or directory cannot be written, or any write, sync or close fails.
MOTA_API int store_file(const strings::ustring8& path, const strings::ustring8& content);
MOTA_API int store_file(const strings::ustring16& path, const strings::ustring8& content);
MOTA_API int store_file(const strings::ustring32& path, const strings::ustring8& content);
//@}

//@{
// Returns true at once when the path is an existing directory. Otherwise calls mkdir (mode
// 0775) on every prefix of the path that ends before a "/" (a leading "/" or "./" excepted),
// or on the whole path when it holds no "/", and returns whether the last call succeeded.
// The component after the last "/" is intentionally not created: "a/b" makes only "a", and
// "a/b/" makes "a" and "a/b".
MOTA_API bool create_directory(const strings::ustring8& path);
MOTA_API bool create_directory(const strings::ustring16& path);
MOTA_API bool create_directory(const strings::ustring32& path);
//@}

//@{
// True when stat succeeds and the owner-read bit (0400) is set; the caller's identity is not
// considered.
MOTA_API bool have_read_access(const strings::ustring8& path);
MOTA_API bool have_read_access(const strings::ustring16& path);
MOTA_API bool have_read_access(const strings::ustring32& path);
//@}

//@{
// Appends to `files` the full paths (directory + "/" + name, the "/" always added) of the
// regular files with the owner-read bit found under the directory: each directory's files in
// the order the system lists them, then its readable subdirectories, depth first. Links are
// followed, except to a directory already on the path being walked. A directory that cannot
// be opened adds nothing. The wide forms convert each found path back to their own encoding.
MOTA_API void get_directory_files(const strings::ustring8& directory,
                                  std::vector<strings::ustring8>& files);
MOTA_API void get_directory_files(const strings::ustring16& directory,
                                  std::vector<strings::ustring16>& files);
MOTA_API void get_directory_files(const strings::ustring32& directory,
                                  std::vector<strings::ustring32>& files);
//@}

//@{
// Every entry of the directory but "." and "..", as directory + "/" + name, unfiltered and
// not recursive; empty when the directory cannot be opened.
MOTA_API std::vector<strings::ustring8> list_directory(const strings::ustring8& directory);
MOTA_API std::vector<strings::ustring16> list_directory(const strings::ustring16& directory);
MOTA_API std::vector<strings::ustring32> list_directory(const strings::ustring32& directory);
//@}

// Unless the path is a symbolic link, opens `stream` on it with in | binary and returns true
// (whether or not the open succeeded: test the stream too); returns false for a link without
// opening. S is ustring8, ustring16 or ustring32.
template <class S>
MOTA_API bool safe_iopen(S path, std::ifstream& stream);
// As safe_iopen, opening with out | binary, so an existing file is truncated.
template <class S>
MOTA_API bool safe_oopen(S path, std::ofstream& stream);

}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_FILE_UTILITY_HPP
