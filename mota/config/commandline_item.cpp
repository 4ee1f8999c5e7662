#include <mota/config/_private/lexer.hpp>
#include <mota/config/commandline_item.hpp>

#include <climits>
#include <cstdint>
#include <iostream>

namespace MOTA_2_18 {
namespace config {

namespace {

bool is_option(const char* argument) {
  return argument[0] == '-' || argument[0] == '/';
}

bool is_assignment(int kind) {
  switch (kind) {
    case config_token::T_EQ:
    case config_token::T_COLON:
    case config_token::T_COLONEQ:
    case config_token::T_GTEQ:
    case config_token::T_LTEQ:
    case config_token::T_PLUSEQ:
    case config_token::T_MINUSEQ:
    case config_token::T_TIMESEQ:
    case config_token::T_DIVEQ:
      return true;
    default:
      return false;
  }
}

}  // namespace

commandline_item::commandline_item(unsigned argc, const char* const* argv)
    : base_config_item("command line"), m_argc(argv == nullptr ? 0u : argc), m_argv(argv) {}
commandline_item::commandline_item(const commandline_item& other) = default;
commandline_item::~commandline_item() = default;

void commandline_item::store_program_name(const strings::ustring8& path) {
  const std::size_t slash = path.rfind('/');
  const strings::ustring8 name(slash == std::string::npos ? std::string(path)
                                                          : path.substr(slash + 1));
  if (name.empty()) return;
  set("application.name", types::variant(name), 0u);

  // "my.app.bin": extension "bin", raw name "myapp" (the remaining pieces joined without dots).
  const std::size_t last_dot = name.rfind('.');
  strings::ustring8 raw;
  if (last_dot == std::string::npos) {
    raw = name;
  } else {
    set("application.name.extention", types::variant(strings::ustring8(name.substr(last_dot + 1))),
        0u);
    for (std::size_t i = 0; i < last_dot; ++i)
      if (name[i] != '.') raw += name[i];
  }
  // A name of dots and an extension only (".profile") keeps its whole name as the raw name.
  set("application.name.raw", types::variant(raw.empty() ? name : raw), 0u);
}

void commandline_item::load(item_list& /*items*/) {
  load();
}

void commandline_item::load() {
  m_tree.clear();
  if (m_argv == nullptr || m_argc == 0) return;
  if (m_argv[0] != nullptr) store_program_name(m_argv[0]);

  config_token tok;
  for (unsigned i = 1; i < m_argc; ++i) {
    const char* argument = m_argv[i];
    if (argument == nullptr) continue;
    if (!is_option(argument)) {
      std::cout << "Warning! unknown key:" << argument << "\nIgnoring key and continuing\n";
      continue;
    }
    const strings::ustring8 text(argument);
    const std::uint32_t size =
        text.size() > UINT32_MAX ? UINT32_MAX : static_cast<std::uint32_t>(text.size());

    // The key: token texts after the leading byte, up to an assignment operator.
    strings::ustring8 key;
    bool assigned = false;
    unsigned pos = 1;
    for (;;) {
      const int kind = _private::lex_token(text.data(), size, pos, tok);
      if (kind == config_token::T_END) break;
      if (kind == config_token::T_SPACE || kind == config_token::T_TABCHAR ||
          kind == config_token::T_NEWLINE)
        continue;
      if (is_assignment(kind)) {
        assigned = true;
        break;
      }
      key += tok.text;
    }

    strings::ustring8 value = assigned ? text.substr(pos) : strings::ustring8();
    bool has_value = !value.empty();
    if (!has_value && i + 1 < m_argc && m_argv[i + 1] != nullptr && !is_option(m_argv[i + 1])) {
      value = m_argv[++i];
      has_value = !value.empty();
    }
    if (key.empty()) continue;

    if (!has_value) {
      if (assigned)
        set(key, types::variant(strings::ustring8()), 0u);
      else
        set(key, types::variant(true), 0u);  // a bare flag
    } else if (value.find(',') != std::string::npos) {
      generic::varg_list elements;
      std::size_t begin = 0;
      while (begin <= value.size()) {
        std::size_t comma = value.find(',', begin);
        if (comma == std::string::npos) comma = value.size();
        if (comma > begin)
          elements.push_back(generic::argument(
              types::variant(strings::ustring8(value.substr(begin, comma - begin)))));
        begin = comma + 1;
      }
      set_array(key, generic::varg_list(), elements);
    } else {
      set(key, types::variant(value), 0u);
    }
  }
}

void commandline_item::unload() {
  m_tree.clear();
}

commandline_item* commandline_item::clone() const {
  return new commandline_item(*this);
}

}  // namespace config
}  // namespace MOTA_2_18
