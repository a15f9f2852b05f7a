// Sorting a loaded control again in place, with the settings of its last load.
#include "ZARODatos/binding/ControlListHelper.h"
#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/platform/Conversions.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::Obj;
using enlace::RelanzaDescripcionComoNumero;

void ControlListHelper::Ordena(ByRef<ControlRef> Grid, ByRef<std::string> Campo, ByRef<bool> Descendente) {
    // Handler: the description taken as the number (13 for any text). It does
    // not show the control again: a failed reload leaves it hidden.
    try {
        ControlListDefinitionRef def = BuscaDefinicion(*Grid);
        // With failures suppressed: no definition, or a data grid with no Datos, sorts nothing.
        CollectionRef ordenada;
        try {
            ObjectRef datos = Obj(def).Datos;
            ordenada = BasTroquel::OrdenarColeccion(datos, *Campo, Descendente);
        } catch (...) {
        }
        // From here on the definition's control, not Grid; a missing definition fails here.
        ControlRef control = Obj(def).control();
        Obj(control).SetVisible(false);
        const std::string tipo = control->TypeName();
        // The settings of the last load, read before the reload writes the definition again.
        coleccionColumnasRef columnas = def->Columnas;
        bool permitirOrdenar = def->PermitirOrdenar;
        int32_t color = def->ColorLineaSeleccionada;
        std::shared_ptr<ADODB::Recordset> recordset = def->Recordset;
        IEntidadRef entidad = def->Entidad;
        ObjectRef lista = ordenada;
        if (TextEquals(tipo, "ListBox") || TextEquals(tipo, "ComboBox")) {
            // Reloaded with an empty NombreCampo, whatever field the last load named.
            CargaListBox(control, lista, std::string(), true);
        } else if (TextEquals(tipo, "MSFlexGrid") || TextEquals(tipo, "MSHFlexGrid")) {
            // Back with blnNoEventosCambioCelda false, whatever the last load said.
            CargaMSFlexGrid(control, lista, columnas, permitirOrdenar, def->TextBox(), def->ListBox(), def->MonthView(),
                            color, false);
        } else if (TextEquals(tipo, "fpSpread") || TextEquals(tipo, "vaSpread")) {
            CargaFpSpread(control, lista, columnas);
        } else if (TextEquals(tipo, "DataGrid")) {
            // A data grid is not sorted: it shows its Recordset in the order it had.
            CargaDataGrid(control, recordset, entidad, columnas);
        }
        control->SetVisible(true);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

}  // namespace OVT_ZARO
