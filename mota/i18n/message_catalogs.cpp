#include <mota/i18n/message_catalogs.hpp>

#include <mota/i18n/_private/locale_name.hpp>
#include <mota/strings/_private/ascii_lower.hpp>
#include <mota/strings/_private/to_utf8.hpp>
#include <mota/strings/utf.hpp>
#include <mota/system/_private/resolved_path.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <cstdlib>
#include <string>
#include <typeinfo>
#include <unordered_set>
#include <utility>

namespace MOTA_2_18 {
namespace i18n {

namespace {

using loader_t = _private::xmc_file_loader;

const char kResultPrefix[] = "message_catalogs::result_type - ";

// Directory trees nested deeper than this are not walked further.
constexpr unsigned int kMaxDirectoryDepth = 64;

using strings::_private::to_utf8;

bool has_catalog_suffix(const strings::ustring8& path) {
  if (path.size() < 4) return false;
  const std::string tail = strings::_private::ascii_lower(path.substr(path.size() - 4));
  return tail == ".xmc" || tail == ".xml";
}

const char* headline(int kind) {
  switch (kind) {
    case 0:
      return "message_catalogs::result_type - No Error\n ";
    case 1:
      return "message_catalogs::result_type - No catalog was loaded\n ";
    case 2:
      return "message_catalogs::result_type - Default locale lookup not supported yet\n ";
    case 3:
      return "message_catalogs::result_type - File was not found on disk\n ";
    case 4:
      return "message_catalogs::result_type - XML parse error, XML file not well formed\n ";
    case 5:
    case 6:
    case 7:
    case 8:
    case 9:
    case 10:
    case 11:
    case 12:
    case 13:
      return "message_catalogs::result_type - XMC file is not valid\n ";
    case 14:
      return "message_catalogs::result_type - Unexpected error happened during loading\n ";
    default:
      return "message_catalogs::result_type - Unhandled case\n ";
  }
}

}  // namespace

const catalog_t message_catalogs::s_nil_catalog;
const message_t message_catalogs::s_nil_message;

// ---------------------------------------------------------------------------------------------

message_catalogs::result_type::result_type(error_type kind, const strings::ustring8& detail)
    : type(kind), message(format_message(kind, detail)) {}

message_catalogs::result_type::result_type(const loader_t::load_error& error)
    : type(static_cast<error_type>(error.type)), message(headline(error.type)) {
  message.append(error.message);
}

strings::ustring8 message_catalogs::result_type::format_message(error_type kind,
                                                                const strings::ustring8& detail) {
  strings::ustring8 out(kResultPrefix);
  switch (kind) {
    case no_error:
      out.append("No Error");
      return out;
    case no_catalog_loaded:
      out.append("No catalog was loaded in file: \"");
      break;
    case file_not_found:
      out.append("File \"");
      break;
    case directory_not_found:
      out.append("Directory \"");
      break;
    case entity_not_found:
      out.append("Entity (file or directory) \"");
      break;
    default:
      out = "< ";
      out.append(typeid(error_type).name());
      out.append(" value of ");
      out.append(std::to_string(static_cast<long long>(kind)));
      out.append(" >\n unknown, or unhandle case happened! ");
      out.append(" str data=");
      out.append(detail);
      return out;
  }
  out.append(detail);
  out.append(kind == no_catalog_loaded ? "\"" : "\" was not found on disk");
  return out;
}

std::ostream& operator<<(std::ostream& out, const message_catalogs::result_type& result) {
  return out << static_cast<const std::string&>(result.message);
}

// ---------------------------------------------------------------------------------------------

message_catalogs& message_catalogs::assign(const message_catalogs& other) {
  if (this != &other) {
    m_catalogs = other.m_catalogs;
    m_resolve_container = other.m_resolve_container;
  }
  return *this;
}

message_catalogs& message_catalogs::assign(const types::nil_t&) {
  m_catalogs.clear();
  return *this;
}

// --- loading ---------------------------------------------------------------------------------

message_catalogs::result_type message_catalogs::load_file_impl(
    const strings::ustring8& file, const strings::ustring8& locale,
    const strings::ustring8* catalog_id) {
  loader_t loader;
  loader_t::load_error error =
      catalog_id ? loader.parse(file, locale, *catalog_id) : loader.parse(file, locale);
  // combine_data's merge, moving the messages: the loader is not used again.
  if (error.type == loader_t::no_error) loader.move_data(m_catalogs);
  return result_type(error);
}

message_catalogs::result_type message_catalogs::load_directory_impl(
    const strings::ustring8& dir, const strings::ustring8& locale,
    const strings::ustring8* catalog_id, unsigned int depth,
    std::unordered_set<std::string>& visited) {
  if (!system::io::exists(dir)) return result_type(directory_not_found, dir);
  // A directory reached again through a link, or a tree nested without end, is not walked
  // again.
  std::string identity = system::_private::resolved_path(dir);
  if (visited.count(identity) != 0) return result_type(no_error, strings::ustring8());
  if (depth >= kMaxDirectoryDepth) return result_type(no_error, strings::ustring8());
  visited.insert(std::move(identity));

  for (const strings::ustring8& entry : system::list_directory(dir)) {
    if (system::io::is_directory(entry)) {
      result_type result = load_directory_impl(entry, locale, catalog_id, depth + 1, visited);
      if (result.type != no_error) return result;
    } else if (system::io::is_file(entry) && has_catalog_suffix(entry)) {
      result_type result = load_file_impl(entry, locale, catalog_id);
      if (result.type != no_error) return result;
    }
  }
  return result_type(no_error, strings::ustring8());
}

message_catalogs::result_type message_catalogs::load_impl(const strings::ustring8& path,
                                                          const strings::ustring8& locale,
                                                          const strings::ustring8* catalog_id) {
  std::unordered_set<std::string> visited;
  result_type result = system::io::is_file(path) ? load_file_impl(path, locale, catalog_id)
                       : system::io::is_directory(path)
                           ? load_directory_impl(path, locale, catalog_id, 0, visited)
                           : result_type(entity_not_found, path);
  if (result.type == no_error && m_catalogs.empty()) {
    return result_type(no_catalog_loaded, path);
  }
  return result;
}

message_catalogs::result_type message_catalogs::load_list_impl(
    const std::vector<strings::ustring8>& paths, const strings::ustring8& locale,
    const strings::ustring8* catalog_id) {
  for (const strings::ustring8& path : paths) {
    std::unordered_set<std::string> visited;
    result_type result = system::io::is_file(path) ? load_file_impl(path, locale, catalog_id)
                         : system::io::is_directory(path)
                             ? load_directory_impl(path, locale, catalog_id, 0, visited)
                             : result_type(entity_not_found, path);
    if (result.type != no_error) return result;
  }
  return result_type(no_error, strings::ustring8());
}

namespace {

template <class S>
std::vector<strings::ustring8> to_utf8_paths(const std::vector<S>& paths) {
  std::vector<strings::ustring8> out;
  out.reserve(paths.size());
  for (const S& path : paths)
    out.push_back(to_utf8(path));
  return out;
}

}  // namespace

#define MOTA_I18N_WIDE_FORMS(ret, name)                                                       \
  ret message_catalogs::name(const strings::ustring16& a, const strings::ustring16& locale) { \
    return name(to_utf8(a), to_utf8(locale));                                                 \
  }                                                                                           \
  ret message_catalogs::name(const strings::ustring32& a, const strings::ustring32& locale) { \
    return name(to_utf8(a), to_utf8(locale));                                                 \
  }                                                                                           \
  ret message_catalogs::name(const strings::ustring16& a, const strings::ustring16& locale,   \
                             const strings::ustring16& id) {                                  \
    return name(to_utf8(a), to_utf8(locale), to_utf8(id));                                    \
  }                                                                                           \
  ret message_catalogs::name(const strings::ustring32& a, const strings::ustring32& locale,   \
                             const strings::ustring32& id) {                                  \
    return name(to_utf8(a), to_utf8(locale), to_utf8(id));                                    \
  }

message_catalogs::result_type message_catalogs::load(const strings::ustring8& path,
                                                     const strings::ustring8& locale) {
  return load_impl(path, locale, nullptr);
}
message_catalogs::result_type message_catalogs::load(const strings::ustring8& path,
                                                     const strings::ustring8& locale,
                                                     const strings::ustring8& catalog_id) {
  return load_impl(path, locale, &catalog_id);
}
MOTA_I18N_WIDE_FORMS(message_catalogs::result_type, load)

message_catalogs::result_type message_catalogs::load_file(const strings::ustring8& file,
                                                          const strings::ustring8& locale) {
  return load_file_impl(file, locale, nullptr);
}
message_catalogs::result_type message_catalogs::load_file(const strings::ustring8& file,
                                                          const strings::ustring8& locale,
                                                          const strings::ustring8& catalog_id) {
  return load_file_impl(file, locale, &catalog_id);
}
MOTA_I18N_WIDE_FORMS(message_catalogs::result_type, load_file)

message_catalogs::result_type message_catalogs::load_directory(const strings::ustring8& dir,
                                                               const strings::ustring8& locale) {
  std::unordered_set<std::string> visited;
  return load_directory_impl(dir, locale, nullptr, 0, visited);
}
message_catalogs::result_type message_catalogs::load_directory(
    const strings::ustring8& dir, const strings::ustring8& locale,
    const strings::ustring8& catalog_id) {
  std::unordered_set<std::string> visited;
  return load_directory_impl(dir, locale, &catalog_id, 0, visited);
}
MOTA_I18N_WIDE_FORMS(message_catalogs::result_type, load_directory)

#undef MOTA_I18N_WIDE_FORMS

message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring8>& paths,
                                                     const strings::ustring8& locale) {
  return load_list_impl(paths, locale, nullptr);
}
message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring16>& paths,
                                                     const strings::ustring16& locale) {
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), nullptr);
}
message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring32>& paths,
                                                     const strings::ustring32& locale) {
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), nullptr);
}
message_catalogs::result_type message_catalogs::load(const std::vector<std::string>& paths,
                                                     const strings::ustring8& locale) {
  return load_list_impl(to_utf8_paths(paths), locale, nullptr);
}
message_catalogs::result_type message_catalogs::load(const std::vector<std::wstring>& paths,
                                                     const strings::ustring32& locale) {
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), nullptr);
}
message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring8>& paths,
                                                     const strings::ustring8& locale,
                                                     const strings::ustring8& catalog_id) {
  return load_list_impl(paths, locale, &catalog_id);
}
message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring16>& paths,
                                                     const strings::ustring16& locale,
                                                     const strings::ustring16& catalog_id) {
  strings::ustring8 id = to_utf8(catalog_id);
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), &id);
}
message_catalogs::result_type message_catalogs::load(const std::vector<strings::ustring32>& paths,
                                                     const strings::ustring32& locale,
                                                     const strings::ustring32& catalog_id) {
  strings::ustring8 id = to_utf8(catalog_id);
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), &id);
}
message_catalogs::result_type message_catalogs::load(const std::vector<std::string>& paths,
                                                     const strings::ustring8& locale,
                                                     const strings::ustring8& catalog_id) {
  return load_list_impl(to_utf8_paths(paths), locale, &catalog_id);
}
message_catalogs::result_type message_catalogs::load(const std::vector<std::wstring>& paths,
                                                     const strings::ustring32& locale,
                                                     const strings::ustring32& catalog_id) {
  strings::ustring8 id = to_utf8(catalog_id);
  return load_list_impl(to_utf8_paths(paths), to_utf8(locale), &id);
}

