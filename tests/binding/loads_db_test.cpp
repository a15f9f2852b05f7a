// Each load on every kind, with lists read from a real database on both
// roads: a typed list (daarticulo::Listar), a generic list (a query loaded
// into a coleccionGenerica) and a simple-key list.
#include "binding/fixture.h"

namespace {

using namespace zaro_test;

struct LoadsDb : BindingTest, ::testing::WithParamInterface<Road> {
    ConnectionRef cn;
    std::shared_ptr<daarticulo> da = std::make_shared<daarticulo>();

    void SetUp() override {
        BindingTest::SetUp();
        cn = OpenRoad(GetParam());
        DropAllTables(*cn);
        da->Conexion = cn;
        ASSERT_TRUE(da->CrearTabla());
        colarticulo nuevos;
        nuevos.Add("BEB002", 8, Date::FromParts(2026, 3, 14), "050000", 1, 1, "8400000000024", 1, 1, 1.9,
                   "Café con leche", "Café leche");
        nuevos.Add("BEB001", 8, Date::FromParts(2026, 3, 14), "050000", 1, 1, "8400000000017", 1, 1, 1.6,
                   "Café solo", "Café solo");
        nuevos.Add("COM007", 8, Date::FromParts(2026, 3, 15), "050000", 1, 1, "8400000000079", 2, 3, 12.5,
                   "Menú del día", "Menú");
        da->GrabarDatos(nuevos);
    }

    static coleccionColumnasRef Columnas() {
        auto c = std::make_shared<coleccionColumnas>();
        c->Add("CD_ARTICULO", "Código", 0);
        c->Add("DESC_ARTICULO", "Descripción", 2400, 0, "", Texto)->ImagenKey = "lupa";
        c->Add("TIPO_FAMILIA", "Familia", 800, 2, "", Entero);
        c->Add("PRECIOMAX", "Precio", 1000, 0, "", NumDecimal);
        c->Add("FECHA_REAL", "Fecha", 1200, 0, "", Fecha);
        c->Add("CD_OP", "Activo", 500, 0, "", Check);
        return c;
    }

    std::shared_ptr<coleccionGenerica> Generica() {
        auto l = std::make_shared<coleccionGenerica>();
        l->Cargar(cn->Execute("select CD_ARTICULO, DESC_ARTICULO, TIPO_FAMILIA, PRECIOMAX, FECHA_REAL, CD_OP "
                              "from articulo order by CD_ARTICULO"));
        return l;
    }

    std::shared_ptr<colEntidadSimple> Simples() {
        auto l = std::make_shared<colEntidadSimple>();
        auto rs = cn->Execute("select CD_ARTICULO as Clave1, TIPO_FAMILIA as Clave2, DESC_CORTA as Descripcion "
                              "from articulo order by CD_ARTICULO");
        while (!rs->EOF_()) {
            auto e = std::make_shared<entEntidadSimple>();
            e->CargarEntidad(rs->Fields());
            l->AddEntidad(e);
            rs->MoveNext();
        }
        return l;
    }

