// Loading lists into each control kind, the selected entity, and the
// failure styles of the loads.
#include "binding/fixture.h"

namespace {

using namespace zaro_test;

// An entity whose fields fail with a description chosen by the test.
class EntidadQueFalla : public IEntidad {
public:
    explicit EntidadQueFalla(std::string descripcion) : descripcion_(std::move(descripcion)) {}
    Variant GetValor(ByRef<std::string>) override { throw Error(5, "EntidadQueFalla", descripcion_); }
    int32_t NumCampos() override { return 1; }

private:
    std::string descripcion_;
};

using BindingLoad = BindingTest;

TEST_F(BindingLoad, CargaListBoxShowsTheFieldOfEachEntityAndRestoresThePointer) {
    helper->CargaListBox(list, Articulos(), std::string("DESC_CORTA"));
    EXPECT_EQ(Items(list), (Strings{"Café leche", "Café solo", "Bocadillo"}));
    EXPECT_EQ(Screen()->GetMousePointer(), 0);
    EXPECT_EQ(Screen()->DoEventsCalls(), 3);  // one yield per row
    EXPECT_EQ(helper->NumeroDefiniciones(), 1);
}

TEST_F(BindingLoad, CargaListBoxFillsAComboBoxToo) {
    helper->CargaListBox(combo, Articulos(), std::string("CD_ARTICULO"));
    EXPECT_EQ(combo->GetListCount(), 3);
    combo->SetListIndex(2);
    EXPECT_EQ(helper->ValorSeleccionado(combo)->GetValor(std::string("CD_ARTICULO")), Variant("COM001"));
}

TEST_F(BindingLoad, AnEmptyNombreCampoIsPassedOnAndTheEntityAnswersForIt) {
    // An article answers the empty name with its description.
    helper->CargaListBox(list, Articulos());
    EXPECT_EQ(Items(list), (Strings{"Café con leche", "Café solo", "Bocadillo de jamón"}));
    auto simples = std::make_shared<colEntidadSimple>();
    simples->Add(Variant(1), Variant(), Variant(), "Uno");
    helper->CargaListBox(list, simples);
    EXPECT_EQ(Items(list), (Strings{"Uno"}));  // a simple entity answers with its description
}

TEST_F(BindingLoad, ValorSeleccionadoOfAControlNeverLoadedIsNothingAndRaisesNothing) {
    EXPECT_EQ(helper->ValorSeleccionado(grid), nullptr);
    helper->CargaListBox(list, Articulos(), std::string("DESC_CORTA"));
    EXPECT_EQ(helper->ValorSeleccionado(grid), nullptr);
    EXPECT_EQ(helper->ValorSeleccionado(spread), nullptr);
}

TEST_F(BindingLoad, ValorSeleccionadoOfAListIsTheEntityOfListIndex) {
    auto l = Articulos();
    helper->CargaListBox(list, l, std::string("DESC_CORTA"));
    EXPECT_EQ(helper->ValorSeleccionado(list), nullptr);  // no selection
    list->SetListIndex(1);
    EXPECT_EQ(helper->ValorSeleccionado(list), l->Item(2));  // the list's own entity, not a copy
}

TEST_F(BindingLoad, ValorSeleccionadoOfAGridOnItsHeadingRowIsNothing) {
    auto l = Articulos();
    helper->CargaMSFlexGrid(grid, l, ColumnasArticulo());
    EXPECT_EQ(helper->ValorSeleccionado(grid), l->Item(1));
    grid->SetRow(0);
    EXPECT_EQ(helper->ValorSeleccionado(grid), nullptr);
    grid->SetRow(3);
    EXPECT_EQ(helper->ValorSeleccionado(grid), l->Item(3));
}

TEST_F(BindingLoad, ValorSeleccionadoFindsTheControlByTypeNameNameAndParentName) {
    auto l = Articulos();
    helper->CargaMSFlexGrid(grid, l, ColumnasArticulo());
    // The same form opened twice: another grid object with the same identity.
    auto otroForm = Headless::Form::Create("FRMPRUEBA");
    auto mismo = otroForm->Add<Headless::MSFlexGrid>("GRDDATOS");
    mismo->SetRows(4);
    mismo->SetRow(2);
    // The definition's own grid answers, whatever object is asked.
    EXPECT_EQ(helper->ValorSeleccionado(mismo), l->Item(1));
    // Two grids of one name on two forms are two controls.
    auto otroForm2 = Headless::Form::Create("frmOtro");
    auto otro = otroForm2->Add<Headless::MSFlexGrid>("grdDatos");
    EXPECT_EQ(helper->ValorSeleccionado(otro), nullptr);
}

TEST_F(BindingLoad, KeepingOldItemsTheNewEntitiesFollowThemAndTheOldOnesAreNothing) {
    list->AddItem("viejo 1");
    list->AddItem("viejo 2");
    auto l = Articulos();
    helper->CargaListBox(list, l, std::string("CD_ARTICULO"), false);
    EXPECT_EQ(Items(list), (Strings{"viejo 1", "viejo 2", "BEB002", "BEB001", "COM001"}));
    list->SetListIndex(2);
    EXPECT_EQ(helper->ValorSeleccionado(list), l->Item(1));
    list->SetListIndex(0);
    EXPECT_EQ(helper->ValorSeleccionado(list), nullptr);
    list->SetListIndex(1);
    EXPECT_EQ(helper->ValorSeleccionado(list), nullptr);
}

TEST_F(BindingLoad, AnEmptyListClearsTheControlKeepsTheEarlierDefinitionAndLeavesTheHourglass) {
    auto l = Articulos();
    helper->CargaListBox(list, l, std::string("CD_ARTICULO"));
    helper->CargaListBox(list, std::make_shared<colarticulo>(), std::string("CD_ARTICULO"));
    EXPECT_EQ(list->GetListCount(), 0);
    EXPECT_EQ(Screen()->GetMousePointer(), vbHourglass);
    EXPECT_EQ(helper->NumeroDefiniciones(), 1);
    // The earlier definition still maps positions to the earlier entities.
    list->AddItem("x");
    list->SetListIndex(0);
    EXPECT_EQ(helper->ValorSeleccionado(list), l->Item(1));
}

TEST_F(BindingLoad, CargaListBoxWithATextBoxFailsAsTipoDeDatosIncorrecto) {
    Error e = Capturar([&] { helper->CargaListBox(txt, Articulos()); });
    EXPECT_EQ(e.Number, 1);
    EXPECT_EQ(e.Source, "ControlHelper");
    EXPECT_EQ(e.Description, "Tipo de datos incorrecto");  // "Tipo de control no vlido" never reaches the caller
    EXPECT_EQ(Screen()->GetMousePointer(), vbHourglass);
}

TEST_F(BindingLoad, AnyFailureInCargaListBoxIsTipoDeDatosIncorrecto) {
    auto l = std::make_shared<coleccionGenerica>();
    auto conNulo = std::make_shared<entidadGenerica>();
    conNulo->SetValor(std::string("A"), Variant::Null());
    l->Add(conNulo);
    Error f = Capturar([&] { helper->CargaListBox(list, l, std::string("A")); });  // Null has no text
    EXPECT_EQ(f.Number, 1);
    EXPECT_EQ(f.Description, "Tipo de datos incorrecto");
    Error g = Capturar([&] { helper->CargaListBox(list, ObjectRef(txt)); });  // no Count
    EXPECT_EQ(g.Description, "Tipo de datos incorrecto");
}

TEST_F(BindingLoad, CargaMSFlexGridGivenAListBoxFailsWithTypeMismatch) {
    Error e = Capturar([&] { helper->CargaMSFlexGrid(list, Articulos(), ColumnasArticulo()); });
    EXPECT_EQ(e.Number, 13);
    EXPECT_EQ(e.Description, "Type mismatch");  // not 438, whose words are lost
}

TEST_F(BindingLoad, CargaFpSpreadAndCargaDataGridGivenAGridFailWithTypeMismatch) {
    EXPECT_EQ(Capturar([&] { helper->CargaFpSpread(grid, Articulos(), ColumnasArticulo()); }).Number, 13);
    EXPECT_EQ(Capturar([&] { helper->CargaDataGrid(grid, nullptr, nullptr, ColumnasArticulo()); }).Number, 13);
}

TEST_F(BindingLoad, AFailureWhoseDescriptionReadsAsANumberIsRaisedWithThatNumber) {
    auto datos = std::make_shared<Collection>();
    datos->Add(Variant(std::make_shared<EntidadQueFalla>("42")));
    Error e = Capturar([&] { helper->CargaMSFlexGrid(grid, datos, ColumnasArticulo()); });
    EXPECT_EQ(e.Number, 42);
    EXPECT_EQ(e.Source, "ControlHelper");
    EXPECT_EQ(e.Description, "42");
    auto otra = std::make_shared<Collection>();
    otra->Add(Variant(std::make_shared<EntidadQueFalla>("campo perdido")));
    Error f = Capturar([&] { helper->CargaMSFlexGrid(grid, otra, ColumnasArticulo()); });
    EXPECT_EQ(f.Number, 13);
}

TEST_F(BindingLoad, CargaMSFlexGridOfAnEmptyListLeavesOneRowAndDoesNotSetRow) {
    grid->SetRows(5);
    grid->SetRow(3);
    helper->CargaMSFlexGrid(grid, std::make_shared<colarticulo>(), ColumnasArticulo());
    EXPECT_EQ(grid->GetRows(), 1);
    EXPECT_EQ(grid->GetRow(), 0);  // moved only because the rows went away
    EXPECT_EQ(grid->GetTextMatrix(0, 2), "Descripción");
}

TEST_F(BindingLoad, CargaMSFlexGridWithAHiddenFirstColumnEndsOnColumnTwo) {
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 2);
    auto visibles = std::make_shared<coleccionColumnas>();
    visibles->Add("DESC_CORTA", "", 1500);
    helper->CargaMSFlexGrid(grid, Articulos(), visibles);
    EXPECT_EQ(grid->GetCol(), 1);
}

