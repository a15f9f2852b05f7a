// The scripted edit session on the headless kit, on both database roads.
#include "binding/fixture.h"
#include "support/edit_session.h"

namespace {

using namespace zaro_test;

struct EditSessionHeadless : BindingTest, ::testing::WithParamInterface<Road> {};

TEST_P(EditSessionHeadless, EditsTicketLinesAsAUserAndTheHostSavesThem) {
    auto cn = OpenRoad(GetParam());
    DropAllTables(*cn);
    grid->SetLeft(240);
    grid->SetTop(480);
    grid->SetWidth(9000);
    EditSessionScreen screen{grid, txt, lst, mvw, &user,
                             [this](int32_t r, int32_t c) { return grid->CellAt(r, c).picture; }, {}};
    EditSession s(cn, screen);
    s.PrepareDatabase();
    s.Load();
    s.Run();
    s.SaveAndReadBack();
    EXPECT_EQ(Screen()->Beeps(), 2);  // the bad date, validated twice for one Enter
}

INSTANTIATE_TEST_SUITE_P(Roads, EditSessionHeadless, ::testing::ValuesIn(AllRoads()), RoadName);

}  // namespace
