// Sorting a loaded control again, and the module's bubble sort behind it.
#include "binding/fixture.h"

namespace {

using namespace zaro_test;

using Sorting = BindingTest;

// An entity with one field, V, that counts how often it is read.
class Contada : public IEntidad {
public:
    Contada(Variant v, int* lecturas) : v_(std::move(v)), lecturas_(lecturas) {}
    Variant GetValor(ByRef<std::string> Campo) override {
        ++*lecturas_;
        return TextEquals(*Campo, "V") ? v_ : Variant("#ERROR#");
    }
    int32_t NumCampos() override { return 1; }
    std::string GetNombreCampo(ByRef<int16_t>) override { return "V"; }
    Variant GetValorIndice(ByRef<int16_t>) override { return v_; }

private:
    Variant v_;
    int* lecturas_;
};

std::shared_ptr<Collection> Valores(std::initializer_list<Variant> vs, int* lecturas) {
    auto c = std::make_shared<Collection>();
    for (const Variant& v : vs) c->Add(Variant(std::make_shared<Contada>(v, lecturas)));
    return c;
}

std::vector<std::string> Orden(const CollectionRef& c) {
    std::vector<std::string> out;
    for (const Variant& v : *c) {
        int16_t i = 1;
        out.push_back(CStr(std::dynamic_pointer_cast<IEntidad>(v.Get<ObjectRef>())->GetValorIndice(i)));
    }
    return out;
}

TEST_F(Sorting, CapitalsComeBeforeSmallLettersOnAGrid) {
    int n = 0;
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("V");
    helper->CargaMSFlexGrid(grid, Valores({"b", "A"}, &n), cols);
    helper->Ordena(grid, std::string("V"));
    EXPECT_EQ(Fila(grid, 1), (Strings{"A"}));
    helper->CargaMSFlexGrid(grid, Valores({"a", "B"}, &n), cols);
    helper->Ordena(grid, std::string("V"));
    EXPECT_EQ(Fila(grid, 1), (Strings{"B"}));
    EXPECT_EQ(Fila(grid, 2), (Strings{"a"}));
    helper->Ordena(grid, std::string("V"), true);
    EXPECT_EQ(Fila(grid, 1), (Strings{"a"}));
}

TEST_F(Sorting, AnAlreadySortedGridIsSortedInOnePassAndLoadedAgainAllTheSame) {
    int lecturas = 0;
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("V");
    helper->CargaMSFlexGrid(grid, Valores({int32_t{1}, int32_t{2}, int32_t{3}, int32_t{4}}, &lecturas), cols);
    lecturas = 0;
    int pintadas = 0;
    helper->PintandoLinea.Attach([&](ControlRef&, IEntidadRef&, int32_t&) { ++pintadas; });
    helper->Ordena(grid, std::string("V"));
    // One pass: three neighbouring pairs, two reads each; then four rows drawn, one read each.
    EXPECT_EQ(lecturas, 3 * 2 + 4);
    EXPECT_EQ(pintadas, 4);
}

TEST_F(Sorting, TiesKeepTheirOrderInBothDirections) {
    auto l = std::make_shared<coleccionGenerica>();
    for (auto [k, nombre] : {std::pair{1, "primero"}, {2, "x"}, {1, "segundo"}, {1, "tercero"}}) {
        auto e = std::make_shared<entidadGenerica>();
        e->SetValor(std::string("K"), Variant(int32_t{k}));
        e->SetValor(std::string("N"), Variant(nombre));
        l->Add(e);
    }
    helper->CargaListBox(list, l, std::string("N"));
    bool descendente = false;
    ObjectRef lista = l;
    EXPECT_EQ(Orden(BasTroquel::OrdenarColeccion(lista, "K", descendente)).size(), 4u);
    auto asc = BasTroquel::OrdenarColeccion(lista, "K", descendente);
    std::vector<std::string> nombres;
    for (const Variant& v : *asc)
        nombres.push_back(CStr(std::dynamic_pointer_cast<IEntidad>(v.Get<ObjectRef>())->GetValor(std::string("N"))));
    EXPECT_EQ(nombres, (Strings{"primero", "segundo", "tercero", "x"}));
    descendente = true;
    auto desc = BasTroquel::OrdenarColeccion(lista, "K", descendente);
    nombres.clear();
    for (const Variant& v : *desc)
        nombres.push_back(CStr(std::dynamic_pointer_cast<IEntidad>(v.Get<ObjectRef>())->GetValor(std::string("N"))));
    EXPECT_EQ(nombres, (Strings{"x", "primero", "segundo", "tercero"}));
}

TEST(OrdenarColeccion, NumbersComeBeforeTextsAndNoCollectionGivesAnEmptyOne) {
    int n = 0;
    ObjectRef c = Valores({"b", int32_t{10}, "A", 2.5, int32_t{-1}}, &n);
    bool desc = false;
    EXPECT_EQ(Orden(BasTroquel::OrdenarColeccion(c, "V", desc)), (Strings{"-1", "2,5", "10", "A", "b"}));
    ObjectRef nada;
    auto vacia = BasTroquel::OrdenarColeccion(nada, "V", desc);
    ASSERT_NE(vacia, nullptr);
    EXPECT_EQ(vacia->Count(), 0);
    ObjectRef noLista = std::make_shared<Headless::TextBox>();
    EXPECT_EQ(BasTroquel::OrdenarColeccion(noLista, "V", desc)->Count(), 0);
}

TEST(OrdenarColeccion, ANullIsNeitherLessNorGreaterAndNeverRaises) {
    int n = 0;
    ObjectRef c = Valores({int32_t{3}, Variant::Null(), int32_t{1}}, &n);
    bool desc = false;
    // 3 and Null do not swap, Null and 1 do not swap: a pass without a swap ends the sort.
    EXPECT_EQ(BasTroquel::OrdenarColeccion(c, "V", desc)->Count(), 3);
    auto withNothing = std::make_shared<Collection>();
    withNothing->Add(Variant(ObjectRef()));
    withNothing->Add(Variant(std::make_shared<Contada>(Variant(int32_t{1}), &n)));
    ObjectRef w = withNothing;
    EXPECT_EQ(BasTroquel::OrdenarColeccion(w, "V", desc)->Count(), 2);
}

TEST_F(Sorting, TheSortedCollectionBecomesTheDefinitionsDatosAndTheListKeepsItsOrder) {
    auto l = Articulos();
    helper->CargaMSFlexGrid(grid, l, ColumnasArticulo());
    helper->Ordena(grid, std::string("CD_ARTICULO"));
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "BEB001");
    EXPECT_EQ(helper->ValorSeleccionado(grid), l->Item(2));  // row 1 is now the second article, the same object
    EXPECT_EQ(CStr(l->Item(1)->GetValor(std::string("CD_ARTICULO"))), "BEB002");
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 2);
    EXPECT_TRUE(grid->GetVisible());
}

