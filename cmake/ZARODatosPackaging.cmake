# The Debian packages (cpack -G DEB), one per install component:
#   libzarodatos1     runtime  the shared library
#   libzarodatos-dev  dev      headers, link name, CMake package, zarodatos.pc
#   zaro              tool     the host tool, its sample day, its manual page
# Each description is its summary line, then the long description.
# Depends name the Debian 12 packages of the libraries the binaries need
# (what dpkg-shlibdeps finds for them); the development package also needs
# the development packages of the libraries that hosts link with.
set(CPACK_PACKAGE_NAME ZARODatos)
set(CPACK_PACKAGE_VENDOR "ZARODatos")
set(CPACK_PACKAGE_CONTACT "ZARODatos maintainers <maintainers@users.noreply.c-seed-c7ad9510.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime dev tool)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The runtime package gets a shlibs file (a host built against 1.x needs at
# least that 1.x) and the ldconfig trigger.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(zaro_deb_runtime libzarodatos${PROJECT_VERSION_MAJOR})
set(zaro_deb_cxx "libc6 (>= 2.34), libgcc-s1 (>= 3.0), libstdc++6 (>= 11)")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${zaro_deb_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS
  "libmariadbd19 (>= 1:10.11), libxml2 (>= 2.7.4), libicu72 (>= 72.1~rc-1~), ${zaro_deb_cxx}")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "ZARODatos, the data layer of a restaurant's point of sale: shared library
Typed entities, lists and adapters of the ten sales tables of an airport
restaurant's point of sale and generic entities, over an
embedded MariaDB server or a MariaDB/MySQL server.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libzarodatos-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
  "${zaro_deb_runtime} (= ${PROJECT_VERSION}), libmariadbd-dev, libxml2-dev, libicu-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION
  "ZARODatos, the data layer of a restaurant's point of sale: development files
The C++20 headers (ZARODatos.h and include/ZARODatos), the CMake package
(find_package(ZARODatos), target ZARODatos::ZARODatos) and the pkg-config
file zarodatos.pc.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME zaro)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS "${zaro_deb_runtime} (= ${PROJECT_VERSION}), ${zaro_deb_cxx}")
set(CPACK_COMPONENT_TOOL_DESCRIPTION
  "the sales figures of a restaurant's trading day, over ZARODatos
zaro makes the tables, imports and exports exchange text and XML, queries
and totals them, and records, summarises and reports a sample trading day.")

include(CPack)
