// The command-line item.
//
// An input that does not start with a NUL byte is split into arguments at NUL and line feed
// bytes; the item must load them without failing, and every stored key is then looked up as
// an indirection through a manager.
//
// An input that starts with a NUL byte makes arguments of the plain form "-key=value" (also
// "/key", ":" and ":="): distinct keys of letters, digits and underscores, values of any bytes
// but NUL. A reader written here from the documented rules says what the item must hold: a
// value with a "," is an array of its non-empty pieces, any other value is stored as it is.
#include <mota/config/commandline_item.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/user_item.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_support.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using mota::config::config_tree;
using mota::strings::ustring8;

class copy_dispatch : public mota::config::config_dispatch {
 public:
  explicit copy_dispatch(const mota::config::base_config_item& item) : m_item(item) {}
  void setup(item_list& items) override { append(items, m_item.clone()); }
  void load(item_list&) override {}
  void unload(item_list&) override {}
  void save(item_list&) override {}
  copy_dispatch* clone() const override { return new copy_dispatch(*this); }

 private:
  const mota::config::base_config_item& m_item;
};

// An argument vector over the arguments and the item loaded from it.
struct command_line {
  std::vector<const char*> argv;
  mota::config::commandline_item item;

  explicit command_line(const std::vector<std::string>& arguments)
      : argv(mota_fuzz::c_strings(arguments)),
        item(static_cast<unsigned>(arguments.size()), argv.data()) {
    item.load();
  }
};

void arbitrary(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> pieces = mota_fuzz::split_lines(data, size);
  const command_line line(pieces);
  const mota::config::commandline_item& item = line.item;

  mota::config::user_item links;
  std::vector<std::string> keys;
  item.get_tree().visit([&](const std::string& key, const config_tree::node_t& node,
                            const std::vector<std::string>&) {
    keys.push_back(key);
    const bool array = config_tree::is_array(node.first);
    links.set(key, node.second, array ? node.first : config_tree::indirect_flag);
  });
  mota::config::config_manager manager;
  manager.init(copy_dispatch(links));
  for (const std::string& key : keys)
    (void)manager.get_value(key);
}

// The expectation for one key: a scalar text, or the pieces of an array.
struct expected {
  bool array;
  std::string text;
  std::vector<std::string> elements;
};

void plain(FuzzedDataProvider& input) {
  std::vector<std::string> arguments{"prog"};
  std::map<std::string, expected> want;
  const std::size_t count = input.ConsumeIntegralInRange<std::size_t>(0, 12);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string key = mota_fuzz::consume_word(input, 12);
    const std::string value = mota_fuzz::consume_text(input, 40);
    if (key.empty() || want.count(key) != 0) continue;

    // "==" is an operator of its own and ":" before "=" makes ":=": a value starting with "="
    // takes ":=" before it.
    static const char* const separators[] = {"=", ":", ":="};
    const char* separator = separators[input.ConsumeIntegralInRange<int>(0, 2)];
    if (!value.empty() && value[0] == '=') separator = ":=";
    arguments.push_back((input.ConsumeBool() ? "-" : "/") + key + separator + value);

    expected& e = want[key];
    e.array = value.find(',') != std::string::npos;
    if (!e.array) {
      e.text = value;
      continue;
    }
    std::size_t begin = 0;
    for (;;) {
      const std::size_t comma = value.find(',', begin);
      const std::string piece = value.substr(begin, comma - begin);
      if (!piece.empty()) e.elements.push_back(piece);
      if (comma == std::string::npos) break;
      begin = comma + 1;
    }
  }

  const command_line line(arguments);
  const mota::config::commandline_item& item = line.item;
  // "application.name" and "application.name.raw", both "prog"; no extension.
  std::size_t nodes = 2;
  for (const char* key : {"application.name", "application.name.raw"}) {
    const config_tree::node_t* node = item.get_value(key);
    if (node == nullptr || node->second.as_string() != "prog") std::abort();
  }
  for (const auto& [key, e] : want) {
    const config_tree::node_t* node = item.get_value(ustring8(key));
    if (node == nullptr || config_tree::is_array(node->first) != e.array) std::abort();
    ++nodes;
    if (!e.array) {
      if (node->first != 0 || node->second.as_string() != e.text) std::abort();
      continue;
    }
    std::vector<std::pair<ustring8, mota::types::variant>> elements;
    if (!item.get_value_pair_array(ustring8(key), elements)) std::abort();
    if (elements.size() != e.elements.size()) std::abort();
    for (std::size_t i = 0; i < elements.size(); ++i)
      if (elements[i].first != std::to_string(i) || elements[i].second.as_string() != e.elements[i])
        std::abort();
    nodes += elements.size();
  }
  if (item.get_tree().size() != nodes) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Unknown arguments are reported on standard output; keep the fuzzer's output readable.
  if (std::freopen("/dev/null", "w", stdout) == nullptr) return 0;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size != 0 && data[0] == 0) {
    FuzzedDataProvider input(data + 1, size - 1);
    plain(input);
  } else {
    arbitrary(data, size);
  }
  return 0;
}
