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
  // A new node is built with its value; an existing one takes the new value below.
  const auto placed = m_nodes.try_emplace(std::move(key), flags, value);
  entry& e = placed.first->second;
  const bool was_array = !placed.second && is_array(e.node.first);
  e.node.first = flags;
  e.node.second = value;
  if (!is_array(flags))
    e.elements.clear();
  else if (!was_array)
    adopt_children(placed.first->first, e);
  if (placed.second) note_in_parent(placed.first->first);
}

void config_tree::note_in_parent(const std::string& key) {
  const std::size_t dot = key.rfind('.');
  if (dot == std::string::npos) return;
  const auto parent = m_nodes.find(key.substr(0, dot));
  if (parent != m_nodes.end() && is_array(parent->second.node.first))
    parent->second.elements.push_back(key.substr(dot + 1));
}

void config_tree::adopt_children(const std::string& key, entry& array) {
  // Nodes stored under the key before it became an array are its elements: numbered ones
  // first in number order, then the others in text order.
  const std::string below = key + ".";
  std::vector<std::string> names;
  for (const auto& kv : m_nodes) {
    const std::string& k = kv.first;
    if (k.size() > below.size() && k.compare(0, below.size(), below) == 0 &&
        k.find('.', below.size()) == std::string::npos)
      names.push_back(k.substr(below.size()));
  }
  const auto numeric = [](const std::string& s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
  };
  std::sort(names.begin(), names.end(), [&](const std::string& a, const std::string& b) {
    const bool na = numeric(a), nb = numeric(b);
    if (na != nb) return na;
    if (na && a.size() != b.size()) return a.size() < b.size();
    return a < b;
  });
  array.elements = std::move(names);
}

void config_tree::set_array(const std::string& key,
                            const std::vector<std::pair<std::string, types::variant>>& elements) {
  // The array's own value is set once its elements are in.
  const auto placed = m_nodes.try_emplace(key, array_flags, types::variant(0u));
  if (placed.second) note_in_parent(key);
  entry& array = placed.first->second;
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
    const auto element = m_nodes.try_emplace(element_key, 0u, elements[i].second);
    if (!element.second) {
      entry& e = element.first->second;
      e.node = node_t(0u, elements[i].second);
      e.elements.clear();
    }
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
  // An array that holds the key as an element forgets it.
  const std::size_t dot = key.rfind('.');
  if (dot != std::string::npos) {
    const auto parent = m_nodes.find(key.substr(0, dot));
    if (parent != m_nodes.end()) {
      std::vector<std::string>& names = parent->second.elements;
      const auto name = std::find(names.begin(), names.end(), key.substr(dot + 1));
      if (name != names.end()) names.erase(name);
    }
  }
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
