// The XMC loader over arbitrary bytes: every input must end in a load_error of a known kind,
// never in a crash, a hang or an escaping exception.
#include <mota/i18n/_private/xmc_file_loader.hpp>

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using mota::i18n::_private::xmc_file_loader;
  xmc_file_loader loader;
  loader.handle_language("de_DE");
  mota::strings::ustring8 content(reinterpret_cast<const char*>(data), size);
  // Includes resolve against a directory that holds no catalogs.
  xmc_file_loader::load_error e = loader.parse_string(content, "fuzz.xmc");
  if (e.type < 0 || e.type > 14) std::abort();
  if (e.message.compare(0, 30, "xmc_file_loader::load_error - ") != 0) std::abort();
  xmc_file_loader::catalog_map catalogs;
  if (e.type == 0) loader.combine_data(catalogs);
  return 0;
}
