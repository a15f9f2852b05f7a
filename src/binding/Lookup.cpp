// Lookups: a cell that shows a description from another table while a
// second column of the row holds its key. The list overlay lies under the
// cell, is filled from the database and narrows as the user types; a commit
// through it writes both the description and the key; a key typed by hand
// brings its description back from the database.
#include "ZARODatos/binding/ControlListDefinition.h"
#include "ZARODatos/binding/ControlListHelper.h"
#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Strings.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::EntidadDe;
using enlace::Obj;
using enlace::Paso;
using enlace::Valor;

namespace {
const char kFuenteFiltro[] = "ControlListDefinition.FiltraListBox";

// " where " when the word "where" is nowhere in the source (ignoring case),
// else " and ": a field or table whose name holds "where" gets " and ", on purpose.
const char* Enlace(const std::string& origen) { return InStr(origen, "where") == 0 ? " where " : " and "; }
}  // namespace

void ControlListDefinition::ColocaListBox() {
    // Unguarded.
    mListaArmada = false;
    if (!mListBox) return;  // the list stays disarmed
    Control& g = Obj(MSFlexGrid);
    // The list selects the entry of the cell's text, or none; the Click that
    // this fires finds the list disarmed.
    mListBox->SetText(g.GetText());
    mListBox->SetFontSize(g.GetFontSize());
    if (g.GetWidth() < g.GetCellLeft() + g.GetCellWidth())
        mListBox->SetWidth(g.GetWidth() - g.GetCellLeft());
    else if (g.GetCellWidth() > 0)
        mListBox->SetWidth(g.GetCellWidth());
    mListBox->SetLeft(g.GetLeft() + g.GetCellLeft());
    // Directly below the cell; the height stays the one set at attachment.
    mListBox->SetTop(g.GetTop() + g.GetCellTop() + g.GetCellHeight());
    mListaArmada = true;
}

void ControlListDefinition::FiltraListBox() {
    // Local handler: a failure leaves at once and is raised again under
    // "ControlListDefinition.FiltraListBox"; the list stays disarmed.
    try {
        mListaArmada = false;
        const ColumnaRef c = Obj(Columnas).Item(Obj(MSFlexGrid).GetCol());
        const std::string clave = c->OrigenDatosCampoClave;
        const std::string descripcion = c->OrigenDatosCampoDescripcion;
        const std::string origen = c->OrigenDatos;
        if (!Trim(origen).empty()) {
            std::string sql = origen;
            // At the start of an edit all the text is selected: the whole list comes.
            // Once the user has typed, the list narrows to the descriptions holding the text.
            const std::string texto = Obj(mTextBox).GetText();
            if (!texto.empty() && mTextBox->GetSelLength() == 0) {
                sql += Enlace(origen);
                sql += descripcion;
                sql += " like '%";
                // The typed text passes the library's apostrophe rule: a quote
                // can neither end the literal nor extend the statement.
                BasTroquel::AnexarTextoSQL(sql, texto);
                sql += "%'";
            }
            sql += " order by ";
            sql += descripcion;
            auto rs = std::make_shared<ADODB::Recordset>();
            rs->Open(sql, c->Conexion, ADODB::adOpenForwardOnly, ADODB::adLockReadOnly, -1);
            Control& lista = Obj(mListBox);
            lista.Clear();  // only after the query has opened
            while (!rs->EOF_()) {
                // The description first: NewIndex is the item just added.
                lista.AddItem(CStr(BasTroquel::ValorPorDefecto(rs->Fields().Item(descripcion).Value(), Variant(""))));
                lista.SetItemData(lista.GetNewIndex(),
                                  CLng(BasTroquel::ValorPorDefecto(rs->Fields().Item(clave).Value(), Variant(""))));
                rs->MoveNext();
            }
            rs->Close();
            ColocaListBox();
            lista.SetVisible(true);  // also when the query gave no rows
        }
        mListaArmada = true;
    } catch (...) {
        mListaArmada = false;
        Reraise(kFuenteFiltro);
    }
}

