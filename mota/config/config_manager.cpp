#include <mota/config/config_manager.hpp>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

namespace MOTA_2_18 {
namespace config {

config_manager::config_manager() = default;

config_manager::~config_manager() {
  m_items.clear();
  delete m_dispatch;
}

void config_manager::init(const config_dispatch& dispatch) {
  config_dispatch* copy = dispatch.clone();
  delete m_dispatch;
  m_dispatch = copy;
  m_items.clear();
  m_dispatch->setup(m_items);
}

void config_manager::load() {
  if (m_dispatch != nullptr) m_dispatch->load(m_items);
}

void config_manager::unload() {
  if (m_dispatch != nullptr) m_dispatch->unload(m_items);
}

void config_manager::save() {
  if (m_dispatch != nullptr) m_dispatch->save(m_items);
}

namespace {

// The keys an indirection chain has passed. Most chains are a step or two long and a short
// vector answers those fastest; past a handful of keys they move into a hash set, so that a
// long chain stays linear: each step asks about one key, not about the whole chain.
class visited_keys {
 public:
  void add(const std::string& key) {
    if (!m_many && m_few.size() < kFew) {
      m_few.push_back(key);
      return;
    }
    if (!m_many) m_many.reset(new std::unordered_set<std::string>(m_few.begin(), m_few.end()));
    m_many->insert(key);
  }
  bool has(const std::string& key) const {
    if (!m_many) return std::find(m_few.begin(), m_few.end(), key) != m_few.end();
    return m_many->count(key) != 0;
  }

 private:
  static constexpr std::size_t kFew = 8;
  std::vector<std::string> m_few;
  // Made only when needed: an empty set still costs a construction on every lookup.
  std::unique_ptr<std::unordered_set<std::string>> m_many;
};

}  // namespace

types::variant config_manager::get_value(const strings::ustring8& key,
                                         const types::variant& default_value) const {
  // Keys already followed through an indirection; a chain that comes back to one stops.
  visited_keys visited;
  strings::ustring8 target;
  const strings::ustring8* current = &key;
  bool restart = true;
  while (restart) {
    restart = false;
    for (const item_pointer& item : m_items) {
      if (!item) continue;
      const base_config_item::node_t* node = item->get_value(*current);
      if (node == nullptr) continue;
      if (config_tree::is_array(node->first)) {
        const base_config_item::node_t* first = item->get_value(*current + ".0");
        return first != nullptr ? first->second : types::variant();
      }
      if ((node->first & config_tree::indirect_flag) == 0) return node->second;

      visited.add(*current);
      target = node->second.as_string();
      if (visited.has(target)) return node->second;
      current = &target;
      restart = true;
      break;
    }
  }
  return default_value;
}

bool config_manager::value_exist(const strings::ustring8& key) const {
  return get_value(key, types::variant()) != types::nil;
}

bool config_manager::is_array(const strings::ustring8& key) const {
  for (const item_pointer& item : m_items) {
    if (!item) continue;
    const base_config_item::node_t* node = item->get_value(key);
    if (node != nullptr && config_tree::is_array(node->first)) return true;
  }
  return false;
}

void config_manager::get_array(const strings::ustring8& key,
                               std::vector<types::variant>& values) const {
  values.clear();
  std::vector<std::pair<strings::ustring8, types::variant>> elements;
  get_key_value_array(key, elements);
  values.reserve(elements.size());
  for (auto& element : elements)
    values.push_back(element.second);
}

void config_manager::get_key_value_array(
    const strings::ustring8& key,
    std::vector<std::pair<strings::ustring8, types::variant>>& values) const {
  values.clear();
  for (const item_pointer& item : m_items) {
    if (item && item->get_value_pair_array(key, values)) return;
  }
}

config_manager::item_pointer config_manager::get_config_item(const strings::ustring8& id) const {
  for (const item_pointer& item : m_items) {
    if (item && item->get_id() == id) return item;
  }
  return item_pointer();
}

void config_manager::dump(std::ostream& out) const {
  out << "config_manager:\n";
  for (const item_pointer& item : m_items) {
    out << "\nconfig_item:\n";
    if (item) item->dump(out);
  }
  out << "\nno more config_items!\n\nending output\n";
}

std::ostream& operator<<(std::ostream& out, const config_manager& manager) {
  manager.dump(out);
  return out;
}

}  // namespace config
}  // namespace MOTA_2_18
