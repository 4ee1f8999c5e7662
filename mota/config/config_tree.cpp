#include <mota/config/config_tree.hpp>

#include <algorithm>
#include <ostream>

namespace MOTA_2_18 {
namespace config {

namespace {

// Key order of a tree walk: piece by piece, so that a node's descendants follow it directly
// ("a", "a.x", "a-b"). The dot ranks below every other byte.
bool tree_less(const std::string& a, const std::string& b) {
  const std::size_t n = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (a[i] == b[i]) continue;
    if (a[i] == '.') return true;
    if (b[i] == '.') return false;
    return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
  }
  return a.size() < b.size();
}

}  // namespace

const config_tree::node_t* config_tree::get_node(const std::string& key) const {
  const auto it = m_nodes.find(key);
  return it == m_nodes.end() ? nullptr : &it->second.node;
}

void config_tree::set_node(std::string key, const types::variant& value, unsigned flags) {
  entry& e = m_nodes.try_emplace(std::move(key)).first->second;
  e.node.first = flags;
  e.node.second = value;
  if (!is_array(flags)) e.elements.clear();
}

void config_tree::set_array(const std::string& key,
                            const std::vector<std::pair<std::string, types::variant>>& elements) {
  entry& array = m_nodes[key];
  // Drop the elements of the array stored here before, so no stale element survives.
  std::vector<std::string> old;
  old.swap(array.elements);
  for (const std::string& name : old)
    m_nodes.erase(key + "." + name);

  std::vector<std::string> names;
  names.reserve(elements.size());
  std::string element_key = key + ".";
  const std::size_t base = element_key.size();
  for (std::size_t i = 0; i < elements.size(); ++i) {
    std::string name = elements[i].first.empty() ? std::to_string(i) : elements[i].first;
    element_key.resize(base);
    element_key += name;
    entry& e = m_nodes[element_key];
    e.node = node_t(0u, elements[i].second);
    e.elements.clear();
    names.push_back(std::move(name));
  }
  // Map insertions do not move entries, so `array` is still the array's node.
  array.node = node_t(array_flags, types::variant(static_cast<unsigned int>(names.size())));
  array.elements = std::move(names);
}

bool config_tree::get_array(const std::string& key,
                            std::vector<std::pair<strings::ustring8, node_t>>& out) const {
  const auto it = m_nodes.find(key);
  if (it == m_nodes.end() || !is_array(it->second.node.first)) return false;
  for (const std::string& name : it->second.elements) {
    if (const node_t* element = get_node(key + "." + name)) out.emplace_back(name, *element);
  }
  return true;
}

bool config_tree::get_value_pair_array(
    const std::string& key, std::vector<std::pair<strings::ustring8, types::variant>>& out) const {
  const auto it = m_nodes.find(key);
  if (it == m_nodes.end() || !is_array(it->second.node.first)) return false;
  for (const std::string& name : it->second.elements) {
    if (const node_t* element = get_node(key + "." + name)) out.emplace_back(name, element->second);
  }
  return true;
}

void config_tree::erase(const std::string& key) {
  const std::string below = key + ".";
  for (auto it = m_nodes.begin(); it != m_nodes.end();) {
    if (it->first == key || it->first.compare(0, below.size(), below) == 0)
      it = m_nodes.erase(it);
    else
      ++it;
  }
}

void config_tree::clear() {
  m_nodes.clear();
}

bool config_tree::parse_string(const std::string& key, strings::ustring8& head,
                               strings::ustring8& rest) {
  const std::size_t dot = key.find('.');
  if (dot == std::string::npos) {
    head = key;
    rest.clear();
    return false;
  }
  head = key.substr(0, dot);
  rest = key.substr(dot + 1);
  return true;
}

void config_tree::visit(const std::function<void(const std::string&, const node_t&,
                                                 const std::vector<std::string>&)>& f) const {
  for (const auto* kv : sorted())
    f(kv->first, kv->second.node, kv->second.elements);
}

std::vector<const config_tree::map_t::value_type*> config_tree::sorted() const {
  std::vector<const map_t::value_type*> out;
  out.reserve(m_nodes.size());
  for (const auto& kv : m_nodes)
    out.push_back(&kv);
  std::sort(out.begin(), out.end(),
            [](const auto* a, const auto* b) { return tree_less(a->first, b->first); });
  return out;
}

void config_tree::dump(std::ostream& out) const {
  out << "|---------------\\\n";
  for (const auto* kv : sorted()) {
    const std::string& key = kv->first;
    const entry& e = kv->second;
    out << key;
    if (is_array(e.node.first))
      out << "[]";
    else if (e.node.first & indirect_flag)
      out << "?";
    out << "|\t\t" << e.node.second.as_string() << "\n";
  }
  out << "end\n";
}

}  // namespace config
}  // namespace MOTA_2_18
