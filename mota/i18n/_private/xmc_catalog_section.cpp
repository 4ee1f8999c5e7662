#include <mota/i18n/_private/xmc_catalog_section.hpp>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

void read_catalog_section(xmc_cursor& at, xmc_file_loader& loader, xmc_message_reader& messages) {
  using token = xmc_cursor::token;
  using load_error = xmc_cursor::load_error;
  at.next();
  strings::ustring8 name;
  strings::ustring8 lang;
  const bool closed = at.read_attributes([&](std::string_view key, std::string_view text) {
    if (key == "name") {
      name.assign(text.data(), text.size());
    } else if (key == "lang") {
      lang.assign(text.data(), text.size());
    } else {
      throw load_error(xmc_file_loader::invalid_attribute, detail(key));
    }
  });
  if (!closed) throw load_error(xmc_file_loader::catalog_end_tag_missing, name);

  const std::uint32_t weight = loader.get_locale_weight(lang);
  if (!loader.is_catalog_matched(name) || weight == 0) {
    // Not wanted: pass over everything up to the catalog's end tag.
    for (; !at.at_end(); at.next()) {
      if (at.kind() == token::element_end && at.value() == "catalog") {
        at.next();
        return;
      }
    }
    throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
  }

  // Looked up at the first message, so that a section without messages adds no catalog.
  xmc_file_loader::message_map* stored = nullptr;
  for (;;) {
    at.skip_ignorable();
    if (at.at_end()) throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
    if (at.kind() == token::element_start && at.value() == "msg") {
      try {
        message_t message = messages.read(at);
        message._orginal_locale(lang);
        if (stored == nullptr) stored = &loader.messages_of(name);
        loader.store_message(*stored, std::move(message), weight);
      } catch (load_error& e) {
        e.append_error_stack(load_error::in_catalog, name);
        throw;
      }
    } else if (at.kind() == token::element_end && at.value() == "catalog") {
      at.next();
      return;
    } else {
      throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
    }
  }
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
