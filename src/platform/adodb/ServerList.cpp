// A list of servers in the connection string ("Server=h1:p1,h2:p2,..."): the
// session opens on the first of them that takes it, and after a lost server
// on the next one of the list that does (see Session::EnsureConnected).
//
// Each server of the list is tried as a single server is opened: ConnectTimeout
// bounds the wait for it to answer, CommandTimeout its first statements, so
// that a walk of the whole list takes at most the servers times those. A
// server that answers but is a cluster node not ready for statements (its
// wsrep_ready is OFF while wsrep_on is ON) is passed over like one that does
// not answer. When none takes the session, the Error names each server with
// its reason, and carries the number of the last one.
#include <string>

#include "ZARODatos/platform/Error.h"
#include "platform/adodb/Session.h"

namespace OVT_ZARO::ADODB::detail {

namespace {

const char* const kConnSource = "ADODB.Connection";
constexpr int32_t kNodeNotReady = 1047;

// The second column of the first row of a SHOW statement, or empty.
std::string ShowValue(MYSQL* m, const char* sql) {
    if (mysql_query(m, sql)) throw Error(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
    MYSQL_RES* r = mysql_store_result(m);
    if (!r) throw Error(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
    MYSQL_ROW row = mysql_num_fields(r) >= 2 ? mysql_fetch_row(r) : nullptr;
    std::string value = row && row[1] ? row[1] : "";
    mysql_free_result(r);
    return value;
}

}  // namespace

void Session::CheckReady(MYSQL* m) {
    // A server without the cluster's status (another make of server) has no
    // row: it is ready. A server that is not a cluster node says OFF too, so
    // wsrep_on tells the two apart, and is asked only then.
    if (ShowValue(m, "SHOW GLOBAL STATUS LIKE 'wsrep_ready'") != "OFF") return;
    if (ShowValue(m, "SHOW GLOBAL VARIABLES LIKE 'wsrep_on'") != "ON") return;
    throw Error(kNodeNotReady, kConnSource,
                "The server is a cluster node that is not ready for statements (wsrep_ready is OFF)");
}

MYSQL* Session::OpenFromList(size_t first) {
    const size_t n = options_.servers.size();
    std::string reasons;
    int32_t number = 0;
    for (size_t k = 0; k < n; ++k) {
        const size_t i = (first + k) % n;
        const ServerAddress& at = options_.servers[i];
        MYSQL* m = nullptr;
        try {
            m = OpenHandle(at.host.c_str(), at.port);
            CheckReady(m);
            server_ = i;
            return m;
        } catch (const Error& e) {
            if (m) mysql_close(m);
            number = e.Number;
            reasons += (reasons.empty() ? "" : "; ") + ServerText(at) + ": error " + std::to_string(e.Number) + ": " +
                       e.Description;
        }
    }
    throw Error(number, kConnSource, "None of the " + std::to_string(n) + " servers of the list could be opened: " +
                                         reasons);
}

std::string Session::CurrentServer() const {
    if (options_.embedded) return {};
    if (options_.servers.empty()) return options_.socket;
    return ServerText(options_.servers[server_]);
}

std::vector<std::string> Session::ServerNames() const {
    std::vector<std::string> names;
    if (options_.embedded) return names;
    if (options_.servers.empty()) names.push_back(options_.socket);
    for (const ServerAddress& s : options_.servers) names.push_back(ServerText(s));
    return names;
}

}  // namespace OVT_ZARO::ADODB::detail
