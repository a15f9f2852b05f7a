// Lookups against a real database on both roads: the list overlay filled
// and narrowed as the user types, the commit of the description and its
// key, the description read again after a key typed by hand, and typed text
// that can never break or extend the statement.
#include "binding/controller_fixture.h"

namespace {

using namespace zaro_test;

struct Lookup : ControllerTest, ::testing::WithParamInterface<Road> {
    ConnectionRef cn;

    void SetUp() override {
        ControllerTest::SetUp();
        cn = OpenRoad(GetParam());
        DropAllTables(*cn);
        daarticulo da;
        da.Conexion = cn;
        ASSERT_TRUE(da.CrearTabla());
        colarticulo a;
        a.Add("1001", 8, {}, {}, 0, 0, {}, 1, 1, 1.6, "Café solo", "Café solo");
        a.Add("1002", 8, {}, {}, 0, 0, {}, 1, 1, 1.9, "Café con leche", "Café con leche");
        a.Add("2001", 8, {}, {}, 0, 0, {}, 2, 1, 4.5, "Bocadillo de jamón", "Bocadillo de jamón");
        a.Add("2002", 8, {}, {}, 0, 0, {}, 2, 1, 4.0, "Bocadillo vegetal", "Bocadillo vegetal");
        a.Add("3001", 8, {}, {}, 0, 0, {}, 3, 1, 1.2, "Agua", "Agua");
        da.GrabarDatos(a);
        cn->Execute("update articulo set DESC_CORTA = NULL where CD_ARTICULO = '3001'");
        // The grid: the key hidden, the description as a lookup, a quantity.
        cols = std::make_shared<coleccionColumnas>();
        cols->Add("CODIGO", "Código", 0, 0, "", Texto);
        ColumnaRef d = cols->Add("DESCRIPCION", "Artículo", 2400, 0, "", Texto);
        d->Conexion = cn;
        d->OrigenDatos = "select CD_ARTICULO, DESC_CORTA from articulo";
        d->OrigenDatosCampoClave = "CD_ARTICULO";
        d->OrigenDatosCampoDescripcion = "DESC_CORTA";
        d->OrigenDatosCampoClaveTablaVista = "CODIGO";
        cols->Add("CANTIDAD", "Cantidad", 1000, 0, "", NumDecimal);
        filas = std::make_shared<coleccionGenerica>();
        for (auto [codigo, descripcion] : {std::pair{"1001", "Café solo"}, {"2002", "Bocadillo vegetal"}}) {
            auto e = std::make_shared<entidadGenerica>();
            e->SetValor(std::string("CODIGO"), Variant(codigo));
            e->SetValor(std::string("DESCRIPCION"), Variant(descripcion));
            e->SetValor(std::string("CANTIDAD"), Variant(1.0));
            filas->Add(e);
        }
    }

    ColumnaRef Busqueda() { return cols->Item("DESCRIPCION"); }
    size_t Marca() { return GeneralLogMark(GetParam()); }
    // The lookup statements sent since a mark.
    Strings Consultas(size_t marca, bool preparadas = false) {
        Strings out;
        for (const std::string& s : preparadas ? GeneralLogWithPreparedSince(GetParam(), marca)
                                               : GeneralLogSince(GetParam(), marca))
            if (s.find("DESC_CORTA") != std::string::npos && s.find("select") == 0) out.push_back(s);
        return out;
    }
    int64_t Articulos() {
        auto rs = cn->Execute("select count(*) from articulo");
        return static_cast<int64_t>(CDbl(rs->Fields().Item(int32_t{0}).Value()));
    }
};

TEST_P(Lookup, TheFirstDisplayIsTheWholeListWithTheEntryOfTheCellSelected) {
    Cargar();
    const size_t marca = Marca();
    user.DoubleClickCell(grid, 1, 2);
    EXPECT_TRUE(lst->GetVisible());
    EXPECT_EQ(Items(lst), (Strings{"", "Bocadillo de jamón", "Bocadillo vegetal", "Café con leche", "Café solo"}));
    EXPECT_EQ(lst->GetListIndex(), 4);
    EXPECT_EQ(lst->GetText(), "Café solo");
    EXPECT_EQ(lst->GetItemData(4), 1001);
    EXPECT_EQ(lst->GetLeft(), 300 + grid->GetColPos(2));
    EXPECT_EQ(lst->GetTop(), 600 + grid->RowPos(1) + 240);
    EXPECT_EQ(lst->GetWidth(), 2400);
    EXPECT_EQ(lst->GetHeight(), 2370);
    EXPECT_EQ(Consultas(marca), (Strings{"select CD_ARTICULO, DESC_CORTA from articulo order by DESC_CORTA"}));
}

TEST_P(Lookup, TypingNarrowsTheListToDescriptionsHoldingTheText) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    const size_t marca = Marca();
    user.Type("LLO");
    EXPECT_EQ(Items(lst), (Strings{"Bocadillo de jamón", "Bocadillo vegetal"}));
    EXPECT_EQ(Consultas(marca),
              (Strings{"select CD_ARTICULO, DESC_CORTA from articulo where DESC_CORTA like '%L%' order by DESC_CORTA",
                       "select CD_ARTICULO, DESC_CORTA from articulo where DESC_CORTA like '%LL%' order by DESC_CORTA",
                       "select CD_ARTICULO, DESC_CORTA from articulo where DESC_CORTA like '%LLO%' order by DESC_CORTA"}));
    user.Backspace();
    user.Backspace();
    user.Backspace();  // all the text deleted: the whole list again
    EXPECT_EQ(lst->GetListCount(), 5);
}

