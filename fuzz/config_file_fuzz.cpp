// The configuration file reader and writer.
//
// An input that does not start with a NUL byte is a file text: it is parsed, written and
// parsed again, and the second tree must equal the first key by key (flags, value texts,
// element lists); writing that tree must give the same text again. Every parsed key is then
// looked up through a manager after turning each value into an indirection, so chains and
// cycles of any shape and length are walked.
//
// An input that starts with a NUL byte builds an item from arbitrary keys and values (any
// bytes, quotes and line ends included) and an array; after writing and parsing, every key
// must come back with the text the writer documents, and no other key may appear.
#include <mota/config/_private/file_writer.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/user_item.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using mota::config::config_tree;
using mota::config::file_item;
using mota::config::_private::carriable;
using mota::config::_private::write_config_text;
using mota::strings::ustring8;
using mota::types::variant;

class copy_dispatch : public mota::config::config_dispatch {
 public:
  explicit copy_dispatch(const mota::config::base_config_item& item) : m_item(item) {}
  void setup(item_list& items) override {
    append(items, m_item.clone());
    append(items, m_item.clone());
  }
  void load(item_list& items) override { load_each(items); }
  void unload(item_list& items) override { unload_each(items); }
  void save(item_list&) override {}
  copy_dispatch* clone() const override { return new copy_dispatch(*this); }

 private:
  const mota::config::base_config_item& m_item;
};

// One node as the comparison sees it: key, flags, value text, element names.
using node_view = std::tuple<std::string, unsigned, std::string, std::vector<std::string>>;

std::vector<node_view> nodes(const config_tree& tree) {
  std::vector<node_view> out;
  tree.visit([&](const std::string& key, const config_tree::node_t& node,
                 const std::vector<std::string>& elements) {
    out.emplace_back(key, node.first, node.second.as_string(), elements);
  });
  return out;
}

file_item parsed(const std::string& text) {
  file_item item("");
  item.parse(ustring8(text));
  return item;
}

void file_text(const std::string& text) {
  const file_item first = parsed(text);
  const std::string written = write_config_text(first.get_tree());
  const file_item second = parsed(written);
  if (nodes(first.get_tree()) != nodes(second.get_tree())) std::abort();
  if (write_config_text(second.get_tree()) != written) std::abort();

  // Every scalar becomes an indirection to the key its text names.
  mota::config::user_item links;
  std::vector<std::string> keys;
  first.get_tree().visit([&](const std::string& key, const config_tree::node_t& node,
                             const std::vector<std::string>&) {
    keys.push_back(key);
    const bool array = config_tree::is_array(node.first);
    links.set(key, node.second, array ? node.first : config_tree::indirect_flag);
  });
  mota::config::config_manager manager;
  manager.init(copy_dispatch(links));
  for (const std::string& key : keys) {
    (void)manager.get_value(key);
    (void)manager.value_exist(key);
  }
}

bool ends_with_brackets(const std::string& key) {
  return key.size() >= 2 && key.compare(key.size() - 2, 2, "[]") == 0;
}

void set_values(FuzzedDataProvider& input) {
  // Keys start with "s", the array's with "r", so no key lands below the array. Keys are made
  // carriable first, so two of them cannot meet after writing.
  std::map<std::string, std::string> want;
  file_item item("");
  const std::size_t count = input.ConsumeIntegralInRange<std::size_t>(0, 16);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string key = "s" + carriable(input.ConsumeRandomLengthString(64));
    const std::string value = input.ConsumeRandomLengthString(64);
    item.set(ustring8(key), variant(ustring8(value)), input.ConsumeIntegral<std::uint8_t>() & 4u);
    if (value.empty() || ends_with_brackets(key))
      want.erase(key);
    else
      want[key] = carriable(value);
  }
  const std::string array = "r" + carriable(input.ConsumeRandomLengthString(32));
  mota::generic::varg_list elements;
  // Empty elements are not written; the others keep their keys ("<array>.<position>").
  std::vector<std::pair<std::string, std::string>> element_texts;
  const std::size_t length = input.ConsumeIntegralInRange<std::size_t>(0, 8);
  for (std::size_t i = 0; i < length; ++i) {
    const std::string value = input.ConsumeRandomLengthString(32);
    elements.push_back(mota::generic::argument(variant(ustring8(value))));
    if (!value.empty()) element_texts.emplace_back(std::to_string(i), carriable(value));
  }
  item.set_array(ustring8(array), mota::generic::varg_list(), elements);

  const file_item back = parsed(write_config_text(item.get_tree()));
  std::size_t found = 0;
  for (const auto& [key, value] : want) {
    const config_tree::node_t* node = back.get_value(ustring8(key));
    if (node == nullptr || node->first != 0 || node->second.as_string() != value) std::abort();
    ++found;
  }
  std::vector<std::pair<ustring8, variant>> read;
  if (!back.get_value_pair_array(ustring8(array), read)) std::abort();
  if (read.size() != element_texts.size()) std::abort();
  for (std::size_t i = 0; i < read.size(); ++i)
    if (read[i].first != element_texts[i].first ||
        read[i].second.as_string() != element_texts[i].second)
      std::abort();
  if (back.get_tree().size() != found + 1 + read.size()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size != 0 && data[0] == 0) {
    FuzzedDataProvider input(data + 1, size - 1);
    set_values(input);
  } else {
    file_text(std::string(reinterpret_cast<const char*>(data), size));
  }
  return 0;
}
