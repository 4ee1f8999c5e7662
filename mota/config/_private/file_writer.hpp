// Not part of the public interface.
//
// The text file_item::save_file writes: a configuration tree in the file syntax that
// file_item::parse reads. The shared library does not export it; the fuzz target that checks
// the round trip in memory links the static archive of the library's objects.
#ifndef MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP
#define MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP

#include <mota/config/config_tree.hpp>

#include <string>

namespace MOTA_2_18 {
namespace config {
namespace _private {

// The tree as configuration file text; file_item::save_file documents what a parse of it
// gives back.
std::string write_config_text(const config_tree& tree);

// The text a key or value can be written as and read back as: the text itself, or, when it
// holds a double quote that no backslash precedes, the text with a backslash put before each
// such quote (a string token can hold a quote only behind a backslash, which it keeps).
std::string carriable(const std::string& text);

}  // namespace _private
}  // namespace config
}  // namespace MOTA_2_18

#endif  // MOTA_CONFIG_PRIVATE_FILE_WRITER_HPP
