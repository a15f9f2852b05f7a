// The keys of a connection string (internal). See README.md, "Connection strings".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace OVT_ZARO::ADODB::detail {

// One server of the list in Server.
struct ServerAddress {
    std::string host;
    unsigned port = 3306;
    bool operator==(const ServerAddress&) const = default;
};

struct ConnectionOptions {
    bool embedded = true;
    std::string dataDir = "zaro-data";  // embedded: the data folder, relative to the current directory
    std::vector<std::string> serverOptions;  // embedded: extra options of the in-process server
    std::string host;  // server: the first server of the list
    unsigned port = 3306;
    // Server: every server of the list, in order ("host1:port1,host2:port2"); a
    // server without a port has Port. One element for a single server, none
    // over Socket alone.
    std::vector<ServerAddress> servers;
    std::string socket;
    std::string user;
    std::string password;
    std::string database;  // embedded default "zaro"; server: none unless given
    unsigned connectTimeout = 15;  // seconds, server road; 0 waits for ever
    unsigned commandTimeout = 30;  // seconds, server road; 0 waits for ever
};

// Parses "Key=Value;Key=Value". Keys ignore case, blanks and underscores;
// a value may be quoted with " or ' (a doubled quote stands for itself).
// An unknown key, a key given twice, a bad number, a key of a server without
// Server, Port or Socket, a bad or empty server in the list of Server, a list
// with Socket, or a refused EmbeddedOptions option raises 3001.
ConnectionOptions ParseConnectionString(std::string_view text);

// The servers of a Server value: "host", "host:port", "[v6]:port", separated
// by commas; defaultPort for those without one. Raises 3001 as above.
std::vector<ServerAddress> ParseServerList(std::string_view text, unsigned defaultPort);

// A server as people write it: "host:port" ("[v6]:port").
std::string ServerText(const ServerAddress& server);

// Splits a list of server options at blanks, honouring " and ' quotes.
std::vector<std::string> SplitServerOptions(std::string_view text);

}  // namespace OVT_ZARO::ADODB::detail
