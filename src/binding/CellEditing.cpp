// Editing a cell of the grid: what starts an edit, the keys on the grid and
// in the overlay, laying the overlay over the cell, validation through the
// host, the commit into the entity and the cell, and the warning picture.
#include "ZARODatos/binding/ControlListDefinition.h"
#include "ZARODatos/binding/ControlListHelper.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Pictures.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/platform/Strings.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::EntidadDe;
using enlace::Obj;
using enlace::Paso;
using enlace::Valor;

namespace {
const char kFechaIncorrecta[] = "Formato fecha incorrecto";

// The type of a column, or NoDefinido when it can not be read.
eTiposDatoColumna TipoDe(const coleccionColumnasRef& columnas, int32_t col) {
    return Valor([&] { return Obj(columnas).Item(col)->TipoDato; }, NoDefinido);
}
}  // namespace

// ---- What starts an edit ------------------------------------------------------------

void ControlListDefinition::MSFlexGrid_Click() {
    // Carries on past every failing step.
    if (Iniciando) return;
    if (!Datos) return;
    Paso([&] {
        const ColumnaRef c = Obj(Columnas).Item(ColActual());
        if (c->TipoDato == Boton) {
            ControlRef grid = MSFlexGrid;
            ColumnaRef columna = c;
            IEntidadRef entidad = EntidadDe(Obj(Datos).Item(FilaActual()));
            int32_t col = ColActual(), fila = FilaActual();
            Helper().DisparaEventoClickBoton(grid, columna, entidad, col, fila);
        } else if (c->TipoDato == Check && !c->CheckDblClick) {
            IniciaEdicion();  // a click toggles
        }
    });
}

void ControlListDefinition::MSFlexGrid_DblClick() {
    // Carries on past every failing step.
    if (Iniciando) return;
    if (!Datos) return;
    const eTiposDatoColumna tipo = TipoDe(Columnas, Valor([&] { return ColActual(); }, int32_t{0}));
    if (tipo == Fecha) {
        Paso([&] { IniciaEdicion(); });
        Paso([&] { MuestraMonthView(); });
    } else if (tipo == Boton) {
        // a button is clicked, not edited
    } else if (tipo == Check) {
        if (Valor([&] { return Obj(Columnas).Item(ColActual())->CheckDblClick; }, false)) Paso([&] { IniciaEdicion(); });
    } else {
        Paso([&] { IniciaEdicion(); });
    }
}

// ---- Keys released on the grid -----------------------------------------------------

void ControlListDefinition::MueveDerecha() {
    // The first column is 2 when column 1 has no width: a hidden key column is skipped.
    Control& g = Obj(MSFlexGrid);
    const int32_t primera = Valor([&] { return g.GetColWidth(1) == 0 ? 2 : 1; }, int32_t{1});
    // Not bracketed by bNoEventosCambioCelda: LeaveCell must commit and colour.
    if (g.GetCol() + 2 > g.GetCols() && g.GetRow() + 1 < g.GetRows()) {
        Paso([&] { g.SetCol(primera); });
        Paso([&] { g.SetRow(g.GetRow() + 1); });
    } else if (g.GetCol() + 1 < g.GetCols() && g.GetRow() < g.GetRows()) {
        Paso([&] { g.SetCol(g.GetCol() + 1); });
    } else {
        // From the last cell the cursor wraps to the top.
        Paso([&] { g.SetCol(primera); });
        Paso([&] { g.SetRow(1); });
    }
    Paso([&] { g.SetFocus(); });
}

