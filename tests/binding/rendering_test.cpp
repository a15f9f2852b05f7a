// How a row is drawn: formats, alignments, pictures of Check columns, the
// heading row, the spread's typed cells, the data grid's columns.
#include "binding/fixture.h"

namespace {

using namespace zaro_test;

using Rendering = BindingTest;

// One entity with the fields the tests need.
std::shared_ptr<entidadGenerica> Generica(std::initializer_list<std::pair<const char*, Variant>> campos) {
    auto e = std::make_shared<entidadGenerica>();
    for (const auto& [n, v] : campos) e->SetValor(std::string(n), Variant(v));
    return e;
}

std::shared_ptr<coleccionGenerica> Lista(std::initializer_list<std::shared_ptr<entidadGenerica>> filas) {
    auto l = std::make_shared<coleccionGenerica>();
    for (auto f : filas) l->Add(f);
    return l;
}

TEST_F(Rendering, TheHeadingRowHoldsEachColumnsHeadingAndWidths) {
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    EXPECT_EQ(grid->GetCols(), 6);
    EXPECT_EQ(Fila(grid, 0), (Strings{"Código", "Descripción", "Familia", "Precio", "Fecha"}));
    EXPECT_EQ(grid->GetColWidth(1), 0);  // the hidden key column
    EXPECT_EQ(grid->GetColWidth(2), 2400);
    EXPECT_EQ(grid->GetRows(), 4);
}

TEST_F(Rendering, AnEnteroColumnWithoutFormatShowsThousandsAndKeepsTheFormat) {
    auto cols = std::make_shared<coleccionColumnas>();
    ColumnaRef c = cols->Add("N", "", 1000, 0, "", Entero);
    helper->CargaMSFlexGrid(grid, Lista({Generica({{"N", int32_t{1234}}})}), cols);
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "1.234");
    EXPECT_EQ(c->Formato, "#,##0");
    EXPECT_EQ(grid->GetColAlignment(1), flexAlignRightBottom);
}

TEST_F(Rendering, ANumDecimalColumnWithAlineacionZeroIsRightAlignedAndStaysSo) {
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    EXPECT_EQ(grid->GetColAlignment(4), flexAlignRightBottom);
    EXPECT_EQ(grid->GetTextMatrix(3, 4), "1.234,50");
    EXPECT_EQ(grid->GetTextMatrix(1, 4), "1,90");
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "1");
}

TEST_F(Rendering, AFechaColumnShowsDayMonthYearWithDashesByDefault) {
    auto cols = ColumnasArticulo();
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    EXPECT_EQ(grid->GetTextMatrix(1, 5), "14-03-2026");
    EXPECT_EQ(cols->Item("FECHA_REAL")->Formato, "dd-mm-yyyy");
    cols->Item("FECHA_REAL")->Formato = "yyyy/mm/dd";  // a flex grid may reformat a date
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    EXPECT_EQ(grid->GetTextMatrix(3, 5), "2026/03/15");
}

TEST_F(Rendering, ATextoColumnCentredGetsColAlignment4AndItsPictureOnTheRight) {
    auto cols = std::make_shared<coleccionColumnas>();
    ColumnaRef c = cols->Add("DESC_CORTA", "", 1200, 2, "", Texto);
    c->ImagenKey = "lupa";
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    EXPECT_EQ(grid->GetColAlignment(1), flexAlignCenterCenter);
    EXPECT_EQ(grid->CellAt(2, 1).pictureAlignment, flexAlignRightTop);
    EXPECT_EQ(grid->CellAt(2, 1).picture, Form1().Imagen("lupa"));
    EXPECT_EQ(grid->GetTextMatrix(2, 1), "Café solo");
}

TEST_F(Rendering, AlineacionIsWrittenAsItStandsAndPicturesGoAwayFromTheText) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("CD_ARTICULO", "", 1000, 0);
    ColumnaRef derecha = cols->Add("DESC_CORTA", "", 1000, 1);
    derecha->Imagen = Form1().Imagen("edit");
    derecha->ImagenKey = "star";  // Imagen goes first on any column but Check
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    EXPECT_EQ(grid->GetColAlignment(1), 0);  // 0 left as it stands
    EXPECT_EQ(grid->CellAt(1, 1).pictureAlignment, flexAlignRightTop);
    EXPECT_EQ(grid->CellAt(1, 1).picture, nullptr);
    EXPECT_EQ(grid->GetColAlignment(2), flexAlignRightBottom);
    EXPECT_EQ(grid->CellAt(1, 2).pictureAlignment, flexAlignLeftTop);
    EXPECT_EQ(grid->CellAt(1, 2).picture, Form1().Imagen("edit"));
}

