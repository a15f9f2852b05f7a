// The scripted edit session of the headless grid controller's tests, run on
// the Qt kit with real Qt events, on both database roads: the same cells,
// entities, host events and saved rows.
#include <gtest/gtest.h>

#include <QApplication>

#include "ZARODatos.h"
#include "ZARODatosQt/QtControls.h"
#include "support/edit_session.h"
#include "support/roads.h"

using namespace OVT_ZARO;

namespace {

struct QtEditSession : ::testing::TestWithParam<zaro_test::Road> {
    std::shared_ptr<QtKit::QtScreen> pantalla = std::make_shared<QtKit::QtScreen>();
    void SetUp() override { SetScreen(pantalla); }
    void TearDown() override { SetScreen(nullptr); }
};

TEST_P(QtEditSession, EditsTicketLinesAsAUserAndTheHostSavesThem) {
    auto cn = zaro_test::OpenRoad(GetParam());
    zaro_test::DropAllTables(*cn);
    auto form = QtKit::Form::Create("frmTicket", 12000, 7000);
    auto grid = form->Add<QtKit::MSFlexGrid>("grdLineas");
    auto txt = form->Add<QtKit::TextBox>("txtEdicion");
    auto lst = form->Add<QtKit::ListBox>("lstArticulos");
    auto mvw = form->Add<QtKit::MonthView>("mvwFecha");
    grid->SetLeft(240);
    grid->SetTop(480);
    grid->SetWidth(9000);
    grid->SetHeight(3000);
    form->Show();
    QtKit::QtUser user(form);
    zaro_test::EditSessionScreen screen{grid, txt, lst, mvw, &user,
                                        [&](int32_t r, int32_t c) { return grid->PictureAt(r, c); },
                                        [] { QApplication::processEvents(); }};
    zaro_test::EditSession s(cn, screen);
    s.PrepareDatabase();
    s.Load();
    s.Run();
    s.SaveAndReadBack();
    EXPECT_EQ(pantalla->Beeps(), 2);
}

INSTANTIATE_TEST_SUITE_P(Roads, QtEditSession, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

}  // namespace
