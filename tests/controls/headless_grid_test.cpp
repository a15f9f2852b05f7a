// The headless flex grid: cells, current-cell events, geometry, the mouse.
#include <gtest/gtest.h>

#include "ZARODatos/platform/HeadlessControls.h"
#include "ZARODatos/platform/Pictures.h"
#include "support/capturar.h"
#include "support/recorder.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;
using Strings = std::vector<std::string>;

namespace {

struct GridTest : ::testing::Test {
    std::shared_ptr<Headless::Form> form = Headless::Form::Create("frm");
    std::shared_ptr<Headless::MSFlexGrid> grid = form->Add<Headless::MSFlexGrid>("grd");
    zaro_test::EventRecorder rec;
    void SetUp() override {
        grid->SetRows(4);
        grid->SetCols(4);
    }
};

TEST_F(GridTest, ANewGridHasOneFixedRowAndColumnAndStandsOnTheFirstCell) {
    Headless::MSFlexGrid g;
    EXPECT_EQ(g.GetRows(), 2);
    EXPECT_EQ(g.GetCols(), 2);
    EXPECT_EQ(g.GetRow(), 1);
    EXPECT_EQ(g.GetCol(), 1);
    EXPECT_EQ(g.GetColWidth(0), Headless::MSFlexGrid::DefaultColWidth);
    EXPECT_EQ(g.GetRowHeight(1), Headless::MSFlexGrid::DefaultRowHeight);
}

TEST_F(GridTest, SettingRowFiresLeaveCellOnTheOldCellThenEnterCellOnTheNew) {
    Strings seen;
    grid->LeaveCell.Attach([&] { seen.push_back("Leave " + std::to_string(grid->GetRow())); });
    grid->EnterCell.Attach([&] { seen.push_back("Enter " + std::to_string(grid->GetRow())); });
    grid->SetRow(3);
    EXPECT_EQ(seen, (Strings{"Leave 1", "Enter 3"}));
    grid->SetCol(2);
    EXPECT_EQ(seen.size(), 4u);
}

TEST_F(GridTest, SettingTheSameRowOrColFiresNothing) {
    rec.Watch(grid);
    grid->SetRow(1);
    grid->SetCol(1);
    EXPECT_TRUE(rec.Events().empty());
}

TEST_F(GridTest, ARowSetInsideEnterCellFiresTheCellEventsAgainAtOnce) {
    Strings seen;
    grid->LeaveCell.Attach([&] { seen.push_back("Leave " + std::to_string(grid->GetRow())); });
    grid->EnterCell.Attach([&] {
        seen.push_back("Enter " + std::to_string(grid->GetRow()));
        if (grid->GetRow() == 3) {
            grid->SetRow(2);  // re-entrant: the nested events run before this handler returns
            seen.push_back("back in handler at " + std::to_string(grid->GetRow()));
        }
    });
    grid->SetRow(3);
    EXPECT_EQ(seen, (Strings{"Leave 1", "Enter 3", "Leave 3", "Enter 2", "back in handler at 2"}));
    EXPECT_EQ(grid->GetRow(), 2);
}

TEST_F(GridTest, ARowOrColOutsideTheGridRaises) {
    Error r = Capturar([&] { grid->SetRow(4); });
    EXPECT_EQ(r.Number, 30009);
    EXPECT_EQ(r.Description, "Invalid Row value");
    EXPECT_EQ(Capturar([&] { grid->SetRow(-1); }).Number, 30009);
    Error c = Capturar([&] { grid->SetCol(9); });
    EXPECT_EQ(c.Number, 30010);
    EXPECT_EQ(c.Description, "Invalid Col value");
    EXPECT_EQ(Capturar([&] { grid->GetTextMatrix(4, 0); }).Number, 381);
    EXPECT_EQ(Capturar([&] { grid->SetColWidth(4, 10); }).Number, 381);
    EXPECT_EQ(grid->GetRow(), 1);
}

TEST_F(GridTest, TheFixedRowAndColumnCanBeTheCurrentCellWhenSet) {
    grid->SetRow(0);
    grid->SetCol(0);
    grid->SetCellPicture(Form1().Imagen("atencion"));
    EXPECT_EQ(grid->CellAt(0, 0).picture, Form1().Imagen("atencion"));
}

TEST_F(GridTest, TextMatrixAndTheCurrentCellsTextAgree) {
    grid->SetTextMatrix(2, 3, "hola");
    grid->SetRow(2);
    grid->SetCol(3);
    EXPECT_EQ(grid->GetText(), "hola");
    grid->SetText("adiós");
    EXPECT_EQ(grid->GetTextMatrix(2, 3), "adiós");
}

TEST_F(GridTest, CellMembersActOnTheCurrentCell) {
    grid->SetRow(2);
    grid->SetCol(1);
    grid->SetCellBackColor(0x00FF00);
    grid->SetCellForeColor(0x0000FF);
    grid->SetCellAlignment(flexAlignCenterCenter);
    grid->SetCellPictureAlignment(flexAlignRightTop);
    grid->SetCellPicture(Form1().Imagen("star"));
    const auto& c = grid->CellAt(2, 1);
    EXPECT_EQ(c.backColor, 0x00FF00);
    EXPECT_EQ(c.foreColor, 0x0000FF);
    EXPECT_EQ(c.alignment, 4);
    EXPECT_EQ(c.pictureAlignment, 6);
    EXPECT_EQ(c.picture->Key(), "star");
    EXPECT_EQ(grid->CellAt(2, 2).backColor, 0);  // a cell with no colour of its own answers 0
    grid->SetCol(2);
    EXPECT_EQ(grid->GetCellBackColor(), 0);
    EXPECT_EQ(grid->GetBackColor(), vbWhite);
}

TEST_F(GridTest, TheGeometryOfACellFollowsTheColumnWidthsAndRowHeights) {
    grid->SetRow(2);
    grid->SetCol(2);
    EXPECT_EQ(grid->GetCellLeft(), 2 * 960);
    EXPECT_EQ(grid->GetCellTop(), 2 * 240);
    EXPECT_EQ(grid->GetCellWidth(), 960);
    EXPECT_EQ(grid->GetCellHeight(), 240);
    grid->SetColWidth(0, 300);
    grid->SetColWidth(1, 0);  // a hidden key column
    grid->SetColWidth(2, 1500);
    grid->SetRowHeight(0, 400);
    EXPECT_EQ(grid->GetColPos(1), 300);
    EXPECT_EQ(grid->GetColPos(2), 300);
    EXPECT_EQ(grid->GetColPos(3), 1800);
    EXPECT_EQ(grid->GetCellLeft(), 300);
    EXPECT_EQ(grid->GetCellWidth(), 1500);
    EXPECT_EQ(grid->GetCellTop(), 400 + 240);
    grid->SetColWidth(2, -1);  // the default width back
    EXPECT_EQ(grid->GetColWidth(2), 960);
    grid->SetColWidth(2, 1200.6);  // whole twips
    EXPECT_EQ(grid->GetColWidth(2), 1201);
}

TEST_F(GridTest, ClearEmptiesTheCellsAndKeepsRowsColsAndWidths) {
    grid->SetTextMatrix(1, 1, "x");
    grid->SetCellBackColor(5);
    grid->SetColWidth(1, 77);
    grid->Clear();
    EXPECT_EQ(grid->GetTextMatrix(1, 1), "");
    EXPECT_EQ(grid->GetCellBackColor(), 0);
    EXPECT_EQ(grid->GetRows(), 4);
    EXPECT_EQ(grid->GetColWidth(1), 77);
}

TEST_F(GridTest, FewerRowsKeepTheCellsThatRemainAndMoveTheCurrentRowSilently) {
    grid->SetTextMatrix(1, 2, "uno");
    grid->SetTextMatrix(3, 2, "tres");
    grid->SetRow(3);
    rec.Watch(grid);
    grid->SetRows(2);
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_TRUE(rec.Events().empty());
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "uno");
    grid->SetRows(4);
    EXPECT_EQ(grid->GetTextMatrix(3, 2), "");
    grid->SetRows(1);
    EXPECT_EQ(grid->GetRow(), 0);
    EXPECT_EQ(Capturar([&] { grid->SetRows(0); }).Number, 30009);
}

