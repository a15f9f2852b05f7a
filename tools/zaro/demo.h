// The sample trading day of `zaro demo`: its lists, how it is recorded, and
// how its summaries are computed with the library's list queries.
//
// Codes of the sample site (the library stores them and gives them no
// meaning):
//   COD_TRANSACC  1 start of day, 2 ticket and its lines, 3 daily summary,
//                 4 its detail, 8 article, 9 end of day;
//   TIPO_VENTA    1 sale, 2 return, 3 void, 4 void of a return, 5 cancellation;
//   ID_REGISTRO   the till of a ticket, its lines and its summaries (of a
//                 payment: the payment's line number);
//   CD_OP         an operator, who works one till all day and whose code is
//                 the number of that till.
#pragma once

#include <memory>
#include <string>

#include "zaro.h"

namespace zaro::demo {

inline constexpr int32_t kCodResumen = 3;
inline constexpr int32_t kCodDetalle = 4;
inline constexpr int32_t kVenta = 1, kDevolucion = 2, kAnulacion = 3, kAnulacionDevolucion = 4, kCancelacion = 5;

// The rows of one trading day, as lists of the library.
struct Day {
    Date dia;
    std::shared_ptr<colarticulo> articulos;
    std::shared_ptr<colinicio_dia> inicios;
    std::shared_ptr<colticket> tickets;
    std::shared_ptr<colticket_articulo> lineas;
    std::shared_ptr<colticket_impuesto> impuestos;
    std::shared_ptr<colticket_pago> pagos;
    std::shared_ptr<colfin_dia> fines;
    std::shared_ptr<colresumen_diario> resumen;
    std::shared_ptr<colresumen_diario_detalle> detalle;
};

// The sample files read with each adapter's ImportarTexto; the day is the
// accounting date of the starts of day. A missing file raises DataError.
Day ReadSample(DataAdapters& registro, const std::string& carpeta);

// Deletes, through the adapters, every row of the day in the day's tables
// (not the articles) and gives how many rows went. A signal stops it after
// the row in progress (Interrupted).
size_t DeleteDay(DataAdapters& registro, Date dia);

// Saves the sample table by table, as GrabarDatos does, row by row: a signal
// stops it after the row in progress (Interrupted), a failure names its line.
void SaveSample(DataAdapters& registro, Day& muestra);

// The day's rows as the database holds them (summaries included).
Day ListDay(DataAdapters& registro, Date dia);

// The daily summary by operator and its detail by till, family, subfamily
// and tax type, computed in memory with the list queries.
std::shared_ptr<colresumen_diario> SummaryByOperator(Day& day);
std::shared_ptr<colresumen_diario_detalle> DetailByFamily(Day& day);

// The day's date as yyyymmdd, for file names, and as the database writes it.
std::string Ymd(Date dia);
std::string SqlDate(Date dia);

}  // namespace zaro::demo
