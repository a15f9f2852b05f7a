// Drawing a list on a grid: the columns and headings, and one entity per row
// on a flex grid or a spread. The same column draws differently on the two
// grids, on purpose: a date is "dd-mm-yyyy" by default and may be
// reformatted on a flex grid, always "dd/mm/yyyy" on a spread; a NumDecimal
// Formato is a format text on a flex grid and a number of decimals on a
// spread; a mark is the number 1 on a flex grid and a true on a spread;
// pictures exist only on a flex grid.
#include "ZARODatos/binding/ControlListHelper.h"
#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Pictures.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::Obj;
using enlace::RelanzaDescripcionComoNumero;

namespace {
bool EsFlexGrid(const std::string& tipo) { return TextEquals(tipo, "MSFlexGrid") || TextEquals(tipo, "MSHFlexGrid"); }
bool EsSpread(const std::string& tipo) { return TextEquals(tipo, "fpSpread") || TextEquals(tipo, "vaSpread"); }

bool ConColumnas(const coleccionColumnasRef& columnas) { return columnas && columnas->Count() >= 1; }

// A value under a format text, in its string form.
std::string Formateado(const Variant& valor, const std::string& formato) { return CStr(Format(valor, formato)); }

// With no columns both grids draw every field as it stands, by index; no
// format, no alignment, no PintandoLinea. A control without TextMatrix
// fails here.
void PintaSinColumnas(Control& control, IEntidad& entidad, int32_t fila) {
    const int32_t n = entidad.NumCampos();
    for (int32_t i = 1; i <= n; ++i) {
        int16_t indice = static_cast<int16_t>(i);
        control.SetTextMatrix(fila, i, CStr(entidad.GetValorIndice(indice)));
    }
}

// The mark of a Check column on a flex grid: the value must be exactly 1.
void MarcaCheck(Control& grid, const Columna& c, IEntidad& entidad) {
    grid.SetCellAlignment(flexAlignLeftTop);
    grid.SetCellPictureAlignment(flexAlignCenterCenter);
    // The text takes the background's colour, so that a value in the cell can not show.
    const int32_t fondo = grid.GetCellBackColor();
    grid.SetCellForeColor(fondo == 0 ? grid.GetBackColor() : fondo);
    const bool marcado = Val(CStr(entidad.GetValor(std::string(c.Nombre)))) == 1;
    PictureRef imagen;
    if (marcado) {
        if (!c.ImagenKey.empty()) imagen = Form1().Imagen(c.ImagenKey);
        else if (c.Imagen) imagen = c.Imagen;
        else imagen = Form1().Imagen("checked");
    } else {
        if (!c.ImagenKey.empty()) imagen = nullptr;
        else if (c.Imagen2) imagen = c.Imagen2;
        else imagen = Form1().Imagen("unchecked");
    }
    grid.SetCellPicture(imagen);
}
}  // namespace

void ControlListHelper::ConfiguraColumnas(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                                          ByRef<IEntidadRef> Entidad) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Control& ctl = Obj(*control);
        const coleccionColumnasRef& columnas = *colColumnas;
        if (ConColumnas(columnas)) {
            const std::string tipo = ctl.TypeName();
            if (EsFlexGrid(tipo)) {
                ctl.SetCols(columnas->Count() + 1);
                for (int32_t i = 1; i <= columnas->Count(); ++i) {
                    const ColumnaRef c = columnas->Item(i);
                    ctl.SetColWidth(i, c->AnchoColuna);
                    ctl.SetColAlignment(i, c->Alineacion);  // as it stands: 0, 1 and 2 are the left alignments
                    ctl.SetTextMatrix(0, i, c->NombreCabecera());
                }
            } else if (TextEquals(tipo, "DataGrid")) {
                for (const DataGridColumnRef& gc : ctl.GetColumns()) {
                    ColumnaRef encontrada;
                    for (const ColumnaRef& c : *columnas)
                        if (TextEquals(c->Nombre, gc->GetDataField())) encontrada = c;
                    // A field of the Recordset with no Columna is hidden.
                    gc->SetVisible(encontrada != nullptr);
                    if (encontrada) {
                        gc->SetWidth(encontrada->AnchoColuna);
                        gc->SetCaption(encontrada->NombreCabecera());
                        gc->SetAlignment(encontrada->Alineacion);
                    }
                }
            } else if (EsSpread(tipo)) {
                ctl.SetColWidth(0, 1);
                ctl.SetMaxCols(columnas->Count());
                for (int32_t i = 1; i <= columnas->Count(); ++i) {
                    const ColumnaRef c = columnas->Item(i);
                    ctl.SetColWidth(i, static_cast<double>(c->AnchoColuna) / 120);  // 120 twips to a unit
                    ctl.SetText(i, 0, Variant(c->NombreCabecera()));
                }
            }
        } else if (!*Entidad) {
            ctl.SetCols(1);  // no columns and no sample: no test of the control's kind
        } else {
            IEntidad& e = **Entidad;
            const int32_t n = e.NumCampos();
            ctl.SetCols(n + 1);
            for (int32_t i = 1; i <= n; ++i) {
                int16_t indice = static_cast<int16_t>(i);
                ctl.SetTextMatrix(0, i, e.GetNombreCampo(indice));
            }
        }
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

