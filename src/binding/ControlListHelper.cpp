// ControlListHelper: the events, finding and registering a control's
// definition, the selected entity, and the loads of each control kind.
#include "ZARODatos/binding/ControlListHelper.h"

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Screen.h"
#include "binding/Comun.h"

namespace OVT_ZARO {

using enlace::EntidadDe;
using enlace::kFuenteHelper;
using enlace::Obj;
using enlace::RelanzaDescripcionComoNumero;

namespace {
bool EsLista(const std::string& tipo) { return TextEquals(tipo, "ListBox") || TextEquals(tipo, "ComboBox"); }
bool EsFlexGrid(const std::string& tipo) { return TextEquals(tipo, "MSFlexGrid") || TextEquals(tipo, "MSHFlexGrid"); }
bool EsSpread(const std::string& tipo) { return TextEquals(tipo, "fpSpread") || TextEquals(tipo, "vaSpread"); }
bool EsDataGrid(const std::string& tipo) { return TextEquals(tipo, "DataGrid"); }

std::string TipoDe(const ControlRef& c) { return c ? c->TypeName() : std::string("Nothing"); }

// A control's identity: its TypeName, its Name and the Name of its Parent.
// All three are read: a control without Name or Parent fails here.
struct Identidad {
    std::string tipo, nombre, padre;
    explicit Identidad(const ControlRef& c)
        : tipo(TipoDe(c)), nombre(Obj(c).GetName()), padre(Obj(Obj(c).GetParent()).GetName()) {}
};

// The same control: the three texts equal, ignoring case.
bool MismoControl(const ControlRef& a, const ControlRef& b) {
    const Identidad x(a), y(b);
    return TextEquals(x.tipo, y.tipo) && TextEquals(x.nombre, y.nombre) && TextEquals(x.padre, y.padre);
}
}  // namespace

// ---- Events -------------------------------------------------------------------

void ControlListHelper::DisparaEventoCeldaModificada(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna,
                                                     ByRef<IEntidadRef> Entidad, ByRef<int32_t> col,
                                                     ByRef<int32_t> row, ByRef<Variant> ValorAntiguo,
                                                     ByRef<Variant> ValorNuevo) {
    CeldaModificada.Raise(*control, *Columna, *Entidad, *col, *row, *ValorAntiguo, *ValorNuevo);
}

void ControlListHelper::DisparaEventoCompruebaCeldaEntrada(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna,
                                                           ByRef<IEntidadRef> Entidad, ByRef<int32_t> col,
                                                           ByRef<int32_t> row, ByRef<Variant> ValorAntiguo,
                                                           ByRef<Variant> ValorNuevo, ByRef<bool> Correcto) {
    CompruebaCeldaEntrada.Raise(*control, *Columna, *Entidad, *col, *row, *ValorAntiguo, *ValorNuevo, *Correcto);
}

void ControlListHelper::DisparaEventoClickBoton(ByRef<ControlRef> control, ByRef<ColumnaRef> Columna,
                                                ByRef<IEntidadRef> Entidad, ByRef<int32_t> col, ByRef<int32_t> row) {
    ClickBoton.Raise(*control, *Columna, *Entidad, *col, *row);
}

// ---- Definitions --------------------------------------------------------------

ControlListDefinitionRef ControlListHelper::BuscaDefinicion(const ControlRef& control) {
    // Handler: raises again with the source "ControlHelper".
    try {
        for (const ControlListDefinitionRef& def : definiciones_)
            if (MismoControl(def->control(), control)) return def;
        return nullptr;
    } catch (...) {
        Reraise(kFuenteHelper);
    }
}

void ControlListHelper::RegistraControl(const ControlRef& control, const CollectionRef& Datos,
                                        const std::shared_ptr<ADODB::Recordset>& Recordset,
                                        const IEntidadRef& Entidad, const coleccionColumnasRef& Columnas,
                                        bool PermitirOrdenar, const ControlRef& TextBox, const ControlRef& ListBox,
                                        const ControlRef& MonthView, int32_t ColorLineaSeleccionada, bool Iniciando,
                                        bool bNoEventosCambioCelda) {
    // No handler: a control without Name or Parent fails here, in the load that called.
    ControlListDefinitionRef def;
    for (const ControlListDefinitionRef& d : definiciones_) {
        if (MismoControl(d->control(), control)) {
            def = d;
            break;
        }
    }
    const bool nueva = !def;
    if (nueva) def = std::make_shared<ControlListDefinition>();
    // Every field is written, in this order: control before TextBox, whose
    // attachment works on the grid just given.
    def->Columnas = Columnas;
    def->control(control);
    def->Datos = Datos;
    def->Recordset = Recordset;
    def->Entidad = Entidad;
    def->Clh = std::static_pointer_cast<ControlListHelper>(weak_from_this().lock());
    def->PermitirOrdenar = PermitirOrdenar;
    def->TextBox(TextBox);
    def->ListBox(ListBox);
    def->MonthView(MonthView);
    def->ColorLineaSeleccionada = ColorLineaSeleccionada;
    def->Iniciando = Iniciando;
    def->bNoEventosCambioCelda = bNoEventosCambioCelda;
    if (nueva) definiciones_.Add(def);
}

// ---- The selected entity ------------------------------------------------------

IEntidadRef ControlListHelper::ValorSeleccionado(ByRef<ControlRef> control) {
    // Handler: raises again with the source "ControlHelper".
    try {
        ControlListDefinitionRef def = BuscaDefinicion(*control);
        if (!def) return nullptr;
        const ControlRef c = def->control();
        const std::string tipo = TipoDe(c);
        if (EsLista(tipo)) {
            const int32_t i = Obj(c).GetListIndex();
            if (i >= 0 && Obj(def->Datos).Count() >= 1) return EntidadDe(def->Datos->Item(i + 1));
        } else if (EsFlexGrid(tipo)) {
            const int32_t fila = Obj(c).GetRow();
            if (fila > 0 && Obj(def->Datos).Count() >= 1) return EntidadDe(def->Datos->Item(fila));
        } else if (EsDataGrid(tipo)) {
            ADODB::Recordset& rs = Obj(def->Recordset);
            if (Obj(c).GetRow() >= 0 && !rs.EOF_() && !rs.BOF()) {
                Obj(def->Entidad).CargarEntidad(rs.Fields());
                return def->Entidad;
            }
        } else if (EsSpread(tipo)) {
            const int32_t fila = Obj(c).GetActiveRow();
            if (fila > 0 && Obj(def->Datos).Count() >= 1) return EntidadDe(def->Datos->Item(fila));
        }
        return nullptr;
    } catch (...) {
        Reraise(kFuenteHelper);
    }
}

// ---- Loads --------------------------------------------------------------------

void ControlListHelper::CargaListBox(ByRef<ControlRef> ListBox_ComboBox, ByRef<ObjectRef> ColeccionEntidades,
                                     ByRef<std::string> NombreCampo, ByRef<bool> LimpiarLista) {
    // Handler: whatever fails is reported as 1 "Tipo de datos incorrecto"
    // (a control of the wrong kind too), and the pointer stays at 11.
    try {
        Screen()->SetMousePointer(vbHourglass);
        const ControlRef& control = *ListBox_ComboBox;
        const std::string tipo = TipoDe(control);
        if (!TextEquals(tipo, "ComboBox") && !TextEquals(tipo, "ListBox"))
            throw Error(1, kFuenteHelper, "Tipo de control no vlido");
        if (*LimpiarLista) Obj(control).Clear();
        auto Datos = std::make_shared<Collection>();
        // The items already there have no entity: a Nothing each keeps the positions in step.
        const int32_t previos = Obj(control).GetListCount();
        const Variant nada{ObjectRef()};
        for (int32_t i = 0; i < previos; ++i) Datos->Add(nada);
        const int32_t n = CountOf(*ColeccionEntidades);
        if (n == 0) return;  // the definition is not touched and the pointer stays at 11
        for (int32_t i = 1; i <= n; ++i) {
            IEntidadRef entidad = EntidadDe(ItemOf(*ColeccionEntidades, i));
            Obj(control).AddItem(CStr(Obj(entidad).GetValor(NombreCampo)));
            Datos->Add(Variant(entidad));
            ControlRef c = control;
            int32_t linea = Obj(control).GetNewIndex();
            PintandoLinea.Raise(c, entidad, linea);
            Screen()->DoEvents();
        }
        RegistraControl(control, Datos, nullptr, nullptr, nullptr, false, nullptr, nullptr, nullptr, 0, false, false);
        Screen()->SetMousePointer(vbDefault);
    } catch (...) {
        throw Error(1, kFuenteHelper, "Tipo de datos incorrecto");
    }
}

void ControlListHelper::CargaDataGrid(ByRef<ControlRef> DataGrid, ByRef<std::shared_ptr<ADODB::Recordset>> Recordset,
                                      ByRef<IEntidadRef> Entidad, ByRef<coleccionColumnasRef> colColumnas) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Obj(*DataGrid).SetDataSource(*Recordset);
        ConfiguraColumnas(DataGrid, colColumnas, Entidad);
        RegistraControl(*DataGrid, nullptr, *Recordset, *Entidad, *colColumnas, false, nullptr, nullptr, nullptr, 0,
                        false, false);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

void ControlListHelper::CargaMSFlexGrid(ByRef<ControlRef> MSFlexGrid, ByRef<ObjectRef> ColeccionEntidades,
                                        ByRef<coleccionColumnasRef> colColumnas, ByRef<bool> PermitirOrdenar,
                                        ByRef<ControlRef> TextBox, ByRef<ControlRef> ListBox,
                                        ByRef<ControlRef> MonthView, ByRef<int32_t> ColorLineaSeleccionada,
                                        ByRef<bool> blnNoEventosCambioCelda) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Control& grid = Obj(*MSFlexGrid);
        grid.Clear();
        const int32_t n = CountOf(*ColeccionEntidades);
        IEntidadRef muestra;
        if (n > 0) {
            muestra = EntidadDe(ItemOf(*ColeccionEntidades, 1));
            grid.SetRows(n + 1);
        } else {
            grid.SetRows(2);
        }
        grid.SetRows(n + 1);  // in any case: an empty list leaves the heading row alone
        ConfiguraColumnas(MSFlexGrid, colColumnas, muestra);
        // In place, marked as starting up, before the first row is drawn.
        RegistraControl(*MSFlexGrid, nullptr, nullptr, nullptr, *colColumnas, *PermitirOrdenar, *TextBox, *ListBox,
                        *MonthView, *ColorLineaSeleccionada, true, *blnNoEventosCambioCelda);
        auto Datos = std::make_shared<Collection>();
        int32_t fila = 1;
        for (int32_t i = 1; i <= n; ++i) {
            IEntidadRef entidad = EntidadDe(ItemOf(*ColeccionEntidades, i));
            CollectionRef datos = Datos;
            PintaLineaFlexGrid(MSFlexGrid, colColumnas, entidad, fila, datos);
            Datos->Add(Variant(entidad));
            ++fila;
            Screen()->DoEvents();
        }
        RegistraControl(*MSFlexGrid, Datos, nullptr, nullptr, *colColumnas, *PermitirOrdenar, *TextBox, *ListBox,
                        *MonthView, *ColorLineaSeleccionada, false, *blnNoEventosCambioCelda);
        if (grid.GetRows() > 1) grid.SetRow(1);
        // The first visible column: a first column of width 0 is a hidden key.
        grid.SetCol(grid.GetColWidth(1) == 0 ? 2 : 1);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

void ControlListHelper::CargaFpSpread(ByRef<ControlRef> fpSpread, ByRef<ObjectRef> ColeccionEntidades,
                                      ByRef<coleccionColumnasRef> colColumnas) {
    // Handler: the description taken as the number (13 for any text).
    try {
        Obj(*fpSpread).SetMaxRows(0);
        const int32_t n = CountOf(*ColeccionEntidades);
        IEntidadRef muestra;
        if (n > 0) muestra = EntidadDe(ItemOf(*ColeccionEntidades, 1));
        ConfiguraColumnas(fpSpread, colColumnas, muestra);
        auto Datos = std::make_shared<Collection>();
        int32_t fila = 1;
        for (int32_t i = 1; i <= n; ++i) {
            IEntidadRef entidad = EntidadDe(ItemOf(*ColeccionEntidades, i));
            CollectionRef datos = Datos;
            PintaLineaSpread(fpSpread, colColumnas, entidad, fila, datos);
            Datos->Add(Variant(entidad));
            ++fila;
            Screen()->DoEvents();
        }
        RegistraControl(*fpSpread, Datos, nullptr, nullptr, *colColumnas, false, nullptr, nullptr, nullptr, 0, false,
                        false);
    } catch (...) {
        RelanzaDescripcionComoNumero();
    }
}

}  // namespace OVT_ZARO