// --- lookups ---------------------------------------------------------------------------------

bool message_catalogs::has_catalog(const strings::ustring8& name) const {
  auto found = m_catalogs.find(name);
  return found != m_catalogs.end() && found->second;
}
bool message_catalogs::has_catalog(const strings::ustring16& name) const {
  return has_catalog(to_utf8(name));
}
bool message_catalogs::has_catalog(const strings::ustring32& name) const {
  return has_catalog(to_utf8(name));
}

bool message_catalogs::has_catalog(const strings::ustring8& name,
                                   const strings::ustring8& locale) const {
  const strings::ustring8 normal = _private::normalise_locale(locale);
  auto found = m_catalogs.find(name);
  if (found == m_catalogs.end() || !found->second) return false;
  const catalog_t& cat = *found->second;
  for (auto it = cat.languages_begin(); it != cat.languages_end(); ++it) {
    if (*it == normal) return true;
  }
  return false;
}
bool message_catalogs::has_catalog(const strings::ustring16& name,
                                   const strings::ustring16& locale) const {
  return has_catalog(to_utf8(name), to_utf8(locale));
}
bool message_catalogs::has_catalog(const strings::ustring32& name,
                                   const strings::ustring32& locale) const {
  return has_catalog(to_utf8(name), to_utf8(locale));
}

