// The keys of a connection string.
#include <gtest/gtest.h>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/ConnectionString.h"

using namespace OVT_ZARO;
using OVT_ZARO::ADODB::detail::ConnectionOptions;
using OVT_ZARO::ADODB::detail::ParseConnectionString;

namespace {

Error ParseError(const std::string& text) {
    try {
        ParseConnectionString(text);
    } catch (const Error& e) {
        return e;
    }
    return Error(0, "", "no error");
}

}  // namespace

TEST(ConnectionString, AnEmptyStringOpensTheEmbeddedDatabaseInZaroData) {
    const ConnectionOptions o = ParseConnectionString("");
    EXPECT_TRUE(o.embedded);
    EXPECT_EQ(o.dataDir, "zaro-data");
    EXPECT_EQ(o.database, "zaro");
}

TEST(ConnectionString, ServerKeysChooseTheServerRoad) {
    const ConnectionOptions o =
        ParseConnectionString("Server=db.example;Port=3307;User=caja;Password=s3cret;Database=ventas");
    EXPECT_FALSE(o.embedded);
    EXPECT_EQ(o.host, "db.example");
    EXPECT_EQ(o.port, 3307u);
    EXPECT_EQ(o.user, "caja");
    EXPECT_EQ(o.password, "s3cret");
    EXPECT_EQ(o.database, "ventas");
    EXPECT_EQ(o.connectTimeout, 15u);
    EXPECT_EQ(o.commandTimeout, 30u);
}

TEST(ConnectionString, ASocketAloneChoosesTheServerRoad) {
    const ConnectionOptions o = ParseConnectionString("Socket=/run/mysqld/mysqld.sock");
    EXPECT_FALSE(o.embedded);
    EXPECT_EQ(o.socket, "/run/mysqld/mysqld.sock");
    EXPECT_EQ(o.database, "");
}

TEST(ConnectionString, KeysIgnoreCaseBlanksAndUnderscoresAndHaveAliases) {
    const ConnectionOptions o = ParseConnectionString(
        " host = h ; UID=u; pwd =p;DB=d; Connect Timeout=3; COMMANDTIMEOUT=0;");
    EXPECT_EQ(o.host, "h");
    EXPECT_EQ(o.user, "u");
    EXPECT_EQ(o.password, "p");
    EXPECT_EQ(o.database, "d");
    EXPECT_EQ(o.connectTimeout, 3u);
    EXPECT_EQ(o.commandTimeout, 0u);
}

TEST(ConnectionString, QuotedValuesKeepSemicolonsAndDoubledQuotes) {
    const ConnectionOptions o = ParseConnectionString("Server=h;Password=\"a;b\"\"c\";User='o''hara'");
    EXPECT_EQ(o.password, "a;b\"c");
    EXPECT_EQ(o.user, "o'hara");
}

TEST(ConnectionString, EmbeddedOptionsAreSplitAtBlanks) {
    const ConnectionOptions o =
        ParseConnectionString("DataDir=/var/lib/caja;EmbeddedOptions='--skip-innodb --key-buffer-size=1M'");
    EXPECT_TRUE(o.embedded);
    EXPECT_EQ(o.dataDir, "/var/lib/caja");
    ASSERT_EQ(o.serverOptions.size(), 2u);
    EXPECT_EQ(o.serverOptions[0], "--skip-innodb");
    EXPECT_EQ(o.serverOptions[1], "--key-buffer-size=1M");
}

TEST(ConnectionString, AnUnknownKeyRaises3001NamingIt) {
    const Error e = ParseError("Provider=MSDASQL;Server=h");
    EXPECT_EQ(e.Number, 3001);
    EXPECT_EQ(e.Source, "ADODB.Connection");
    EXPECT_NE(e.Description.find("unknown key 'Provider'"), std::string::npos) << e.Description;
}

TEST(ConnectionString, BadValuesRaise3001) {
    for (const char* text : {"Server=h;Port=abc", "Server=h;Port=70000", "Server=h;NoBackslashEscapes=maybe",
                             "Server=h;Server=i", "Port=3306", "Server=h;DataDir=/x", "Server", "=v",
                             "Server=\"h", "DataDir=", "Server=h;ConnectTimeout=-1"}) {
        SCOPED_TRACE(text);
        const Error e = ParseError(text);
        EXPECT_EQ(e.Number, 3001) << e.Description;
    }
}

TEST(ConnectionString, OpenRaisesTheSameErrorAndStaysClosed) {
    auto cn = std::make_shared<ADODB::Connection>();
    try {
        cn->Open("Driver={MySQL};Server=h");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3001);
    }
    EXPECT_EQ(cn->State(), ADODB::adStateClosed);
}

TEST(ConnectionString, KeysOfAServerWithoutServerPortOrSocketRaise3001) {
    for (const char* key : {"User=caja", "Password=s3cret", "ConnectTimeout=3", "CommandTimeout=5", "UID=caja"}) {
        SCOPED_TRACE(key);
        const Error e = ParseError(key);
        EXPECT_EQ(e.Number, 3001);
        EXPECT_EQ(e.Source, "ADODB.Connection");
        const std::string name = std::string(key).substr(0, std::string(key).find('='));
        EXPECT_EQ(e.Description, "Connection string: " + name + " needs Server, Port or Socket");
    }
    EXPECT_EQ(ParseError("DataDir=/x;User=caja").Number, 3001);
    EXPECT_NO_THROW(ParseConnectionString("Socket=/s;User=caja;Password=p;ConnectTimeout=1;CommandTimeout=2"));
}

