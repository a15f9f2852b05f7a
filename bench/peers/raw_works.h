// The raw MariaDB C API contender: the same statements sent with
// mysql_real_query, every row parsed into the struct. Built twice: in
// bench_peers against the client of the engine library ZARODatos uses, and in
// bench_peer_rawc against MariaDB Connector/C, the client library of SOCI and
// Qt SQL.
#pragma once

#include <mysql.h>

#include <charconv>
#include <cstring>
#include <string>
#include <vector>

#include "peers.h"
#include "raw_row.h"

namespace peers::raw {

using raw_row::Parsear;

inline void Query(MYSQL* m, const std::string& sql) {
    if (mysql_real_query(m, sql.data(), sql.size())) Fallo(std::string("raw: ") + mysql_error(m));
}

inline MYSQL* Connect(const Args& a) {
    MYSQL* m = mysql_init(nullptr);
#ifdef EMBEDDED_LIBRARY
    mysql_options(m, MYSQL_OPT_USE_REMOTE_CONNECTION, nullptr);
#endif
    mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    if (!mysql_real_connect(m, nullptr, "root", nullptr, a.database.c_str(), 0, a.socket.c_str(), 0))
        Fallo(std::string("raw connect: ") + mysql_error(m));
    return m;
}

// Serves the driver.
inline void Serve(const Args& a) {
    MYSQL* m = Connect(a);
    const std::string readSql = Leer(a.dir + "/read.sql")[0];
    const auto lookupSql = Leer(a.dir + "/lookup.sql");
    const auto keys = Claves(a);
    const auto insertSql = Leer(a.dir + "/insert.sql");
    // Each chunk's rows are freed within it, as every contender does.
    Servir([&](const std::string& work, int chunk) -> std::string {
        if (work == "read") {
            std::vector<Fila> filas;
            Query(m, readSql);
            MYSQL_RES* res = mysql_store_result(m);
            if (!res) Fallo("raw read: no result");
            filas.reserve(mysql_num_rows(res));
            while (MYSQL_ROW r = mysql_fetch_row(res)) {
                Fila f;
                Parsear(r, mysql_fetch_lengths(res), f);
                filas.push_back(std::move(f));
            }
            mysql_free_result(res);
            Cuenta c;
            for (const Fila& f : filas) c.Anadir(f);
            return c.Texto();
        }
        if (work == "lookup") {
            Cuenta c;
            Fila f;
            const auto [from, to] = Trozo(chunk, lookupSql.size());
            for (size_t i = from; i < to; ++i) {
                Query(m, lookupSql[i]);
                MYSQL_RES* res = mysql_store_result(m);
                MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
                if (!r) Fallo("raw lookup: no row");
                Parsear(r, mysql_fetch_lengths(res), f);
                mysql_free_result(res);
                if (f.CD_ARTICULO != keys[i]) Fallo("raw lookup: wrong row for " + keys[i]);
                c.Anadir(f);
            }
            return c.Texto();
        }
        if (work == "insert" || work == "plain") {
            const bool check = work == "insert";
            const auto [from, to] = Trozo(chunk, insertSql.size() / 2);
            for (size_t i = 2 * from; i < 2 * to; i += 2) {
                if (check) {
                    Query(m, insertSql[i]);
                    MYSQL_RES* res = mysql_store_result(m);
                    MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
                    if (!r || std::strcmp(r[0], "0") != 0) Fallo("raw insert: the row exists");
                    mysql_free_result(res);
                }
                Query(m, insertSql[i + 1]);
                if (mysql_affected_rows(m) != 1) Fallo("raw insert: no row inserted");
            }
            return "ok";
        }
        Fallo("unknown work " + work);
    });
    mysql_close(m);
}

}  // namespace peers::raw