TEST_F(BindingLoad, LoadingAGridTwiceLeavesOneDefinitionWithTheSecondLoadsEntities) {
    auto primera = Articulos();
    auto segunda = std::make_shared<colarticulo>();
    segunda->Add("Z", 0, {}, {}, 0, 0, {}, 0, 0, 0, "Zumo", "Zumo");
    helper->CargaMSFlexGrid(grid, primera, ColumnasArticulo());
    helper->CargaMSFlexGrid(grid, segunda, ColumnasArticulo());
    EXPECT_EQ(helper->NumeroDefiniciones(), 1);
    EXPECT_EQ(grid->GetRows(), 2);
    EXPECT_EQ(helper->ValorSeleccionado(grid), segunda->Item(1));
}

TEST_F(BindingLoad, PintandoLineaGivesAListsZeroBasedNewIndexAndAGridsOneBasedRow) {
    std::vector<std::pair<std::string, int32_t>> vistos;
    helper->PintandoLinea.Attach([&](ControlRef& c, IEntidadRef& e, int32_t& linea) {
        vistos.emplace_back(c->GetName() + ":" + CStr(e->GetValor(std::string("CD_ARTICULO"))), linea);
    });
    helper->CargaListBox(list, Articulos(), std::string("CD_ARTICULO"));
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    helper->CargaFpSpread(spread, Articulos(), ColumnasArticulo());
    using P = std::pair<std::string, int32_t>;
    EXPECT_EQ(vistos, (std::vector<P>{{"lstDatos:BEB002", 0}, {"lstDatos:BEB001", 1}, {"lstDatos:COM001", 2},
                                      {"grdDatos:BEB002", 1}, {"grdDatos:BEB001", 2}, {"grdDatos:COM001", 3},
                                      {"sprDatos:BEB002", 1}, {"sprDatos:BEB001", 2}, {"sprDatos:COM001", 3}}));
}

