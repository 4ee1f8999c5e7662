#include <mota/strings/gh2/streams.hpp>

#include <iostream>

namespace MOTA_2_18 {
namespace strings {
namespace gh2 {

// Binding a reference to a standard stream is constant initialisation, so the references are
// usable from any static initialiser, like the streams themselves.
std::istream& ucin = std::cin;
std::ostream& ucout = std::cout;
std::ostream& ucerr = std::cerr;

}  // namespace gh2
}  // namespace strings
}  // namespace MOTA_2_18
