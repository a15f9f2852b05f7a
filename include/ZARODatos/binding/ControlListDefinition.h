// ControlListDefinition: the memory of one load of a control, and the
// controller that turns a loaded flex grid into an editable list.
//
// As a record it holds what the control shows (Datos, one entity per row;
// Columnas, one Columna per grid column) and how it was loaded. The helper
// that loaded the control (Clh) writes it; the definition refers back to it
// weakly, since the helper owns its definitions.
// Creation: Datos, Columnas and Entidad are new empty objects,
// ColorLineaSeleccionada is white, everything else zero, empty or nothing.
// Destruction releases Datos, Columnas, control, Recordset and Entidad in
// this order, and detaches every handler it attached.
//
// As a controller it listens to the grid given to control (when its type
// name is "MSFlexGrid") and to the three overlays a host form supplies: a
// text box laid over the cell being edited, a list box laid under it for a
// lookup, and a month calendar for a date. Grid row r shows Datos item r and
// grid column c Columnas item c; column 0 is the indicator column, where a
// refused cell shows the picture "atencion". An edit changes the entity in
// Datos and the grid; the host hears of it through the helper's events
// CompruebaCeldaEntrada (it may refuse) and CeldaModificada. Saving is the
// host's own step. Keys act when released; a grid move by Row or Col fires
// LeaveCell (which commits) and EnterCell (which colours the row).
//
// Failure disciplines, each written at its operation:
//   - carry on (a failing step is skipped, the next one runs, nothing is
//     reported): the handlers of the grid, text box and calendar with more
//     than one step, IniciaEdicion, CancelaEdicion, ValidaCelda,
//     RefrescaDescripcion, FormateaValor, FiltraTecla, MuestraMonthView,
//     PintaLinea, IndiceColumna, FilaActual, and setting control;
//   - unguarded (the failure reaches the caller): ConfirmaCelda,
//     ColocaTextBox, ColocaListBox, ColActual, the overlay setters, the small
//     handlers (text box KeyPress and LostFocus, list Click and KeyUp,
//     calendar LostFocus);
//   - a local handler: ClickCabecera ends quietly, ColumnaEnX gives 0,
//     FiltraListBox raises again under "ControlListDefinition.FiltraListBox".
// Ownership: shared (the helper's collection holds it). Thread: the
// user-interface thread; the hazard is re-entrancy, which the flags
// Iniciando and bNoEventosCambioCelda guard.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/binding/Columna.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/ByRef.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Controls.h"

namespace OVT_ZARO {

class ControlListHelper;

class ControlListDefinition : public Object {
public:
    ControlListDefinition();
    ~ControlListDefinition() override;
    ControlListDefinition(const ControlListDefinition&) = delete;
    ControlListDefinition& operator=(const ControlListDefinition&) = delete;

    CollectionRef Datos;                        // the row entities: item n is grid row n
    coleccionColumnasRef Columnas;              // item c is grid column c
    std::shared_ptr<ADODB::Recordset> Recordset;  // kept for the loader; a data grid's source
    IEntidadRef Entidad;                        // the entity of the row last edited
    bool PermitirOrdenar = false;               // a click on a heading sorts
    int32_t ColorLineaSeleccionada = 0xFFFFFF;  // the current row's and the text overlay's background
    bool Iniciando = false;                     // the grid is being loaded: its events do nothing
    bool bNoEventosCambioCelda = false;         // cell changes are no edits: no commit, no row colour
    std::weak_ptr<ControlListHelper> Clh;       // the helper that raises the edits' events (not owned)

    // The overlays and the control. TextBox given an object attaches it to
    // the grid given to control before (with none, it raises 91): its TabStop
    // becomes false and the grid's HighLight 0. ListBox given an object
    // attaches it with TabStop false and Height 2370. TextBox and ListBox
    // given no object keep the one they had; MonthView given no object drops it.
    ControlRef TextBox() const { return mTextBox; }
    void TextBox(const ControlRef& textBox);
    ControlRef ListBox() const { return mListBox; }
    void ListBox(const ControlRef& listBox);
    ControlRef MonthView() const { return mMonthView; }
    void MonthView(const ControlRef& monthView);
    // Any object is kept; only a control whose TypeName is "MSFlexGrid"
    // becomes the grid whose events are heard (another leaves the grid as it was).
    void control(const ControlRef& c);
    ControlRef control() const { return mControl; }