TEST(ConnectionString, EmbeddedOptionsThatPrintAndExitAreRefusedByName) {
    for (const char* option : {"--help", "--version", "--print-defaults", "--loose-help", "--he", "--HELP",
                               "--verbose --help", "--skip-version"}) {
        SCOPED_TRACE(option);
        const Error e = ParseError(std::string("EmbeddedOptions='") + option + "'");
        EXPECT_EQ(e.Number, 3001);
        const std::string named = std::string(option).substr(std::string(option).rfind(' ') + 1);
        EXPECT_NE(e.Description.find("'" + named + "'"), std::string::npos) << e.Description;
        EXPECT_NE(e.Description.find("print and end the process"), std::string::npos) << e.Description;
    }
}

TEST(ConnectionString, EmbeddedOptionsThatAreNotLongOptionsAreRefused) {
    for (const char* option : {"-?", "-V", "-h /tmp", "--", "--=1", "help"}) {
        SCOPED_TRACE(option);
        const Error e = ParseError(std::string("EmbeddedOptions='") + option + "'");
        EXPECT_EQ(e.Number, 3001);
        EXPECT_NE(e.Description.find("is not an option of the form --name or --name=value"), std::string::npos)
            << e.Description;
    }
}

TEST(ConnectionString, EmbeddedOptionsThatRunFilesOrTakeTheProcessAreRefused) {
    for (const char* option : {"--init-file=/etc/passwd", "--init_file=x.sql", "--loose-init-file=x", "--bootstrap",
                               "--plugin-load=ha_x.so", "--plugin-load-add=x", "--plugin-dir=/tmp",
                               "--log-error=/tmp/e.log", "--user=nobody", "--chroot=/", "--datadir=/tmp",
                               "--defaults-file=/etc/my.cnf", "--no-defaults"}) {
        SCOPED_TRACE(option);
        const Error e = ParseError(std::string("EmbeddedOptions='") + option + "'");
        EXPECT_EQ(e.Number, 3001);
        EXPECT_NE(e.Description.find(std::string("'") + option + "' is refused"), std::string::npos)
            << e.Description;
    }
}

TEST(ConnectionString, EmbeddedOptionsKeepTheEnginesOrdinaryOptions) {
    const ConnectionOptions o = ParseConnectionString(
        "EmbeddedOptions='--skip-innodb --default-storage-engine=MyISAM --tmpdir=/var/tmp --general-log=1 "
        "--general_log_file=/tmp/g.log --innodb-log-file-size=8M --key_buffer_size=1M --init-connect=x'");
    EXPECT_EQ(o.serverOptions.size(), 8u);
}

TEST(ConnectionString, ServerListsServersTriedInOrderEachWithItsPortOrPort) {
    const ConnectionOptions o = ParseConnectionString("Server=a:3307, b ,[::1]:3309,c;Port=3310;User=u");
    EXPECT_FALSE(o.embedded);
    ASSERT_EQ(o.servers.size(), 4u);
    EXPECT_EQ(o.servers[0].host, "a");
    EXPECT_EQ(o.servers[0].port, 3307u);
    EXPECT_EQ(o.servers[1].host, "b");
    EXPECT_EQ(o.servers[1].port, 3310u);
    EXPECT_EQ(o.servers[2].host, "::1");
    EXPECT_EQ(o.servers[2].port, 3309u);
    EXPECT_EQ(o.servers[3].host, "c");
    EXPECT_EQ(o.servers[3].port, 3310u);
    // The first is the server of the one-server keys.
    EXPECT_EQ(o.host, "a");
    EXPECT_EQ(o.port, 3307u);
}

TEST(ConnectionString, OneServerMayCarryItsPortAndAnAddressWithColonsIsAHost) {
    const ConnectionOptions a = ParseConnectionString("Server=db.example:3307");
    EXPECT_EQ(a.host, "db.example");
    EXPECT_EQ(a.port, 3307u);
    ASSERT_EQ(a.servers.size(), 1u);
    const ConnectionOptions b = ParseConnectionString("Server=::1;Port=3308");
    EXPECT_EQ(b.host, "::1");
    EXPECT_EQ(b.port, 3308u);
    const ConnectionOptions c = ParseConnectionString("Server=h");
    EXPECT_EQ(c.host, "h");
    EXPECT_EQ(c.port, 3306u);
    ASSERT_EQ(c.servers.size(), 1u);
    EXPECT_TRUE(ParseConnectionString("Socket=/s").servers.empty());
}

TEST(ConnectionString, ABadServerListRaises3001NamingTheServer) {
    for (const char* text : {"Server=a,,b", "Server=a,", "Server=,a", "Server=a:0", "Server=a:x", "Server=a:70000",
                             "Server=[::1", "Server=[::1]x", "Server=[]:1", "Server=:3306", "Server=a: "}) {
        SCOPED_TRACE(text);
        const Error e = ParseError(text);
        EXPECT_EQ(e.Number, 3001) << e.Description;
        EXPECT_EQ(e.Source, "ADODB.Connection");
        EXPECT_NE(e.Description.find("Server"), std::string::npos) << e.Description;
    }
    EXPECT_EQ(ParseError("Server=a:1:x").Number, 0);  // an IPv6 address, without a port
}

TEST(ConnectionString, AListOfServersDoesNotGoWithASocket) {
    const Error e = ParseError("Server=a,b;Socket=/s");
    EXPECT_EQ(e.Number, 3001);
    EXPECT_EQ(e.Description, "Connection string: Socket names one server; it can not go with a list of servers in "
                             "Server");
    EXPECT_NO_THROW(ParseConnectionString("Server=localhost;Socket=/s"));
}
