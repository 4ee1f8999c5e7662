// Not part of the public interface.
//
// The head of an XMC document: the root element "xmc" and its version.
#ifndef MOTA_I18N_PRIVATE_XMC_HEADER_HPP
#define MOTA_I18N_PRIVATE_XMC_HEADER_HPP

#include <mota/i18n/_private/xmc_cursor.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// Reads the root's start tag up to its first attribute, "version" with the value "1.0" or
// "1.1", and the one token after it (normally the end of the start tag). Throws load_error:
// not_xmc_file naming the element (or "Value Not Defined" when there is no token),
// invalid_attribute naming another first attribute, unsupported_version naming the value,
// unexpected_parse_error when the tokens stop inside the header.
void read_xmc_header(xmc_cursor& at);

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_HEADER_HPP