TEST_F(BindingLoad, EveryLoadYieldsToTheScreenAfterEveryRow) {
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    EXPECT_EQ(Screen()->DoEventsCalls(), 3);
    helper->CargaFpSpread(spread, Articulos(), ColumnasArticulo());
    EXPECT_EQ(Screen()->DoEventsCalls(), 6);
}

TEST_F(BindingLoad, TheGridsDefinitionIsMarkedStartingUpWhileItsRowsAreDrawn) {
    // A yield in the middle of the load lets the screen run: it finds the
    // definition in place and starting up, without its entities yet.
    struct Observador : ScreenServices {
        std::function<void()> alCeder;
        void DoEvents() override { alCeder(); }
    };
    auto pantalla = std::make_shared<Observador>();
    std::vector<std::string> visto;
    pantalla->alCeder = [&] {
        try {
            visto.push_back(helper->ValorSeleccionado(grid) ? "entidad" : "nada");
        } catch (const Error& e) {
            visto.push_back(std::to_string(e.Number) + " " + e.Source);
        }
    };
    SetScreen(pantalla);
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    // Row 1 is current while the first rows are drawn, and Datos is not set yet: 91.
    EXPECT_EQ(visto, (Strings{"91 ControlHelper", "91 ControlHelper", "91 ControlHelper"}));
}

