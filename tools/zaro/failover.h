// Saving one row as GrabarDatos does, and going on through another server
// when the connection lists several (a cluster's nodes) and the one it is on
// is lost.
//
// On one server, the first failure stops the saving; when it may have
// written the row all the same, the row is looked for (settle.h). With a list
// of servers, a lost server (2006, 2013 ...) or a node that is no longer ready
// (1047) does not stop it: the row is looked for on the server the next call
// opens (the next of the list that answers); when it is there it counts as
// saved, when not it is saved there. Each such line is reported at once.
//
// Two answers of a cluster are expected right after that, and taken in
// stride, each reported:
//   - 1062 on the row's insert: the lost server's insert of that same row
//     reached the new one between the look and the insert. The row is read
//     again and updated; it counts once, as the insert it was.
//   - 1213 on any row: a conflict with another node's write (certification).
//     The row is tried once more from its look.
// So every line counts once, as inserted or updated, or stops the saving.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "settle.h"

namespace zaro {

// A line about a row's save, for the operator ("line 12: ...").
using Notify = std::function<void(const std::string&)>;

// What became of one row.
struct RowOutcome {
    size_t inserted = 0, updated = 0;  // 1 in one of them when saved
    std::optional<Error> failure;      // what stopped the saving
    Fate fate = Fate::NotChecked;      // what became of the row, when the failure leaves it open
    std::string fateWhy;
};

// Whether the connection lists more than one server.
bool OnAList(const ConnectionRef& conexion);
// The words of a lost server in a report: "10.0.0.5:3306 was lost (error 2013 (...): ...)".
std::string LostServer(const std::string& server, const Error& e);

template <class A>
RowOutcome SaveRow(A& adapter, const typename A::EntityRef& e, size_t line, const Notify& notify) {
    enum Step { Looking, Inserting, Updating };
    const bool list = OnAList(adapter.Conexion);
    const size_t maxMoves = list ? adapter.Conexion->Servers().size() : 0;
    const std::string l = "line " + std::to_string(line) + ": ";
    auto tell = [&](const std::string& text) {
        if (notify) notify(l + text);
    };
    size_t moves = 0;
    bool conflictTried = false, readAgain = false;
    std::optional<Step> inFlight;  // what the row's statement was doing when its server was lost
    std::string lost;              // the servers lost on this row, for the report
    RowOutcome out;
    // Counted once: as the insert that was in flight, else as what it was.
    auto count = [&](Step step) {
        const bool insert = inFlight ? *inFlight == Inserting : step == Inserting;
        ++(insert ? out.inserted : out.updated);
    };
    for (;;) {
        Step step = Looking;
        const std::string server = list ? adapter.Conexion->CurrentServer() : std::string();
        try {
            if (adapter.Existe(*e)) {
                step = Updating;
                adapter.Update(*e);
            } else {
                step = Inserting;
                adapter.Insert(*e);
            }
            count(step);
            if (!lost.empty())
                tell(lost + "; went on through " + adapter.Conexion->CurrentServer() + ", where the line was " +
                     (readAgain ? "saved: its insert met error 1062 there, as the lost server's insert of it had "
                                  "reached it, so it was read again and updated"
                                : "saved"));
            return out;
        } catch (const Error& err) {
            if (err.Number == 1213 && !conflictTried) {
                conflictTried = true;
                tell(DescribeError(err) + ": a conflict with a write on another node; tried once more");
                continue;
            }
            if (err.Number == 1062 && step == Inserting && !lost.empty() && !readAgain) {
                readAgain = true;
                continue;
            }
            // Refused or never sent: 1047 a node not ready, 2002 and 2003 no
            // server of the list answered.
            const bool unsent = err.Number == 1047 || err.Number == 2002 || err.Number == 2003;
            const bool gone = (MayHaveBeenApplied(err) && err.Number != 1021 && err.Number != 20) || unsent;
            if (list && gone && moves < maxMoves) {
                Fate fate = Fate::NotSaved;
                std::string why;
                if (step != Looking && !unsent) fate = SettleRow(adapter, e, step == Updating, why);
                if (fate != Fate::Unknown) {
                    ++moves;
                    if (step != Looking && (!inFlight || *inFlight == Looking)) inFlight = step;
                    lost += (lost.empty() ? "" : "; ") + LostServer(server, err);
                    if (fate == Fate::Saved) {
                        count(step);
                        tell(lost + "; went on through " + adapter.Conexion->CurrentServer() +
                             ", where the line was already saved");
                        return out;
                    }
                    continue;  // saved on the server the next call opens
                }
                out.failure = err;
                out.fate = fate;
                out.fateWhy = why;
                return out;
            }
            out.failure = err;
            if (inFlight && *inFlight != Looking) {
                // Written on a server that was lost, and not found since: it may be there.
                out.fate = Fate::Unknown;
                out.fateWhy = "it was being written when " + lost + ", and could not be looked for since";
                return out;
            }
            // As on one server: the failure stops the saving.
            if (step == Looking && MayHaveBeenApplied(err)) {
                // Nothing was written while the key was looked for.
                out.fate = Fate::NotSaved;
                out.fateWhy = "it failed while its key was looked for, before it was written";
            }
            if (step != Looking && err.Number == 1021) {
                // A table whose write the full disk stopped is repaired when it
                // opens again with room: only then can it be looked at.
                out.fate = Fate::Unknown;
                out.fateWhy = "the disk filled while it was written; the table is repaired when it is opened again "
                              "once there is space";
            } else if (step != Looking && MayHaveBeenApplied(err)) {
                out.fate = SettleRow(adapter, e, step == Updating, out.fateWhy);
                if (out.fate == Fate::Saved) count(step);
            }
            return out;
        }
    }
}

}  // namespace zaro
