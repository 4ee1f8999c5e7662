// Not part of the public interface.
//
// Merging what one catalog load read into a set of catalogs (the map a message_catalogs
// object keeps).
#ifndef MOTA_I18N_PRIVATE_XMC_CATALOG_MERGE_HPP
#define MOTA_I18N_PRIVATE_XMC_CATALOG_MERGE_HPP

#include <mota/i18n/_private/language_list.hpp>
#include <mota/i18n/_private/xmc_file_loader.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// For each loaded catalog: makes sure `catalogs` holds a live catalog_t under its name (a
// missing or null entry gets a new one) and names it; then stores each loaded message unless
// the catalog already holds a message of that name whose locale weighs strictly more in
// `languages` (so a later load replaces an equal one). Storing clears the catalog's language
// set, as catalog_t::message does.
void merge_catalogs(const xmc_file_loader::data_map& loaded, xmc_file_loader::catalog_map& catalogs,
                    const language_list& languages);
// The same, moving the messages out of `loaded`, which is left empty.
void merge_catalogs(xmc_file_loader::data_map&& loaded, xmc_file_loader::catalog_map& catalogs,
                    const language_list& languages);

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18

#endif  // MOTA_I18N_PRIVATE_XMC_CATALOG_MERGE_HPP