struct CheckCase {
    Variant valor;
    const char* imagenKey;
    const char* esperada;  // the key of the picture, or "" for none
};

TEST_F(Rendering, ACheckCellShowsThePictureOfItsMark) {
    const CheckCase casos[] = {
        {int32_t{1}, "", "checked"}, {int32_t{0}, "", "unchecked"}, {int32_t{1}, "star", "star"},
        {int32_t{0}, "star", ""},    {int32_t{-1}, "", "unchecked"}, {true, "", "unchecked"},
        {"1", "", "checked"},        {1.0, "", "checked"},           {"1,5", "", "checked"},  // Val reads the leading 1
    };
    for (const CheckCase& k : casos) {
        auto cols = std::make_shared<coleccionColumnas>();
        cols->Add("M", "", 500, 0, "", Check)->ImagenKey = k.imagenKey;
        helper->CargaMSFlexGrid(grid, Lista({Generica({{"M", k.valor}})}), cols);
        const PictureRef p = grid->CellAt(1, 1).picture;
        if (*k.esperada) {
            ASSERT_NE(p, nullptr) << CStr(k.valor);
            EXPECT_EQ(p->Key(), k.esperada) << CStr(k.valor);
        } else {
            EXPECT_EQ(p, nullptr) << CStr(k.valor);
        }
        EXPECT_EQ(grid->GetTextMatrix(1, 1), "");  // a Check column gets no text
        EXPECT_EQ(grid->CellAt(1, 1).alignment, flexAlignLeftTop);
        EXPECT_EQ(grid->CellAt(1, 1).pictureAlignment, flexAlignCenterCenter);
    }
}

TEST_F(Rendering, ACheckColumnWithImagenAndImagen2HasAPictureForEachState) {
    auto cols = std::make_shared<coleccionColumnas>();
    ColumnaRef c = cols->Add("M", "", 500, 0, "", Check);
    c->Imagen = Form1().Imagen("add");
    c->Imagen2 = Form1().Imagen("delete");
    helper->CargaMSFlexGrid(grid, Lista({Generica({{"M", int32_t{1}}}), Generica({{"M", int32_t{0}}})}), cols);
    EXPECT_EQ(grid->CellAt(1, 1).picture, Form1().Imagen("add"));
    EXPECT_EQ(grid->CellAt(2, 1).picture, Form1().Imagen("delete"));
}

TEST_F(Rendering, ACheckCellsTextColourIsItsBackground) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("M", "", 500, 0, "", Check);
    grid->SetBackColor(0x00EEEEEE);
    helper->CargaMSFlexGrid(grid, Lista({Generica({{"M", int32_t{1}}})}), cols);
    EXPECT_EQ(grid->CellAt(1, 1).foreColor, 0x00EEEEEE);  // no colour of its own: the grid's BackColor
}

TEST_F(Rendering, AGridLoadedWithoutColumnsShowsEveryFieldHeadedByItsNameAndRaisesNoPintandoLinea) {
    int pintadas = 0;
    helper->PintandoLinea.Attach([&](ControlRef&, IEntidadRef&, int32_t&) { ++pintadas; });
    auto l = Lista({Generica({{"CODIGO", int32_t{7}}, {"NOMBRE", "Agua"}, {"PRECIO", 1.5}})});
    grid->SetRow(1);
    grid->SetCol(1);
    helper->CargaMSFlexGrid(grid, l);
    EXPECT_EQ(grid->GetCols(), 4);
    EXPECT_EQ(Fila(grid, 0), (Strings{"CODIGO", "NOMBRE", "PRECIO"}));
    EXPECT_EQ(Fila(grid, 1), (Strings{"7", "Agua", "1,5"}));
    EXPECT_EQ(pintadas, 0);
    // An empty coleccionColumnas draws the same way.
    helper->CargaMSFlexGrid(grid, l, std::make_shared<coleccionColumnas>());
    EXPECT_EQ(Fila(grid, 1), (Strings{"7", "Agua", "1,5"}));
    // An empty list with no columns: one column, the fixed one; the load then
    // asks the width of column 1 to choose the first visible one, which is not there.
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(grid, std::make_shared<coleccionGenerica>()); }).Number, 13);
    EXPECT_EQ(grid->GetCols(), 1);
    EXPECT_EQ(grid->GetRows(), 1);
}

