# The peer benchmark (bench/peers): ZARODatos beside SOCI and Qt SQL. Built
# only when the peers are installed (bench/peers/install.sh installs them);
# nothing else of the project needs them.
find_path(ZARO_SOCI_INCLUDE soci/mysql/soci-mysql.h)
find_library(ZARO_SOCI_CORE soci_core)
find_library(ZARO_SOCI_MYSQL soci_mysql)
find_path(ZARO_MARIADB_CLIENT_INCLUDE mysql.h PATH_SUFFIXES mariadb NO_CMAKE_PATH)
find_library(ZARO_MARIADB_CLIENT mariadb)
find_package(Qt6 QUIET COMPONENTS Core Sql)
find_file(ZARO_QT_MYSQL_DRIVER libqsqlmysql.so
  PATHS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/qt6/plugins/sqldrivers ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}/sqldrivers
  NO_DEFAULT_PATH)
mark_as_advanced(ZARO_SOCI_INCLUDE ZARO_SOCI_CORE ZARO_SOCI_MYSQL ZARO_MARIADB_CLIENT_INCLUDE ZARO_MARIADB_CLIENT
  ZARO_QT_MYSQL_DRIVER)

if(ZARO_SOCI_INCLUDE AND ZARO_SOCI_CORE AND ZARO_SOCI_MYSQL AND ZARO_MARIADB_CLIENT_INCLUDE AND ZARO_MARIADB_CLIENT
   AND Qt6Sql_FOUND AND ZARO_QT_MYSQL_DRIVER)
  set(peers ${CMAKE_SOURCE_DIR}/bench/peers)
  # The driver, the ZARODatos contender and the raw C API over the engine library's client.
  add_executable(bench_peers ${peers}/bench_peers.cpp)
  target_include_directories(bench_peers PRIVATE ${CMAKE_SOURCE_DIR}/bench ${peers})
  target_include_directories(bench_peers SYSTEM PRIVATE ${MARIADBD_INCLUDE})
  target_compile_definitions(bench_peers PRIVATE EMBEDDED_LIBRARY)
  target_link_libraries(bench_peers PRIVATE zaro_server_fixture ZARODatos ${MARIADBD_LIB} Threads::Threads)
  # Each peer in a program of its own: they link MariaDB Connector/C, whose C
  # functions have the same names as the engine library's.
  add_executable(bench_peer_soci ${peers}/peer_soci.cpp)
  target_include_directories(bench_peer_soci SYSTEM PRIVATE ${ZARO_SOCI_INCLUDE} ${ZARO_MARIADB_CLIENT_INCLUDE})
  target_link_libraries(bench_peer_soci PRIVATE ${ZARO_SOCI_MYSQL} ${ZARO_SOCI_CORE} ${ZARO_MARIADB_CLIENT})
  add_executable(bench_peer_qt ${peers}/peer_qt.cpp)
  target_link_libraries(bench_peer_qt PRIVATE Qt6::Core Qt6::Sql)
  add_executable(bench_peer_rawc ${peers}/peer_rawc.cpp)
  target_include_directories(bench_peer_rawc SYSTEM PRIVATE ${ZARO_MARIADB_CLIENT_INCLUDE})
  target_link_libraries(bench_peer_rawc PRIVATE ${ZARO_MARIADB_CLIENT})
  foreach(t bench_peers bench_peer_soci bench_peer_qt bench_peer_rawc)
    target_compile_options(${t} PRIVATE ${ZARO_WARNINGS})
  endforeach()
  message(STATUS "Peer benchmark: bench_peers (SOCI, Qt SQL's MySQL driver and Connector/C found)")
else()
  message(STATUS "Peer benchmark: not built (run bench/peers/install.sh to install SOCI and Qt SQL's MySQL driver)")
endif()
