// ControlListDefinition as a record: creation, the overlays and the
// control stored, and the order of release.
#include "ZARODatos/binding/ControlListDefinition.h"

namespace OVT_ZARO {

ControlListDefinition::ControlListDefinition()
    : Datos(std::make_shared<Collection>()),
      Columnas(std::make_shared<coleccionColumnas>()),
      Entidad(std::make_shared<IEntidad>()) {}

ControlListDefinition::~ControlListDefinition() {
    // Released in this order; no handler: a failure goes to the caller.
    Datos.reset();
    Columnas.reset();
    control(nullptr);
    Recordset.reset();
    Entidad.reset();
}

void ControlListDefinition::control(const ControlRef& c) { mControl = c; }

void ControlListDefinition::TextBox(const ControlRef& textBox) {
    if (!textBox) return;  // no object: the earlier text box stays
    mTextBox = textBox;
}

void ControlListDefinition::ListBox(const ControlRef& listBox) {
    if (!listBox) return;  // no object: the earlier list stays
    mListBox = listBox;
}

void ControlListDefinition::MonthView(const ControlRef& monthView) { mMonthView = monthView; }

}  // namespace OVT_ZARO
