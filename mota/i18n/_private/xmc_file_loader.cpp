#include <mota/i18n/_private/xmc_file_loader.hpp>

#include <mota/i18n/_private/locale_name.hpp>
#include <mota/strings/_private/ascii_lower.hpp>
#include <mota/system/_private/resolved_path.hpp>

#include <mota/parser/xml_token_stream.hpp>
#include <mota/system/file_utility.hpp>
#include <mota/system/io.hpp>

#include <climits>
#include <cstdlib>
#include <list>
#include <string>
#include <typeinfo>
#include <utility>

namespace MOTA_2_18 {
namespace i18n {
namespace _private {

namespace {

// Token kinds of parser::xml_token_stream, by their fixed numbers.
enum token_kind : int {
  tk_element_start = 0,
  tk_element_end = 1,
  tk_attribute_name = 2,
  tk_attribute_value = 3,
  tk_start_tag_end = 4,
  tk_comment = 5,
  tk_space = 6,
  tk_character = 7
};

const char kPrefix[] = "xmc_file_loader::load_error - ";

strings::ustring8 quoted(const char* head, const strings::ustring8& detail, const char* tail) {
  strings::ustring8 out(kPrefix);
  out.append(head);
  out.append(detail);
  out.append(tail);
  return out;
}

strings::ustring8 plain(const char* text) {
  strings::ustring8 out(kPrefix);
  out.append(text);
  return out;
}

template <class Enum>
strings::ustring8 unknown_value(Enum value) {
  strings::ustring8 out("< ");
  out.append(typeid(Enum).name());
  out.append(" value of ");
  out.append(std::to_string(static_cast<long long>(value)));
  out.append(" >");
  return out;
}

// Format attributes an argument element may carry besides "name" and "type".
bool is_format_key(const strings::ustring8& key) {
  static const char* const kKeys[] = {"precision", "prec",      "fieldsize", "spaced_dec",
                                      "hex",       "oct",       "bin",       "target_unit",
                                      "base_unit", "short_form"};
  for (const char* k : kKeys) {
    if (key == k) return true;
  }
  return false;
}

message_item::type_t type_from_keyword(const strings::ustring8& keyword) {
  const std::string word = strings::_private::ascii_lower(keyword);
  static const struct {
    const char* word;
    message_item::type_t type;
  } kTypes[] = {{"date", message_item::date},
                {"duration", message_item::duration},
                {"memory", message_item::memory},
                {"mem", message_item::memory},
                {"mem_unit", message_item::memory_unit},
                {"memory_unit", message_item::memory_unit},
                {"metric", message_item::metric},
                {"metric_unit", message_item::metric_unit},
                {"number", message_item::number},
                {"int", message_item::int_},
                {"double", message_item::double_},
                {"string", message_item::string},
                {"time", message_item::time},
                {"value", message_item::text}};
  for (const auto& entry : kTypes) {
    if (word == entry.word) return entry.type;
  }
  return message_item::string;
}

bool is_relative(const strings::ustring8& path) {
  if (path.empty()) return true;
  if (path[0] == '/' || path[0] == '\\') return false;
  if (path.size() >= 3 && path[1] == ':') return false;
  return true;
}

}  // namespace

using load_error = xmc_file_loader::load_error;

// Walks the token list of one document and builds the messages into the loader.
class xmc_token_reader {
 public:
  using token_list = std::list<parser::xml_token_stream::token>;
  using iterator = token_list::const_iterator;

  xmc_token_reader(xmc_file_loader& loader, iterator begin, iterator end)
      : m_loader(loader), m_pos(begin), m_end(end) {}

  void parse_document() {
    skip_ignorable();
    if (at_end()) {
      throw load_error(xmc_file_loader::unexpected_parse_error, "Nothing of interest in the file.");
    }
    parse_xmc_header();
    for (;;) {
      // Text, comments, and what is left of the root's start tag are passed over.
      while (!at_end() && kind() != tk_element_start && kind() != tk_element_end)
        ++m_pos;
      if (at_end()) throw unexpected_end();
      if (kind() == tk_element_end) {
        ++m_pos;
        return;
      }
      const strings::ustring8& name = value();
      if (name == "catalog") {
        parse_catalog();
      } else if (name == "include") {
        parse_include();
      } else {
        throw load_error(xmc_file_loader::invalid_element, name);
      }
    }
  }

