// A grid loaded for editing, with its three overlays, and a log of what the
// host hears: the helper's events CompruebaCeldaEntrada, CeldaModificada and
// ClickBoton, written "Comprueba col,row old>new", "Modificada col,row
// old>new" and "Boton col,row".
#pragma once

#include "binding/fixture.h"

namespace zaro_test {

struct ControllerTest : BindingTest {
    std::shared_ptr<coleccionGenerica> filas = std::make_shared<coleccionGenerica>();
    coleccionColumnasRef cols = std::make_shared<coleccionColumnas>();
    Strings host;            // what the host heard, in order
    bool refusar = false;    // the host refuses every value while true
    static constexpr int32_t kColor = 12648447;

    void SetUp() override {
        BindingTest::SetUp();
        grid->SetLeft(300);
        grid->SetTop(600);
        grid->SetWidth(9000);
        grid->SetHeight(3000);
        // The host form keeps its overlays hidden until an edit shows them.
        txt->SetVisible(false);
        lst->SetVisible(false);
        mvw->SetVisible(false);
        cols->Add("CLAVE", "", 0, 0, "", Texto);       // 1: a hidden key column
        cols->Add("TEXTO", "Texto", 1500, 0, "", Texto);  // 2
        cols->Add("ENTERO", "Entero", 800, 0, "", Entero);  // 3
        cols->Add("DECIMAL", "Decimal", 1000, 0, "", NumDecimal);  // 4
        cols->Add("FECHA", "Fecha", 1200, 0, "", Fecha);  // 5
        cols->Add("MARCA", "Marca", 500, 0, "", Check);    // 6
        cols->Add("BOTON", "Botón", 600, 0, "", Boton);    // 7
        cols->Add("FIJO", "Fijo", 800, 0, "", TextoFijo);  // 8
        for (int i = 1; i <= 3; ++i) {
            auto e = std::make_shared<entidadGenerica>();
            e->SetValor(std::string("CLAVE"), Variant("K" + std::to_string(i)));
            e->SetValor(std::string("TEXTO"), Variant("texto " + std::to_string(i)));
            e->SetValor(std::string("ENTERO"), Variant(int32_t{i * 10}));
            e->SetValor(std::string("DECIMAL"), Variant(i + 0.5));
            e->SetValor(std::string("FECHA"), Variant(Date::FromParts(2024, 3, i)));
            e->SetValor(std::string("MARCA"), Variant(int32_t{i == 1 ? 1 : 0}));
            e->SetValor(std::string("BOTON"), Variant("..."));
            e->SetValor(std::string("FIJO"), Variant("fijo"));
            filas->Add(e);
        }
        helper->CompruebaCeldaEntrada.Attach([this](ControlRef&, ColumnaRef&, IEntidadRef&, int32_t& col, int32_t& row,
                                                    Variant& antiguo, Variant& nuevo, bool& correcto) {
            host.push_back("Comprueba " + std::to_string(col) + "," + std::to_string(row) + " " + ComoTexto(antiguo) + ">" +
                           ComoTexto(nuevo));
            if (refusar) correcto = false;
        });
        helper->CeldaModificada.Attach([this](ControlRef&, ColumnaRef& c, IEntidadRef&, int32_t& col, int32_t& row,
                                              Variant& antiguo, Variant& nuevo) {
            host.push_back("Modificada " + c->Nombre + " " + std::to_string(col) + "," + std::to_string(row) + " " +
                           ComoTexto(antiguo) + ">" + ComoTexto(nuevo));
        });
        helper->ClickBoton.Attach([this](ControlRef&, ColumnaRef& c, IEntidadRef&, int32_t& col, int32_t& row) {
            host.push_back("Boton " + c->Nombre + " " + std::to_string(col) + "," + std::to_string(row));
        });
    }

    static std::string ComoTexto(const Variant& v) { return v.IsNull() ? "Null" : CStr(v); }

    void Cargar(bool permitirOrdenar = true, bool sinEventos = false) {
        helper->CargaMSFlexGrid(grid, filas, cols, permitirOrdenar, txt, lst, mvw, kColor, sinEventos);
    }
    Variant Valor(int fila, const char* campo) { return filas->Item(fila)->GetValor(std::string(campo)); }
    bool Editando() { return txt->GetVisible(); }
    PictureRef Aviso(int32_t fila) { return grid->CellAt(fila, 0).picture; }
};

}  // namespace zaro_test
