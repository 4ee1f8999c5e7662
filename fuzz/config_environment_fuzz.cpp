// The environment item.
//
// An input that does not start with a NUL byte is split into entries at NUL and line feed
// bytes; the item must hold, for each key, the value of the last entry that the item's own
// splitter gives that key.
//
// An input that starts with a NUL byte makes entries "KEY=VALUE" of the plain form: keys of
// letters, digits and underscores, values of any bytes but NUL that do not start with "="
// (which would make "==", an operator of its own). Split at the first "=", the last entry
// of a key wins: the item must hold exactly that.
#include <mota/config/enviroment_item.hpp>

#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz_support.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

using mota::config::config_tree;
using mota::strings::ustring8;

// An environment vector over the entries and the item loaded from it.
struct environment {
  std::vector<const char*> envp;
  mota::config::enviroment_item item;

  explicit environment(const std::vector<std::string>& entries)
      : envp(mota_fuzz::c_strings(entries)), item(envp.data()) {
    item.load();
  }
};

// Any entries: each one is split where the item's own splitter says, and the last entry of a
// key must give the key's value.
void arbitrary(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> entries = mota_fuzz::split_lines(data, size);
  const environment env(entries);
  std::map<std::string, std::string> want;
  for (const std::string& entry : entries) {
    const auto kv = mota::config::base_config_item::make_key_value(
        ustring8(entry), mota::config::config_token::T_EQ);
    if (!kv.first.empty()) want[kv.first] = kv.second;
  }
  for (const auto& [key, value] : want) {
    const config_tree::node_t* node = env.item.get_value(ustring8(key));
    if (node == nullptr || node->first != 0 || node->second.as_string() != value) std::abort();
  }
  if (env.item.get_tree().size() != want.size()) std::abort();
}

void plain(FuzzedDataProvider& input) {
  std::vector<std::string> entries;
  std::map<std::string, std::string> want;
  const std::size_t count = input.ConsumeIntegralInRange<std::size_t>(0, 16);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string key = mota_fuzz::consume_word(input, 12);
    const std::string value = mota_fuzz::consume_text(input, 40);
    if (key.empty() || (!value.empty() && value[0] == '=')) continue;
    const std::string entry = key + "=" + value;
    entries.push_back(entry);
    const std::size_t equals = entry.find('=');
    want[entry.substr(0, equals)] = entry.substr(equals + 1);
  }

  const environment env(entries);
  for (const auto& [key, value] : want) {
    const config_tree::node_t* node = env.item.get_value(ustring8(key));
    if (node == nullptr || node->first != 0 || node->second.as_string() != value) std::abort();
  }
  if (env.item.get_tree().size() != want.size()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size != 0 && data[0] == 0) {
    FuzzedDataProvider input(data + 1, size - 1);
    plain(input);
  } else {
    arbitrary(data, size);
  }
  return 0;
}