void ControlListDefinition::EscribeLista() {
    // The list path of the commit, unguarded. The host hears of the key
    // column only; CompruebaCeldaEntrada ran before with what was typed.
    const ColumnaRef c = Obj(Columnas).Item(ColActual());
    Control& lista = Obj(mListBox);
    Obj(mTextBox).SetText(lista.GetText());
    Obj(MSFlexGrid).SetText(lista.GetText());
    Entidad = EntidadDe(Obj(Datos).Item(FilaActual()));
    std::string nombre = c->Nombre;
    Obj(Entidad).SetValor(nombre, Variant(lista.GetText()));
    const int16_t k = IndiceColumna(c->OrigenDatosCampoClaveTablaVista);
    // A key column that is not there is an empty column: the key steps run
    // on its empty Nombre, and TextMatrix fails at that index.
    const ColumnaRef columnaClave = Columnas->Item(static_cast<int32_t>(k));
    std::string nombreClave = columnaClave->Nombre;
    Variant ValorAntiguo = Entidad->GetValor(nombreClave);
    const int32_t itemData = lista.GetItemData(lista.GetListIndex());
    Entidad->SetValor(nombreClave, Variant(itemData));
    MSFlexGrid->SetTextMatrix(FilaActual(), k, CStr(Variant(itemData)));
    Variant ValorNuevo = Entidad->GetValor(nombreClave);
    ControlRef grid = MSFlexGrid;
    ColumnaRef columna = columnaClave;
    IEntidadRef entidad = Entidad;
    int32_t col = k, fila = FilaActual();
    Helper().DisparaEventoCeldaModificada(grid, columna, entidad, col, fila, ValorAntiguo, ValorNuevo);
}

void ControlListDefinition::RefrescaDescripcion(ByRef<std::string> campo) {
    // Carries on: the remaining steps run with what they have.
    int32_t i = 0;
    ColumnaRef c;
    Paso([&] {
        const int32_t n = Obj(Columnas).Count();
        for (int32_t j = 1; j <= n; ++j) {
            const ColumnaRef candidata = Columnas->Item(j);
            // A key of 0, or one that is no number, leaves the old description.
            if (TextEquals(candidata->OrigenDatosCampoClaveTablaVista, *campo) &&
                Val(CStr(Obj(Entidad).GetValor(std::string(*campo)))) != 0) {
                i = j;
                c = candidata;
                return;  // only the first column that looks the key up is served
            }
        }
    });
    if (i == 0) return;
    std::string nombre = c->Nombre;
    const int16_t k = IndiceColumna(nombre);
    Variant antiguo;
    Paso([&] { antiguo = Variant(CStr(Obj(Entidad).GetValor(nombre))); });
    // The key is always written as a number, without quotes.
    std::string sql;
    Paso([&] {
        sql = c->OrigenDatos + Enlace(c->OrigenDatos) + c->OrigenDatosCampoClave + " = " +
              CStr(Variant(Val(CStr(Obj(Entidad).GetValor(std::string(*campo))))));
    });
    Variant descripcion;
    Paso([&] {
        ConnectionRef conexion = c->Conexion;
        std::string campoDescripcion = c->OrigenDatosCampoDescripcion;
        descripcion = BasTroquel::ObtenerValorSQL(conexion, sql, campoDescripcion);
    });
    std::string mostrado;
    Paso([&] {
        std::string texto = CStr(descripcion);
        int32_t col = k;
        mostrado = FormateaValor(texto, col);
    });
    Paso([&] { Entidad = EntidadDe(Obj(Datos).Item(FilaActual())); });
    Paso([&] { Obj(Entidad).SetValor(nombre, Variant(mostrado)); });
    Paso([&] { Obj(MSFlexGrid).SetTextMatrix(FilaActual(), k, mostrado); });
    // No CompruebaCeldaEntrada for this second write.
    Paso([&] {
        ControlRef grid = MSFlexGrid;
        ColumnaRef columna = Obj(Columnas).Item(static_cast<int32_t>(k));
        IEntidadRef entidad = Entidad;
        int32_t col = k, fila = FilaActual();
        Variant nuevo{mostrado};
        Helper().DisparaEventoCeldaModificada(grid, columna, entidad, col, fila, antiguo, nuevo);
    });
}

}  // namespace OVT_ZARO
