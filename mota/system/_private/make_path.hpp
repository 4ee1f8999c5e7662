// Not part of the public interface.
//
// The directory-creation walk shared by system::create_directory and system::io::mkdir.
#ifndef MOTA_SYSTEM_PRIVATE_MAKE_PATH_HPP
#define MOTA_SYSTEM_PRIVATE_MAKE_PATH_HPP

#include <string>

namespace MOTA_2_18 {
namespace system {
namespace _private {

// Calls mkdir (mode 0775) on every prefix of `path` that ends before a "/", skipping a
// leading "/" or "./" (when the path starts with "." or "/", the search begins one past the
// first "/"); with no "/" to stop at, on the whole path. The text after the last "/" is not
// created unless the path has no "/" at all. Returns true when the last mkdir succeeded.
bool make_path_prefixes(const std::string& path);

}  // namespace _private
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_PRIVATE_MAKE_PATH_HPP
