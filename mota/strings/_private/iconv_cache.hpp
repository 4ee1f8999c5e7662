// Not part of the public interface.
//
// iconv descriptors kept open per thread. Opening a descriptor loads and sets up the converter,
// which costs far more than converting a short string; code_page asks this cache instead and
// resets the descriptor's state before each conversion. Every thread has its own descriptors,
// so two threads never share one; they are closed when the thread ends (errors from that
// close are not reported: nobody is left to receive them).
#ifndef MOTA_STRINGS_PRIVATE_ICONV_CACHE_HPP
#define MOTA_STRINGS_PRIVATE_ICONV_CACHE_HPP

#include <iconv.h>

namespace MOTA_2_18 {
namespace strings {
namespace _private {

// A descriptor converting from the set `from` to the set `to`, opened on the first request in
// this thread. A non-zero `key` stands for the pair of names wherever it is used (the names of a
// fixed code page never change), so that a look-up compares one number; 0 makes the look-up
// compare the names, for sets whose name may change between calls. Throws exceptions::runtime_error
// "convertions not supported" when iconv knows no such conversion (EINVAL) and "Unknown failure on
// iconv open" for any other failure to open, in the name of `function`.
iconv_t cached_iconv(unsigned int key, const char* to, const char* from, const char* function);

}  // namespace _private
}  // namespace strings
}  // namespace MOTA_2_18

#endif  // MOTA_STRINGS_PRIVATE_ICONV_CACHE_HPP
