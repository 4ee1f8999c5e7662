// Exit codes and usage texts of the mota command-line tool.
#ifndef MOTA_TOOLS_USAGE_HPP
#define MOTA_TOOLS_USAGE_HPP

#include <ostream>
#include <string>

namespace mota_tool {

// The tool's exit codes: success, a failure reported by the library (bad data, missing file),
// a configuration key that is not set, a check that found warnings only, and a command line
// the tool does not understand.
constexpr int exit_ok = 0;
constexpr int exit_failure = 1;
constexpr int exit_absent = 2;
constexpr int exit_warnings = 3;
constexpr int exit_usage = 64;

// The help text of the tool as a whole and of each subcommand.
extern const char* const main_usage;
extern const char* const catalog_usage;
extern const char* const config_usage;
extern const char* const convert_usage;
extern const char* const xml_usage;

// Writes "mota: <problem>", the synopsis lines of `usage` and a hint at --help to `err`;
// returns exit_usage.
int usage_error(std::ostream& err, const std::string& problem, const char* usage);

// Writes "mota: <what>" to `err`; returns exit_failure.
int failure(std::ostream& err, const std::string& what);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_USAGE_HPP
