// Not part of the public interface.
//
// The identity of a file or directory for "seen before" checks: two paths that reach the same
// place through links, "." or ".." resolve to the same text.
#ifndef MOTA_SYSTEM_PRIVATE_RESOLVED_PATH_HPP
#define MOTA_SYSTEM_PRIVATE_RESOLVED_PATH_HPP

#include <string>

namespace MOTA_2_18 {
namespace system {
namespace _private {

// The absolute path realpath() gives for `path`, or `path` itself when it cannot be resolved.
std::string resolved_path(const std::string& path);

}  // namespace _private
}  // namespace system
}  // namespace MOTA_2_18

#endif  // MOTA_SYSTEM_PRIVATE_RESOLVED_PATH_HPP
