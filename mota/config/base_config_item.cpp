#include <mota/config/_private/lexer.hpp>
#include <mota/config/base_config_item.hpp>

#include <climits>
#include <cstdint>
#include <ostream>

namespace MOTA_2_18 {
namespace config {

namespace {

std::uint32_t clamped_size(const std::string& text) {
  return text.size() > UINT32_MAX ? UINT32_MAX : static_cast<std::uint32_t>(text.size());
}

}  // namespace

base_config_item::base_config_item(const strings::ustring8& id) : m_id(id) {}

base_config_item::base_config_item(const base_config_item& other)
    : reference_count_pointer_ability(other),
      clone_ability(other),
      m_tree(other.m_tree),
      m_id(other.m_id) {}

base_config_item::~base_config_item() = default;

void base_config_item::load(item_list& /*items*/) {
  load();
}
void base_config_item::load() {}
void base_config_item::save(item_list& /*items*/) {
  save();
}
void base_config_item::save() {}
void base_config_item::unload() {
  m_tree.clear();
}

const base_config_item::node_t* base_config_item::get_value(const strings::ustring8& key) const {
  return m_tree.get_node(key);
}

void base_config_item::set(const std::pair<strings::ustring8, types::variant>& key_value,
                           unsigned flags) {
  set(key_value.first, key_value.second, flags);
}

void base_config_item::set(const strings::ustring8& key, const types::variant& value,
                           unsigned flags) {
  if (key.empty()) return;
  m_tree.set_node(key, value, flags);
}

void base_config_item::set(const strings::ustring8& text, unsigned flags) {
  const auto kv = make_key_value(text, config_token::T_EQ);
  set(kv.first, types::variant(kv.second), flags);
}

std::pair<strings::ustring8, strings::ustring8> base_config_item::make_key_value(
    const strings::ustring8& text, config_token::tok_types separator) {
  const std::uint32_t size = clamped_size(text);
  config_token tok;
  unsigned pos = 0;
  while (pos < size) {
    _private::lex_token(text.data(), size, pos, tok);
    if (tok.type == separator) return {text.substr(0, tok.start), text.substr(tok.end)};
  }
  return {text, strings::ustring8()};
}

void base_config_item::set_array(const strings::ustring8& key, const generic::varg_list& indexes,
                                 const generic::varg_list& values) {
  if (key.empty()) return;
  std::vector<std::pair<std::string, types::variant>> elements;
  elements.reserve(values.count());
  const unsigned named = static_cast<unsigned>(indexes.count());
  unsigned i = 0;
  for (const generic::argument& value : values) {
    std::string name = i < named ? std::string(indexes[i].value().as_string()) : std::string();
    elements.emplace_back(std::move(name), value.value());
    ++i;
  }
  m_tree.set_array(key, elements);
}

bool base_config_item::get_array(
    const strings::ustring8& key,
    std::vector<std::pair<strings::ustring8, node_t>>& elements) const {
  return m_tree.get_array(key, elements);
}

bool base_config_item::get_value_pair_array(
    const strings::ustring8& key,
    std::vector<std::pair<strings::ustring8, types::variant>>& elements) const {
  return m_tree.get_value_pair_array(key, elements);
}

void base_config_item::dump(std::ostream& out) const {
  m_tree.dump(out);
}

int base_config_item::get_token(const strings::ustring8& line, unsigned& position,
                                config_token& tok) {
  return _private::lex_token(line.data(), clamped_size(line), position, tok);
}

std::ostream& operator<<(std::ostream& out, const base_config_item& item) {
  item.dump(out);
  return out;
}

strings::ustring8 quote_value(const strings::ustring8& text) {
  if (text.find_first_of(" \r\t\n") == std::string::npos) return text;
  return "\"" + text + "\"";
}

}  // namespace config
}  // namespace MOTA_2_18
