# Toolchain file for 32-bit x86 on an x86_64 Debian host (g++-multilib).
# Boost's i386 development package does not co-install with the native one, so the regular
# Boost headers are used with the i386 runtime library; GoogleTest is built from its sources.
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT "-m32")
set(CMAKE_CXX_FLAGS_INIT "-m32")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(CMAKE_IGNORE_PREFIX_PATH /usr/lib/x86_64-linux-gnu)

set(MOTA_BOOST_FILESYSTEM_LIBRARY /usr/lib/i386-linux-gnu/libboost_filesystem.so.1.74.0
    CACHE FILEPATH "Boost.Filesystem runtime library to link")
set(MOTA_GTEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest sources to build")
