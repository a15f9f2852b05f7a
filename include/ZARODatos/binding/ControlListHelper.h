// ControlListHelper: the one object a screen keeps for all its lists. It
// loads any list of the library into a list box, a combo box, a flex grid,
// a spread or a data grid, remembers for each control which entities it
// shows, answers which entity is selected, sorts a loaded control again,
// and raises the events of the screen's edits.
//
// A list is any object with Count and Item (a typed list, a generic list, a
// simple key list, the platform's Collection) whose elements are entities.
// A control is known by three texts, compared ignoring case: its TypeName,
// its Name and the Name of its Parent. Each control has one definition,
// made at its first load and overwritten by every later one; the helper
// never drops a definition while it lives.
//
// Failure styles, each written at its operation:
//   - ValorSeleccionado: raises again what fails, with the source "ControlHelper".
//   - CargaListBox: whatever fails, 1 "Tipo de datos incorrecto", source
//     "ControlHelper" (a control of the wrong kind too); the mouse pointer
//     stays at the hourglass (11).
//   - CargaMSFlexGrid, CargaFpSpread, CargaDataGrid, Ordena and the drawing
//     of rows: the failure's description taken as its number, which for any
//     description that is no number ends in 13 "Type mismatch".
// Every row loaded yields to the screen (DoEvents).
// Ownership: held by the host in a std::shared_ptr (the definitions refer
// back to it weakly). Thread: the user-interface thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ZARODatos/binding/Columna.h"
#include "ZARODatos/binding/ControlListDefinition.h"
#include "ZARODatos/platform/ByRef.h"
#include "ZARODatos/platform/Event.h"

namespace OVT_ZARO {

class ControlListHelper : public Object {
public:
    // Events; every argument is by reference.
    // A row was drawn: the control, its entity, the row (a grid's from 1, a list's NewIndex from 0).
    Event<ControlRef, IEntidadRef, int32_t> PintandoLinea;
    // A cell was written: the grid, the column, the entity, col, row, the old and the new value.
    Event<ControlRef, ColumnaRef, IEntidadRef, int32_t, int32_t, Variant, Variant> CeldaModificada;
    // A cell is about to be written: the same, and Correcto, which a handler sets false to refuse.
    Event<ControlRef, ColumnaRef, IEntidadRef, int32_t, int32_t, Variant, Variant, bool> CompruebaCeldaEntrada;
    // A cell of a Boton column was clicked.
    Event<ControlRef, ColumnaRef, IEntidadRef, int32_t, int32_t> ClickBoton;

    // Raise the events of those names with the arguments given.
    void DisparaEventoCeldaModificada(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna, ByRef<IEntidadRef> Entidad,
                                      ByRef<int32_t> col, ByRef<int32_t> row, ByRef<Variant> ValorAntiguo,
                                      ByRef<Variant> ValorNuevo);
    void DisparaEventoCompruebaCeldaEntrada(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna,
                                            ByRef<IEntidadRef> Entidad, ByRef<int32_t> col, ByRef<int32_t> row,
                                            ByRef<Variant> ValorAntiguo, ByRef<Variant> ValorNuevo,
                                            ByRef<bool> Correcto);
    void DisparaEventoClickBoton(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna, ByRef<IEntidadRef> Entidad,
                                 ByRef<int32_t> col, ByRef<int32_t> row);

    // The entity of the control's selected row or item, or no object: a
    // list's ListIndex, a flex grid's row (not the heading), a spread's
    // ActiveRow; for a data grid, the definition's one Entidad loaded from
    // the Recordset's current row (each call overwrites the same object).
    IEntidadRef ValorSeleccionado(ByRef<ControlRef> control);

    // Fills a list or combo box with each entity's GetValor(NombreCampo).
    // With LimpiarLista false the items already there stay, with no entity.
    // An empty list stops after the clearing, keeps the earlier definition
    // and leaves the mouse pointer at the hourglass.
    void CargaListBox(ByRef<ControlRef> ListBox_ComboBox, ByRef<ObjectRef> ColeccionEntidades,
                      ByRef<std::string> NombreCampo = std::string(), ByRef<bool> LimpiarLista = true);
    // Binds a data grid to a Recordset and sets up its columns; it is not filled.
    void CargaDataGrid(ByRef<ControlRef> DataGrid, ByRef<std::shared_ptr<ADODB::Recordset>> Recordset,
                       ByRef<IEntidadRef> Entidad, ByRef<coleccionColumnasRef> colColumnas);
    // Fills a flex grid, one entity per row under a heading row, and attaches
    // the overlay editors. Ends on row 1 (if any) and the first visible column.
    void CargaMSFlexGrid(ByRef<ControlRef> MSFlexGrid, ByRef<ObjectRef> ColeccionEntidades,
                         ByRef<coleccionColumnasRef> colColumnas = coleccionColumnasRef(),
                         ByRef<bool> PermitirOrdenar = false, ByRef<ControlRef> TextBox = ControlRef(),
                         ByRef<ControlRef> ListBox = ControlRef(), ByRef<ControlRef> MonthView = ControlRef(),
                         ByRef<int32_t> ColorLineaSeleccionada = 12648447, ByRef<bool> blnNoEventosCambioCelda = false);
    // Fills a spread, one entity per row, typed cells by column type.
    void CargaFpSpread(ByRef<ControlRef> fpSpread, ByRef<ObjectRef> ColeccionEntidades,
                       ByRef<coleccionColumnasRef> colColumnas = coleccionColumnasRef());
    // Sorts the entities a loaded control shows by one field (binary
    // comparison: capitals first) and loads it again with the settings of its
    // last load, hidden meanwhile. A data grid keeps its order.
    void Ordena(ByRef<ControlRef> Grid, ByRef<std::string> Campo, ByRef<bool> Descendente = false);

    std::string TypeName() const override { return "ControlListHelper"; }

    // The definitions, in order of first load (for tests and hosts that look).
    int32_t NumeroDefiniciones() const { return definiciones_.Count(); }

private:
    ControlListDefinitionRef BuscaDefinicion(const ControlRef& control);
    void RegistraControl(const ControlRef& control, const CollectionRef& Datos,
                         const std::shared_ptr<ADODB::Recordset>& Recordset, const IEntidadRef& Entidad,
                         const coleccionColumnasRef& Columnas, bool PermitirOrdenar, const ControlRef& TextBox,
                         const ControlRef& ListBox, const ControlRef& MonthView, int32_t ColorLineaSeleccionada,
                         bool Iniciando, bool bNoEventosCambioCelda);
    void ConfiguraColumnas(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                           ByRef<IEntidadRef> Entidad);
    void PintaLineaFlexGrid(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                            ByRef<IEntidadRef> Entidad, ByRef<int32_t> row, ByRef<CollectionRef> Datos);
    void PintaLineaSpread(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                          ByRef<IEntidadRef> Entidad, ByRef<int32_t> row, ByRef<CollectionRef> Datos);

    BasicCollection<ControlListDefinitionRef> definiciones_;
};

using ControlListHelperRef = std::shared_ptr<ControlListHelper>;

}  // namespace OVT_ZARO
