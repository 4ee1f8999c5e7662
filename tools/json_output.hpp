// JSON text for the --json output of the check commands.
#ifndef MOTA_TOOLS_JSON_OUTPUT_HPP
#define MOTA_TOOLS_JSON_OUTPUT_HPP

#include <string>
#include <vector>

namespace mota_tool {

// `raw` as a JSON string with its quotes. The text is made printable first (see
// text_output.hpp), so a byte that is not UTF-8 shows as the four characters \xNN.
std::string json_string(const std::string& raw);

// The strings as a JSON array on one line.
std::string json_strings(const std::vector<std::string>& texts);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_JSON_OUTPUT_HPP