void ControlListDefinition::MSFlexGrid_KeyUp(int16_t& KeyCode, int16_t&) {
    // Carries on past every failing step. Acts on top of what the grid did
    // with the key; Rows, Cols, Row and Col are read anew at each test.
    if (Iniciando) return;
    if (!Datos) return;
    Control* g = MSFlexGrid.get();
    if (!g) return;
    switch (KeyCode) {
        case vbKeyEscape:
            Paso([&] { CancelaEdicion(); });
            Paso([&] { g->SetFocus(); });
            break;
        case vbKeyRight: Paso([&] { MueveDerecha(); }); break;
        case vbKeyUp:
            Paso([&] {
                if (g->GetRow() - 1 >= 1) g->SetRow(g->GetRow() - 1);
            });
            Paso([&] { g->SetFocus(); });
            break;
        case vbKeyDown:
            Paso([&] {
                if (g->GetRow() + 1 < g->GetRows()) g->SetRow(g->GetRow() + 1);
            });
            Paso([&] { g->SetFocus(); });
            break;
        case vbKeyLeft:
            Paso([&] {
                if (g->GetCol() - 1 <= 0 && g->GetRow() - 1 != 0) {
                    // To the end of the line above.
                    Paso([&] { g->SetCol(g->GetCols() - 1); });
                    Paso([&] { g->SetRow(g->GetRow() - 1); });
                } else if (g->GetCol() - 1 != 0) {
                    g->SetCol(g->GetCol() - 1);  // a hidden column 1 can be reached this way
                }
            });
            Paso([&] { g->SetFocus(); });
            break;
        case vbKeyReturn:
            if (!mTextBox) return;
            if (Valor([&] { return Obj(mTextBox).GetVisible(); }, false)) {
                Paso([&] { ConfirmaCelda(); });
                Paso([&] { g->SetFocus(); });  // no move
            } else {
                Paso([&] { MueveDerecha(); });
            }
            break;
        default: {
            if (!mTextBox) return;
            if (Valor([&] { return Obj(mTextBox).GetVisible(); }, true)) return;
            const eTiposDatoColumna tipo = TipoDe(Columnas, Valor([&] { return ColActual(); }, int32_t{0}));
            if (tipo == Check) {
                if (KeyCode == vbKeySpace || KeyCode == vbKeyF2) Paso([&] { IniciaEdicion(); });
            } else if (KeyCode == vbKeyF2) {
                Paso([&] { IniciaEdicion(); });
            }
            break;
        }
    }
}

// ---- Keys released in the overlays ----------------------------------------------------

void ControlListDefinition::mTextBox_KeyUp(int16_t& KeyCode, int16_t& Shift) {
    // Carries on past every failing step.
    mListaArmada = false;  // every key release disarms the list
    switch (KeyCode) {
        case vbKeyLeft:
        case vbKeyRight:
            break;  // they stay within the text
        case vbKeyUp:
            Paso([&] {
                if (!Obj(mListBox).GetVisible()) return;
                KeyCode = 0;
                if (Obj(mListBox).GetListIndex() >= 1 && Obj(mListBox).GetListCount() >= 1)
                    Obj(mListBox).SetListIndex(Obj(mListBox).GetListIndex() - 1);
            });
            break;
        case vbKeyDown:
            Paso([&] {
                if (!Obj(mListBox).GetVisible()) return;
                KeyCode = 0;
                const int32_t i = Obj(mListBox).GetListIndex(), n = Obj(mListBox).GetListCount();
                if (i < n && n > i + 1) Obj(mListBox).SetListIndex(i + 1);
            });
            break;
        case vbKeyReturn:
        case vbKeyF2: {
            Paso([&] { ConfirmaCelda(); });
            int16_t derecha = vbKeyRight, sinShift = 0;
            Paso([&] { MSFlexGrid_KeyUp(derecha, sinShift); });  // the cursor moves right
            break;
        }
        case vbKeyEscape: {
            int16_t escape = vbKeyEscape;
            Paso([&] { MSFlexGrid_KeyUp(escape, Shift); });
            break;
        }
        case vbKeyPageUp:
        case vbKeyPageDown:
        case vbKeyEnd:
        case vbKeyHome:
        case vbKeyInsert:
            break;
        default:
            // The test is for an empty text, not trimmed: blanks call FiltraListBox, which then does nothing.
            Paso([&] {
                if (!Obj(Columnas).Item(ColActual())->OrigenDatos.empty()) FiltraListBox();
            });
            break;
    }
}

void ControlListDefinition::mListBox_KeyUp(int16_t& KeyCode, int16_t& Shift) {
    // Unguarded: the text box's handler.
    mTextBox_KeyUp(KeyCode, Shift);
}

void ControlListDefinition::mTextBox_LostFocus() {
    // Unguarded. Leaving the overlay does not commit: it arms the list, so
    // that a click on it commits.
    mListaArmada = true;
}

void ControlListDefinition::mListBox_Click() {
    // Unguarded.
    if (mListaArmada) ConfirmaCelda();
}

// ---- Starting, placing and cancelling an edit ------------------------------------------

