// zaro demo: one sample trading day, end to end.
#include <iostream>
#include <map>
#include <set>

#include "demo.h"
#include "exchange.h"
#include "process.h"
#include "site.h"

namespace zaro {

namespace {

using namespace demo;

// The family names of the sample site (no table of the library holds them).
const std::map<int32_t, std::string> kFamilias = {{1, "Bebidas"}, {2, "Comida"}, {3, "Tienda"}};

std::string Count(size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

// What PrepareTables did, in a line or three.
std::string TablesLine(const std::vector<TableState>& states) {
    size_t created = 0, kept = 0;
    std::string site, columns, converted, missing;
    auto add = [](std::string& list, const std::string& name) { list += (list.empty() ? "" : ", ") + name; };
    for (const TableState& s : states) {
        if (s.outcome.rfind("created", 0) == 0) ++created;
        if (s.outcome.rfind("kept", 0) == 0) ++kept;
        if (s.outcome.find("site's own table") != std::string::npos) add(site, s.tabla);
        if (s.outcome.find("site's columns") != std::string::npos) add(columns, s.tabla);
        if (s.outcome.find("converted to InnoDB") != std::string::npos) add(converted, s.tabla);
        if (!s.usable) add(missing, s.tabla + " (" + s.outcome + ")");
    }
    if (!missing.empty()) throw DataError("the tables are not ready: " + missing);
    std::string line = "tables: " + std::to_string(created) + " created, " + std::to_string(kept) + " kept with rows";
    if (!site.empty()) line += "\n  the site's own statement made " + site;
    if (!columns.empty()) line += "\n  the site's columns added to " + columns;
    if (!converted.empty()) line += "\n  converted to InnoDB for the cluster: " + converted;
    return line;
}

// Writes TABLE_YYYYMMDD.txt and TABLE_YYYYMMDD.xml of the rows.
template <class A>
void WriteExchange(A& adapter, ListOf<A>& rows, const std::string& carpeta, const std::string& ymd) {
    const std::string base = carpeta + "/" + adapter.Tabla() + "_" + ymd;
    std::string sep = ";";
    try {
        WriteFile(base + ".txt", adapter.ExportarTexto(rows, sep));
        WriteFile(base + ".xml", XmlDocument(rows, adapter.Tabla()));
    } catch (const Error& e) {
        throw DataError("can not write the exchange files of " + adapter.Tabla() + ": " + DescribeError(e));
    }
}

void WriteDay(DataAdapters& registro, Day& day, const std::string& carpeta) {
    MakeFolder(carpeta);
    const std::string ymd = Ymd(day.dia);
    WriteExchange(*registro.articulo(), *day.articulos, carpeta, ymd);
    WriteExchange(*registro.inicio_dia(), *day.inicios, carpeta, ymd);
    WriteExchange(*registro.ticket(), *day.tickets, carpeta, ymd);
    WriteExchange(*registro.ticket_articulo(), *day.lineas, carpeta, ymd);
    WriteExchange(*registro.ticket_impuesto(), *day.impuestos, carpeta, ymd);
    WriteExchange(*registro.ticket_pago(), *day.pagos, carpeta, ymd);
    WriteExchange(*registro.fin_dia(), *day.fines, carpeta, ymd);
    WriteExchange(*registro.resumen_diario(), *day.resumen, carpeta, ymd);
    WriteExchange(*registro.resumen_diario_detalle(), *day.detalle, carpeta, ymd);
}

// The report's amounts of one group: sales less returns.
struct Takings {
    double gross = 0, net = 0, discount = 0;
};

void AddAmounts(std::vector<std::string>& cells, const Takings& t) {
    cells.push_back(Amount(t.gross));
    cells.push_back(Amount(t.net));
    cells.push_back(Amount(t.gross - t.net));  // the tax is what the gross holds beyond the net
    cells.push_back(Amount(t.discount));
}

// By operator, from the saved daily summary.
void ReportByOperator(colresumen_diario& resumen, std::ostream& out) {
    TextTable table({"operator", "till", "sales", "returns", "voids", "first", "last", "gross", "net", "tax",
                     "discount"},
                    {false, true, true, true, true, true, true, true, true, true, true});
    auto row = [&](std::vector<std::string> cells, colresumen_diario& l) {
        cells.push_back(Number(l.ObtenerSuma("N_VENTAS")));
        cells.push_back(Number(l.ObtenerSuma("N_DEVOLUCIONES")));
        cells.push_back(Number(l.ObtenerSuma("N_ANULACIONES")));
        cells.push_back(l.Count() == 1 ? Number(l.ObtenerSuma("CD_TICKET_I")) : "");
        cells.push_back(l.Count() == 1 ? Number(l.ObtenerSuma("CD_TICKET_F")) : "");
        AddAmounts(cells, {l.ObtenerSuma("IMPBRUTO_V") - l.ObtenerSuma("IMPBRUTO_D"),
                           l.ObtenerSuma("IMPNETO_V") - l.ObtenerSuma("IMPNETO_D"),
                           l.ObtenerSuma("IMPDESCUENTO_V") - l.ObtenerSuma("IMPDESCUENTO_D")});
        table.Row(std::move(cells));
    };
    for (auto r : resumen) {
        colresumen_diario uno;
        uno.AddEntidad(r);
        row({std::to_string(r->CD_OP), std::to_string(r->ID_REGISTRO)}, uno);
    }
    table.Rule();
    row({"day", ""}, resumen);
    out << "By operator (sales less returns; voided tickets count apart):\n";
    table.Print(out, "  ");
}

// By family, from the saved detail.
void ReportByFamily(colresumen_diario_detalle& detalle, std::ostream& out) {
    TextTable table({"family", "articles", "gross", "net", "tax", "discount"},
                    {false, true, true, true, true, true});
    auto row = [&](const std::string& nombre, colresumen_diario_detalle& l) {
        std::vector<std::string> cells{nombre, Number(l.ObtenerSuma("ARTICULOS_V") - l.ObtenerSuma("ARTICULOS_D"))};
        AddAmounts(cells, {l.ObtenerSuma("IMPBRUTO_VSFZ") - l.ObtenerSuma("IMPBRUTO_DSFZ"),
                           l.ObtenerSuma("IMPNETO_VSFZ") - l.ObtenerSuma("IMPNETO_DSFZ"),
                           l.ObtenerSuma("IMPDESCUENTO_VSFZ") - l.ObtenerSuma("IMPDESCUENTO_DSFZ")});
        table.Row(std::move(cells));
    };
    std::set<int32_t> familias;
    for (const auto& d : detalle) familias.insert(d->TIPO_FAMILIA);
    for (int32_t f : familias) {
        auto it = kFamilias.find(f);
        row(std::to_string(f) + (it != kFamilias.end() ? " " + it->second : ""),
            *detalle.Where("TIPO_FAMILIA", std::to_string(f)));
    }
    table.Rule();
    row("day", detalle);
    out << "By family (sales less returns):\n";
    table.Print(out, "  ");
}

// Between two steps of the demo: a signal stops it here.
void StopHere(const char* after) {
    if (const int sig = StopSignal())
        throw Interrupted{sig, std::string("demo stopped ") + after + ": interrupted by " + SignalName(sig) +
                                   "; run zaro demo again to record the whole day"};
}

}  // namespace

int RunDemo(const Options& options) {
    const std::string carpetaMuestra = options.sample.value_or(DefaultSampleFolder());
    const std::string carpetaSalida = options.out.value_or("zaro-out");
    Session session(options);
    session.RequireDatabase();
    Interruptible interruptible;
    DataAdapters& registro = session.Registro();
    std::cout << "zaro demo on " << session.Donde() << "\n";
    std::cout << TablesLine(PrepareTables(session)) << "\n";
    std::cout.flush();

    Day muestra = ReadSample(registro, carpetaMuestra);
    StopHere("before recording the day");
    // Running again replaces the same day: its rows go first, so that the
    // day is held once and its figures stay the same.
    const size_t borradas = DeleteDay(registro, muestra.dia);
    SaveSample(registro, muestra);
    StopHere("after recording the day, before its summaries");

    Day day = ListDay(registro, muestra.dia);
    auto resumen = SummaryByOperator(day);
    auto detalle = DetailByFamily(day);
    try {
        registro.resumen_diario()->GrabarDatos(*resumen);
        registro.resumen_diario_detalle()->GrabarDatos(*detalle);
    } catch (const Error& e) {
        throw DataError("can not save the day's summaries: " + DescribeError(e));
    }
    StopHere("after saving the day's summaries, before its exchange files");
    day = ListDay(registro, muestra.dia);
    WriteDay(registro, day, carpetaSalida);

    const std::string fecha = CStr(Variant(day.dia));
    std::cout << "day " << fecha << ": "
              << (borradas ? "replaced (" + Count(borradas, "row", "rows") + " of the day deleted first)"
                           : "recorded for the first time")
              << "\n";
    std::cout << "recorded: " << Count(day.articulos->Count(), "article", "articles") << ", "
              << Count(day.inicios->Count(), "start of day", "starts of day") << ", "
              << Count(day.tickets->Count(), "ticket", "tickets") << " with "
              << Count(day.lineas->Count(), "article line", "article lines") << ", "
              << Count(day.impuestos->Count(), "tax line", "tax lines") << " and "
              << Count(day.pagos->Count(), "payment", "payments") << ", "
              << Count(day.fines->Count(), "end of day", "ends of day") << "\n";
    std::cout << "saved: " << Count(day.resumen->Count(), "daily summary", "daily summaries")
              << " (resumen_diario), " << Count(day.detalle->Count(), "detail row", "detail rows")
              << " (resumen_diario_detalle)\n";
    std::cout << "exchange files: " << carpetaSalida << "/TABLE_" << Ymd(day.dia) << ".txt and .xml for 9 tables\n\n";

    std::cout << "Trading day " << fecha << ": " << Count(day.tickets->Count(), "ticket", "tickets") << ", gross "
              << Amount(day.tickets->Where("TIPO_VENTA", std::to_string(kVenta))->ObtenerSuma("ImpBruto_T") -
                        day.tickets->Where("TIPO_VENTA", std::to_string(kDevolucion))->ObtenerSuma("ImpBruto_T"))
              << " after returns\n\n";
    ReportByOperator(*day.resumen, std::cout);
    std::cout << "\n";
    ReportByFamily(*day.detalle, std::cout);
    return kExitOk;
}

}  // namespace zaro
