// mota: checks and inspects the library's data files (message catalogs, configuration, XML,
// code pages) from the command line. This file only picks the subcommand.
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/exceptions/exception.hpp>
#include <mota/version.hpp>

#include <exception>
#include <iostream>
#include <new>

extern char** environ;

namespace {

int dispatch(const std::vector<std::string>& words) {
  using namespace mota_tool;
  if (words.empty()) return usage_error(std::cerr, "no command given", main_usage);
  const std::string& command = words[0];
  const std::vector<std::string> rest(words.begin() + 1, words.end());
  if (command == "--help" || command == "-h" || command == "help") {
    std::cout << main_usage;
    return exit_ok;
  }
  if (command == "--version") {
    std::cout << "mota " << MOTA_VERSION_MAJOR << "." << MOTA_VERSION_MINOR << "."
              << MOTA_VERSION_PATCH << "\n";
    return exit_ok;
  }
  if (command == "convert") return run_convert(rest, std::cin, std::cout, std::cerr);
  if (command == "xml") return run_xml(rest, std::cout, std::cerr);
  if (command == "catalog") return run_catalog(rest, std::cout, std::cerr);
  if (command == "config") return run_config(rest, environ, std::cout, std::cerr);
  return usage_error(std::cerr, "unknown command \"" + printable(command) + "\"", main_usage);
}

}  // namespace

int main(int argc, char** argv) {
  int code = mota_tool::exit_failure;
  try {
    code = dispatch(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const mota::exceptions::exception& e) {
    mota_tool::failure(std::cerr, mota_tool::printable(e.get_message()));
  } catch (const std::bad_alloc&) {
    mota_tool::failure(std::cerr, "out of memory");
  } catch (const std::exception& e) {
    mota_tool::failure(std::cerr, mota_tool::printable(e.what()));
  } catch (...) {
    mota_tool::failure(std::cerr, "unexpected error");
  }
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "mota: cannot write the output\n";
    if (code == mota_tool::exit_ok) code = mota_tool::exit_failure;
  }
  return code;
}