void ControlListDefinition::IniciaEdicion() {
    // Carries on past every failing step.
    if (!mTextBox) return;
    const eTiposDatoColumna tipo = TipoDe(Columnas, Valor([&] { return ColActual(); }, int32_t{0}));
    if (tipo == Check) {
        // A Check cell never opens the overlay: it carries the new value to the commit.
        Paso([&] { ColocaTextBox(); });
        Paso([&] { Entidad = EntidadDe(Obj(Datos).Item(FilaActual())); });
        double v = 0;
        Paso([&] { v = Val(CStr(Obj(Entidad).GetValor(std::string(Obj(Columnas).Item(ColActual())->Nombre)))); });
        Paso([&] { Obj(mTextBox).SetText(v == 1 ? "0" : "1"); });
        Paso([&] { ConfirmaCelda(); });
        return;
    }
    if (tipo == TextoFijo || tipo == Boton) return;  // never edited
    Paso([&] { Obj(mTextBox).SetText(""); });
    Paso([&] { ColocaTextBox(); });
    Paso([&] { Obj(mTextBox).SetSelStart(0); });
    Paso([&] { Obj(mTextBox).SetSelLength(Len(Obj(mTextBox).GetText())); });  // the whole text selected
    Paso([&] { Obj(mTextBox).SetBackColor(ColorLineaSeleccionada); });
    Paso([&] { Obj(mTextBox).SetVisible(true); });
    Paso([&] { Obj(mTextBox).SetFocus(); });
    // For every column: one without OrigenDatos keeps the list hidden.
    Paso([&] { ColocaListBox(); });
    Paso([&] { FiltraListBox(); });
}

void ControlListDefinition::ColocaTextBox() {
    // Unguarded. Everything is read from the grid at its current cell.
    if (!mTextBox) return;
    Control& g = Obj(MSFlexGrid);
    Obj(mTextBox).SetText(g.GetText());
    Obj(mTextBox).SetFontSize(g.GetFontSize());
    Obj(mTextBox).SetHeight(g.GetCellHeight());
    if (g.GetWidth() < g.GetCellLeft() + g.GetCellWidth())
        Obj(mTextBox).SetWidth(g.GetWidth() - g.GetCellLeft());  // clipped at the grid's right edge
    else if (g.GetCellWidth() > 0)
        Obj(mTextBox).SetWidth(g.GetCellWidth());  // a cell of no width leaves the old width
    Obj(mTextBox).SetLeft(g.GetLeft() + g.GetCellLeft());
    Obj(mTextBox).SetTop(g.GetTop() + g.GetCellTop());
}

void ControlListDefinition::CancelaEdicion() {
    // Carries on past every failing step. The calendar, a held cell and its
    // warning stay until the next validation.
    if (!mTextBox) return;
    Paso([&] { ColocaTextBox(); });  // the overlay's text back to what the cell shows
    Paso([&] { Obj(mTextBox).SetVisible(false); });
    if (mListBox) Paso([&] { Obj(mListBox).SetVisible(false); });
}

// ---- Validation and commit ---------------------------------------------------------------

bool ControlListDefinition::ValidaCelda() {
    // Carries on past every failing step.
    bool Correcto = true;
    const bool validar = mTextBox && Valor([&] { return Obj(mTextBox).GetVisible(); }, true) && !bNoEventosCambioCelda;
    if (validar) {
        if (mCeldaErronea) {
            // Validation always concerns the held cell.
            bNoEventosCambioCelda = true;
            Paso([&] { Obj(MSFlexGrid).SetRow(mFilaActual); });
            Paso([&] { Obj(MSFlexGrid).SetCol(mColActual); });
            bNoEventosCambioCelda = false;
        }
        bool esFecha = false;
        Paso([&] { esFecha = Obj(Columnas).Item(ColActual())->TipoDato == Fecha; });
        bool fechaValida = true;
        if (esFecha) {
            fechaValida = Valor([&] { return CompletaFecha(); }, false);
            if (!fechaValida) {
                Paso([&] { Obj(mTextBox).SetToolTipText(kFechaIncorrecta); });
                mCeldaErronea = true;
                Paso([&] { Obj(mTextBox).SetVisible(true); });
                Paso([&] { Obj(mTextBox).SetSelStart(0); });
                Paso([&] { Obj(mTextBox).SetSelLength(Len(Obj(mTextBox).GetText())); });
                Paso([&] { Obj(mTextBox).SetFocus(); });
                Paso([&] { Screen()->Beep(); });
                Correcto = false;
            } else {
                Paso([&] { Obj(mTextBox).SetBackColor(ColorLineaSeleccionada); });
            }
        }
        if (fechaValida) {
            // A local entity: the field Entidad is not touched.
            ControlRef grid = MSFlexGrid;
            IEntidadRef entidad;
            ColumnaRef columna;
            Variant ValorAntiguo, ValorNuevo;
            int32_t col = 0, fila = 0;
            Paso([&] { fila = Obj(MSFlexGrid).GetRow(); });
            Paso([&] { col = Obj(MSFlexGrid).GetCol(); });
            Paso([&] { entidad = EntidadDe(Obj(Datos).Item(fila)); });
            Paso([&] { columna = Obj(Columnas).Item(col); });
            Paso([&] { ValorAntiguo = Obj(entidad).GetValor(std::string(columna->Nombre)); });
            Paso([&] { ValorNuevo = Variant(Obj(mTextBox).GetText()); });
            // Only Correcto is read back: a handler that changes ValorNuevo changes nothing.
            Paso([&] {
                Helper().DisparaEventoCompruebaCeldaEntrada(grid, columna, entidad, col, fila, ValorAntiguo, ValorNuevo,
                                                            Correcto);
            });
        }
    }
    // These steps run also when the validation was skipped: a plain move over
    // a row clears its warning picture.
    int32_t colGuardada = 0;
    if (Correcto) {
        mCeldaErronea = false;
        bNoEventosCambioCelda = true;
        Paso([&] { colGuardada = Obj(MSFlexGrid).GetCol(); });
        Paso([&] { Obj(MSFlexGrid).SetCol(0); });
        Paso([&] { Obj(MSFlexGrid).SetCellPicture(nullptr); });
        Paso([&] { Obj(MSFlexGrid).SetCol(colGuardada); });
        bNoEventosCambioCelda = false;
        Paso([&] { Obj(mTextBox).SetToolTipText(""); });
    } else {
        mCeldaErronea = true;
        bNoEventosCambioCelda = true;
        Paso([&] { colGuardada = Obj(MSFlexGrid).GetCol(); });
        Paso([&] { Obj(MSFlexGrid).SetCol(0); });
        Paso([&] { Obj(MSFlexGrid).SetCellPicture(Form1().Imagen("atencion")); });
        Paso([&] { Obj(MSFlexGrid).SetCol(colGuardada); });
        bNoEventosCambioCelda = false;
    }
    return Correcto;
}

