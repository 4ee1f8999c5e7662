// Text from data files made safe for a terminal: the tool writes UTF-8 only.
#ifndef MOTA_TOOLS_TEXT_OUTPUT_HPP
#define MOTA_TOOLS_TEXT_OUTPUT_HPP

#include <string>

namespace mota_tool {

// Returns `text` with every byte that is not part of a well-formed UTF-8 sequence, and every
// control character but line feed and tab, written as \xNN (two upper-case hex digits).
// Well-formed UTF-8 passes unchanged.
std::string printable(const std::string& text);

}  // namespace mota_tool

#endif  // MOTA_TOOLS_TEXT_OUTPUT_HPP
