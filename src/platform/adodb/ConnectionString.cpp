#include "platform/adodb/ConnectionString.h"

#include <charconv>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/EngineOptions.h"

namespace OVT_ZARO::ADODB::detail {

namespace {

const char* const kSource = "ADODB.Connection";

[[noreturn]] void Bad(const std::string& what) {
    throw Error(AdoErr::InvalidArgument, kSource, "Connection string: " + what);
}

// The key folded: ASCII letters lower case, blanks and underscores dropped.
std::string FoldKey(std::string_view key) {
    std::string k;
    for (char c : key) {
        if (c == ' ' || c == '\t' || c == '_') continue;
        k.push_back((c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c);
    }
    return k;
}

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

unsigned ParseUnsigned(const std::string& key, const std::string& value, unsigned max) {
    unsigned v = 0;
    auto [p, ec] = std::from_chars(value.data(), value.data() + value.size(), v);
    if (value.empty() || ec != std::errc() || p != value.data() + value.size() || v > max)
        Bad("the value of " + key + " must be a whole number from 0 to " + std::to_string(max) + ", not '" + value +
            "'");
    return v;
}

[[noreturn]] void NotBracketed(std::string_view entry) {
    Bad("the server '" + std::string(entry) + "' in Server is not [address] or [address]:port");
}

const char* const kKnownKeys =
    "DataDir, EmbeddedOptions, Server (or Host), Port, Socket, User (or UID), Password (or PWD), Database, "
    "ConnectTimeout, CommandTimeout";

}  // namespace

std::vector<ServerAddress> ParseServerList(std::string_view text, unsigned defaultPort) {
    std::vector<ServerAddress> out;
    size_t start = 0;
    for (;;) {
        const size_t comma = text.find(',', start);
        const std::string_view entry =
            TrimBlanks(text.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
        if (entry.empty()) Bad("Server lists an empty server ('" + std::string(text) + "')");
        ServerAddress a{std::string(entry), defaultPort};
        std::string_view portText;
        bool hasPort = false;
        if (entry.front() == '[') {
            // [v6] or [v6]:port
            const size_t close = entry.find(']');
            if (close == std::string_view::npos || close == 1) NotBracketed(entry);
            a.host = std::string(entry.substr(1, close - 1));
            const std::string_view rest = entry.substr(close + 1);
            if (!rest.empty()) {
                if (rest.front() != ':') NotBracketed(entry);
                portText = rest.substr(1);
                hasPort = true;
            }
        } else if (const size_t colon = entry.find(':');
                   colon != std::string_view::npos && entry.find(':', colon + 1) == std::string_view::npos) {
            // host:port (an address with more colons is an IPv6 address without a port)
            a.host = std::string(TrimBlanks(entry.substr(0, colon)));
            portText = TrimBlanks(entry.substr(colon + 1));
            hasPort = true;
            if (a.host.empty()) Bad("the server '" + std::string(entry) + "' in Server has no host");
        }
        if (hasPort) {
            unsigned v = 0;
            auto [p, ec] = std::from_chars(portText.data(), portText.data() + portText.size(), v);
            if (portText.empty() || ec != std::errc() || p != portText.data() + portText.size() || v == 0 ||
                v > 65535)
                Bad("the port of the server '" + std::string(entry) +
                    "' in Server must be a whole number from 1 to 65535");
            a.port = v;
        }
        out.push_back(std::move(a));
        if (comma == std::string_view::npos) break;
        start = comma + 1;
    }
    return out;
}

std::string ServerText(const ServerAddress& server) {
    const bool v6 = server.host.find(':') != std::string::npos;
    return (v6 ? "[" + server.host + "]" : server.host) + ":" + std::to_string(server.port);
}

std::vector<std::string> SplitServerOptions(std::string_view text) {
    std::vector<std::string> out;
    std::string cur;
    bool inToken = false;
    char quote = 0;
    for (char c : text) {
        if (quote) {
            if (c == quote) quote = 0;
            else cur.push_back(c);
        } else if (c == '"' || c == '\'') {
            quote = c;
            inToken = true;
        } else if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
            if (inToken) out.push_back(std::move(cur));
            cur.clear();
            inToken = false;
        } else {
            cur.push_back(c);
            inToken = true;
        }
    }
    if (quote) Bad("an option of EmbeddedOptions lacks its closing quote");
    if (inToken) out.push_back(std::move(cur));
    return out;
}

ConnectionOptions ParseConnectionString(std::string_view text) {
    ConnectionOptions o;
    bool embeddedKey = false, serverKey = false, databaseGiven = false;
    std::string serverOnlyKey;  // the first key that only a server takes, as written
    std::vector<std::string> seen;
    size_t i = 0;
    const size_t n = text.size();
    while (i < n) {
        // Key up to '='.
        size_t eq = text.find_first_of("=;", i);
        if (eq == std::string_view::npos || text[eq] == ';') {
            std::string_view rest = TrimBlanks(text.substr(i, eq == std::string_view::npos ? n - i : eq - i));
            if (!rest.empty()) Bad("'" + std::string(rest) + "' has no '=' and value");
            i = (eq == std::string_view::npos) ? n : eq + 1;
            continue;
        }
        const std::string rawKey(TrimBlanks(text.substr(i, eq - i)));
        if (rawKey.empty()) Bad("a value has no key");
        i = eq + 1;
        while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;
        std::string value;
        if (i < n && (text[i] == '"' || text[i] == '\'')) {
            const char q = text[i++];
            bool closed = false;
            while (i < n) {
                if (text[i] == q) {
                    if (i + 1 < n && text[i + 1] == q) {
                        value.push_back(q);
                        i += 2;
                        continue;
                    }
                    ++i;
                    closed = true;
                    break;
                }
                value.push_back(text[i++]);
            }
            if (!closed) Bad("the value of " + rawKey + " lacks its closing quote");
            while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;
            if (i < n && text[i] != ';') Bad("text after the quoted value of " + rawKey);
            if (i < n) ++i;
        } else {
            size_t semi = text.find(';', i);
            if (semi == std::string_view::npos) semi = n;
            value = std::string(TrimBlanks(text.substr(i, semi - i)));
            i = semi < n ? semi + 1 : n;
        }
        std::string key = FoldKey(rawKey);
        // Aliases.
        if (key == "host") key = "server";
        else if (key == "uid" || key == "userid" || key == "username") key = "user";
        else if (key == "pwd") key = "password";
        else if (key == "db") key = "database";
        for (const auto& s : seen)
            if (s == key) Bad("the key " + rawKey + " is given twice");
        seen.push_back(key);

        if (key == "datadir") {
            if (value.empty()) Bad("DataDir is empty");
            o.dataDir = value;
            embeddedKey = true;
        } else if (key == "embeddedoptions") {
            o.serverOptions = SplitServerOptions(value);
            CheckEmbeddedOptionNames(o.serverOptions);
            embeddedKey = true;
        } else if (key == "server") {
            if (value.empty()) Bad("Server is empty");
            o.host = value;
            serverKey = true;
        } else if (key == "port") {
            o.port = ParseUnsigned(rawKey, value, 65535);
            serverKey = true;
        } else if (key == "socket") {
            if (value.empty()) Bad("Socket is empty");
            o.socket = value;
            serverKey = true;
        } else if (key == "user") {
            o.user = value;
        } else if (key == "password") {
            o.password = value;
        } else if (key == "database") {
            o.database = value;
            databaseGiven = true;
        } else if (key == "connecttimeout") {
            o.connectTimeout = ParseUnsigned(rawKey, value, 31536000);
        } else if (key == "commandtimeout") {
            o.commandTimeout = ParseUnsigned(rawKey, value, 31536000);
        } else {
            Bad("unknown key '" + rawKey + "'; the keys are " + kKnownKeys);
        }
        if (serverOnlyKey.empty() &&
            (key == "user" || key == "password" || key == "connecttimeout" || key == "commandtimeout"))
            serverOnlyKey = rawKey;
    }
    if (serverKey && o.host.empty() && o.socket.empty()) Bad("Port needs Server (or Host)");
    if (!o.host.empty()) {
        // One server as before (a port of its own, "host:port", is taken too),
        // or a list of servers tried in order.
        const std::string text = o.host;
        o.servers = ParseServerList(text, o.port);
        if (o.servers.size() > 1 && !o.socket.empty())
            Bad("Socket names one server; it can not go with a list of servers in Server");
        o.host = o.servers.front().host;
        o.port = o.servers.front().port;
    }
    if (serverKey && embeddedKey) Bad("DataDir and EmbeddedOptions belong to the embedded database, not to a server");
    // Keys of a server alone would open the embedded database unasked.
    if (!serverKey && !serverOnlyKey.empty()) Bad(serverOnlyKey + " needs Server, Port or Socket");
    o.embedded = !serverKey;
    if (o.embedded && !databaseGiven) o.database = "zaro";
    if (o.embedded && o.database.empty()) Bad("Database is empty");
    return o;
}

}  // namespace OVT_ZARO::ADODB::detail
