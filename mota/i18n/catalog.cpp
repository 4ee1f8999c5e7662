#include <mota/i18n/catalog.hpp>

#include <mota/i18n/_private/locale_name.hpp>
#include <mota/strings/utf.hpp>

#include <utility>

namespace MOTA_2_18 {
namespace i18n {

const message_t catalog_t::m_nil_message;

catalog_t::catalog_t(const catalog_t& other)
    : m_reserved0(other.m_reserved0),
      m_reserved1(other.m_reserved1),
      m_name(other.m_name),
      m_languages(other.m_languages),
      m_messages(other.m_messages) {}

catalog_t& catalog_t::assign(const catalog_t& other) {
  if (this != &other) {
    m_name = other.m_name;
    m_languages = other.m_languages;
    m_messages = other.m_messages;
  }
  return *this;
}

catalog_t& catalog_t::assign(const types::nil_t&) {
  m_name.clear();
  m_languages.clear();
  m_messages.clear();
  return *this;
}

void catalog_t::_name(const strings::ustring16& name) {
  m_name = strings::utf16_to_utf8(name);
}
void catalog_t::_name(const strings::ustring32& name) {
  m_name = strings::utf32_to_utf8(name);
}

bool catalog_t::has_message(const strings::ustring8& name) const {
  return m_messages.find(name) != m_messages.end();
}
bool catalog_t::has_message(const strings::ustring16& name) const {
  return has_message(strings::utf16_to_utf8(name));
}
bool catalog_t::has_message(const strings::ustring32& name) const {
  return has_message(strings::utf32_to_utf8(name));
}

const message_t& catalog_t::message(const strings::ustring8& name) const {
  auto found = m_messages.find(name);
  return found == m_messages.end() ? m_nil_message : found->second;
}
const message_t& catalog_t::message(const strings::ustring16& name) const {
  return message(strings::utf16_to_utf8(name));
}
const message_t& catalog_t::message(const strings::ustring32& name) const {
  return message(strings::utf32_to_utf8(name));
}

void catalog_t::message(const strings::ustring8& name, const message_t& message) {
  if (!m_languages.empty()) m_languages.clear();
  m_messages[name] = message;
}
void catalog_t::message(const strings::ustring8& name, message_t&& message) {
  if (!m_languages.empty()) m_languages.clear();
  m_messages[name] = std::move(message);
}
void catalog_t::message(const strings::ustring16& name, const message_t& message) {
  this->message(strings::utf16_to_utf8(name), message);
}
void catalog_t::message(const strings::ustring32& name, const message_t& message) {
  this->message(strings::utf32_to_utf8(name), message);
}

void catalog_t::gen_lang_set() const {
  for (const auto& entry : m_messages)
    m_languages.insert(entry.second._orginal_locale());
}

catalog_t::language_iterator catalog_t::languages_begin() const {
  if (m_languages.empty()) gen_lang_set();
  return m_languages.begin();
}

catalog_t::language_iterator catalog_t::languages_end() const {
  if (m_languages.empty()) gen_lang_set();
  return m_languages.end();
}

bool catalog_t::is_language_loaded(const strings::ustring8& lang) const {
  const strings::ustring8 normal = _private::underscored_locale(lang);
  if (m_languages.empty()) gen_lang_set();
  return m_languages.find(normal) != m_languages.end();
}
bool catalog_t::is_language_loaded(const strings::ustring16& lang) const {
  return is_language_loaded(strings::utf16_to_utf8(lang));
}
bool catalog_t::is_language_loaded(const strings::ustring32& lang) const {
  return is_language_loaded(strings::utf32_to_utf8(lang));
}

}  // namespace i18n
}  // namespace MOTA_2_18
