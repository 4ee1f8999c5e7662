// The whole tool behind main(): picks the subcommand and turns anything the library throws into
// a message and an exit code, so that every command can run in-process with streams of the
// caller's choice.
#include "commands.hpp"
#include "text_output.hpp"
#include "usage.hpp"

#include <mota/exceptions/exception.hpp>
#include <mota/version.hpp>

#include <exception>
#include <new>

namespace mota_tool {
namespace {

int dispatch(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
             std::ostream& err, const char* const* envp) {
  if (words.empty()) return usage_error(err, "no command given", main_usage);
  const std::string& command = words[0];
  const std::vector<std::string> rest(words.begin() + 1, words.end());
  if (command == "--help" || command == "-h" || command == "help") {
    out << main_usage;
    return exit_ok;
  }
  if (command == "--version") {
    out << "mota " << MOTA_VERSION_MAJOR << "." << MOTA_VERSION_MINOR << "." << MOTA_VERSION_PATCH
        << "\n";
    return exit_ok;
  }
  if (command == "convert") return run_convert(rest, in, out, err);
  if (command == "xml") return run_xml(rest, out, err);
  if (command == "catalog") return run_catalog(rest, out, err);
  if (command == "config") return run_config(rest, envp, out, err);
  return usage_error(err, "unknown command \"" + printable(command) + "\"", main_usage);
}

}  // namespace

int run_mota(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
             std::ostream& err, const char* const* envp) {
  try {
    return dispatch(words, in, out, err, envp);
  } catch (const mota::exceptions::exception& e) {
    return failure(err, printable(e.get_message()));
  } catch (const std::bad_alloc&) {
    return failure(err, "out of memory");
  } catch (const std::exception& e) {
    return failure(err, printable(e.what()));
  } catch (...) {
    return failure(err, "unexpected error");
  }
}

}  // namespace mota_tool
