// The exchange of rows between files and tables, for every table alike:
// saving an imported list row by row, writing a list as separated text or
// as one XML document.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "failover.h"
#include "process.h"
#include "progress.h"
#include "settle.h"
#include "tables.h"
#include "zaro.h"

namespace zaro {

// Text read from a file made ready for ImportarTexto: a leading UTF-8 byte
// order mark is dropped, and bare LF line ends become CR LF (files edited on
// Linux keep their rows apart).
std::string ExchangeText(std::string texto);

// For each piece ImportarTexto makes of the text (split at CR LF), whether it
// is empty: such a piece gives an entity of all defaults.
std::vector<bool> EmptyPieces(const std::string& texto);

struct SkippedRow {
    size_t line;
    std::string message;  // the CamposOk message, in one line
};

struct SaveResult {
    size_t inserted = 0, updated = 0, emptySkipped = 0;
    std::vector<SkippedRow> skipped;
    std::optional<Error> failure;  // what stopped the saving
    size_t failedLine = 0;
    Fate fate = Fate::NotChecked;  // what became of the failed line's row, when the failure leaves it open
    std::string fateWhy;
    int stopSignal = 0;            // a signal that stopped the saving before stoppedLine
    size_t stoppedLine = 0;
    size_t Saved() const { return inserted + updated; }
    // The stop, for a report: "line 7: error ...; ..." or "line 7: interrupted by SIGINT; ...".
    std::string StopReport() const;
};

// Saves the rows of an imported list as GrabarDatos does: a row that fails
// CamposOk is skipped, one whose key exists is updated, any other inserted,
// all on the adapter's Conexion; the first failure stops it, and the rows
// saved before it stay saved. Unlike GrabarDatos it tells what it did: when
// the failure may have left the row written all the same, it looks (see
// settle.h) and counts the row when it is there; with a list of servers it
// goes on through the next one when the server it is on is lost, telling
// notify of each such line at once (see failover.h). A signal (see
// process.h) stops it after the row in progress.
// empty[i] says whether row i + 1 came from an empty line.
template <class A>
SaveResult SaveRows(A& adapter, ListOf<A>& rows, const std::vector<bool>& empty, Progress& progress,
                    const Notify& notify = {}) {
    SaveResult r;
    size_t line = 0;
    for (const typename A::EntityRef& e : rows) {
        ++line;
        if (const int sig = StopSignal()) {
            r.stopSignal = sig;
            r.stoppedLine = line;
            break;
        }
        progress.Update(line);
        std::string mensajes;
        if (!adapter.CamposOk(*e, mensajes)) {
            if (line <= empty.size() && empty[line - 1]) ++r.emptySkipped;
            else r.skipped.push_back({line, OneLine(mensajes)});
            continue;
        }
        const RowOutcome o = SaveRow(adapter, e, line, notify);
        r.inserted += o.inserted;
        r.updated += o.updated;
        if (o.failure) {
            r.failure = o.failure;
            r.failedLine = line;
            r.fate = o.fate;
            r.fateWhy = o.fateWhy;
            break;
        }
    }
    return r;
}

// The rows as ExportarTexto writes them. With a progress bar showing, in
// pieces of a few thousand rows so that the bar can move; the text is the
// same as one call gives.
template <class A>
std::string ExportRows(A& adapter, ListOf<A>& rows, const std::string& separador, Progress& progress) {
    constexpr int32_t kPiece = 2000;
    std::string sep = separador;
    if (!progress.Shown()) return adapter.ExportarTexto(rows, sep);
    std::string texto;
    size_t done = 0;
    auto piece = std::make_shared<ListOf<A>>();
    auto flush = [&] {
        std::string part = adapter.ExportarTexto(*piece, sep);
        part.resize(part.size() - 2);  // each call closes with one more CR LF
        texto += part;
        piece = std::make_shared<ListOf<A>>();
        progress.Update(done);
    };
    for (typename A::EntityRef e : rows) {
        piece->AddEntidad(e);
        ++done;
        if (piece->Count() == kPiece) {
            flush();
            if (StopSignal()) return texto;  // the caller writes none of it
        }
    }
    flush();
    texto += "\r\n";
    return texto;
}

// One XML document of the rows: <datos tabla="T" filas="N"> holding the
// element each row's ToXML gives, one per line.
template <class L>
std::string XmlDocument(L& rows, const std::string& tabla) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<datos tabla=\"" + tabla + "\" filas=\"" +
                      std::to_string(rows.Count()) + "\">\n";
    for (const auto& e : rows) xml += "  " + e->ToXML()->xml() + "\n";
    xml += "</datos>\n";
    return xml;
}

}  // namespace zaro
