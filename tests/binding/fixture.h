// What the binding tests share: a host form with one control of each kind
// and the three overlays, a helper, and small lists of articles.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ZARODatos.h"
#include "support/capturar.h"
#include "support/recorder.h"
#include "support/roads.h"

namespace zaro_test {

using namespace OVT_ZARO;

struct BindingTest : ::testing::Test {
    std::shared_ptr<Headless::Form> form = Headless::Form::Create("frmPrueba");
    ControlListHelperRef helper = std::make_shared<ControlListHelper>();
    std::shared_ptr<Headless::MSFlexGrid> grid = form->Add<Headless::MSFlexGrid>("grdDatos");
    std::shared_ptr<Headless::ListBox> list = form->Add<Headless::ListBox>("lstDatos");
    std::shared_ptr<Headless::ComboBox> combo = form->Add<Headless::ComboBox>("cboDatos");
    std::shared_ptr<Headless::fpSpread> spread = form->Add<Headless::fpSpread>("sprDatos");
    std::shared_ptr<Headless::DataGrid> dataGrid = form->Add<Headless::DataGrid>("dgrDatos");
    std::shared_ptr<Headless::TextBox> txt = form->Add<Headless::TextBox>("txtEdicion");
    std::shared_ptr<Headless::ListBox> lst = form->Add<Headless::ListBox>("lstBusqueda");
    std::shared_ptr<Headless::MonthView> mvw = form->Add<Headless::MonthView>("mvwFecha");
    HeadlessUser user{form};

    void SetUp() override { SetScreen(nullptr); }
    void TearDown() override { SetScreen(nullptr); }

    // Three articles, not in code order: BEB002, BEB001, COM001.
    static std::shared_ptr<colarticulo> Articulos() {
        auto l = std::make_shared<colarticulo>();
        l->Add("BEB002", 8, Date::FromParts(2026, 3, 14), "050000", 0, 1, "8400000000024", 1, 1, 1.9, "Café con leche",
               "Café leche");
        l->Add("BEB001", 8, Date::FromParts(2026, 3, 14), "050000", 0, 1, "8400000000017", 1, 1, 1.6, "Café solo",
               "Café solo");
        l->Add("COM001", 8, Date::FromParts(2026, 3, 15), "050000", 0, 1, "8400000000031", 2, 3, 1234.5,
               "Bocadillo de jamón", "Bocadillo");
        return l;
    }
    // Columns of an article grid: the code hidden as a key, description, family, price, date.
    static coleccionColumnasRef ColumnasArticulo() {
        auto c = std::make_shared<coleccionColumnas>();
        c->Add("CD_ARTICULO", "Código", 0);
        c->Add("DESC_ARTICULO", "Descripción", 2400);
        c->Add("TIPO_FAMILIA", "Familia", 800, 0, "", Entero);
        c->Add("PRECIOMAX", "Precio", 1000, 0, "", NumDecimal);
        c->Add("FECHA_REAL", "Fecha", 1200, 0, "", Fecha);
        return c;
    }
    // The texts of a grid row from column 1.
    std::vector<std::string> Fila(const std::shared_ptr<Headless::MSFlexGrid>& g, int32_t row) {
        std::vector<std::string> out;
        for (int32_t c = 1; c < g->GetCols(); ++c) out.push_back(g->GetTextMatrix(row, c));
        return out;
    }
    std::vector<std::string> Items(const std::shared_ptr<Headless::ListBox>& l) {
        std::vector<std::string> out;
        for (int32_t i = 0; i < l->GetListCount(); ++i) out.push_back(l->GetList(i));
        return out;
    }
};

using Strings = std::vector<std::string>;

}  // namespace zaro_test
