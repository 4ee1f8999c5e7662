#include "usage.hpp"

namespace mota_tool {

// The help texts (main_usage, ...) are generated from tools/manual.md into usage_texts.cpp.

int usage_error(std::ostream& err, const std::string& problem, const char* usage) {
  // Only the synopsis: the lines before the first blank line.
  const std::string text(usage);
  const std::string::size_type end = text.find("\n\n");
  err << "mota: " << problem << "\n"
      << text.substr(0, end == std::string::npos ? text.size() : end + 1)
      << "Run with --help for details.\n";
  return exit_usage;
}

int failure(std::ostream& err, const std::string& what) {
  err << "mota: " << what << "\n";
  return exit_failure;
}

}  // namespace mota_tool
