// Names the source of a configuration value for --show-origin: "command line",
// "file:PATH:LINE", "environment", with " (via A -> B)" when indirections led there.
#ifndef MOTA_TOOLS_CONFIG_ORIGIN_HPP
#define MOTA_TOOLS_CONFIG_ORIGIN_HPP

#include <mota/config/config_file_check.hpp>
#include <mota/config/config_manager.hpp>
#include <mota/config/value_origin.hpp>

#include <memory>
#include <string>

namespace mota_tool {

class origin_namer {
 public:
  // The text of an item's source; a file item's line is that of `key` in the file.
  std::string name(const mota::config::base_config_item& item, const std::string& key);
  // The source of a lookup with its chain of keys; "not set" when nothing answered.
  std::string name(const mota::config::value_origin& origin);

 private:
  std::unique_ptr<mota::config::config_file_check> m_file;  // read on first use
};

}  // namespace mota_tool

#endif  // MOTA_TOOLS_CONFIG_ORIGIN_HPP
