// The library's version, defined once: the build reads these three numbers for the
// shared library's version and SONAME and for the installed package files.
#ifndef MOTA_VERSION_HPP
#define MOTA_VERSION_HPP

//@{
// The major, minor and patch numbers of this version of the library (major.minor names the
// ABI: the SONAME and the MOTA_2_18 namespace).
#define MOTA_VERSION_MAJOR 2
#define MOTA_VERSION_MINOR 18
#define MOTA_VERSION_PATCH 0
//@}

#endif  // MOTA_VERSION_HPP
