// The row a failed save may still have written.
//
// After a statement fails for a reason where it may have been applied all
// the same (the connection was lost or timed out while it ran, the disk
// filled), zaro looks at the table once the connection is back and says
// which it is: saved, not saved, or unknown. An insert is looked for with
// the adapter's Existe; an update is read back with the adapter's Entidad
// and compared field by field (its text as ExportarTexto writes it).
#pragma once

#include <string>

#include "tables.h"

namespace zaro {

enum class Fate { NotChecked, Saved, NotSaved, Unknown };

// Whether a statement that failed with this error may have been applied.
bool MayHaveBeenApplied(const Error& e);

// The stored row with the entity's key, through the adapter's Entidad.
std::shared_ptr<entarticulo> StoredRow(daarticulo& da, entarticulo& e);
std::shared_ptr<ent_definicion_campos> StoredRow(da_definicion_campos& da, ent_definicion_campos& e);
std::shared_ptr<entinicio_dia> StoredRow(dainicio_dia& da, entinicio_dia& e);
std::shared_ptr<entfin_dia> StoredRow(dafin_dia& da, entfin_dia& e);
std::shared_ptr<entresumen_diario> StoredRow(daresumen_diario& da, entresumen_diario& e);
std::shared_ptr<entresumen_diario_detalle> StoredRow(daresumen_diario_detalle& da, entresumen_diario_detalle& e);
std::shared_ptr<entticket> StoredRow(daticket& da, entticket& e);
std::shared_ptr<entticket_articulo> StoredRow(daticket_articulo& da, entticket_articulo& e);
std::shared_ptr<entticket_impuesto> StoredRow(daticket_impuesto& da, entticket_impuesto& e);
std::shared_ptr<entticket_pago> StoredRow(daticket_pago& da, entticket_pago& e);

// Sleeps between two looks at a connection that is not back yet.
void PauseBeforeLookingAgain();

// Whether the row of a failed save is in the table: inserted (Existe) or
// updated (the stored row holds the entity's values). Looks up to three
// times, a second apart, while the connection is not back; why tells what
// stopped the last look.
template <class A>
Fate SettleRow(A& adapter, const typename A::EntityRef& e, bool updating, std::string& why) {
    const int looks = 3;
    for (int look = 1;; ++look) {
        try {
            why.clear();
            if (!updating) return adapter.Existe(*e) ? Fate::Saved : Fate::NotSaved;
            auto stored = StoredRow(adapter, *e);
            if (!stored) {
                why = "the row it updates is no longer in the table";
                return Fate::Unknown;
            }
            ListOf<A> one, other;
            one.AddEntidad(stored);
            other.AddEntidad(e);
            std::string sep = ";";
            return adapter.ExportarTexto(one, sep) == adapter.ExportarTexto(other, sep) ? Fate::Saved
                                                                                        : Fate::NotSaved;
        } catch (const Error& err) {
            why = "the check failed: " + DescribeError(err);
        }
        if (look >= looks) return Fate::Unknown;
        PauseBeforeLookingAgain();
    }
}

// The end of a stop report for the line of a failed save: what became of it,
// and the rows saved.
std::string FateReport(Fate fate, size_t line, size_t saved, const std::string& why);

}  // namespace zaro