TEST_F(Sorting, ASortByAFieldTheEntityLacksLeavesTheOrder) {
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    helper->Ordena(grid, std::string("NO_EXISTE"));
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "BEB002");
    EXPECT_EQ(grid->GetTextMatrix(2, 1), "BEB001");
    EXPECT_EQ(grid->GetTextMatrix(3, 1), "COM001");
}

TEST_F(Sorting, AListBoxIsLoadedAgainWithTheAnswerToAnEmptyFieldName) {
    auto simples = std::make_shared<colEntidadSimple>();
    simples->Add(Variant("b"), Variant(), Variant(), "Segundo");
    simples->Add(Variant("a"), Variant(), Variant(), "Primero");
    helper->CargaListBox(list, simples, std::string("Clave1"));
    EXPECT_EQ(Items(list), (Strings{"b", "a"}));
    helper->Ordena(list, std::string("Clave1"));
    EXPECT_EQ(Items(list), (Strings{"Primero", "Segundo"}));  // the description, not Clave1
    list->SetListIndex(0);
    EXPECT_EQ(helper->ValorSeleccionado(list), simples->Item(2));
    EXPECT_EQ(Screen()->GetMousePointer(), 0);
}

TEST_F(Sorting, SortingAListBoxThatHoldsNoEntitiesLeavesTheHourglass) {
    list->AddItem("sin entidad");
    helper->CargaListBox(list, Articulos(), std::string("CD_ARTICULO"), false);
    // Entities of a list that hold Nothing in the first place fail the reload: type mismatch.
    EXPECT_EQ(Capturar([&] { helper->Ordena(list, std::string("CD_ARTICULO")); }).Number, 13);
    EXPECT_FALSE(list->GetVisible());  // a failed reload leaves the control hidden
    auto vacia = std::make_shared<Headless::ListBox>();
    auto f = Headless::Form::Create("frmVacio");
    auto lv = f->Add<Headless::ListBox>("lst");
    helper->CargaListBox(lv, Articulos(), std::string("CD_ARTICULO"));
    lv->Clear();
    helper->CargaListBox(lv, std::make_shared<colarticulo>());  // clears; the definition stays
    Screen()->SetMousePointer(0);
    helper->Ordena(lv, std::string("CD_ARTICULO"));
    EXPECT_EQ(lv->GetListCount(), 3);
}

TEST_F(Sorting, ASpreadIsSortedAndLoadedAgain) {
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("CD_ARTICULO", "", 1200, 0, "", Texto);
    cols->Add("PRECIOMAX", "", 1200, 0, "", NumDecimal);
    helper->CargaFpSpread(spread, Articulos(), cols);
    helper->Ordena(spread, std::string("PRECIOMAX"), true);
    EXPECT_EQ(spread->CellAt(1, 1).value, Variant("COM001"));
    EXPECT_EQ(spread->CellAt(1, 3).value, Variant("BEB001"));
    EXPECT_EQ(spread->GetMaxRows(), 3);
    EXPECT_TRUE(spread->GetVisible());
}

TEST_F(Sorting, ADataGridKeepsItsOrderAndIsShownAgain) {
    auto cn = OpenRoad(AllRoads()[0]);
    auto rs = cn->Execute("select 'B' as CD_ARTICULO union all select 'A'");
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("CD_ARTICULO");
    auto entidad = std::make_shared<entarticulo>();
    helper->CargaDataGrid(dataGrid, rs, entidad, cols);
    helper->Ordena(dataGrid, std::string("CD_ARTICULO"));
    EXPECT_TRUE(dataGrid->GetVisible());
    EXPECT_EQ(dataGrid->GetDataSource(), rs);
    rs->MoveFirst();
    EXPECT_EQ(CStr(helper->ValorSeleccionado(dataGrid)->GetValor(std::string("CD_ARTICULO"))), "B");
}

TEST_F(Sorting, AControlNeverLoadedFailsWithTypeMismatch) {
    Error e = Capturar([&] { helper->Ordena(grid, std::string("CD_ARTICULO")); });
    EXPECT_EQ(e.Number, 13);
    EXPECT_EQ(e.Description, "Type mismatch");
}

}  // namespace
