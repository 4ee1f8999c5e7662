#include <mota/system/_private/resolved_path.hpp>

#include <cstdlib>

namespace MOTA_2_18 {
namespace system {
namespace _private {

std::string resolved_path(const std::string& path) {
  char* resolved = ::realpath(path.c_str(), nullptr);
  if (resolved == nullptr) return path;
  std::string out(resolved);
  std::free(resolved);
  return out;
}

}  // namespace _private
}  // namespace system
}  // namespace MOTA_2_18