TEST_F(BindingLoad, AListWithoutParentLoadsWhileNoDefinitionExistsAndMakesLaterLoadsFail) {
    auto suelta = std::make_shared<Headless::ListBox>();  // made outside any form: no Parent
    helper->CargaListBox(suelta, Articulos(), std::string("CD_ARTICULO"));  // no definition to compare with
    EXPECT_EQ(helper->NumeroDefiniciones(), 1);
    // Every later registration reads the identity of that definition's list: 91 on its Parent.
    Error f = Capturar([&] { helper->CargaListBox(list, Articulos(), std::string("CD_ARTICULO")); });
    EXPECT_EQ(f.Description, "Tipo de datos incorrecto");
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo()); }).Number, 13);
}

TEST_F(BindingLoad, AGridWithoutParentFailsAtItsSecondRegistration) {
    // A grid is registered twice in one load; the second time its own first definition is read.
    auto suelta = std::make_shared<Headless::MSFlexGrid>();
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(suelta, Articulos(), ColumnasArticulo()); }).Number, 13);
    EXPECT_EQ(suelta->GetTextMatrix(3, 1), "COM001");  // the rows were drawn before
}

TEST_F(BindingLoad, AControlWithoutNameFailsInRegistraControl) {
    struct SinNombre : Headless::MSFlexGrid {
        std::string GetName() override { Missing("Name"); }
    };
    helper->CargaMSFlexGrid(grid, Articulos(), ColumnasArticulo());
    auto sinNombre = std::make_shared<SinNombre>();
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(sinNombre, Articulos(), ColumnasArticulo()); }).Number, 13);
    Error e = Capturar([&] { helper->ValorSeleccionado(sinNombre); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Source, "ControlHelper");
}

TEST_F(BindingLoad, AFailedRowEndsTheLoadAndLeavesTheRowsDrawnAndTheDefinitionStartingUp) {
    auto datos = std::make_shared<Collection>();
    auto l = Articulos();
    datos->Add(Variant(l->Item(1)));
    datos->Add(Variant(std::make_shared<EntidadQueFalla>("no")));
    datos->Add(Variant(l->Item(2)));
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(grid, datos, ColumnasArticulo()); }).Number, 13);
    EXPECT_EQ(grid->GetRows(), 4);
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "BEB002");
    EXPECT_EQ(grid->GetTextMatrix(3, 1), "");
    grid->SetRow(1);
    // The definition is the one put in place before the rows: no entities.
    EXPECT_EQ(Capturar([&] { helper->ValorSeleccionado(grid); }).Number, 91);
}

TEST_F(BindingLoad, CargaFpSpreadGrowsTheSpreadRowByRowAndAnswersByActiveRow) {
    auto l = Articulos();
    helper->CargaFpSpread(spread, l, ColumnasArticulo());
    EXPECT_EQ(spread->GetMaxRows(), 3);
    EXPECT_EQ(spread->GetMaxCols(), 5);
    spread->UserClickCell(3, 2);
    EXPECT_EQ(helper->ValorSeleccionado(spread), l->Item(3));
}

}  // namespace
