#include <mota/i18n/message.hpp>

#include <mota/strings/utf.hpp>

#include <utility>

namespace MOTA_2_18 {
namespace i18n {

message_t::message_t(const strings::ustring8& name, const items_type& items)
    : m_name(name), m_items(items) {}

message_t::message_t(const strings::ustring8& name, const items_type& items,
                     const strings::ustring8& meta)
    : m_name(name), m_items(items), m_meta(meta) {}

message_t::message_t(const strings::ustring8& name, items_type&& items,
                     const strings::ustring8& meta)
    : m_name(name), m_items(std::move(items)), m_meta(meta) {}

message_t::message_t(const types::nil_t&) {}

message_t& message_t::assign(const message_t& other) {
  if (this != &other) {
    m_name = other.m_name;
    m_items = other.m_items;
    m_orginal_locale = other.m_orginal_locale;
    m_meta = other.m_meta;
  }
  return *this;
}

message_t& message_t::assign(const types::nil_t&) {
  m_name.clear();
  m_items.clear();
  m_orginal_locale.clear();
  m_meta.clear();
  return *this;
}

const strings::ustring8& message_t::name(const strings::ustring8& name) {
  m_name = name;
  return m_name;
}

const strings::ustring8& message_t::meta(const strings::ustring8& meta) {
  m_meta = meta;
  return m_meta;
}

const strings::ustring8& message_t::_orginal_locale(const strings::ustring8& locale) {
  m_orginal_locale = locale;
  return m_orginal_locale;
}

std::size_t message_t::argument_count() const {
  std::size_t count = 0;
  for (const message_item& item : m_items) {
    if (item.type() != message_item::text) ++count;
  }
  return count;
}

bool message_t::has_valid_args(const generic::varg_list& args) const {
  if (m_items.empty()) return false;
  if (args.count() < argument_count()) return false;
  for (const message_item& item : m_items) {
    if (item.type() != message_item::text && !args.has_argument(item.name())) return false;
  }
  return true;
}

void message_t::append_to(std::string& out, const generic::varg_list& args) const {
  for (const message_item& item : m_items)
    item.append_to(out, args);
}

std::string message_t::as_string(const generic::varg_list& args) const {
  std::string out;
  append_to(out, args);
  return out;
}

strings::ustring8 message_t::as_utf8(const generic::varg_list& args) const {
  return strings::ustring8(as_string(args));
}

strings::ustring16 message_t::as_utf16(const generic::varg_list& args) const {
  return strings::utf8_to_utf16(as_utf8(args));
}

strings::ustring32 message_t::as_utf32(const generic::varg_list& args) const {
  return strings::utf8_to_utf32(as_utf8(args));
}

std::wstring message_t::as_wstring(const generic::varg_list& args) const {
  strings::ustring32 wide = strings::utf8_to_utf32(as_utf8(args));
  return std::wstring(wide.begin(), wide.end());
}

std::string message_t::as_ustring(const generic::varg_list& args) const {
  return as_string(args);
}

generic::varg_list message_t::arguments() const {
  generic::varg_list list;
  for (const message_item& item : m_items) {
    if (item.type() != message_item::text) list.push_back(item.data(), types::variant());
  }
  return list;
}

bool message_t::equal(const types::nil_t&) const {
  return m_items.empty() && m_name.empty() && m_meta.empty();
}

void message_t::resolve(const std::map<strings::ustring8, strings::ustring8>&) {}

}  // namespace i18n
}  // namespace MOTA_2_18
