#include <mota/i18n/_private/xmc_header.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

void read_xmc_header(xmc_cursor& at) {
  using token = xmc_cursor::token;
  using load_error = xmc_cursor::load_error;
  if (at.at_end()) throw load_error(xmc_file_loader::not_xmc_file, "Value Not Defined");
  if (at.kind() != token::element_start || at.value() != "xmc") {
    throw load_error(xmc_file_loader::not_xmc_file, detail(at.value()));
  }
  at.next();
  if (at.at_end()) throw xmc_cursor::unexpected_end();
  if (at.kind() != token::attribute_name || at.value() != "version") {
    throw load_error(xmc_file_loader::invalid_attribute, detail(at.value()));
  }
  at.next();
  if (at.at_end()) throw xmc_cursor::unexpected_end();
  if (at.value() != "1.0" && at.value() != "1.1") {
    throw load_error(xmc_file_loader::unsupported_version, detail(at.value()));
  }
  at.next();
  if (at.at_end()) throw xmc_cursor::unexpected_end();
  at.next();  // normally the end of the start tag
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
