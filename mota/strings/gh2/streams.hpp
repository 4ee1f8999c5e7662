// Global narrow streams for UTF-8 text. They are references to the process's standard
// streams (ucin to std::cin, ucout to std::cout, ucerr to std::cerr), so they share their
// state, buffers and synchronisation with C stdio; bytes pass through unchanged.
//
//   mota::strings::gh2::ucout << mota::strings::ustring8("caf\xC3\xA9") << '\n';
#ifndef MOTA_STRINGS_GH2_STREAMS_HPP
#define MOTA_STRINGS_GH2_STREAMS_HPP

#include <mota/export.hpp>

#include <istream>
#include <ostream>

namespace MOTA_2_18 {
namespace strings {
namespace gh2 {

//@{
// std::cin, std::cout and std::cerr under the names UTF-8 text is read and written through.
MOTA_API extern std::istream& ucin;
MOTA_API extern std::ostream& ucout;
MOTA_API extern std::ostream& ucerr;
//@}

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_GH2_STREAMS_HPP
