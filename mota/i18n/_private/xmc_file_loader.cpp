#include <mota/i18n/_private/xmc_file_loader.hpp>

#include <mota/i18n/_private/xmc_catalog_merge.hpp>
#include <mota/i18n/_private/xmc_catalog_section.hpp>
#include <mota/i18n/_private/xmc_cursor.hpp>
#include <mota/i18n/_private/xmc_header.hpp>
#include <mota/i18n/_private/xmc_message_reader.hpp>
#include <mota/i18n/_private/xmc_tokens.hpp>
#include <mota/system/_private/resolved_path.hpp>

#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <string>
#include <utility>

// The loader proper: which files are read (includes, cycles, depth), the walk over a
// document's root, and the entry points. The header, a catalog section, a message, the error
// wording, the language weights and the merge each live in their own file beside this one.

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

bool is_relative(const strings::ustring8& path) {
  if (path.empty()) return true;
  if (path[0] == '/' || path[0] == '\\') return false;
  if (path.size() >= 3 && path[1] == ':') return false;
  return true;
}

}  // namespace

using load_error = xmc_file_loader::load_error;

xmc_file_loader::xmc_file_loader() : m_base_directory("./") {}

xmc_file_loader::~xmc_file_loader() = default;

void xmc_file_loader::reset() {
  m_languages.clear();
  m_data.clear();
  m_base_directory = "./";
  m_catalog_id.clear();
  m_open_files.clear();
  m_loaded.clear();
}

load_error xmc_file_loader::parse(const strings::ustring8& file) {
  handle_language(strings::ustring8());
  return parse_file(file);
}

load_error xmc_file_loader::parse(const strings::ustring8& file, const strings::ustring8& lang) {
  if (lang.empty()) return load_error(default_locale_not_supported, strings::ustring8());
  handle_language(lang);
  return parse_file(file);
}

load_error xmc_file_loader::parse(const strings::ustring8& file, const strings::ustring8& lang,
                                  const strings::ustring8& catalog_id) {
  m_catalog_id = catalog_id;
  handle_language(lang);
  handle_language(strings::ustring8());
  return parse_file(file);
}

// Counts a running parse_string; the outermost one to end forgets the files read.
class xmc_file_loader::parse_scope {
 public:
  explicit parse_scope(xmc_file_loader& loader) : m_loader(loader) { ++m_loader.m_nesting; }
  ~parse_scope() {
    if (--m_loader.m_nesting == 0) m_loader.m_loaded.clear();
  }
  parse_scope(const parse_scope&) = delete;
  parse_scope& operator=(const parse_scope&) = delete;

 private:
  xmc_file_loader& m_loader;
};

void xmc_file_loader::note_included_height(unsigned int height) {
  if (!m_open_files.empty() && m_open_files.back().height < height + 1) {
    m_open_files.back().height = height + 1;
  }
}

load_error xmc_file_loader::parse_file(const strings::ustring8& path) {
  if (!system::io::exists(path)) return load_error(file_not_found, path);

  // Refuse include cycles and runaway nesting before reading anything.
  strings::ustring8 identity = system::_private::resolved_path(path);
  bool cycle = false;
  for (const open_file& open : m_open_files) {
    if (open.identity == identity) cycle = true;
  }
  if (cycle || m_open_files.size() >= max_include_depth) {
    load_error e(unexpected_parse_error,
                 cycle ? "The file includes itself." : "Includes are nested too deeply.");
    e.append_error_stack(load_error::in_file, path);
    return e;
  }

  std::size_t cut = path.find_last_of("/\\");
  strings::ustring8 base = cut == strings::ustring8::npos
                               ? strings::ustring8("./")
                               : strings::ustring8(path.substr(0, cut + 1));
  // An included file read before adds nothing, unless reading it here would reach the depth
  // bound. Files are told apart by their directory entry (the resolved directory and the
  // name in it), not by what a final link points to: system::load_file refuses a link, and
  // a link to a file read before must still be refused.
  const bool included = m_nesting != 0;
  std::string key;
  if (included) {
    key = system::_private::resolved_path(base);
    key.push_back('\0');
    key.append(path, cut == strings::ustring8::npos ? 0 : cut + 1, strings::ustring8::npos);
    auto found = m_loaded.find(key);
    if (found != m_loaded.end() && m_open_files.size() + found->second < max_include_depth) {
      note_included_height(found->second);
      return load_error();
    }
  }

  strings::ustring8 content;
  try {
    if (system::load_file(path, content) != 0) return load_error(file_not_found, path);
  } catch (...) {
    // A file too large for a string.
    return load_error(file_not_found, path);
  }
  m_base_directory = base;
  m_open_files.push_back(open_file{identity, 0});
  load_error result;
  try {
    result = parse_string(content, path);
  } catch (...) {
    m_open_files.pop_back();
    throw;
  }
  unsigned int height = m_open_files.back().height;
  m_open_files.pop_back();
  if (included && result.type == no_error) {
    m_loaded[key] = height;
    note_included_height(height);
  }
  return result;
}