TEST_P(Lookup, UpAndDownPickAnEntryWithoutCommittingAndEnterWritesItWhateverWasTyped) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("caf");
    // Each refill selects the entry of the cell's text again, when it is there.
    EXPECT_EQ(Items(lst), (Strings{"Café con leche", "Café solo"}));
    EXPECT_EQ(lst->GetListIndex(), 1);
    user.Up();
    EXPECT_EQ(lst->GetListIndex(), 0);
    user.Down();
    user.Down();  // the last entry: no further
    EXPECT_EQ(lst->GetListIndex(), 1);
    user.Up();
    EXPECT_EQ(lst->GetText(), "Café con leche");
    EXPECT_TRUE(host.empty());  // the list's Clicks found it disarmed
    user.Enter();
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("Café con leche"));
    EXPECT_EQ(Valor(1, "CODIGO"), Variant(int32_t{1002}));
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "Café con leche");
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "1002");
    EXPECT_FALSE(lst->GetVisible());
    EXPECT_FALSE(Editando());
    // The host is asked with what was typed, and hears of the key column only.
    EXPECT_EQ(host, (Strings{"Comprueba 2,1 Café solo>caf", "Modificada CODIGO 1,1 1001>1002"}));
}

TEST_P(Lookup, EnterWithNoEntrySelectedWritesNothingHidesEverythingAndCountsAsDone) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("zzz");
    EXPECT_EQ(lst->GetListCount(), 0);
    EXPECT_TRUE(lst->GetVisible());  // shown also when the query gave no rows
    user.Enter();
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("Café solo"));
    EXPECT_FALSE(lst->GetVisible());
    EXPECT_FALSE(Editando());
    EXPECT_EQ(grid->GetCol(), 3);  // and the cursor moved on
    EXPECT_EQ(host, (Strings{"Comprueba 2,1 Café solo>zzz"}));
}

TEST_P(Lookup, AClickOnAnEntryCommitsItSinceLeavingTheOverlayArmedTheList) {
    Cargar();
    user.DoubleClickCell(grid, 2, 2);
    user.Type("jam");
    user.ClickItem(lst, 0);
    EXPECT_EQ(Valor(2, "DESCRIPCION"), Variant("Bocadillo de jamón"));
    EXPECT_EQ(Valor(2, "CODIGO"), Variant(int32_t{2001}));
    EXPECT_FALSE(lst->GetVisible());
}

TEST_P(Lookup, AnOrigenDatosWithAConditionGetsAnd) {
    Busqueda()->OrigenDatos = "select CD_ARTICULO, DESC_CORTA from articulo WHERE TIPO_FAMILIA = 2";
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    EXPECT_EQ(lst->GetListCount(), 2);
    user.Type("veg");
    EXPECT_EQ(Items(lst), (Strings{"Bocadillo vegetal"}));
}

TEST_P(Lookup, ANameHoldingWhereGetsAndAndSoABadStatementThatLeavesTheListAsItWas) {
    cn->Execute("create view articulos_anywhere as select CD_ARTICULO, DESC_CORTA from articulo");
    Busqueda()->OrigenDatos = "select CD_ARTICULO, DESC_CORTA from articulos_anywhere";
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    EXPECT_EQ(lst->GetListCount(), 5);  // no filter: a good statement
    const size_t marca = Marca();
    user.Type("caf");
    EXPECT_EQ(lst->GetListCount(), 5);  // the failing statement left the list alone, and nothing was reported
    EXPECT_TRUE(Consultas(marca).empty());  // the server refused it while preparing: it never ran
    user.Enter();  // disarmed, and no entry picked by the keys: the selected entry is written
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("Café solo"));
}

TEST_P(Lookup, FiltraListBoxRaisesAFailedStatementAgainUnderItsOwnSource) {
    cn->Execute("create view articulos_anywhere as select CD_ARTICULO, DESC_CORTA from articulo");
    Busqueda()->OrigenDatos = "select CD_ARTICULO, DESC_CORTA from articulos_anywhere";
    // A definition of its own over a second grid, called directly.
    auto otro = Headless::Form::Create("frmOtro");
    auto g = otro->Add<Headless::MSFlexGrid>("grd");
    auto t = otro->Add<Headless::TextBox>("txt");
    auto l = otro->Add<Headless::ListBox>("lst");
    g->SetCols(4);
    g->SetCol(2);
    auto def = std::make_shared<ControlListDefinition>();
    def->control(g);
    def->TextBox(t);
    def->ListBox(l);
    def->Columnas = cols;
    t->SetText("caf");
    Error e = Capturar([&] { def->FiltraListBox(); });
    EXPECT_EQ(e.Number, 1064);
    EXPECT_EQ(e.Source, "ControlListDefinition.FiltraListBox");
    EXPECT_NE(e.Description.find("near 'and DESC_CORTA like '%caf%' order by DESC_CORTA'"), std::string::npos)
        << e.Description;
    EXPECT_EQ(l->GetListCount(), 0);
    t->SetText("");  // no filter: a good statement
    def->FiltraListBox();
    EXPECT_EQ(l->GetListCount(), 5);
    EXPECT_TRUE(l->GetVisible());
    def->Columnas->Item("DESCRIPCION")->Conexion = nullptr;  // no connection
    Error sin = Capturar([&] { def->FiltraListBox(); });
    EXPECT_EQ(sin.Source, "ControlListDefinition.FiltraListBox");
    EXPECT_EQ(l->GetListCount(), 5);  // the list keeps what it had
}

