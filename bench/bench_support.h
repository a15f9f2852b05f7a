// What the benchmarks of the library share: an embedded database in a temp
// folder of the run, and a table of articles filled with the same rows.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "ZARODatos/tables/articulo.h"

namespace zaro_bench {

// An open connection on a new embedded data folder under /tmp, removed when
// the program ends.
inline OVT_ZARO::ConnectionRef AbrirEmbebida(const std::string& prefijo) {
    static std::string carpeta;
    std::string plantilla = "/tmp/" + prefijo + "-XXXXXX";
    carpeta = mkdtemp(plantilla.data());
    std::atexit([] {
        std::error_code ec;
        std::filesystem::remove_all(carpeta, ec);
    });
    auto cn = std::make_shared<OVT_ZARO::ADODB::Connection>();
    cn->Open("DataDir=" + carpeta + "/data");
    return cn;
}

// The table made anew by the library's CrearTabla and filled with n articles.
inline void LlenarArticulos(const OVT_ZARO::ConnectionRef& cn, const std::string& tabla, int n) {
    cn->Execute("DROP TABLE IF EXISTS " + tabla);
    OVT_ZARO::daarticulo da;
    da.Conexion = cn;
    da.Tabla(tabla);
    if (!da.CrearTabla()) {
        std::fprintf(stderr, "could not create the table %s\n", tabla.c_str());
        std::abort();
    }
    std::string sql;
    for (int i = 0; i < n; ++i) {
        if (sql.empty())
            sql = "insert into " + tabla +
                  " (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, IDARTICOLGS1, "
                  "TIPO_FAMILIA, TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA) values ";
        else
            sql += ",";
        char fila[256];
        std::snprintf(fila, sizeof fila,
                      "(%d, '2026-03-%02d', '10%02d', %d, 1, 'A%07d', '84100000%05d', %d, %d, %d.%03d, "
                      "'Articulo de prueba numero %d', 'Art %d')",
                      i % 1000, 1 + i % 28, i % 60, i % 20, i, i % 100000, i % 30, i % 300, i % 99, i % 1000, i, i);
        sql += fila;
        if ((i + 1) % 5000 == 0 || i + 1 == n) {
            cn->Execute(sql);
            sql.clear();
        }
    }
}

}  // namespace zaro_bench
