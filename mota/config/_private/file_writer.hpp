// Not part of the public interface.
//
// The text file_item::save_file writes: a configuration tree in the file syntax that
// file_item::parse reads. Exported for the fuzz targets, which check the round trip in memory.
#ifndef MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP
#define MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP

#include <mota/config/config_tree.hpp>
#include <mota/export.hpp>

#include <string>

namespace MOTA_2_18 {
namespace config {
namespace _private {

// The tree as configuration file text; file_item::save_file documents what a parse of it
// gives back.
MOTA_API std::string write_config_text(const config_tree& tree);

// The text a key or value can be written as and read back as: the text itself, or, when it
// holds a double quote that no backslash precedes, the text with a backslash put before each
// such quote (a string token can hold a quote only behind a backslash, which it keeps).
MOTA_API std::string carriable(const std::string& text);

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP
