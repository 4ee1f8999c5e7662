// The tool's subcommands. Each takes the words after its own name and returns the process
// exit code (see usage.hpp); output goes to `out`, diagnostics to `err`.
#ifndef MOTA_TOOLS_COMMANDS_HPP
#define MOTA_TOOLS_COMMANDS_HPP

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace mota_tool {

// The whole tool: `words` are the arguments after the program name, `envp` the environment the
// configuration sees. Returns the exit code (see usage.hpp); a failure thrown by the library is
// written to `err` as "mota: <message>" with exit_failure.
int run_mota(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
             std::ostream& err, const char* const* envp);

// mota catalog check|render ...
int run_catalog(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

// mota catalog lint ...; `words` are the arguments after "lint".
int run_catalog_lint(const std::vector<std::string>& words, std::ostream& out, std::ostream& err);

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
