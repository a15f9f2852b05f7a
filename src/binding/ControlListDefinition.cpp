// ControlListDefinition: creation and release, the overlays and the grid
// attached with their events, the current cell, entering and leaving a
// cell, the row colouring, and sorting by a click on a heading.
#include "ZARODatos/binding/ControlListDefinition.h"

#include "ZARODatos/binding/ControlListHelper.h"
#include "ZARODatos/platform/Conversions.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::Obj;
using enlace::Paso;
using enlace::Valor;

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

ControlListHelper& ControlListDefinition::Helper() { return Obj(Clh.lock()); }

template <class... Args>
Subscription ControlListDefinition::Escucha(const ControlRef& c, Event<Args...> Control::*evento,
                                            void (ControlListDefinition::*metodo)(Args&...)) {
    // The handler keeps the definition alive while it runs, when a shared_ptr holds it.
    return Subscription(c, evento, [this, metodo](Args&... args) {
        auto vivo = weak_from_this().lock();
        (this->*metodo)(args...);
    });
}

// ---- The grid and the overlays ---------------------------------------------------

void ControlListDefinition::control(const ControlRef& c) {
    // Carries on past a failing step.
    mControl = c;
    if (!Valor([&] { return TextEquals(c ? c->TypeName() : "Nothing", "MSFlexGrid"); }, false)) return;
    MSFlexGrid = c;
    eventosMSFlexGrid_.clear();
    Paso([&] {
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::Click, &ControlListDefinition::MSFlexGrid_Click));
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::DblClick, &ControlListDefinition::MSFlexGrid_DblClick));
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::KeyUp, &ControlListDefinition::MSFlexGrid_KeyUp));
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::MouseUp, &ControlListDefinition::MSFlexGrid_MouseUp));
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::EnterCell, &ControlListDefinition::MSFlexGrid_EnterCell));
        eventosMSFlexGrid_.push_back(Escucha(c, &Control::LeaveCell, &ControlListDefinition::MSFlexGrid_LeaveCell));
    });
}

void ControlListDefinition::TextBox(const ControlRef& textBox) {
    // Unguarded: with no grid given before, the last step raises 91.
    if (!textBox) return;  // no object: the earlier text box stays
    mTextBox = textBox;
    eventosTextBox_.clear();
    eventosTextBox_.push_back(Escucha(textBox, &Control::GotFocus, &ControlListDefinition::mTextBox_GotFocus));
    eventosTextBox_.push_back(Escucha(textBox, &Control::KeyPress, &ControlListDefinition::mTextBox_KeyPress));
    eventosTextBox_.push_back(Escucha(textBox, &Control::KeyUp, &ControlListDefinition::mTextBox_KeyUp));
    eventosTextBox_.push_back(Escucha(textBox, &Control::LostFocus, &ControlListDefinition::mTextBox_LostFocus));
    eventosTextBox_.push_back(Escucha(textBox, &Control::DblClick, &ControlListDefinition::mTextBox_DblClick));
    textBox->SetTabStop(false);
    Obj(MSFlexGrid).SetHighLight(0);
}

void ControlListDefinition::ListBox(const ControlRef& listBox) {
    // Unguarded.
    if (!listBox) return;  // no object: the earlier list stays
    mListBox = listBox;
    eventosListBox_.clear();
    eventosListBox_.push_back(Escucha(listBox, &Control::Click, &ControlListDefinition::mListBox_Click));
    eventosListBox_.push_back(Escucha(listBox, &Control::KeyUp, &ControlListDefinition::mListBox_KeyUp));
    listBox->SetTabStop(false);
    listBox->SetHeight(2370);
}

void ControlListDefinition::MonthView(const ControlRef& monthView) {
    // Unguarded. The calendar is stored as given, also nothing, and not configured.
    mMonthView = monthView;
    eventosMonthView_.clear();
    if (!monthView) return;
    eventosMonthView_.push_back(
        Escucha(monthView, &Control::DateClick, &ControlListDefinition::mMonthView_DateClick));
    eventosMonthView_.push_back(
        Escucha(monthView, &Control::LostFocus, &ControlListDefinition::mMonthView_LostFocus));
}

// ---- The current cell --------------------------------------------------------------

int32_t ControlListDefinition::ColActual() {
    // Unguarded.
    return MSFlexGrid ? MSFlexGrid->GetCol() : 1;
}

int32_t ControlListDefinition::FilaActual() {
    // Carries on: a failing Row gives 0.
    if (!MSFlexGrid) return 1;
    return Valor([&] { return Obj(MSFlexGrid).GetRow(); }, int32_t{0});
}