load_error xmc_file_loader::parse_string(const strings::ustring8& content,
                                         const strings::ustring8& file) {
  parse_scope scope(*this);
  xmc_token_buffer tokens;
  parser::xml_parser::parse_error parse_result = tokens.parse(content);
  if (static_cast<int>(parse_result.type) != 0) {
    load_error e(xml_parse_error, parse_result);
    e.append_error_stack(load_error::in_file, file);
    return e;
  }
  try {
    xmc_cursor at(tokens);
    read_document(at);
  } catch (load_error& e) {
    e.append_error_stack(load_error::in_file, file);
    return e;
  }
  return load_error();
}

void xmc_file_loader::read_document(xmc_cursor& at) {
  using token = xmc_cursor::token;
  at.skip_ignorable();
  if (at.at_end()) throw load_error(unexpected_parse_error, "Nothing of interest in the file.");
  read_xmc_header(at);
  xmc_message_reader messages;
  for (;;) {
    // Text, comments, and what is left of the root's start tag are passed over.
    while (!at.at_end() && at.kind() != token::element_start && at.kind() != token::element_end)
      at.next();
    if (at.at_end()) throw xmc_cursor::unexpected_end();
    if (at.kind() == token::element_end) {
      at.next();
      return;
    }
    if (at.value() == "catalog") {
      read_catalog_section(at, *this, messages);
    } else if (at.value() == "include") {
      read_include(at);
    } else {
      throw load_error(invalid_element, detail(at.value()));
    }
  }
}

void xmc_file_loader::read_include(xmc_cursor& at) {
  using token = xmc_cursor::token;
  at.next();
  const bool closed = at.read_attributes([this](std::string_view name, std::string_view value) {
    if (name != "file") throw load_error(invalid_attribute, detail(name));
    const strings::ustring8 file = detail(value);
    if (file.empty()) throw load_error(file_not_found, file);
    strings::ustring8 path(file);
    if (is_relative(file)) path.insert(0, m_base_directory);
    const strings::ustring8 saved_base = m_base_directory;
    load_error result = parse_file(path);
    m_base_directory = saved_base;
    if (result.type != no_error) throw result;
  });
  if (!closed || !at.is(token::element_end, "include")) {
    throw load_error(include_end_tag_missing, strings::ustring8());
  }
  at.next();
}

bool xmc_file_loader::is_catalog_matched(const strings::ustring8& name) const {
  return m_catalog_id.empty() || name == m_catalog_id;
}

bool xmc_file_loader::is_lang_id_good(const strings::ustring8& lang) const {
  return get_locale_weight(lang) != 0;
}

std::uint32_t xmc_file_loader::get_locale_weight(const strings::ustring8& locale) const {
  return m_languages.weight(locale);
}

void xmc_file_loader::handle_language(const strings::ustring8& lang) {
  m_languages.add(lang);
}

void xmc_file_loader::set_message(const message_t& message, const strings::ustring8& catalog) {
  message_t& stored = m_data[catalog][message.name()];
  if (m_languages.replaces(stored, message, language_list::on_tie::keep_stored)) stored = message;
}

void xmc_file_loader::store_message(message_map& messages, message_t&& message,
                                    std::uint32_t weight) {
  message_t& stored = messages[message.name()];
  if (m_languages.replaces(stored, weight, language_list::on_tie::keep_stored)) {
    stored = std::move(message);
  }
}

void xmc_file_loader::move_data(catalog_map& catalogs) {
  merge_catalogs(std::move(m_data), catalogs, m_languages);
}

void xmc_file_loader::combine_data(catalog_map& catalogs) const {
  merge_catalogs(m_data, catalogs, m_languages);
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