TEST_F(GridTest, AClickOnACellGivesTheFocusMovesTheCellThenMouseUpAndClick) {
    HeadlessUser user(form);
    rec.Watch(grid);
    user.ClickCell(grid, 2, 3);
    EXPECT_EQ(rec.Take(), (Strings{"grd.GotFocus", "grd.MouseDown(1)", "grd.LeaveCell", "grd.EnterCell",
                                   "grd.MouseUp(1)", "grd.Click"}));
    EXPECT_EQ(grid->GetRow(), 2);
    EXPECT_EQ(grid->GetCol(), 3);
}

TEST_F(GridTest, ADoubleClickIsMouseDownMouseUpClickDblClickMouseUp) {
    HeadlessUser user(form);
    grid->SetFocus();
    rec.Watch(grid);
    user.DoubleClickCell(grid, 3, 1);
    EXPECT_EQ(rec.Take(), (Strings{"grd.MouseDown(1)", "grd.LeaveCell", "grd.EnterCell", "grd.MouseUp(1)",
                                   "grd.Click", "grd.DblClick", "grd.MouseUp(1)"}));
}

TEST_F(GridTest, AClickOnAHeadingLeavesTheCurrentCell) {
    HeadlessUser user(form);
    grid->SetFocus();
    rec.Watch(grid);
    float y = -1;
    grid->MouseUp.Attach([&](int16_t&, int16_t&, float&, float& Y) { y = Y; });
    user.ClickHeader(grid, 2);
    EXPECT_EQ(rec.Take(), (Strings{"grd.MouseDown(1)", "grd.MouseUp(1)", "grd.Click"}));
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 1);
    EXPECT_LE(y, grid->GetRowHeight(0));
}

