#include <mota/config/config_tree.hpp>

#include <algorithm>
#include <ostream>
#include <utility>

namespace MOTA_2_18 {
namespace config {

namespace {

// Key order of a tree walk: piece by piece, so that a node's descendants follow it directly
// ("a", "a.x", "a-b"). The dot ranks below every other byte.
bool tree_less(std::string_view a, std::string_view b) {
  const std::size_t n = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < n; ++i) {
    if (a[i] == b[i]) continue;
    if (a[i] == '.') return true;
    if (b[i] == '.') return false;
    return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
  }
  return a.size() < b.size();
}

bool is_number(std::string_view s) {
  return std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

const config_tree::node_t* config_tree::get_node(const std::string& key) const {
  const index_t i = m_nodes.find(key);
  return i == _private::node_table::npos ? nullptr : &m_nodes.at(i).node;
}

void config_tree::set_node(const std::string& key, const types::variant& value, unsigned flags) {
  // A new node is built with its value; an existing one takes the new value below.
  const auto placed = m_nodes.insert(key, node_t(flags, value));
  _private::node_table::entry& e = m_nodes.at(placed.first);
  if (!placed.second) {
    const bool was_array = is_array(e.node.first);
    e.node.first = flags;
    e.node.second = value;
    if (!is_array(flags))
      e.drop_names();
    else if (!was_array)
      adopt_children(placed.first);
    return;
  }
  if (is_array(flags)) adopt_children(placed.first);
  note_in_parent(key);
}

void config_tree::reserve(std::size_t count) {
  m_nodes.reserve(count);
}

void config_tree::note_in_parent(std::string_view key) {
  const std::size_t dot = key.rfind('.');
  if (dot == std::string_view::npos) return;
  const index_t parent = m_nodes.find(key.substr(0, dot));
  if (parent == _private::node_table::npos) return;
  _private::node_table::entry& e = m_nodes.at(parent);
  if (is_array(e.node.first)) e.names().emplace_back(key.substr(dot + 1));
}

void config_tree::adopt_children(index_t array) {
  // Nodes stored under the key before it became an array are its elements: numbered ones
  // first in number order, then the others in text order.
  const std::string below = std::string(m_nodes.key(array)) + ".";
  std::vector<std::string> names;
  for (index_t i = 0; i < m_nodes.size(); ++i) {
    const std::string_view k = m_nodes.key(i);
    if (k.size() > below.size() && k.compare(0, below.size(), below) == 0 &&
        k.find('.', below.size()) == std::string_view::npos)
      names.emplace_back(k.substr(below.size()));
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const bool na = is_number(a), nb = is_number(b);
    if (na != nb) return na;
    if (na && a.size() != b.size()) return a.size() < b.size();
    return a < b;
  });
  m_nodes.at(array).names() = std::move(names);
}

void config_tree::set_array(const std::string& key,
                            const std::vector<std::pair<std::string, types::variant>>& elements) {
  const auto count = static_cast<unsigned int>(elements.size());
  const auto placed = m_nodes.insert(key, node_t(array_flags, types::variant(count)));
  if (placed.second) note_in_parent(key);
  index_t array = placed.first;
  std::string element_key = key + ".";
  const std::size_t base = element_key.size();

  // Drop the elements of the array stored here before, so no stale element survives. Erasing
  // moves the last node, which may be the array.
  std::vector<std::string> old;
  old.swap(m_nodes.at(array).names());
  if (!old.empty()) {
    for (const std::string& name : old) {
      element_key.resize(base);
      element_key += name;
      const index_t element = m_nodes.find(element_key);
      if (element != _private::node_table::npos) m_nodes.erase(element);
    }
    array = m_nodes.find(key);
  }

  std::vector<std::string> names;
  names.reserve(elements.size());
  for (std::size_t i = 0; i < elements.size(); ++i) {
    std::string name = elements[i].first.empty() ? std::to_string(i) : elements[i].first;
    element_key.resize(base);
    element_key += name;
    const auto element = m_nodes.insert(element_key, node_t(0u, elements[i].second));
    if (!element.second) {
      _private::node_table::entry& e = m_nodes.at(element.first);
      e.node = node_t(0u, elements[i].second);
      e.drop_names();
    }
    names.push_back(std::move(name));
  }
  _private::node_table::entry& a = m_nodes.at(array);
  if (!placed.second) a.node = node_t(array_flags, types::variant(count));
  a.names() = std::move(names);
}

template <class Out, class Make>
bool config_tree::collect_elements(const std::string& key, Out& out, Make make) const {
  const index_t array = m_nodes.find(key);
  if (array == _private::node_table::npos || !is_array(m_nodes.at(array).node.first)) return false;
  std::string element_key = key + ".";
  const std::size_t base = element_key.size();
  for (const std::string& name : m_nodes.at(array).names()) {
    element_key.resize(base);
    element_key += name;
    const index_t element = m_nodes.find(element_key);
    if (element != _private::node_table::npos) out.push_back(make(name, m_nodes.at(element).node));
  }
  return true;
}

bool config_tree::get_array(const std::string& key,
                            std::vector<std::pair<strings::ustring8, node_t>>& out) const {
  return collect_elements(key, out, [](const std::string& name, const node_t& node) {
    return std::pair<strings::ustring8, node_t>(name, node);
  });
}

bool config_tree::get_value_pair_array(
    const std::string& key, std::vector<std::pair<strings::ustring8, types::variant>>& out) const {
  return collect_elements(key, out, [](const std::string& name, const node_t& node) {
    return std::pair<strings::ustring8, types::variant>(name, node.second);
  });
}

void config_tree::erase(const std::string& key) {
  // An array that holds the key as an element forgets it.
  const std::size_t dot = key.rfind('.');
  if (dot != std::string::npos) {
    const index_t parent = m_nodes.find(std::string_view(key).substr(0, dot));
    if (parent != _private::node_table::npos) {
      _private::node_table::entry& e = m_nodes.at(parent);
      const std::vector<std::string>& names = std::as_const(e).names();
      const auto name =
          std::find(names.begin(), names.end(), std::string_view(key).substr(dot + 1));
      if (name != names.end()) e.names().erase(name);
    }
  }
  // Downwards, since erasing moves the last node (already looked at) into the gap.
  for (index_t i = static_cast<index_t>(m_nodes.size()); i-- > 0;) {
    const std::string_view k = m_nodes.key(i);
    if (k.size() >= key.size() && k.compare(0, key.size(), key) == 0 &&
        (k.size() == key.size() || k[key.size()] == '.'))
      m_nodes.erase(i);
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
  std::string key;
  for (const index_t i : sorted()) {
    key.assign(m_nodes.key(i));
    const _private::node_table::entry& e = m_nodes.at(i);
    f(key, e.node, e.names());
  }
}

std::vector<config_tree::index_t> config_tree::sorted() const {
  std::vector<index_t> out(m_nodes.size());
  for (index_t i = 0; i < out.size(); ++i)
    out[i] = i;
  std::sort(out.begin(), out.end(),
            [this](index_t a, index_t b) { return tree_less(m_nodes.key(a), m_nodes.key(b)); });
  return out;
}

void config_tree::dump(std::ostream& out) const {
  out << "|---------------\\\n";
  for (const index_t i : sorted()) {
    const _private::node_table::entry& e = m_nodes.at(i);
    out << m_nodes.key(i);
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
