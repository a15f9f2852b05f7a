# What `cmake --install` puts where, in three components that become the
# three Debian packages:
#   runtime  the shared library (libZARODatos.so.1 and the file it names);
#   dev      the public headers, the link name libZARODatos.so, the CMake
#            package (ZARODatosConfig.cmake, ZARODatosConfigVersion.cmake, the
#            exported target ZARODatos::ZARODatos) and zarodatos.pc;
#   tool     zaro, its sample trading day and its manual page.
# Every header under include/ZARODatos and the umbrella header are public;
# the headers under src/ (and mysql.h) stay inside the build.
include(CMakePackageConfigHelpers)

set(ZARO_CMAKE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZARODatos)

install(TARGETS ZARODatos EXPORT ZARODatosTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)
install(FILES ${CMAKE_SOURCE_DIR}/include/ZARODatos.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/ZARODatos DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev
  FILES_MATCHING PATTERN "*.h")

# The CMake package: find_package(ZARODatos 1) takes any 1.x.y.
install(EXPORT ZARODatosTargets NAMESPACE ZARODatos:: DESTINATION ${ZARO_CMAKE_PACKAGE_DIR} COMPONENT dev)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/ZARODatosConfig.cmake.in
  ${CMAKE_BINARY_DIR}/ZARODatosConfig.cmake INSTALL_DESTINATION ${ZARO_CMAKE_PACKAGE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/ZARODatosConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/ZARODatosConfig.cmake ${CMAKE_BINARY_DIR}/ZARODatosConfigVersion.cmake
  ${CMAKE_SOURCE_DIR}/cmake/FindMariaDBEmbedded.cmake
  DESTINATION ${ZARO_CMAKE_PACKAGE_DIR} COMPONENT dev)

# zarodatos.pc finds its prefix from its own folder, as the CMake package does.
file(RELATIVE_PATH ZARO_PC_PREFIX_FROM_PCDIR ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" ZARO_PC_PREFIX_FROM_PCDIR "${ZARO_PC_PREFIX_FROM_PCDIR}")
configure_file(${CMAKE_SOURCE_DIR}/cmake/zarodatos.pc.in ${CMAKE_BINARY_DIR}/zarodatos.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/zarodatos.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

if(TARGET zaro)
  # The installed zaro finds the library beside it, wherever the tree is.
  file(RELATIVE_PATH zaro_lib_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(zaro PROPERTIES INSTALL_RPATH "$ORIGIN/${zaro_lib_from_bin}")
  install(TARGETS zaro RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/tools/zaro/sample/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zaro/sample
    COMPONENT tool FILES_MATCHING PATTERN "*.txt")

  # The manual page, made from the tool's own help. The leak checker of a
  # sanitizer build has no say over a help text.
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/zaro.1
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
      ${CMAKE_COMMAND} -DZARO=$<TARGET_FILE:zaro> -DVERSION=${PROJECT_VERSION}
      -DSAMPLE=${CMAKE_INSTALL_DATADIR}/zaro/sample -DOUT=${CMAKE_BINARY_DIR}/zaro.1
      -P ${CMAKE_SOURCE_DIR}/cmake/ZaroManPage.cmake
    DEPENDS zaro ${CMAKE_SOURCE_DIR}/cmake/ZaroManPage.cmake
    COMMENT "Making the manual page zaro.1 from zaro --help" VERBATIM)
  add_custom_target(zaro_manpage ALL DEPENDS ${CMAKE_BINARY_DIR}/zaro.1)
  install(FILES ${CMAKE_BINARY_DIR}/zaro.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
endif()