TEST_P(Lookup, AnOrigenDatosOfBlanksIsNoLookupAndTypingRunsNothing) {
    Busqueda()->OrigenDatos = "   ";
    Cargar();
    const size_t marca = Marca();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("abc");
    EXPECT_FALSE(lst->GetVisible());
    EXPECT_TRUE(Consultas(marca).empty());
    user.Enter();
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("abc"));  // written as text
}

TEST_P(Lookup, ANullDescriptionIsAnEmptyEntryAndANullKeyStopsTheFillAtItsRow) {
    Busqueda()->OrigenDatos =
        "select * from (select CD_ARTICULO, DESC_CORTA from articulo union all select NULL, 'Zzz sin codigo') t";
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    // In description order: the empty one first ... and the row without a key last, its text added, its key not.
    EXPECT_EQ(Items(lst), (Strings{"", "Bocadillo de jamón", "Bocadillo vegetal", "Café con leche", "Café solo",
                                   "Zzz sin codigo"}));
    EXPECT_EQ(lst->GetItemData(0), 3001);
    EXPECT_EQ(lst->GetItemData(5), 0);
}

TEST_P(Lookup, AKeyTypedByHandBringsItsDescriptionFromTheDatabase) {
    cols->Item("CODIGO")->AnchoColuna = 800;
    Cargar();
    const size_t marca = GeneralLogMark(GetParam());
    user.DoubleClickCell(grid, 1, 1);
    user.Type("2001");
    user.Enter();
    EXPECT_EQ(Valor(1, "CODIGO"), Variant("2001"));
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("Bocadillo de jamón"));
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "Bocadillo de jamón");
    EXPECT_EQ(host, (Strings{"Comprueba 1,1 1001>2001", "Modificada CODIGO 1,1 1001>2001",
                             "Modificada DESCRIPCION 2,1 Café solo>Bocadillo de jamón"}));
    bool visto = false;
    for (const std::string& s : GeneralLogSince(GetParam(), marca))
        visto |= s == "select CD_ARTICULO, DESC_CORTA from articulo where CD_ARTICULO = 2001";
    EXPECT_TRUE(visto);  // the key written as a number, without quotes
}

TEST_P(Lookup, AKeyOfZeroOrNoNumberLeavesTheOldDescription) {
    cols->Item("CODIGO")->AnchoColuna = 800;
    Cargar();
    user.DoubleClickCell(grid, 1, 1);
    user.Type("0");
    user.Enter();
    user.DoubleClickCell(grid, 2, 1);
    user.Type("abc");
    user.Enter();
    EXPECT_EQ(Valor(1, "DESCRIPCION"), Variant("Café solo"));
    EXPECT_EQ(Valor(2, "DESCRIPCION"), Variant("Bocadillo vegetal"));
    EXPECT_EQ(host.size(), 4u);  // two asked, two written, no description read
}

TEST_P(Lookup, QuotesBackslashesAndWildcardsNeverBreakOrExtendTheStatement) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    const int64_t antes = Articulos();
    for (const char* tecleado : {"'", "\\", "%", "_", "x' or '1'='1", "%'; delete from articulo; -- ",
                                 "\\' or 1=1 -- "}) {
        txt->SetText("");
        const size_t marca = Marca();
        user.Type(tecleado);
        const Strings enviadas = Consultas(marca);
        ASSERT_FALSE(enviadas.empty()) << tecleado;
        // Every apostrophe of what was typed went in as "´": the literal holds all of it.
        std::string esperado = "select CD_ARTICULO, DESC_CORTA from articulo where DESC_CORTA like '%";
        BasTroquel::AnexarTextoSQL(esperado, tecleado);
        esperado += "%' order by DESC_CORTA";
        EXPECT_EQ(enviadas.back(), esperado) << tecleado;
        EXPECT_TRUE(lst->GetVisible()) << tecleado;  // the statement ran
    }
    EXPECT_EQ(Articulos(), antes);
    // "%" and "_" are the pattern's own wildcards: they narrow nothing away.
    txt->SetText("");
    user.Type("%");
    EXPECT_EQ(lst->GetListCount(), 4);  // the entries with a description
}

INSTANTIATE_TEST_SUITE_P(Roads, Lookup, ::testing::ValuesIn(AllRoads()), RoadName);

}  // namespace
