#include <mota/config/_private/node_table.hpp>

#include <functional>

namespace MOTA_2_18 {
namespace config {
namespace _private {

namespace {

// Index places start at this many, so that small trees do not grow the index step by step.
constexpr std::size_t min_slots = 16;
// Erased key bytes are dropped once there are more of them than this and than live ones.
constexpr std::size_t min_garbage = 4096;

}  // namespace

const std::vector<std::string>& node_table::entry::no_names() {
  static const names_t none;
  return none;
}

std::uint32_t node_table::hash_of(std::string_view key) {
  const auto h = static_cast<std::uint64_t>(std::hash<std::string_view>()(key));
  return static_cast<std::uint32_t>(h ^ (h >> 32));
}

std::uint32_t node_table::find(std::string_view key) const {
  if (m_slots.empty()) return npos;
  const std::uint32_t hash = hash_of(key);
  const std::size_t mask = m_slots.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    const slot& s = m_slots[i];
    if (s.index == 0) return npos;
    if (s.hash == hash && this->key(s.index - 1) == key) return s.index - 1;
  }
}

std::pair<std::uint32_t, bool> node_table::insert(std::string_view key, node_t node) {
  // At most half of the places are used, so every run of used places ends soon.
  if ((m_records.size() + 1) * 2 > m_slots.size())
    rebuild_index(m_slots.empty() ? min_slots : m_slots.size() * 2);
  const std::uint32_t hash = hash_of(key);
  const std::size_t mask = m_slots.size() - 1;
  std::size_t i = hash & mask;
  for (;; i = (i + 1) & mask) {
    const slot& s = m_slots[i];
    if (s.index == 0) break;
    if (s.hash == hash && this->key(s.index - 1) == key) return {s.index - 1, false};
  }
  const auto index = static_cast<std::uint32_t>(m_records.size());
  m_records.push_back(record{entry(std::move(node)), m_keys.size(), key.size()});
  m_keys.append(key.data(), key.size());
  m_slots[i] = slot{hash, index + 1};
  return {index, true};
}

void node_table::erase(std::uint32_t index) {
  free_slot(slot_of(index));
  m_garbage += m_records[index].key_size;
  const auto last = static_cast<std::uint32_t>(m_records.size() - 1);
  if (index != last) {
    m_slots[slot_of(last)].index = index + 1;
    m_records[index] = std::move(m_records[last]);
  }
  m_records.pop_back();
  if (m_records.empty()) {
    m_keys.clear();
    m_garbage = 0;
  } else if (m_garbage > min_garbage && m_garbage > m_keys.size() - m_garbage) {
    compact_keys();
  }
}

void node_table::clear() {
  std::vector<record>().swap(m_records);
  std::string().swap(m_keys);
  std::vector<slot>().swap(m_slots);
  m_garbage = 0;
}

void node_table::reserve(std::size_t count) {
  m_records.reserve(count);
  std::size_t slots = m_slots.empty() ? min_slots : m_slots.size();
  while (slots / 2 < count)
    slots *= 2;
  if (slots != m_slots.size()) rebuild_index(slots);
}

std::size_t node_table::slot_of(std::uint32_t index) const {
  const std::size_t mask = m_slots.size() - 1;
  std::size_t i = hash_at(index) & mask;
  while (m_slots[i].index != index + 1)
    i = (i + 1) & mask;
  return i;
}

void node_table::rebuild_index(std::size_t count) {
  m_slots.assign(count, slot{0, 0});
  const std::size_t mask = count - 1;
  for (std::uint32_t index = 0; index < m_records.size(); ++index) {
    const std::uint32_t hash = hash_at(index);
    std::size_t i = hash & mask;
    while (m_slots[i].index != 0)
      i = (i + 1) & mask;
    m_slots[i] = slot{hash, index + 1};
  }
}

void node_table::free_slot(std::size_t at) {
  // Linear probing without tombstones: a later place of the run moves into the hole when the
  // hole lies between its home place and where it stands.
  const std::size_t mask = m_slots.size() - 1;
  std::size_t hole = at;
  for (std::size_t i = (at + 1) & mask; m_slots[i].index != 0; i = (i + 1) & mask) {
    const std::size_t home = m_slots[i].hash & mask;
    if (((i - home) & mask) >= ((i - hole) & mask)) {
      m_slots[hole] = m_slots[i];
      hole = i;
    }
  }
  m_slots[hole] = slot{0, 0};
}

void node_table::compact_keys() {
  std::string keys;
  keys.reserve(m_keys.size() - m_garbage);
  for (record& r : m_records) {
    const std::size_t begin = keys.size();
    keys.append(m_keys, r.key_begin, r.key_size);
    r.key_begin = begin;
  }
  m_keys.swap(keys);
  m_garbage = 0;
}

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18
