# Debian packages, one per install component (cpack -G DEB in a build configured with the
# "package" preset, which installs to /usr):
#   libmota2.18  runtime  the shared library, named after its SONAME
#   libmota-dev  dev      headers, CMake package, pkg-config file, the .so link
#   mota-tools   tools    the mota command, its manual page and bash completion
set(MOTA_PACKAGE_MAINTAINER "mota developers <mota-dev@lists.mota.dev>"
    CACHE STRING "Maintainer field of the Debian packages")
set(MOTA_PACKAGE_REVISION "1" CACHE STRING "Debian revision of the packages")
option(MOTA_INSTALL_DEBIAN_DOCS "Install the copyright file and changelog Debian packages carry" OFF)

set(_mota_soname_version "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(_mota_deb_version "${PROJECT_VERSION}-${MOTA_PACKAGE_REVISION}")
set(MOTA_RUNTIME_PACKAGE "libmota${_mota_soname_version}")

# Debian wants a copyright file and a changelog in /usr/share/doc/<package>/ of each package.
# The changelog's date is the build's, or SOURCE_DATE_EPOCH's for a reproducible build.
string(TIMESTAMP MOTA_PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(_mota_deb_docs "${PROJECT_BINARY_DIR}/debian")
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/copyright" "${_mota_deb_docs}/copyright" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in" "${_mota_deb_docs}/changelog.Debian"
               @ONLY)
execute_process(COMMAND gzip -9nf "${_mota_deb_docs}/changelog.Debian" COMMAND_ERROR_IS_FATAL ANY)
if(MOTA_INSTALL_DEBIAN_DOCS)
  foreach(_pair "runtime;${MOTA_RUNTIME_PACKAGE}" "dev;libmota-dev" "tools;mota-tools")
    list(GET _pair 0 _component)
    list(GET _pair 1 _package)
    install(FILES "${_mota_deb_docs}/copyright" "${_mota_deb_docs}/changelog.Debian.gz"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${_package}" COMPONENT ${_component})
  endforeach()
endif()

# Debian wants manual pages compressed; whatever the tool installs under man/ is gzipped here,
# after it has been installed.
install(CODE "
  file(GLOB_RECURSE _pages \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/*\")
  foreach(_page IN LISTS _pages)
    if(NOT _page MATCHES \"[.]gz\$\")
      execute_process(COMMAND gzip -9nf \"\${_page}\" COMMAND_ERROR_IS_FATAL ANY)
    endif()
  endforeach()" COMPONENT tools)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME mota)
set(CPACK_PACKAGE_VENDOR "mota")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${MOTA_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE "${MOTA_PACKAGE_REVISION}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${MOTA_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The packages' binaries get their dependencies from dpkg-shlibdeps; the library's own is
# named explicitly, since it is not installed while they are built.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${MOTA_RUNTIME_PACKAGE}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"C++17 foundation library for Linux applications
mota gives applications Unicode strings in UTF-8, UTF-16 and UTF-32 with
conversions between them, text and number conversion, a dynamically typed
variant, an XML scanner, message catalogs loaded by locale from XMC files,
layered configuration from files, command line and environment,
serialization buffers, file utilities, dates and durations.

This package contains the shared library.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libmota-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${MOTA_RUNTIME_PACKAGE} (= ${_mota_deb_version})")
set(CPACK_COMPONENT_DEV_DESCRIPTION
"C++17 foundation library for Linux applications - development files
mota gives applications Unicode strings, conversions, a variant type, an XML
scanner, message catalogs, layered configuration, serialization buffers,
file utilities, dates and durations.

This package contains the headers, the CMake package (find_package(mota))
and the pkg-config file (mota.pc).")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME mota-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${MOTA_RUNTIME_PACKAGE} (= ${_mota_deb_version})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
"command-line tool of the mota library
The mota command loads message catalogs (XMC files) for a locale, lists
and renders their messages, looks up configuration keys from a file, the
command line and the environment, converts text between code pages and
checks XML files, all the way applications built on the mota library do.")

# Each package's synopsis is the first line of its own description: CPack puts the summary in
# front of every description unless it is left at its default.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_PROJECT_NAME} built using CMake")

include(CPack)
