#include <mota/i18n/_private/xmc_catalog_merge.hpp>

#include <utility>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

// The parts of a catalog that the merge moves messages into directly.
struct catalog_internals {
  static catalog_t::messages_type& messages(catalog_t& catalog) { return catalog.m_messages; }
  static void forget_languages(catalog_t& catalog) {
    if (!catalog.m_languages.empty()) catalog.m_languages.clear();
  }
};

namespace {

constexpr language_list::on_tie kLaterLoadWins = language_list::on_tie::take_new;

// The live catalog named `name` in `catalogs`, created when missing or null.
catalog_t& target_catalog(xmc_file_loader::catalog_map& catalogs, const strings::ustring8& name) {
  memory::pointers::shared_pointer<catalog_t>& target = catalogs[name];
  if (!target) target.reset(new catalog_t);
  target->_name(name);
  return *target;
}

}  // namespace

void merge_catalogs(const xmc_file_loader::data_map& loaded, xmc_file_loader::catalog_map& catalogs,
                    const language_list& languages) {
  for (const auto& entry : loaded) {
    catalog_t& target = target_catalog(catalogs, entry.first);
    for (const auto& item : entry.second) {
      if (languages.replaces(target.message(item.first), item.second, kLaterLoadWins)) {
        target.message(item.first, item.second);
      }
    }
  }
}

void merge_catalogs(xmc_file_loader::data_map&& loaded, xmc_file_loader::catalog_map& catalogs,
                    const language_list& languages) {
  for (auto& entry : loaded) {
    catalog_t& target = target_catalog(catalogs, entry.first);
    catalog_t::messages_type& into = catalog_internals::messages(target);
    xmc_file_loader::message_map& from = entry.second;
    if (from.empty()) continue;
    if (into.empty()) {
      // Every message is new here: take the whole map over.
      catalog_internals::forget_languages(target);
      into.swap(from);
      continue;
    }
    // Map nodes move from one map to the other without being allocated again.
    while (!from.empty()) {
      auto result = into.insert(from.extract(from.begin()));
      if (result.inserted) {
        catalog_internals::forget_languages(target);
      } else if (languages.replaces(result.position->second, result.node.mapped(),
                                    kLaterLoadWins)) {
        catalog_internals::forget_languages(target);
        result.position->second = std::move(result.node.mapped());
      }
    }
  }
  loaded.clear();
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
