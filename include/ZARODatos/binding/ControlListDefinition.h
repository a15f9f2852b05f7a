// ControlListDefinition: the memory of one load of a control, and the
// controller that turns a loaded flex grid into an editable list.
//
// As a record it holds what the control shows (Datos, one entity per row;
// Columnas, one Columna per grid column) and how it was loaded. The helper
// that loaded the control (Clh) writes it, and refers back to it only
// weakly: the helper owns its definitions, so nothing keeps itself alive.
// Creation: Datos, Columnas and Entidad are new empty objects,
// ColorLineaSeleccionada is white, everything else zero, empty or nothing.
// Destruction releases Datos, Columnas, control, Recordset and Entidad in
// this order.
// Ownership: shared (the helper's collection holds it). Thread: the
// user-interface thread. The record raises nothing of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ZARODatos/binding/Columna.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/ADODB.h"
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

    // The overlays and the control. TextBox and ListBox given no object keep
    // the one they had; MonthView given no object drops it.
    ControlRef TextBox() const { return mTextBox; }
    void TextBox(const ControlRef& textBox);
    ControlRef ListBox() const { return mListBox; }
    void ListBox(const ControlRef& listBox);
    ControlRef MonthView() const { return mMonthView; }
    void MonthView(const ControlRef& monthView);
    void control(const ControlRef& c);
    ControlRef control() const { return mControl; }

    std::string TypeName() const override { return "ControlListDefinition"; }

private:
    ControlRef mTextBox, mListBox, mMonthView, mControl;
};

using ControlListDefinitionRef = std::shared_ptr<ControlListDefinition>;

}  // namespace OVT_ZARO
