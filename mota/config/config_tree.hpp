// The storage of one configuration item: nodes under dotted keys ("application.name"), each
// a flags word and a variant. A node whose two low flag bits are both set is an array whose
// elements are the nodes "<key>.<element>" (".0", ".1", ... when the elements carry no names);
// a node with flag 4 holds the name of another key.
//
//   mota::config::config_tree tree;
//   tree.set_node("window.width", mota::types::variant(640u), 0);
//   const mota::config::config_tree::node_t* n = tree.get_node("window.width");
#ifndef MOTA_CONFIG_CONFIG_TREE_HPP
#define MOTA_CONFIG_CONFIG_TREE_HPP

#include <mota/config/_private/node_table.hpp>
#include <mota/export.hpp>
#include <mota/strings/ustring.hpp>
#include <mota/types/variant.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace MOTA_2_18 {
namespace config {

// The values of one configuration item under dotted keys ("window.size.width"), each with its
// flags; array nodes also keep their element names in order.
class MOTA_API config_tree {
 public:
  // A node: its flags and its value.
  using node_t = std::pair<unsigned, types::variant>;

  // Both low bits: the node is an array.
  static constexpr unsigned array_flags = 3u;
  // The node's value names another key.
  static constexpr unsigned indirect_flag = 4u;

  // True when both array bits are set in `flags`.
  static bool is_array(unsigned flags) { return (flags & array_flags) == array_flags; }

  // The node stored under the key, or null. The pointer stays valid until the tree changes.
  const node_t* get_node(const std::string& key) const;

  // Stores (replacing) the node under the key. A node that stops being an array forgets its
  // element list; the element nodes themselves stay as ordinary keys. A node that becomes an
  // array takes the nodes directly below it as its elements (numbered ones in number order
  // first), and a node stored directly below an array is appended to its elements.
  void set_node(const std::string& key, const types::variant& value, unsigned flags);

  // Replaces the array under the key: the element nodes of a previous array there are erased,
  // the array node (value: the element count) and one node per element are stored. An element
  // with an empty name is stored under its position ("<key>.0", "<key>.1", ...).
  void set_array(const std::string& key,
                 const std::vector<std::pair<std::string, types::variant>>& elements);

  // Appends the elements of the array under the key (element names, flags and values, in
  // array order) to `out`; false, with `out` untouched, when the key holds no array.
  bool get_array(const std::string& key,
                 std::vector<std::pair<strings::ustring8, node_t>>& out) const;
  // The same without the flags.
  bool get_value_pair_array(const std::string& key,
                            std::vector<std::pair<strings::ustring8, types::variant>>& out) const;

  //@{
  // Erases the node under the key and every node below it ("<key>.<anything>"); clear()
  // erases every node.
  void erase(const std::string& key);
  void clear();
  //@}
  // Prepares room for `count` nodes in all.
  void reserve(std::size_t count);
  //@{
  // Whether there is no node, and the number of nodes.
  bool empty() const { return m_nodes.empty(); }
  std::size_t size() const { return m_nodes.size(); }
  //@}

  // Splits a dotted key at its first dot: "a.b.c" gives "a" and "b.c"; true when a dot was
  // found (otherwise head is the whole key and rest is empty).
  static bool parse_string(const std::string& key, strings::ustring8& head,
                           strings::ustring8& rest);

  // Calls f(key, node, element_names) for every node in tree order (piece by piece, each node
  // followed by the nodes below it); element_names is empty for nodes that are not arrays.
  void visit(const std::function<void(const std::string&, const node_t&,
                                      const std::vector<std::string>&)>& f) const;

  // Writes one line per node in tree order: `|---------------\`, then
  // `<key><mark>|\t\t<value>` with the mark "[]" for arrays (value: element count) and "?" for
  // indirections, then "end".
  void dump(std::ostream& out) const;

 private:
  using index_t = std::uint32_t;
  // The indexes of the nodes in key order, for output.
  std::vector<index_t> sorted() const;
  // Appends the key to the elements of its parent when the parent is an array.
  void note_in_parent(std::string_view key);
  // Makes the nodes directly below the node at `array` its elements.
  void adopt_children(index_t array);
  // Appends the elements of the array under the key to `out`, made by make(name, node).
  template <class Out, class Make>
  bool collect_elements(const std::string& key, Out& out, Make make) const;

  _private::node_table m_nodes;
};

}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_CONFIG_TREE_HPP