 private:
  bool at_end() const { return m_pos == m_end; }
  int kind() const { return static_cast<int>(m_pos->type()); }
  const strings::ustring8& value() const { return m_pos->value(); }
  static load_error unexpected_end() {
    return load_error(xmc_file_loader::unexpected_parse_error, "Unexpected end of tokens.");
  }
  bool is(int k, const char* name) const { return !at_end() && kind() == k && value() == name; }

  void skip_ignorable() {
    while (!at_end() && (kind() == tk_comment || kind() == tk_space || kind() == tk_character)) {
      ++m_pos;
    }
  }

  void parse_xmc_header() {
    if (at_end()) throw load_error(xmc_file_loader::not_xmc_file, "Value Not Defined");
    if (kind() != tk_element_start || value() != "xmc") {
      throw load_error(xmc_file_loader::not_xmc_file, value());
    }
    ++m_pos;
    if (at_end()) throw unexpected_end();
    if (kind() != tk_attribute_name || value() != "version") {
      throw load_error(xmc_file_loader::invalid_attribute, value());
    }
    ++m_pos;
    if (at_end()) throw unexpected_end();
    if (value() != "1.0" && value() != "1.1") {
      throw load_error(xmc_file_loader::unsupported_version, value());
    }
    ++m_pos;
    if (at_end()) throw unexpected_end();
    ++m_pos;  // normally the end of the start tag
  }

  // Reads the attributes of the start tag just entered, calling fn(name, value) for each, up
  // to and including the end of the start tag. Comments among them are skipped. Returns false
  // when the start tag does not end properly.
  template <class Fn>
  bool read_attributes(Fn&& fn) {
    for (;;) {
      if (at_end()) return false;
      switch (kind()) {
        case tk_comment:
          ++m_pos;
          break;
        case tk_attribute_name: {
          const strings::ustring8& name = value();
          ++m_pos;
          if (!at_end() && kind() == tk_attribute_value) {
            const strings::ustring8& text = value();
            ++m_pos;
            fn(name, text);
          } else {
            fn(name, strings::ustring8());
          }
          break;
        }
        case tk_start_tag_end:
          ++m_pos;
          return true;
        default:
          return false;
      }
    }
  }

  void parse_include() {
    ++m_pos;
    bool closed =
        read_attributes([this](const strings::ustring8& name, const strings::ustring8& file) {
          if (name != "file") throw load_error(xmc_file_loader::invalid_attribute, name);
          if (file.empty()) throw load_error(xmc_file_loader::file_not_found, file);
          strings::ustring8 path(file);
          if (is_relative(file)) path.insert(0, m_loader.m_base_directory);
          strings::ustring8 saved_base = m_loader.m_base_directory;
          load_error result = m_loader.parse_file(path);
          m_loader.m_base_directory = saved_base;
          if (result.type != xmc_file_loader::no_error) throw result;
        });
    if (!closed || !is(tk_element_end, "include")) {
      throw load_error(xmc_file_loader::include_end_tag_missing, strings::ustring8());
    }
    ++m_pos;
  }

