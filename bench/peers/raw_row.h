// How the raw C API contenders parse a result row of the article's twelve
// columns into the row an application holds.
// Shared by bench_roads and the peer benchmark; needs mysql.h of the client
// library the including program links.
#pragma once

#include <mysql.h>

#include <charconv>
#include <cstdint>
#include <string>

#include "fila.h"

namespace raw_row {

using Fila = bench_rows::Fila;

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

}  // namespace raw_row
