// Symbol visibility for the shared library.
//
// The library is built with hidden visibility; every public class and free function is marked
// MOTA_API so that exactly the public interface is exported from libmota.so. Internals in
// `_private` namespaces stay unmarked and therefore invisible to consumers.
//
//   class MOTA_API variant { ... };
//   MOTA_API ustring8 utf16_to_utf8(const ustring16& text);
#ifndef MOTA_EXPORT_HPP
#define MOTA_EXPORT_HPP

#include <mota/version.hpp>

#if defined(__GNUC__) || defined(__clang__)
// Marks a public class or function as exported from the shared library.
#define MOTA_API __attribute__((visibility("default")))
// Keeps a name out of the shared library's exported symbols.
#define MOTA_HIDDEN __attribute__((visibility("hidden")))
#else
#define MOTA_API
#define MOTA_HIDDEN
#endif

// Every public name lives in this versioned namespace; `mota` is a convenience alias.
namespace MOTA_2_18 {}
namespace mota = MOTA_2_18;

#endif  // MOTA_EXPORT_HPP