  void parse_catalog() {
    ++m_pos;
    strings::ustring8 name;
    strings::ustring8 lang;
    bool closed = read_attributes([&](const strings::ustring8& key, const strings::ustring8& text) {
      if (key == "name") {
        name = text;
      } else if (key == "lang") {
        lang = text;
      } else {
        throw load_error(xmc_file_loader::invalid_attribute, key);
      }
    });
    if (!closed) throw load_error(xmc_file_loader::catalog_end_tag_missing, name);

    if (!m_loader.is_catalog_matched(name) || m_loader.get_locale_weight(lang) == 0) {
      // Not wanted: pass over everything up to the catalog's end tag.
      for (; !at_end(); ++m_pos) {
        if (kind() == tk_element_end && value() == "catalog") {
          ++m_pos;
          return;
        }
      }
      throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
    }

    for (;;) {
      skip_ignorable();
      if (at_end()) throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
      if (kind() == tk_element_start && value() == "msg") {
        try {
          message_t message = parse_message();
          message._orginal_locale(lang);
          m_loader.store_message(std::move(message), name);
        } catch (load_error& e) {
          e.append_error_stack(load_error::in_catalog, name);
          throw;
        }
      } else if (kind() == tk_element_end && value() == "catalog") {
        ++m_pos;
        return;
      } else {
        throw load_error(xmc_file_loader::catalog_end_tag_missing, name);
      }
    }
  }

  message_t parse_message() {
    ++m_pos;
    strings::ustring8 name;
    strings::ustring8 meta;
    bool closed = read_attributes([&](const strings::ustring8& key, const strings::ustring8& text) {
      if (key == "name") {
        name = text;
      } else if (key == "meta") {
        meta = text;
      } else {
        throw load_error(xmc_file_loader::invalid_attribute, key);
      }
    });
    if (!closed) throw load_error(xmc_file_loader::msg_end_tag_missing, name);

    message_t::items_type items;
    strings::ustring8 piece;
    for (;;) {
      if (at_end()) throw unexpected_end();
      switch (kind()) {
        case tk_character:
          piece.append(value());
          ++m_pos;
          break;
        case tk_space:
          // One blank per run: none at the very start, none after a blank; right after an
          // argument the (empty) piece still takes one.
          if ((!piece.empty() || !items.empty()) && (piece.empty() || piece.back() != ' ')) {
            piece.push_back(' ');
          }
          ++m_pos;
          break;
        case tk_comment:
          ++m_pos;
          break;
        case tk_element_start:
          if (value() == "br") {
            parse_br();
            piece.push_back('\n');
          } else if (value() == "arg" || value() == "argument") {
            if (!piece.empty()) {
              items.emplace_back(piece);
              piece.clear();
            }
            // Only an argument's errors name the message: the message's own errors
            // (end tag, br, foreign elements) carry the catalog line alone.
            try {
              items.push_back(parse_argument());
            } catch (load_error& e) {
              e.append_error_stack(load_error::in_message, name);
              throw;
            }
          } else {
            throw load_error(xmc_file_loader::invalid_element, value());
          }
          break;
        case tk_element_end:
          if (value() != "msg") throw load_error(xmc_file_loader::msg_end_tag_missing, name);
          ++m_pos;
          if (!piece.empty()) items.emplace_back(piece);
          return message_t(name, std::move(items), meta);
        default:
          throw load_error(xmc_file_loader::msg_end_tag_missing, name);
      }
    }
  }

  void parse_br() {
    ++m_pos;
    while (!at_end() && kind() == tk_comment)
      ++m_pos;
    if (at_end() || kind() != tk_start_tag_end) {
      throw load_error(xmc_file_loader::br_end_tag_missing, strings::ustring8());
    }
    ++m_pos;
    if (!is(tk_element_end, "br")) {
      throw load_error(xmc_file_loader::br_end_tag_missing, strings::ustring8());
    }
    ++m_pos;
  }

  message_item parse_argument() {
    const char* tag = value() == "arg" ? "arg" : "argument";
    ++m_pos;
    strings::ustring8 data;
    message_item::type_t type = message_item::string;
    bool closed = read_attributes([&](const strings::ustring8& key, const strings::ustring8& text) {
      if (key == "name") {
        // Replaces the whole text: format attributes written before "name" are lost, which
        // is intended.
        data = text;
      } else if (key == "type") {
        type = type_from_keyword(text);
      } else if (is_format_key(key)) {
        data.push_back(message_item::separator);
        data.append(key);
        data.push_back(message_item::separator);
        data.append(text);
      } else {
        throw load_error(xmc_file_loader::invalid_attribute, key);
      }
    });
    message_item item(data, type);
    if (!closed || !is(tk_element_end, tag)) {
      throw load_error(xmc_file_loader::arg_end_tag_missing, item.name());
    }
    ++m_pos;
    return item;
  }