TEST_F(GridTest, TheGridLeavesArrowKeysToItsKeyUpHandler) {
    HeadlessUser user(form);
    grid->SetFocus();
    rec.Watch(grid);
    user.Down();
    EXPECT_EQ(rec.Take(), (Strings{"grd.KeyDown(40,0)", "grd.KeyUp(40,0)"}));
    EXPECT_EQ(grid->GetRow(), 1);
}

TEST_F(GridTest, TheHierarchicalGridIsTheSameGridUnderAnotherName) {
    auto h = form->Add<Headless::MSHFlexGrid>("h");
    h->SetRows(3);
    h->SetTextMatrix(2, 1, "x");
    EXPECT_EQ(h->GetTextMatrix(2, 1), "x");
    EXPECT_EQ(h->TypeName(), "MSHFlexGrid");
}

}  // namespace

namespace {

// A user's session on a grid with a text box over it, written down event by
// event as a real flex grid and text box give them: focus first, the cell
// moving on the press, Click after MouseUp, a double click's DblClick after
// its first Click, keys as KeyDown, KeyPress for a character, KeyUp.
TEST_F(GridTest, AScriptedSessionGivesTheEventsOfARealGridAndTextBox) {
    auto txt = form->Add<Headless::TextBox>("txt");
    txt->SetVisible(false);
    HeadlessUser user(form);
    rec.Watch(grid);
    rec.Watch(txt);
    // The host's handler: a double click opens the text box over the cell.
    grid->DblClick.Attach([&] {
        txt->SetText(grid->GetText());
        txt->SetVisible(true);
        txt->SetFocus();
    });
    grid->SetTextMatrix(2, 2, "ab");
    user.ClickCell(grid, 1, 1);
    user.DoubleClickCell(grid, 2, 2);
    user.Type("c");
    user.Enter();
    user.ClickHeader(grid, 3);
    EXPECT_EQ(rec.Take(), (Strings{
                              "grd.GotFocus", "grd.MouseDown(1)", "grd.MouseUp(1)", "grd.Click",  // already on 1,1
                              "grd.MouseDown(1)", "grd.LeaveCell", "grd.EnterCell", "grd.MouseUp(1)", "grd.Click",
                              "grd.DblClick", "grd.LostFocus", "txt.GotFocus", "grd.MouseUp(1)",
                              "txt.KeyDown(67,0)", "txt.KeyPress(99)", "txt.KeyUp(67,0)",
                              "txt.KeyDown(13,0)", "txt.KeyPress(13)", "txt.KeyUp(13,0)",
                              "txt.LostFocus", "grd.GotFocus", "grd.MouseDown(1)", "grd.MouseUp(1)", "grd.Click",
                          }));
    EXPECT_EQ(txt->GetText(), "cab");  // nothing was selected: the caret stood at 0
}

}  // namespace
