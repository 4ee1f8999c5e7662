#include <mota/system/_private/make_path.hpp>

#include <sys/stat.h>

namespace MOTA_2_18 {
namespace system {
namespace _private {

bool make_path_prefixes(const std::string& path) {
  std::string::size_type start = 0;
  if (!path.empty() && (path[0] == '.' || path[0] == '/')) {
    const std::string::size_type first = path.find('/');
    start = first == std::string::npos ? 0 : first + 1;
  }
  std::string::size_type slash = path.find('/', start);
  int result = ::mkdir(path.substr(0, slash).c_str(), 0775);
  while (slash != std::string::npos) {
    slash = path.find('/', slash + 1);
    if (slash == std::string::npos) break;
    result = ::mkdir(path.substr(0, slash).c_str(), 0775);
  }
  return result == 0;
}

}  // namespace _private
}  // namespace system
}  // namespace MOTA_2_18
