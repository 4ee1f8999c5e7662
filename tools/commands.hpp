// The tool's subcommands. Each takes the words after its own name and returns the process
// exit code (see usage.hpp); output goes to `out`, diagnostics to `err`.
#ifndef MOTA_TOOLS_COMMANDS_HPP
#define MOTA_TOOLS_COMMANDS_HPP

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace mota_tool {

// mota catalog check|render ...
int run_catalog(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

// mota config get|dump ...; `envp` is the environment the configuration sees.
int run_config(const std::vector<std::string>& words, const char* const* envp, std::ostream& out,
               std::ostream& err);

// mota convert ...; reads all of `in` and writes the converted bytes to `out`.
int run_convert(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                std::ostream& err);

// mota xml check FILE
int run_xml(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_COMMANDS_HPP
