// mota config check: reports what a configuration file stores where its writer probably meant
// something else. The reading is the library's (config_file_check); the wording is the tool's.
#ifndef MOTA_TOOLS_CONFIG_CHECK_HPP
#define MOTA_TOOLS_CONFIG_CHECK_HPP

#include <ostream>
#include <string>
#include <vector>

namespace mota_tool {

// Checks each file; returns exit_ok when all are clean, exit_failure when one cannot be read,
// else exit_warnings.
int check_config_files(const std::vector<std::string>& files, bool json, std::ostream& out);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_CONFIG_CHECK_HPP
