// Not part of the public interface.
//
// The storage behind config_tree: the entries one after another in one array, their keys
// packed into one character buffer, and an open-addressing index from key to entry. A tree of
// many small keys therefore costs a few large allocations rather than a node and a key string
// each, is filled by appending, and is freed in one sweep.
//
//   node_table table;
//   const auto placed = table.insert("a.b", node_table::node_t(0u, variant(1)));
//   table.at(placed.first).node.second.as_int();   // 1
//   table.find("a.b") == placed.first;             // true
#ifndef MOTA_CONFIG_PRIVATE_NODE_TABLE_HPP
#define MOTA_CONFIG_PRIVATE_NODE_TABLE_HPP

#include <mota/types/variant.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
namespace config {
namespace _private {

class node_table {
 public:
  // Flags and value of one node.
  using node_t = std::pair<unsigned, types::variant>;

  // What the table holds under a key: the node, and an array node's element names in order.
  // Most nodes are no arrays, so the names live apart and only when there are some.
  class entry {
   public:
    explicit entry(node_t n) : node(std::move(n)) {}
    entry(const entry& other)
        : node(other.node), m_names(other.m_names ? new names_t(*other.m_names) : nullptr) {}
    entry(entry&&) noexcept = default;
    entry& operator=(const entry& other) {
      if (this != &other) *this = entry(other);
      return *this;
    }
    entry& operator=(entry&&) = default;
    ~entry() = default;

    //@{
    // The element names: none, or the ones set through names().
    const std::vector<std::string>& names() const { return m_names ? *m_names : no_names(); }
    std::vector<std::string>& names() {
      if (!m_names) m_names.reset(new names_t());
      return *m_names;
    }
    //@}
    // Forgets the element names.
    void drop_names() { m_names.reset(); }

    node_t node;

   private:
    using names_t = std::vector<std::string>;
    static const names_t& no_names();
    std::unique_ptr<names_t> m_names;
  };

  // The index find() gives for a key the table does not hold.
  static constexpr std::uint32_t npos = 0xffffffffu;

  // The index of the entry under the key, or npos.
  std::uint32_t find(std::string_view key) const;

  // Adds an entry holding `node` under the key and gives its index and true; when the key is
  // there already, gives that entry's index and false and leaves it unchanged. Indexes of the
  // other entries stay; references into the table do not (the arrays may grow). The key must
  // not point into the table's own keys.
  std::pair<std::uint32_t, bool> insert(std::string_view key, node_t node);

  // Removes the entry at `index`: the last entry takes its index, every other keeps its own.
  void erase(std::uint32_t index);

  // Removes every entry and gives back the memory.
  void clear();

  // Prepares room for `count` entries in all, so that filling up to them moves nothing.
  void reserve(std::size_t count);

  //@{
  // The number of entries; their indexes are 0 to size() - 1.
  std::size_t size() const { return m_records.size(); }
  bool empty() const { return m_records.empty(); }
  //@}

  //@{
  // The entry at `index` and its key; valid until the table changes.
  entry& at(std::uint32_t index) { return m_records[index].value; }
  const entry& at(std::uint32_t index) const { return m_records[index].value; }
  std::string_view key(std::uint32_t index) const {
    const record& r = m_records[index];
    return std::string_view(m_keys.data() + r.key_begin, r.key_size);
  }
  //@}

 private:
  struct record {
    entry value;
    std::size_t key_begin;  // the key's bytes in m_keys
    std::size_t key_size;
  };
  // A place of the index: the hash of the key it leads to, and the record's index plus one
  // (0 marks a free place).
  struct slot {
    std::uint32_t hash;
    std::uint32_t index;
  };

  static std::uint32_t hash_of(std::string_view key);
  std::uint32_t hash_at(std::uint32_t index) const { return hash_of(key(index)); }
  // The place that leads to record `index`.
  std::size_t slot_of(std::uint32_t index) const;
  // Makes the index `count` places (a power of two) and enters every record.
  void rebuild_index(std::size_t count);
  // Frees a place, moving later places of the same run back so that no lookup stops early.
  void free_slot(std::size_t at);
  // Drops the bytes of erased keys from m_keys.
  void compact_keys();

  std::vector<record> m_records;
  std::string m_keys;
  std::size_t m_garbage = 0;  // bytes of m_keys whose entries are erased
  std::vector<slot> m_slots;  // empty, or a power of two places at most half of them used
};

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_PRIVATE_NODE_TABLE_HPP