void ControlListHelper::PintaLineaFlexGrid(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                                           ByRef<IEntidadRef> Entidad, ByRef<int32_t> row, ByRef<CollectionRef>) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Control& grid = Obj(*control);
        IEntidad& entidad = Obj(*Entidad);
        const coleccionColumnasRef& columnas = *colColumnas;
        if (!ConColumnas(columnas)) {
            PintaSinColumnas(grid, entidad, *row);
            return;
        }
        grid.SetRow(*row);
        for (int32_t i = 1; i <= columnas->Count(); ++i) {
            grid.SetCol(i);
            Columna& c = *columnas->Item(i);
            // The default format is stored on the column itself, and stays there.
            switch (c.TipoDato) {
                case Entero:
                    if (c.Formato.empty()) c.Formato = "#,##0";
                    grid.SetColAlignment(i, flexAlignRightBottom);
                    break;
                case NumDecimal:
                    if (c.Formato.empty()) c.Formato = "#,##0.00";
                    grid.SetColAlignment(i, flexAlignRightBottom);
                    break;
                case Fecha:
                    if (c.Formato.empty()) c.Formato = "dd-mm-yyyy";
                    break;
                case Check: MarcaCheck(grid, c, entidad); break;
                default: break;
            }
            if (c.TipoDato == Check) continue;  // no text: only the picture shows
            const Variant valor = entidad.GetValor(std::string(c.Nombre));
            grid.SetTextMatrix(*row, i, c.Formato.empty() ? CStr(valor) : Formateado(valor, c.Formato));
            if (c.Alineacion == 1) grid.SetColAlignment(i, flexAlignRightBottom);
            else if (c.Alineacion == 2) grid.SetColAlignment(i, flexAlignCenterCenter);
            // The picture goes to the side away from the text.
            if (c.Alineacion == 0) grid.SetCellPictureAlignment(flexAlignRightTop);
            else if (c.Alineacion == 1) grid.SetCellPictureAlignment(flexAlignLeftTop);
            else if (c.Alineacion == 2) grid.SetCellPictureAlignment(flexAlignRightTop);
            if (c.Imagen) grid.SetCellPicture(c.Imagen);
            else if (!c.ImagenKey.empty()) grid.SetCellPicture(Form1().Imagen(c.ImagenKey));
        }
        PintandoLinea.Raise(*control, *Entidad, *row);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

void ControlListHelper::PintaLineaSpread(ByRef<ControlRef> control, ByRef<coleccionColumnasRef> colColumnas,
                                         ByRef<IEntidadRef> Entidad, ByRef<int32_t> row, ByRef<CollectionRef>) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Control& spread = Obj(*control);
        IEntidad& entidad = Obj(*Entidad);
        const coleccionColumnasRef& columnas = *colColumnas;
        if (!ConColumnas(columnas)) {
            PintaSinColumnas(spread, entidad, *row);  // a spread has no TextMatrix: this fails
            return;
        }
        const int32_t fila = *row;
        spread.SetMaxRows(fila);  // one row more per entity
        spread.SetRow(fila);
        for (int32_t i = 1; i <= columnas->Count(); ++i) {
            spread.SetCol(i);
            const Columna& c = *columnas->Item(i);
            const Variant valor = entidad.GetValor(std::string(c.Nombre));
            switch (c.TipoDato) {
                case Entero:
                    spread.SetCellType(CellTypeInteger);
                    spread.SetTypeHAlign(1);
                    spread.SetInteger(i, fila, CLng(Variant(Val(CStr(valor)))));
                    break;
                case NumDecimal:
                    spread.SetCellType(CellTypeFloat);
                    spread.SetTypeHAlign(1);
                    spread.SetTypeFloatSeparator(true);
                    // Formato is a number of decimals here; a format text leaves the spread's own.
                    if (IsNumeric(Variant(c.Formato)))
                        spread.SetTypeFloatDecimalPlaces(CLng(BasTroquel::ValorPorDefecto(Variant(c.Formato), Variant(int32_t{2}))));
                    spread.SetFloat(i, fila, Val(BasTroquel::NormalizarNumero(CStr(valor))));
                    break;
                case Fecha:
                    spread.SetCellType(CellTypeDate);
                    spread.SetTypeHAlign(0);
                    spread.SetText(i, fila, Format(Variant(CDate(valor)), "dd/mm/yyyy"));
                    break;
                case Check:
                    spread.SetCellType(CellTypeCheckBox);
                    spread.SetTypeHAlign(2);
                    // A true counts as -1: times -1 it is 1, the marked box.
                    spread.SetInteger(i, fila, CLng(Variant(CDbl(valor) * -1)));
                    break;
                default:
                    spread.SetCellType(c.TipoDato == Texto ? CellTypeEdit : CellTypeStaticText);
                    if (c.Alineacion >= 0 && c.Alineacion <= 2) spread.SetTypeHAlign(c.Alineacion);
                    spread.SetText(i, fila, c.Formato.empty() ? valor : Format(valor, c.Formato));
                    break;
            }
        }
        PintandoLinea.Raise(*control, *Entidad, *row);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

}  // namespace OVT_ZARO