int16_t ControlListDefinition::IndiceColumna(const std::string& nombre) {
    // Carries on: with no Columnas the result stays 0.
    int16_t resultado = 0;
    Paso([&] {
        const int32_t n = Obj(Columnas).Count();
        for (int32_t i = 1; i <= n; ++i) {
            if (TextEquals(Obj(Columnas).Item(i)->Nombre, nombre)) {
                resultado = static_cast<int16_t>(i);
                return;
            }
        }
        resultado = static_cast<int16_t>(n + 1);
    });
    return resultado;
}

// ---- Entering and leaving a cell -----------------------------------------------

void ControlListDefinition::MSFlexGrid_EnterCell() {
    // Carries on past every failing step.
    if (Iniciando || bNoEventosCambioCelda) return;
    if (!Datos) return;
    if (mCeldaErronea) {
        // The cursor is taken back to the cell that failed; the row is not coloured.
        bNoEventosCambioCelda = true;
        Paso([&] { Obj(MSFlexGrid).SetRow(mFilaActual); });
        Paso([&] { Obj(MSFlexGrid).SetCol(mColActual); });
        bNoEventosCambioCelda = false;
        return;
    }
    Paso([&] { mFilaActual = Obj(MSFlexGrid).GetRow(); });
    Paso([&] { mColActual = Obj(MSFlexGrid).GetCol(); });
    bNoEventosCambioCelda = true;
    Paso([&] { PintaLinea(ColorLineaSeleccionada, Obj(MSFlexGrid).GetRow()); });
    bNoEventosCambioCelda = false;
}

void ControlListDefinition::MSFlexGrid_LeaveCell() {
    // Carries on past every failing step.
    if (Iniciando || bNoEventosCambioCelda) return;
    if (!Datos) return;
    Paso([&] {
        if (Obj(Columnas).Item(ColActual())->TipoDato != Check) ConfirmaCelda();  // its result is not needed
    });
    // The row that is left goes white, whatever ColorLineaSeleccionada is.
    Paso([&] { PintaLinea(0xFFFFFF, Obj(MSFlexGrid).GetRow()); });
}

void ControlListDefinition::PintaLinea(int32_t color, int32_t fila) {
    // Carries on past every failing step. Colours the row the grid stands on:
    // the row argument is not read. Column 0 is left alone.
    (void)fila;
    int32_t colGuardada = 0;
    Paso([&] { colGuardada = Obj(MSFlexGrid).GetCol(); });
    const bool banderaGuardada = bNoEventosCambioCelda;
    const int32_t columnas = Valor([&] { return Obj(MSFlexGrid).GetCols(); }, int32_t{0});
    for (int32_t i = 1; i <= columnas - 1; ++i) {
        bNoEventosCambioCelda = true;
        Paso([&] { Obj(MSFlexGrid).SetCol(i); });
        Paso([&] { Obj(MSFlexGrid).SetCellBackColor(color); });
    }
    Paso([&] { Obj(MSFlexGrid).SetCol(colGuardada); });
    bNoEventosCambioCelda = banderaGuardada;
}

// ---- Sorting by a click on a heading ---------------------------------------------

void ControlListDefinition::MSFlexGrid_MouseUp(int16_t&, int16_t&, float& X, float& Y) {
    // Carries on past a failing step.
    if (Iniciando) return;
    if (!Datos) return;
    Paso([&] { ClickCabecera(MSFlexGrid, X, Y); });
}

void ControlListDefinition::ClickCabecera(const ControlRef& grid, float X, float Y) {
    // Local handler: any failure ends the operation quietly.
    try {
        if (!PermitirOrdenar) return;
        if (Y > static_cast<float>(Obj(grid).GetRowHeight(0))) return;  // below the heading row
        CancelaEdicion();
        const int32_t k = ColumnaEnX(grid, X);
        if (!(k > 0 && k < grid->GetCols())) return;
        const std::string campo = Obj(Columnas).Item(k)->Nombre;
        // The first click on a column sorts ascending, a repeated one toggles.
        mOrdenDescendente = TextEquals(mCampoOrden, campo) ? !mOrdenDescendente : false;
        mCampoOrden = campo;
        Helper().Ordena(mControl, mCampoOrden, mOrdenDescendente);
    } catch (...) {
    }
}

int32_t ControlListDefinition::ColumnaEnX(const ControlRef& grid, float X) {
    // Local handler: 0 on any failure.
    try {
        const int32_t n = Obj(grid).GetCols();
        for (int32_t i = 0; i <= n - 1; ++i) {
            const auto pos = static_cast<float>(grid->GetColPos(i));
            if (pos <= X && X < pos + static_cast<float>(grid->GetColWidth(i))) return i;
        }
        return 0;
    } catch (...) {
        return 0;
    }
}

}  // namespace OVT_ZARO
