// One article row, typed as an application holds it: what every contender of
// the peer benchmark and the raw side of bench_roads read into.
#pragma once

#include <cstdint>
#include <string>

namespace bench_rows {

struct Fila {
    int32_t COD_TRANSACC = 0;
    int y = 0, mo = 0, d = 0;
    std::string HORA_REAL;
    int32_t CD_OP = 0, TIPO_OPERACION = 0;
    std::string CD_ARTICULO, IDARTICOLGS1;
    int32_t TIPO_FAMILIA = 0, TIPO_SUBFAMILIA = 0;
    double PRECIOMAX = 0;
    std::string DESC_ARTICULO, DESC_CORTA;
};

}  // namespace bench_rows
