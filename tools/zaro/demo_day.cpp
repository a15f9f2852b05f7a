// The sample day: read from its files, deleted, saved and listed again,
// always through the table adapters.
#include <cstdio>
#include <iostream>

#include "demo.h"
#include "exchange.h"

namespace zaro::demo {

namespace {

// A sample file of the adapter's table read with ImportarTexto.
template <class A>
typename A::ListRef ImportSample(A& adapter, const std::string& carpeta) {
    const std::string archivo = carpeta + "/" + adapter.Tabla() + ".txt";
    std::string texto = ExchangeText(ReadFile(archivo));
    std::string sep = ";";
    try {
        return adapter.ImportarTexto(texto, sep);
    } catch (const Error& e) {
        throw DataError("can not read the sample file " + archivo + ": " + DescribeError(e));
    }
}

// Saves a sample list as GrabarDatos does, row by row, so that a signal
// stops it after the row in progress and a failure names its line.
template <class A>
void Save(A& adapter, ListOf<A>& rows) {
    Progress none("", 0);  // never shown
    const std::string archivo = adapter.Tabla() + ".txt";
    // A line that went on through another server of the list is told at once.
    const Notify notify = [&](const std::string& nota) { std::cout << "  " << archivo << " " << nota << std::endl; };
    const SaveResult r = SaveRows(adapter, rows, {}, none, notify);
    if (r.stopSignal)
        throw Interrupted{r.stopSignal, "demo stopped at " + archivo + " " + r.StopReport() +
                                            "; the tables before it were saved whole; run zaro demo again to "
                                            "record the whole day"};
    if (r.failure)
        throw DataError("can not save the sample's " + adapter.Tabla() + ": demo stopped at " + archivo + " " +
                        r.StopReport());
}

template <class A>
typename A::ListRef List(A& adapter, const std::string& condicion) {
    try {
        return ListWhere(adapter, condicion);
    } catch (const Error& e) {
        throw DataError("can not list the day's " + adapter.Tabla() + ": " + DescribeError(e));
    }
}

// Deletes each listed row by its key; `borrar` calls the adapter's Delete.
// A signal stops it after the row in progress; deleted counts the rows gone
// in this and the tables before it.
template <class A, class F>
size_t DeleteEach(A& adapter, const std::string& condicion, F borrar, size_t& deleted) {
    auto rows = List(adapter, condicion);
    try {
        for (const auto& e : *rows) {
            if (const int sig = StopSignal())
                throw Interrupted{sig, "demo stopped while deleting the day's rows (at " + adapter.Tabla() +
                                           "): interrupted by " + SignalName(sig) + "; " + std::to_string(deleted) +
                                           (deleted == 1 ? " row" : " rows") +
                                           " of the day deleted; run zaro demo again to record the whole day"};
            borrar(adapter, *e);
            ++deleted;
        }
    } catch (const Error& e) {
        throw DataError("can not delete the day's " + adapter.Tabla() + ": " + DescribeError(e));
    }
    return static_cast<size_t>(rows->Count());
}

// The conditions that pick the rows of one day in each table.
struct DayConditions {
    std::string contable;  // the tables with an accounting date
    std::string lineas;    // the lines of the day's tickets
    std::string detalle;   // the detail has only its real date
};

DayConditions ConditionsFor(Date dia) {
    const std::string fecha = "'" + SqlDate(dia) + "'";
    // ListarWhere puts " where " in front of a condition only when the
    // condition does not hold the word already, so the subquery's
    // condition needs its own.
    return {"FECHA_CONTABLE = " + fecha,
            " where (idEmpresa, idRestaurante, idTPV, idTicket) in (select idEmpresa, idRestaurante, idTPV, "
            "idTicket from ticket where FECHA_CONTABLE = " + fecha + ")",
            "FECHA_REAL = " + fecha};
}

}  // namespace

std::string Ymd(Date dia) {
    const DateParts p = dia.Split();
    char text[16];
    std::snprintf(text, sizeof text, "%04d%02d%02d", p.Year, p.Month, p.Day);
    return text;
}

std::string SqlDate(Date dia) {
    const DateParts p = dia.Split();
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", p.Year, p.Month, p.Day);
    return text;
}

Day ReadSample(DataAdapters& registro, const std::string& carpeta) {
    Day d;
    d.articulos = ImportSample(*registro.articulo(), carpeta);
    d.inicios = ImportSample(*registro.inicio_dia(), carpeta);
    d.tickets = ImportSample(*registro.ticket(), carpeta);
    d.lineas = ImportSample(*registro.ticket_articulo(), carpeta);
    d.impuestos = ImportSample(*registro.ticket_impuesto(), carpeta);
    d.pagos = ImportSample(*registro.ticket_pago(), carpeta);
    d.fines = ImportSample(*registro.fin_dia(), carpeta);
    // The day is the accounting date of the starts of day (the two empty
    // rows behind the last line carry the zero date).
    for (const auto& inicio : *d.inicios) {
        if (inicio->FECHA_CONTABLE.IsZero()) continue;
        if (!d.dia.IsZero() && !(inicio->FECHA_CONTABLE == d.dia))
            throw DataError("the sample in " + carpeta + " holds more than one trading day");
        d.dia = inicio->FECHA_CONTABLE;
    }
    if (d.dia.IsZero()) throw DataError("the sample in " + carpeta + " has no start of day");
    return d;
}

size_t DeleteDay(DataAdapters& registro, Date dia) {
    const DayConditions c = ConditionsFor(dia);
    size_t n = 0, deleted = 0;
    // The lines first: they are found through their tickets.
    n += DeleteEach(*registro.ticket_articulo(), c.lineas, [](auto& da, auto& e) {
        da.Delete(e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket, e.idLinea);
    }, deleted);
    n += DeleteEach(*registro.ticket_impuesto(), c.lineas, [](auto& da, auto& e) {
        da.Delete(e.porc_impuesto, e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
    }, deleted);
    n += DeleteEach(*registro.ticket_pago(), c.lineas, [](auto& da, auto& e) {
        da.Delete(e.ID_REGISTRO, e.TIPO_PAGO, e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
    }, deleted);
    n += DeleteEach(*registro.ticket(), c.contable, [](auto& da, auto& e) {
        da.Delete(e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
    }, deleted);
    n += DeleteEach(*registro.inicio_dia(), c.contable,
                    [](auto& da, auto& e) { da.Delete(e.COD_TRANSACC, e.CD_OP, e.FECHA_CONTABLE); }, deleted);
    n += DeleteEach(*registro.fin_dia(), c.contable,
                    [](auto& da, auto& e) { da.Delete(e.COD_TRANSACC, e.CD_OP, e.FECHA_CONTABLE); }, deleted);
    n += DeleteEach(*registro.resumen_diario(), c.contable, [](auto& da, auto& e) {
        da.Delete(e.COD_TRANSACC, e.FECHA_REAL, e.ID_REGISTRO, e.CD_OP, e.FECHA_CONTABLE);
    }, deleted);
    n += DeleteEach(*registro.resumen_diario_detalle(), c.detalle, [](auto& da, auto& e) {
        da.Delete(e.COD_TRANSACC, e.FECHA_REAL, e.ID_REGISTRO, e.TIPO_FAMILIA, e.TIPO_SUBFAMILIA, e.TIPO_FISCAL);
    }, deleted);
    return n;
}

void SaveSample(DataAdapters& registro, Day& muestra) {
    Save(*registro.articulo(), *muestra.articulos);
    Save(*registro.inicio_dia(), *muestra.inicios);
    Save(*registro.ticket(), *muestra.tickets);
    Save(*registro.ticket_articulo(), *muestra.lineas);
    Save(*registro.ticket_impuesto(), *muestra.impuestos);
    Save(*registro.ticket_pago(), *muestra.pagos);
    Save(*registro.fin_dia(), *muestra.fines);
}

Day ListDay(DataAdapters& registro, Date dia) {
    const DayConditions c = ConditionsFor(dia);
    Day d;
    d.dia = dia;
    d.articulos = List(*registro.articulo(), "");
    d.inicios = List(*registro.inicio_dia(), c.contable);
    d.tickets = List(*registro.ticket(), c.contable);
    d.lineas = List(*registro.ticket_articulo(), c.lineas);
    d.impuestos = List(*registro.ticket_impuesto(), c.lineas);
    d.pagos = List(*registro.ticket_pago(), c.lineas);
    d.fines = List(*registro.fin_dia(), c.contable);
    d.resumen = List(*registro.resumen_diario(), c.contable);
    d.detalle = List(*registro.resumen_diario_detalle(), c.detalle);
    return d;
}

}  // namespace zaro::demo
