// The command-line item over argument vectors split from the input at NUL and line feed bytes,
// then every stored key looked up as an indirection through a manager.
#include <mota/config/commandline_item.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/user_item.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

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

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Unknown arguments are reported on standard output; keep the fuzzer's output readable.
  if (std::freopen("/dev/null", "w", stdout) == nullptr) return 0;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> pieces(1);
  for (std::size_t i = 0; i < size; ++i) {
    const char c = static_cast<char>(data[i]);
    if (c == '\0' || c == '\n')
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  std::vector<const char*> argv;
  for (const std::string& piece : pieces)
    argv.push_back(piece.c_str());
  argv.push_back(nullptr);

  mota::config::commandline_item item(static_cast<unsigned>(pieces.size()), argv.data());
  item.load();

  mota::config::user_item links;
  std::vector<std::string> keys;
  item.get_tree().visit([&](const std::string& key, const mota::config::config_tree::node_t& node,
                            const std::vector<std::string>&) {
    keys.push_back(key);
    const bool array = mota::config::config_tree::is_array(node.first);
    links.set(key, node.second, array ? node.first : mota::config::config_tree::indirect_flag);
  });
  mota::config::config_manager manager;
  manager.init(copy_dispatch(links));
  for (const std::string& key : keys)
    (void)manager.get_value(key);
  return 0;
}
