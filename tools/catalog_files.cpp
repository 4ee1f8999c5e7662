#include "catalog_files.hpp"

#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <algorithm>
#include <cctype>

namespace mota_tool {
namespace {

bool has_catalog_suffix(const std::string& path) {
  if (path.size() < 4) return false;
  std::string suffix = path.substr(path.size() - 4);
  for (char& c : suffix)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return suffix == ".xmc" || suffix == ".xml";
}

void collect(const mota::strings::ustring8& directory, std::vector<std::string>& files,
             unsigned int depth) {
  // Links may loop; a directory tree deeper than this is not a catalog tree.
  if (depth > 64) return;
  std::vector<mota::strings::ustring8> entries = mota::system::list_directory(directory);
  std::sort(entries.begin(), entries.end());
  for (const mota::strings::ustring8& entry : entries) {
    if (mota::system::io::is_directory(entry)) {
      collect(entry, files, depth + 1);
    } else if (has_catalog_suffix(entry)) {
      files.push_back(entry);
    }
  }
}

}  // namespace

void collect_catalog_files(const std::string& directory, std::vector<std::string>& files) {
  collect(mota::strings::ustring8(directory), files, 0);
}

}  // namespace mota_tool