bool ControlListDefinition::ConfirmaCelda() {
    // Unguarded: a failure goes to the caller, which carries on.
    if (bNoEventosCambioCelda || !mTextBox || !Datos) return false;
    if (!ValidaCelda()) return false;  // the overlays stay as they are
    const bool esCheck = Obj(Columnas).Item(ColActual())->TipoDato == Check;
    if (Obj(mTextBox).GetVisible() || esCheck) {
        // With no list overlay attached this raises 91 before anything is written.
        if (Obj(mListBox).GetVisible()) {
            if (Obj(mListBox).GetListIndex() >= 0) EscribeLista();  // none selected: nothing at all is written
        } else {
            EscribeTexto();
        }
    }
    if (mListBox) Obj(mListBox).SetVisible(false);
    if (mTextBox) Obj(mTextBox).SetVisible(false);
    if (mMonthView) Obj(mMonthView).SetVisible(false);
    mListaArmada = false;
    return true;
}

void ControlListDefinition::EscribeTexto() {
    // The text path of the commit, unguarded.
    Entidad = EntidadDe(Obj(Datos).Item(FilaActual()));
    const ColumnaRef c = Obj(Columnas).Item(ColActual());
    std::string nombre = c->Nombre;
    Variant ValorAntiguo = Obj(Entidad).GetValor(nombre);
    std::string texto = Obj(mTextBox).GetText();
    int32_t col = ColActual();
    const std::string mostrado = FormateaValor(texto, col);
    Obj(MSFlexGrid).SetText(c->TipoDato == Check ? std::string() : mostrado);  // a Check cell shows only its picture
    // The entity gets the display text, not what was typed: thousands marks,
    // two decimals, the formatted date.
    Entidad->SetValor(nombre, Variant(mostrado));
    Variant ValorNuevo = Entidad->GetValor(nombre);
    ControlRef grid = MSFlexGrid;
    ColumnaRef columna = c;
    IEntidadRef entidad = Entidad;
    int32_t colActual = ColActual(), fila = FilaActual();
    Helper().DisparaEventoCeldaModificada(grid, columna, entidad, colActual, fila, ValorAntiguo, ValorNuevo);
    RefrescaDescripcion(nombre);
}

void ControlListDefinition::ImagenCheck(const Columna& c, const std::string& texto) {
    // The picture of a Check cell's mark, on the current cell.
    PictureRef imagen;
    if (Val(texto) == 1) {
        if (!c.ImagenKey.empty()) imagen = Form1().Imagen(c.ImagenKey);
        else if (!c.Imagen) imagen = Form1().Imagen("checked");
        else imagen = c.Imagen;
    } else {
        if (!c.ImagenKey.empty()) imagen = nullptr;
        else if (!c.Imagen2) imagen = Form1().Imagen("unchecked");
        else imagen = c.Imagen2;
    }
    Obj(MSFlexGrid).SetCellPicture(imagen);
}

}  // namespace OVT_ZARO
