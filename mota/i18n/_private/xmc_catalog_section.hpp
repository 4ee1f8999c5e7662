// Not part of the public interface.
//
// One "catalog" element of an XMC document: a named, language-tagged section of messages.
#ifndef MOTA_I18N_PRIVATE_XMC_CATALOG_SECTION_HPP
#define MOTA_I18N_PRIVATE_XMC_CATALOG_SECTION_HPP

#include <mota/i18n/_private/xmc_cursor.hpp>
#include <mota/i18n/_private/xmc_file_loader.hpp>
#include <mota/i18n/_private/xmc_message_reader.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// Reads the section whose start tag is the current token, up to and including its end tag.
// A section the loader does not want (another catalog than its filter, or a language of
// weight 0) is passed over; a wanted one has each "msg" read by `messages`, tagged with the
// section's "lang" as written and stored into `loader`. Throws load_error: invalid_attribute
// for an attribute other than "name" and "lang", catalog_end_tag_missing for anything but
// messages inside or a missing end tag; a message's errors get the catalog name appended.
void read_catalog_section(xmc_cursor& at, xmc_file_loader& loader, xmc_message_reader& messages);

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_CATALOG_SECTION_HPP