TEST_F(Rendering, AnUnknownNombreShowsErrorInTheCell) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("NO_EXISTE");
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "#ERROR#");
}

TEST_F(Rendering, AnchoColuna1200Is1200TwipsOnAFlexGridAnd10OnASpread) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("DESC_CORTA", "", 1200);
    helper->CargaMSFlexGrid(grid, Articulos(), cols);
    helper->CargaFpSpread(spread, Articulos(), cols);
    EXPECT_EQ(grid->GetColWidth(1), 1200);
    EXPECT_EQ(spread->GetColWidth(1), 10);
    EXPECT_EQ(spread->GetColWidth(0), 1);
}

TEST_F(Rendering, ASpreadKeepsTypedCellsByColumnType) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("N", "Número", 960, 0, "", Entero);
    cols->Add("D", "Importe", 960, 0, "", NumDecimal);
    cols->Add("F", "Fecha", 960, 0, "", Fecha);
    cols->Add("M", "Marca", 960, 0, "", Check);
    cols->Add("T", "Texto", 960, 2, "", Texto);
    cols->Add("X", "Fijo", 960, 1, "0.0", TextoFijo);
    auto l = Lista({Generica({{"N", 12.7}, {"D", "1.234,56"}, {"F", Date::FromParts(2024, 3, 15)}, {"M", true},
                          {"T", "hola"}, {"X", 2.25}})});
    helper->CargaFpSpread(spread, l, cols);
    using C = Headless::fpSpread::Cell;
    const C& n = spread->CellAt(1, 1);
    EXPECT_EQ(n.type, CellTypeInteger);
    EXPECT_EQ(n.hAlign, 1);
    EXPECT_EQ(n.value, Variant(int32_t{12}));  // "12,7": Val reads up to the comma
    const C& d = spread->CellAt(2, 1);
    EXPECT_EQ(d.type, CellTypeFloat);
    EXPECT_TRUE(d.floatSeparator);
    EXPECT_EQ(d.decimalPlaces, 2);
    EXPECT_EQ(d.value, Variant(1234.56));
    const C& f = spread->CellAt(3, 1);
    EXPECT_EQ(f.type, CellTypeDate);
    EXPECT_EQ(f.value, Variant("15/03/2024"));  // always day/month/year with slashes on a spread
    const C& m = spread->CellAt(4, 1);
    EXPECT_EQ(m.type, CellTypeCheckBox);
    EXPECT_EQ(m.hAlign, 2);
    EXPECT_EQ(m.value, Variant(int32_t{1}));  // a true counts as -1, times -1
    const C& t = spread->CellAt(5, 1);
    EXPECT_EQ(t.type, CellTypeEdit);
    EXPECT_EQ(t.hAlign, 2);
    EXPECT_EQ(t.value, Variant("hola"));
    const C& x = spread->CellAt(6, 1);
    EXPECT_EQ(x.type, CellTypeStaticText);
    EXPECT_EQ(x.hAlign, 1);
    EXPECT_EQ(x.value, Variant("2,3"));  // under its Formato
    EXPECT_EQ(spread->CellAt(2, 0).value, Variant("Importe"));
}

TEST_F(Rendering, ANumDecimalSpreadColumnTakesItsFormatoAsTheNumberOfDecimals) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("D", "", 960, 0, "3", NumDecimal);
    cols->Add("E", "", 960, 0, "#,##0.00", NumDecimal);
    spread->SetMaxCols(2);
    spread->SetMaxRows(1);
    spread->SetRow(1);
    spread->SetCol(2);
    spread->SetTypeFloatDecimalPlaces(4);  // the control's own setting
    helper->CargaFpSpread(spread, Lista({Generica({{"D", 1.5}, {"E", 2.5}})}), cols);
    EXPECT_EQ(spread->CellAt(1, 1).decimalPlaces, 3);
    EXPECT_EQ(spread->CellAt(2, 1).decimalPlaces, 2);  // MaxRows 0 dropped the old cells: the default
}