    // What every flex grid load of the three articles in code order shows.
    void ComprobarRejilla(const std::shared_ptr<Headless::MSFlexGrid>& g) {
        EXPECT_EQ(g->GetRows(), 4);
        EXPECT_EQ(g->GetCols(), 7);
        EXPECT_EQ(Fila(g, 0), (Strings{"Código", "Descripción", "Familia", "Precio", "Fecha", "Activo"}));
        EXPECT_EQ(Fila(g, 1), (Strings{"BEB001", "Café solo", "1", "1,60", "14-03-2026", ""}));
        EXPECT_EQ(Fila(g, 3), (Strings{"COM007", "Menú del día", "2", "12,50", "15-03-2026", ""}));
        EXPECT_EQ(g->GetColWidth(1), 0);
        EXPECT_EQ(g->GetColAlignment(2), 0);
        EXPECT_EQ(g->GetColAlignment(3), flexAlignCenterCenter);  // Entero, then centred by Alineacion 2
        EXPECT_EQ(g->GetColAlignment(4), flexAlignRightBottom);
        EXPECT_EQ(g->CellAt(2, 2).picture, Form1().Imagen("lupa"));
        EXPECT_EQ(g->CellAt(2, 2).pictureAlignment, flexAlignRightTop);
        EXPECT_EQ(g->CellAt(2, 6).picture, Form1().Imagen("checked"));  // CD_OP 1 is marked
        EXPECT_EQ(g->CellAt(2, 6).foreColor, g->GetBackColor());
        EXPECT_EQ(g->GetRow(), 1);
        EXPECT_EQ(g->GetCol(), 2);
    }
};

TEST_P(LoadsDb, ATypedListFromTheDatabaseFillsAFlexGrid) {
    auto lista = da->Listar();
    helper->CargaMSFlexGrid(grid, lista, Columnas());
    ComprobarRejilla(grid);
    EXPECT_EQ(helper->ValorSeleccionado(grid), lista->Item(1));
}

TEST_P(LoadsDb, AGenericListFromAQueryFillsAFlexGridAndAHierarchicalOne) {
    auto h = form->Add<Headless::MSHFlexGrid>("hfgDatos");
    helper->CargaMSFlexGrid(grid, Generica(), Columnas());
    ComprobarRejilla(grid);
    helper->CargaMSFlexGrid(h, Generica(), Columnas());
    EXPECT_EQ(h->GetTextMatrix(3, 2), "Menú del día");
    EXPECT_EQ(helper->NumeroDefiniciones(), 2);
}

TEST_P(LoadsDb, ASimpleKeyListFillsAGridWithoutColumnsHeadedByItsFields) {
    helper->CargaMSFlexGrid(grid, Simples());
    EXPECT_EQ(Fila(grid, 0), (Strings{"Clave1", "Clave2", "Clave3", "Descripcion", "Objeto"}));
    EXPECT_EQ(Fila(grid, 1), (Strings{"BEB001", "1", "0", "Café solo", "Nothing"}));
    EXPECT_EQ(grid->GetRows(), 4);
}

TEST_P(LoadsDb, EachListFillsAListBoxAndAComboBox) {
    helper->CargaListBox(list, da->Listar(), std::string("DESC_CORTA"));
    EXPECT_EQ(Items(list), (Strings{"Café solo", "Café leche", "Menú"}));
    helper->CargaListBox(combo, Generica(), std::string("PRECIOMAX"));
    EXPECT_EQ(Items(combo), (Strings{"1,6", "1,9", "12,5"}));
    auto simples = Simples();
    helper->CargaListBox(list, simples, std::string("Descripcion"));
    list->SetListIndex(2);
    EXPECT_EQ(helper->ValorSeleccionado(list), simples->Item(3));
    EXPECT_EQ(helper->NumeroDefiniciones(), 2);
}

TEST_P(LoadsDb, EachListFillsASpreadAndAVaSpread) {
    auto va = form->Add<Headless::vaSpread>("vasDatos");
    helper->CargaFpSpread(spread, da->Listar(), Columnas());
    EXPECT_EQ(spread->GetMaxRows(), 3);
    EXPECT_EQ(spread->GetMaxCols(), 6);
    EXPECT_EQ(spread->CellAt(2, 0).value, Variant("Descripción"));
    EXPECT_EQ(spread->CellAt(2, 1).value, Variant("Café solo"));
    EXPECT_EQ(spread->CellAt(3, 3).value, Variant(int32_t{2}));
    EXPECT_EQ(spread->CellAt(4, 3).value, Variant(12.5));
    EXPECT_EQ(spread->CellAt(5, 1).value, Variant("14/03/2026"));
    EXPECT_EQ(spread->CellAt(6, 1).value, Variant(int32_t{-1}));  // CD_OP 1 times -1: the spread's mark is a true
    EXPECT_EQ(spread->CellAt(6, 1).type, CellTypeCheckBox);
    helper->CargaFpSpread(va, Generica(), Columnas());
    EXPECT_EQ(va->CellAt(1, 3).value, Variant("COM007"));
}

TEST_P(LoadsDb, ADataGridShowsItsRecordsetAndAnswersWithOneSharedEntity) {
    auto rs = da->rsListar();
    auto entidad = std::make_shared<entarticulo>();
    helper->CargaDataGrid(dataGrid, rs, entidad, Columnas());
    EXPECT_EQ(dataGrid->GetColumns().size(), 12u);
    int visibles = 0;
    for (const auto& c : dataGrid->GetColumns()) visibles += c->GetVisible() ? 1 : 0;
    EXPECT_EQ(visibles, 6);
    IEntidadRef primera = helper->ValorSeleccionado(dataGrid);
    ASSERT_NE(primera, nullptr);
    EXPECT_EQ(primera, entidad);
    EXPECT_EQ(CStr(primera->GetValor(std::string("CD_ARTICULO"))), "BEB001");
    rs->MoveNext();
    IEntidadRef segunda = helper->ValorSeleccionado(dataGrid);
    EXPECT_EQ(segunda, primera);  // the same object, overwritten
    EXPECT_EQ(CStr(primera->GetValor(std::string("CD_ARTICULO"))), "BEB002");
    rs->MoveNext();
    rs->MoveNext();
    EXPECT_EQ(helper->ValorSeleccionado(dataGrid), nullptr);  // at the end of the Recordset
}

TEST_P(LoadsDb, AHelperWithLoadedControlsGoesAwayWithItsDefinitions) {
    std::weak_ptr<ControlListHelper> weakHelper = helper;
    std::weak_ptr<Object> weakLista, weakEntidad;
    {
        auto lista = da->Listar();
        weakLista = lista;
        weakEntidad = lista->Item(1);
        helper->CargaMSFlexGrid(grid, lista, Columnas(), true, txt, lst, mvw);
        helper->CargaListBox(list, lista, std::string("CD_ARTICULO"));
        helper->CargaDataGrid(dataGrid, da->rsListar(), std::make_shared<entarticulo>(), Columnas());
    }
    EXPECT_TRUE(weakLista.expired());     // the list itself is not kept ...
    EXPECT_FALSE(weakEntidad.expired());  // ... the definitions hold its entities
    helper.reset();
    EXPECT_TRUE(weakHelper.expired());
    EXPECT_TRUE(weakEntidad.expired());
    EXPECT_EQ(grid->Click.HandlerCount(), 0u);  // nothing stays attached to the controls
    EXPECT_EQ(txt->KeyPress.HandlerCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Roads, LoadsDb, ::testing::ValuesIn(AllRoads()), RoadName);

}  // namespace
