# FindMariaDBEmbedded: the embedded MariaDB server library (libmariadbd, Debian
# package libmariadbd-dev). It runs a server inside the process and also
# reaches a remote server.
#
# Gives the imported target MariaDB::Embedded (the library, its headers in
# .../mariadb/server, and the definition EMBEDDED_LIBRARY that its mysql.h
# wants), and the variables MARIADBD_LIB and MARIADBD_INCLUDE.
#
# ZARODatos uses it to build, and its installed CMake package uses it to hand
# the library on as a link dependency of ZARODatos::ZARODatos.
include(FindPackageHandleStandardArgs)

find_library(MARIADBD_LIB NAMES mariadbd)
find_path(MARIADBD_INCLUDE NAMES mysql.h PATH_SUFFIXES mariadb/server)
find_package_handle_standard_args(MariaDBEmbedded REQUIRED_VARS MARIADBD_LIB MARIADBD_INCLUDE)

if(MariaDBEmbedded_FOUND AND NOT TARGET MariaDB::Embedded)
  add_library(MariaDB::Embedded UNKNOWN IMPORTED)
  set_target_properties(MariaDB::Embedded PROPERTIES
    IMPORTED_LOCATION "${MARIADBD_LIB}"
    INTERFACE_INCLUDE_DIRECTORIES "${MARIADBD_INCLUDE}"
    INTERFACE_COMPILE_DEFINITIONS EMBEDDED_LIBRARY)
endif()
mark_as_advanced(MARIADBD_LIB MARIADBD_INCLUDE)