TEST_F(Rendering, ASpreadFechaCellThatIsNoDateFailsWithTypeMismatch) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("F", "", 960, 0, "", Fecha);
    EXPECT_EQ(Capturar([&] { helper->CargaFpSpread(spread, Lista({Generica({{"F", "mañana"}})}), cols); }).Number, 13);
}

TEST_F(Rendering, ASpreadNumberColumnOfAnUnknownFieldShowsZero) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("NADA", "", 960, 0, "", NumDecimal);
    cols->Add("NADA2", "", 960, 0, "", Entero);
    helper->CargaFpSpread(spread, Articulos(), cols);
    EXPECT_EQ(spread->CellAt(1, 1).value, Variant(0.0));
    EXPECT_EQ(spread->CellAt(2, 1).value, Variant(int32_t{0}));
}

TEST_F(Rendering, ASpreadLoadedWithoutColumnsFailsOnTextMatrix) {
    EXPECT_EQ(Capturar([&] { helper->CargaFpSpread(spread, Articulos()); }).Number, 13);
}

TEST_F(Rendering, PintandoLineaLetsTheHostColourARowAndChangeACell) {
    helper->PintandoLinea.Attach([](ControlRef& c, IEntidadRef& e, int32_t& fila) {
        if (CStr(e->GetValor(std::string("TIPO_SUBFAMILIA"))) != "1") return;
        for (int32_t col = 1; col < c->GetCols(); ++col) {
            c->SetCol(col);
            c->SetCellBackColor(0x00C0C0FF);
        }
        c->SetTextMatrix(fila, 2, "** " + c->GetTextMatrix(fila, 2));
    });
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "** Café con leche");
    EXPECT_EQ(grid->GetTextMatrix(2, 2), "** Café solo");
    EXPECT_EQ(grid->GetTextMatrix(3, 2), "Bocadillo de jamón");
    EXPECT_EQ(grid->CellAt(2, 4).backColor, 0x00C0C0FF);
    // The load ends by entering row 1, which takes the colour of the current
    // row; the row left (the last one drawn) goes white.
    EXPECT_EQ(grid->CellAt(1, 4).backColor, 12648447);
    EXPECT_EQ(grid->CellAt(3, 4).backColor, 0xFFFFFF);
    EXPECT_EQ(grid->CellAt(2, 0).backColor, 0);  // column 0 is never coloured by the grid's controller
}

TEST_F(Rendering, ADataGridShowsOnlyTheFieldsThatHaveAColumna) {
    auto cn = OpenRoad(AllRoads()[0]);
    auto rs = cn->Execute("select 'A1' as CD_ARTICULO, 'Agua' as DESC_CORTA, 1.5 as PRECIOMAX, 1 as TIPO_FAMILIA, 2 as X");
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("desc_corta", "Descripción", 2000, 0);
    cols->Add("PRECIOMAX", "Precio", 900, 1);
    cols->Add("NO_ESTA", "Nada", 500, 2);  // a column not in the grid has no effect
    helper->CargaDataGrid(dataGrid, rs, std::make_shared<entarticulo>(), cols);
    int visibles = 0;
    for (const DataGridColumnRef& c : dataGrid->GetColumns()) {
        if (!c->GetVisible()) continue;
        ++visibles;
        if (c->GetDataField() == "DESC_CORTA") {
            EXPECT_EQ(c->GetCaption(), "Descripción");
            EXPECT_EQ(c->GetWidth(), 2000);
        } else {
            EXPECT_EQ(c->GetDataField(), "PRECIOMAX");
            EXPECT_EQ(c->GetAlignment(), 1);
        }
    }
    EXPECT_EQ(visibles, 2);
    EXPECT_EQ(dataGrid->GetColumns().size(), 5u);
    EXPECT_EQ(dataGrid->GetDataSource(), rs);
}

}  // namespace
