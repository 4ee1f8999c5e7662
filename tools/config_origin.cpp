#include "config_origin.hpp"

#include "text_output.hpp"

#include <mota/config/file_item.hpp>
#include <mota/system/file_utility.hpp>

namespace mota_tool {

std::string origin_namer::name(const mota::config::base_config_item& item, const std::string& key) {
  const auto* file = dynamic_cast<const mota::config::file_item*>(&item);
  if (file == nullptr) {
    const std::string& id = item.get_id();
    return id == "enviroment" ? std::string("environment") : printable(id);
  }
  if (!m_file) {
    mota::strings::ustring8 text;
    if (mota::system::load_file(file->get_filename(), text) != 0) text.clear();
    m_file.reset(new mota::config::config_file_check(text));
  }
  // An element of an array has the line of its array.
  std::string lookup = key;
  unsigned line = m_file->line_of(lookup);
  while (line == 0 && lookup.rfind('.') != std::string::npos) {
    lookup.erase(lookup.rfind('.'));
    line = m_file->line_of(lookup);
  }
  return "file:" + printable(file->get_filename()) + ":" + std::to_string(line);
}

std::string origin_namer::name(const mota::config::value_origin& origin) {
  if (!origin.item) return "not set";
  std::string text = name(*origin.item, origin.chain.back());
  if (origin.chain.size() > 1) {
    std::string via;
    for (const mota::strings::ustring8& key : origin.chain)
      via += (via.empty() ? "" : " -> ") + printable(key);
    text += " (via " + via + ")";
  }
  return text;
}

}  // namespace mota_tool