  xmc_file_loader& m_loader;
  iterator m_pos;
  iterator m_end;
};

// ---------------------------------------------------------------------------------------------

load_error::load_error(error_type kind, const strings::ustring8& detail)
    : type(kind), message(format_msg(kind, detail)) {}

load_error::load_error(error_type kind, const parser::xml_parser::parse_error& error)
    : type(kind), message(format_msg(error)) {}

void load_error::append_error_stack(append_type where, const strings::ustring8& text) {
  switch (where) {
    case in_message:
      message.append("\n in message element: \"");
      break;
    case in_catalog:
      message.append("\n in catalog element: \"");
      break;
    case in_file:
      message.append("\n in file: \"");
      break;
    case at_line:
      message.append("\n at line: \"");
      break;
    default:
      message.append(unknown_value(where));
      message.append("\n unknown, or unhandle case happened!");
      return;
  }
  message.append(text);
  message.push_back('"');
}

strings::ustring8 load_error::format_msg(error_type kind, const strings::ustring8& detail) {
  switch (kind) {
    case no_error:
      return plain("No Error");
    case no_catalog_loaded:
      return quoted("No catalog was loaded in file: \"", detail, "\"");
    case default_locale_not_supported:
      return plain("Default locale lookup not supported yet");
    case file_not_found:
      return quoted("File \"", detail, "\" was not found on disk");
    case xml_parse_error:
      return quoted("XML parse error \"", detail, "\"");
    case invalid_attribute:
      return quoted("Invalid attibute \"", detail, "\"");
    case invalid_element:
      return quoted("Invalid element \"", detail, "\"");
    case not_xmc_file:
      return quoted("Not XMC file, root element is not XMC but \"", detail, "\"");
    case unsupported_version:
      return quoted("XMC version \"", detail, "\" is not supported");
    case br_end_tag_missing:
      return plain("Expected BR end tag not found");
    case msg_end_tag_missing:
      return quoted("Expected msg (message) end tag not found for message \"", detail, "\"");
    case arg_end_tag_missing:
      return quoted("Expected arg (argument) end tag not found for argument \"", detail, "\"");
    case include_end_tag_missing:
      return plain("Expected \"include\" end tag not found");
    case catalog_end_tag_missing:
      return quoted("Expected catalog end tag not found for catalog \"", detail, "\"");
    case unexpected_parse_error:
      return plain("Unexpected parse error happen!");
    default:
      return unknown_value(kind);
  }
}

strings::ustring8 load_error::format_msg(const parser::xml_parser::parse_error& error) {
  const strings::ustring8& text = error.text;
  strings::ustring8 out;
  switch (static_cast<int>(error.type)) {
    case 1:
      out = plain("Unexpected end of file during XML parsing");
      break;
    case 2:
      out = quoted("Mismatched end element \"", text, "\" was found");
      break;
    case 3:
      out = plain("No root element was found");
      break;
    case 4:
      out = plain("Valid XML header not found");
      break;
    case 5:
      out = quoted("Unexpected character \"", text, "\" found while parsing");
      break;
    case 6:
      out = quoted("Missing \" while parsing attribute \"", text, "\"");
      break;
    case 7:
      out = plain("Unknown enity being parsed");
      break;
    case 8:
      out = quoted("Missing = sign for attribute \"", text, "\"");
      break;
    case 9:
      out = quoted("attribute \"", text, "\" is being redefined");
      break;
    case 10:
      out = plain("Data found after root element");
      break;
    default:
      out = plain("Unknown Parse error");
      break;
  }
  out.append("\n at line: \"");
  out.append(std::to_string(static_cast<unsigned long long>(error.line)));
  out.push_back('"');
  return out;
}

// ---------------------------------------------------------------------------------------------

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
  parser::xml_token_stream tokens;
  parser::xml_parser::parse_error parse_result = tokens.parse(content);
  if (static_cast<int>(parse_result.type) != 0) {
    load_error e(xml_parse_error, parse_result);
    e.append_error_stack(load_error::in_file, file);
    return e;
  }
  try {
    xmc_token_reader reader(*this, tokens.begin(), tokens.end());
    reader.parse_document();
  } catch (load_error& e) {
    e.append_error_stack(load_error::in_file, file);
    return e;
  }
  return load_error();
}

bool xmc_file_loader::is_catalog_matched(const strings::ustring8& name) const {
  return m_catalog_id.empty() || name == m_catalog_id;
}

bool xmc_file_loader::is_lang_id_good(const strings::ustring8& lang) const {
  return get_locale_weight(lang) != 0;
}

std::uint32_t xmc_file_loader::get_locale_weight(const strings::ustring8& locale) const {
  strings::ustring8 normal = normalise_locale(locale);
  for (std::size_t i = 0; i < m_languages.size(); ++i) {
    if (m_languages[i] == normal) return static_cast<std::uint32_t>(i + 1);
  }
  return 0;
}

void xmc_file_loader::handle_language(const strings::ustring8& lang) {
  strings::ustring8 normal = normalise_locale(lang);
  m_languages.emplace_back(".");
  m_languages.emplace_back("en");
  if (normal.empty()) return;
  // The pieces between "_" (an empty piece where two touch or at the start; none after a
  // trailing "_"), each appended to the growing prefix.
  strings::ustring8 prefix;
  std::size_t pos = 0;
  bool first = true;
  while (pos < normal.size()) {
    std::size_t cut = normal.find('_', pos);
    if (cut == strings::ustring8::npos) cut = normal.size();
    if (first) {
      prefix.assign(normal, pos, cut - pos);
      if (prefix != "en") m_languages.push_back(prefix);
      first = false;
    } else {
      prefix.push_back('_');
      prefix.append(normal, pos, cut - pos);
      m_languages.push_back(prefix);
    }
    pos = cut + 1;
  }
}

void xmc_file_loader::set_message(const message_t& message, const strings::ustring8& catalog) {
  message_t& stored = m_data[catalog][message.name()];
  if (stored == types::nil ||
      get_locale_weight(stored._orginal_locale()) < get_locale_weight(message._orginal_locale())) {
    stored = message;
  }
}

void xmc_file_loader::store_message(message_t&& message, const strings::ustring8& catalog) {
  message_t& stored = m_data[catalog][message.name()];
  if (stored == types::nil ||
      get_locale_weight(stored._orginal_locale()) < get_locale_weight(message._orginal_locale())) {
    stored = std::move(message);
  }
}

void xmc_file_loader::move_data(catalog_map& catalogs) {
  for (auto& entry : m_data) {
    memory::pointers::shared_pointer<catalog_t>& target = catalogs[entry.first];
    if (!target) target.reset(new catalog_t);
    target->_name(entry.first);
    for (auto& item : entry.second) {
      const message_t& existing = target->message(item.first);
      if (existing != types::nil && get_locale_weight(existing._orginal_locale()) >
                                        get_locale_weight(item.second._orginal_locale())) {
        continue;
      }
      target->message(item.first, std::move(item.second));
    }
  }
  m_data.clear();
}

void xmc_file_loader::combine_data(catalog_map& catalogs) const {
  for (const auto& entry : m_data) {
    memory::pointers::shared_pointer<catalog_t>& target = catalogs[entry.first];
    if (!target) target.reset(new catalog_t);
    target->_name(entry.first);
    for (const auto& item : entry.second) {
      const message_t& existing = target->message(item.first);
      if (existing != types::nil && get_locale_weight(existing._orginal_locale()) >
                                        get_locale_weight(item.second._orginal_locale())) {
        continue;
      }
      target->message(item.first, item.second);
    }
  }
}

}  // namespace _private
}  // namespace i18n
}  // namespace MOTA_2_18
