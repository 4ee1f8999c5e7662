// JSON text for the --json output of the check commands.
#ifndef MOTA_TOOLS_JSON_OUTPUT_HPP
#define MOTA_TOOLS_JSON_OUTPUT_HPP

#include <string>

namespace mota_tool {

// `text` as a JSON string literal, quotes included. Bytes that are not well-formed UTF-8 are
// first written as \xNN, as printable() does, so the result is always valid JSON.
std::string json_string(const std::string& text);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_JSON_OUTPUT_HPP