const catalog_t& message_catalogs::catalog(const strings::ustring8& name) const {
  auto found = m_catalogs.find(name);
  return found == m_catalogs.end() || !found->second ? s_nil_catalog : *found->second;
}
const catalog_t& message_catalogs::catalog(const strings::ustring16& name) const {
  return catalog(to_utf8(name));
}
const catalog_t& message_catalogs::catalog(const strings::ustring32& name) const {
  return catalog(to_utf8(name));
}

const message_t& message_catalogs::message(const strings::ustring8& catalog,
                                           const strings::ustring8& name) const {
  auto found = m_catalogs.find(catalog);
  if (found == m_catalogs.end() || !found->second) return s_nil_message;
  return found->second->message(name);
}
const message_t& message_catalogs::message(const strings::ustring16& catalog,
                                           const strings::ustring16& name) const {
  return message(to_utf8(catalog), to_utf8(name));
}
const message_t& message_catalogs::message(const strings::ustring32& catalog,
                                           const strings::ustring32& name) const {
  return message(to_utf8(catalog), to_utf8(name));
}

bool message_catalogs::has_message(const strings::ustring8& catalog,
                                   const strings::ustring8& name) const {
  auto found = m_catalogs.find(catalog);
  return found != m_catalogs.end() && found->second && found->second->has_message(name);
}
bool message_catalogs::has_message(const strings::ustring16& catalog,
                                   const strings::ustring16& name) const {
  return has_message(to_utf8(catalog), to_utf8(name));
}
bool message_catalogs::has_message(const strings::ustring32& catalog,
                                   const strings::ustring32& name) const {
  return has_message(to_utf8(catalog), to_utf8(name));
}

