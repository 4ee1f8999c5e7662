// The configuration file parser over arbitrary bytes, then every parsed key looked up through
// a manager after turning each value into an indirection, so chains and cycles of any shape
// and length are walked.
#include <mota/config/config_manager.hpp>
#include <mota/config/file_item.hpp>
#include <mota/config/user_item.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const mota::strings::ustring8 text(reinterpret_cast<const char*>(data), size);
  mota::config::file_item file("");
  file.parse(text);

  // Every scalar becomes an indirection to the key its text names.
  mota::config::user_item links;
  std::vector<std::string> keys;
  file.get_tree().visit([&](const std::string& key, const mota::config::config_tree::node_t& node,
                            const std::vector<std::string>&) {
    keys.push_back(key);
    const bool array = mota::config::config_tree::is_array(node.first);
    links.set(key, node.second, array ? node.first : mota::config::config_tree::indirect_flag);
  });
  mota::config::config_manager manager;
  manager.init(copy_dispatch(links));
  for (const std::string& key : keys) {
    (void)manager.get_value(key);
    (void)manager.value_exist(key);
  }
  return 0;
}
