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
    EXPECT_TRUE(o.noBackslashEscapes);
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
        " host = h ; UID=u; pwd =p;DB=d; no_backslash_escapes = Off; Connect Timeout=3; COMMANDTIMEOUT=0;");
    EXPECT_EQ(o.host, "h");
    EXPECT_EQ(o.user, "u");
    EXPECT_EQ(o.password, "p");
    EXPECT_EQ(o.database, "d");
    EXPECT_FALSE(o.noBackslashEscapes);
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
