// The two database roads of the tests: the embedded database and a real
// MariaDB server, both started once per test program, on first use.
//
//   INSTANTIATE_TEST_SUITE_P(Roads, MySuite, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);
//   auto cn = zaro_test::OpenRoad(GetParam());   // an open connection on the road's database
//   zaro_test::DropAllTables(*cn);               // a clean database
//   size_t mark = zaro_test::GeneralLogMark(GetParam());
//   ... // statements
//   auto sent = zaro_test::GeneralLogSince(GetParam(), mark);
//
// Both roads use the database "zaro_test". The embedded road runs on a new
// data folder in a temp folder of the test program; the server road on a
// mariadbd started by MariaDbServer. Both keep a general query log, so the
// exact text of the statements can be asserted. Temp folders are removed when
// the program ends.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/ADODB.h"

namespace zaro_test {

class MariaDbServer;

struct Road {
    std::string name;              // "embedded" or "server"
    std::string connectionString;  // opens the road's test database
};
// A road in a test's name and messages: its name.
inline void PrintTo(const Road& road, std::ostream* os) { *os << road.name; }

std::vector<Road> AllRoads();
// Why the embedded road can not run in this build, or empty when it can.
// Under ThreadSanitizer the in-process engine does not start: it makes a new
// data folder in a forked child, which the sanitizer does not carry on.
std::string EmbeddedRoadSkipReason();
std::string RoadName(const ::testing::TestParamInfo<Road>& info);
// An open connection on the road's test database (starts the road's server on first use).
std::shared_ptr<OVT_ZARO::ADODB::Connection> OpenRoad(const Road& road);
// Drops every table and view of the connection's database.
void DropAllTables(OVT_ZARO::ADODB::Connection& cn);

// The general query log of the road's server: a mark (its length now), and
// the statements received since a mark, in order. A statement is the text of
// a "Query" entry or of an "Execute" entry (a forward-only query runs as a
// prepared statement; its "Prepare" entry is left out).
size_t GeneralLogMark(const Road& road);
std::vector<std::string> GeneralLogSince(const Road& road, size_t mark);
// The same with the "Prepare" entries too: a statement the server refused
// while preparing it appears only there.
std::vector<std::string> GeneralLogWithPreparedSince(const Road& road, size_t mark);

// The test program's temp folder (removed at its end).
const std::string& ProgramTempFolder();
// The shared server of the server road (started on first use).
MariaDbServer& SharedServer();

}  // namespace zaro_test
