// mota: checks and inspects the library's data files (message catalogs, configuration, XML,
// code pages) from the command line. The tool lives in run_mota; main only hands it the
// process's arguments, streams and environment, and reports output that could not be written.
#include "commands.hpp"
#include "usage.hpp"

#include <iostream>
#include <string>
#include <vector>

extern char** environ;

int main(int argc, char** argv) {
  int code = mota_tool::run_mota(std::vector<std::string>(argv + 1, argv + argc), std::cin,
                                 std::cout, std::cerr, environ);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "mota: cannot write the output\n";
    if (code == mota_tool::exit_ok) code = mota_tool::exit_failure;
  }
  return code;
}
