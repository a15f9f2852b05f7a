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

namespace peers::raw {

inline int32_t Entero(const char* s, unsigned long n) {
    int32_t v = 0;
    if (s) std::from_chars(s, s + n, v);
    return v;
}

inline void Texto(std::string& out, const char* s, unsigned long n) {
    if (s) out.assign(s, n);
    else out.clear();
}

inline void Parsear(MYSQL_ROW r, const unsigned long* len, Fila& f) {
    f.COD_TRANSACC = Entero(r[0], len[0]);
    f.y = f.mo = f.d = 0;
    if (r[1] && len[1] >= 10) {
        f.y = Entero(r[1], 4);
        f.mo = Entero(r[1] + 5, 2);
        f.d = Entero(r[1] + 8, 2);
    }
    Texto(f.HORA_REAL, r[2], len[2]);
    f.CD_OP = Entero(r[3], len[3]);
    f.TIPO_OPERACION = Entero(r[4], len[4]);
    Texto(f.CD_ARTICULO, r[5], len[5]);
    Texto(f.IDARTICOLGS1, r[6], len[6]);
    f.TIPO_FAMILIA = Entero(r[7], len[7]);
    f.TIPO_SUBFAMILIA = Entero(r[8], len[8]);
    f.PRECIOMAX = 0;
    if (r[9]) std::from_chars(r[9], r[9] + len[9], f.PRECIOMAX);
    Texto(f.DESC_ARTICULO, r[10], len[10]);
    Texto(f.DESC_CORTA, r[11], len[11]);
}

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