std::size_t message_catalogs::size(const strings::ustring8& catalog) const {
  return this->catalog(catalog).size();
}
std::size_t message_catalogs::size(const strings::ustring16& catalog) const {
  return size(to_utf8(catalog));
}
std::size_t message_catalogs::size(const strings::ustring32& catalog) const {
  return size(to_utf8(catalog));
}

message_catalogs::message_iterator message_catalogs::begin(const strings::ustring8& catalog) const {
  return this->catalog(catalog).begin();
}
message_catalogs::message_iterator message_catalogs::begin(
    const strings::ustring16& catalog) const {
  return begin(to_utf8(catalog));
}
message_catalogs::message_iterator message_catalogs::begin(
    const strings::ustring32& catalog) const {
  return begin(to_utf8(catalog));
}
message_catalogs::message_iterator message_catalogs::end(const strings::ustring8& catalog) const {
  return this->catalog(catalog).end();
}
message_catalogs::message_iterator message_catalogs::end(const strings::ustring16& catalog) const {
  return end(to_utf8(catalog));
}
message_catalogs::message_iterator message_catalogs::end(const strings::ustring32& catalog) const {
  return end(to_utf8(catalog));
}

void message_catalogs::erase() {
  m_catalogs.clear();
}
void message_catalogs::erase(const strings::ustring8& catalog) {
  m_catalogs.erase(catalog);
}
void message_catalogs::erase(const strings::ustring16& catalog) {
  erase(to_utf8(catalog));
}
void message_catalogs::erase(const strings::ustring32& catalog) {
  erase(to_utf8(catalog));
}

void message_catalogs::set_resolve_container(const resolve_container& container) {
  m_resolve_container = container;
}

}  // namespace i18n
}  // namespace MOTA_2_18
