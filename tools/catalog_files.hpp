// The files a load of catalog paths reads, one by one, so that a command can load each on its
// own and report every broken file instead of stopping at the first.
#ifndef MOTA_TOOLS_CATALOG_FILES_HPP
#define MOTA_TOOLS_CATALOG_FILES_HPP

#include <string>
#include <vector>

namespace mota_tool {

// Appends to `files` the catalog files below `directory` as a directory load takes them:
// every file whose name, lower-cased, ends in ".xmc" or ".xml", subdirectories searched too.
// Each directory's entries are taken in name order so that reports do not depend on the order
// the system lists them in.
void collect_catalog_files(const std::string& directory, std::vector<std::string>& files);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_CATALOG_FILES_HPP
