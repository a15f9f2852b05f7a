// A list never rejects an element: no object stands in it as it is, and
// each later operation meets it in its own failure style.
#include <gtest/gtest.h>

#include "ZARODatos.h"
#include "access/articulo_db.h"
#include "support/capturar.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

namespace {

// A, then no object, then B: A of family 1 and price 2, B of family 2 and price 5.
std::shared_ptr<colarticulo> ConHueco() {
    auto l = std::make_shared<colarticulo>();
    l->Add("A", 0, {}, {}, 0, 0, {}, 1, 0, 2.0, "Agua");
    l->AddEntidad(std::shared_ptr<entarticulo>());
    l->Add("B", 0, {}, {}, 0, 0, {}, 2, 0, 5.0, "Bocadillo");
    return l;
}

TEST(NoObjectInAList, TheQueriesCarryOnPastIt) {
    auto l = ConHueco();
    // OrderBy: every read of it fails and is skipped; all three stay.
    auto o = l->OrderBy("PRECIOMAX", true);
    EXPECT_EQ(o->Count(), 3);
    // Where: its read fails, so the value read before it is compared again:
    // after A matched, no object goes into the new list with it.
    auto w = l->Where("TIPO_FAMILIA", "1");
    ASSERT_EQ(w->Count(), 2);
    EXPECT_EQ(w->Item(1)->CD_ARTICULO, "A");
    EXPECT_EQ(w->Item(2), nullptr);
    EXPECT_EQ(l->Where("TIPO_FAMILIA", "2")->Count(), 1);
    // WhereDelegado hands it to the handler as it is.
    int vistos = 0;
    l->DelegadoEvaluaElementoWhere.Attach([&](std::string&, std::shared_ptr<entarticulo>& e, bool& r) {
        vistos += e ? 1 : 100;
        r = e != nullptr;
    });
    EXPECT_EQ(l->WhereDelegado("x")->Count(), 2);
    EXPECT_EQ(vistos, 102);
}

TEST(NoObjectInAList, TotalsSkipItButCountItInTheMean) {
    auto l = ConHueco();
    EXPECT_DOUBLE_EQ(l->ObtenerSuma("PRECIOMAX"), 7.0);
    EXPECT_DOUBLE_EQ(l->ObtenerMedia("PRECIOMAX"), 7.0 / 3);
    EXPECT_DOUBLE_EQ(l->ObtenerMaximo("PRECIOMAX"), 5.0);
    EXPECT_DOUBLE_EQ(l->ObtenerMinimo("PRECIOMAX"), 0.0);
}

TEST(NoObjectInAList, ItemClaveRaisesWhenItReachesItBeforeAMatch) {
    auto l = ConHueco();
    EXPECT_EQ(l->ItemClave("A"), l->Item(1));
    Error e = Capturar([&] { l->ItemClave("B"); });
    EXPECT_EQ(e.Number, 91);
    EXPECT_EQ(e.Description, "Object variable or With block variable not set");
}

TEST(NoObjectInAList, ExportarTextoRaisesItWithTheAdaptersSource) {
    daarticulo da;
    Error e = Capturar([&] { da.ExportarTexto(*ConHueco(), ";"); });
    EXPECT_EQ(e.Number, 91);
    EXPECT_EQ(e.Source, "daarticulo");
}

TEST(NoObjectInAList, ListBindingReportsItInEachLoadsOwnStyle) {
    auto form = Headless::Form::Create("frm");
    auto grid = form->Add<Headless::MSFlexGrid>("grd");
    auto list = form->Add<Headless::ListBox>("lst");
    auto helper = std::make_shared<ControlListHelper>();
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(grid, ConHueco()); }).Number, 13);
    EXPECT_EQ(grid->GetTextMatrix(1, 6), "A");  // the row before it was drawn
    Error e = Capturar([&] { helper->CargaListBox(list, ConHueco(), std::string("CD_ARTICULO")); });
    EXPECT_EQ(e.Description, "Tipo de datos incorrecto");
    EXPECT_EQ(list->GetListCount(), 1);
    SetScreen(nullptr);
}

using NoObjectDb = zaro_test::ArticuloDb;

TEST_P(NoObjectDb, GrabarDatosSavesTheRowsBeforeItAndStopsWithItsError) {
    ASSERT_TRUE(da->CrearTabla());
    Error e = Capturar([&] { da->GrabarDatos(*ConHueco()); });
    EXPECT_EQ(e.Number, 91);
    EXPECT_EQ(e.Source, "daarticulo");
    auto guardados = da->Listar();
    ASSERT_EQ(guardados->Count(), 1);
    EXPECT_EQ(guardados->Item(1)->CD_ARTICULO, "A");
}

INSTANTIATE_TEST_SUITE_P(Roads, NoObjectDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

}  // namespace