    // ---- Cell editing -------------------------------------------------------
    // Starts an edit on the current cell (the text overlay over it, all its
    // text selected, the lookup list under it), or toggles a Check cell.
    // TextoFijo and Boton cells are never edited.
    void IniciaEdicion();
    // Drops the typed text and hides the text and list overlays.
    void CancelaEdicion();
    // Loads the text overlay from the current cell and lays it over the cell.
    void ColocaTextBox();
    // Completes a date, asks the host (CompruebaCeldaEntrada), and shows or
    // clears the warning picture in column 0. True when the value stands.
    bool ValidaCelda();
    // The commit: validates, writes the value into the row's entity and the
    // cell (through the lookup list when it is open), tells the host
    // (CeldaModificada) and hides the overlays. False when refused.
    bool ConfirmaCelda();

    // ---- Typed input ----------------------------------------------------------
    // The key the text overlay receives for a key typed: 0 swallows it.
    int16_t FiltraTecla(const ControlRef& control, ByRef<int16_t> KeyAscii);
    // The display text of a committed text for grid column col (0: the
    // current one); a Check column also gets the picture of its mark.
    std::string FormateaValor(ByRef<std::string> texto, ByRef<int32_t> col);
    // Opens the calendar under the current cell, on the overlay's date or today.
    void MuestraMonthView();

    // ---- Lookups ----------------------------------------------------------------
    // Lays the lookup list under the current cell.
    void ColocaListBox();
    // Fills the lookup list from the current column's OrigenDatos on its
    // Conexion, narrowed by the overlay's text once the user has typed.
    void FiltraListBox();
    // After the key column campo was typed by hand, reads the description
    // of the column that looks it up again from the database.
    void RefrescaDescripcion(ByRef<std::string> campo);

    std::string TypeName() const override { return "ControlListDefinition"; }

private:
    int32_t ColActual();
    int32_t FilaActual();
    int16_t IndiceColumna(const std::string& nombre);
    ControlListHelper& Helper();

    // The handlers of the events of the grid, the overlays and the calendar, named after the members they listen to.
    void MSFlexGrid_Click();
    void MSFlexGrid_DblClick();
    void MSFlexGrid_KeyUp(int16_t& KeyCode, int16_t& Shift);
    void MSFlexGrid_MouseUp(int16_t& Button, int16_t& Shift, float& X, float& Y);
    void MSFlexGrid_EnterCell();
    void MSFlexGrid_LeaveCell();
    void mTextBox_GotFocus();
    void mTextBox_KeyPress(int16_t& KeyAscii);
    void mTextBox_KeyUp(int16_t& KeyCode, int16_t& Shift);
    void mTextBox_LostFocus();
    void mTextBox_DblClick();
    void mListBox_Click();
    void mListBox_KeyUp(int16_t& KeyCode, int16_t& Shift);
    void mMonthView_DateClick(Date& fecha);
    void mMonthView_LostFocus();

    void PintaLinea(int32_t color, int32_t fila);
    void ClickCabecera(const ControlRef& grid, float X, float Y);
    int32_t ColumnaEnX(const ControlRef& grid, float X);
    void MueveDerecha();
    bool CompletaFecha();
    void EscribeTexto();
    void EscribeLista();
    void ImagenCheck(const Columna& c, const std::string& texto);

    // Attaches a handler of this definition to an event of a control.
    template <class... Args>
    Subscription Escucha(const ControlRef& c, Event<Args...> Control::*evento,
                         void (ControlListDefinition::*metodo)(Args&...));

    ControlRef MSFlexGrid;  // the grid whose events are heard
    ControlRef mTextBox, mListBox, mMonthView, mControl;
    std::string mCampoOrden;          // Nombre of the column of the last heading sort
    bool mOrdenDescendente = false;   // its direction
    bool mListaArmada = false;        // a click on the list overlay may commit
    int32_t mFilaActual = 0;          // the cell last entered
    int32_t mColActual = 0;
    bool mCeldaErronea = false;       // the last validation failed: the grid is held on that cell
    std::vector<Subscription> eventosMSFlexGrid_, eventosTextBox_, eventosListBox_, eventosMonthView_;
};

using ControlListDefinitionRef = std::shared_ptr<ControlListDefinition>;

}  // namespace OVT_ZARO
