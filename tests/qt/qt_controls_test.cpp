// The Qt kit's controls driven through Qt's own event delivery.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>

#include "ZARODatos.h"
#include "ZARODatosQt/QtControls.h"
#include "support/capturar.h"
#include "support/recorder.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;
using Strings = std::vector<std::string>;

namespace {

struct QtKitTest : ::testing::Test {
    std::shared_ptr<QtKit::Form> form = QtKit::Form::Create("frmQt");
    std::shared_ptr<QtKit::MSFlexGrid> grid = form->Add<QtKit::MSFlexGrid>("grd");
    std::shared_ptr<QtKit::TextBox> txt = form->Add<QtKit::TextBox>("txt");
    std::shared_ptr<QtKit::ListBox> lst = form->Add<QtKit::ListBox>("lst");
    QtKit::QtUser user{form};
    zaro_test::EventRecorder rec;
    void SetUp() override {
        grid->SetLeft(120);
        grid->SetTop(120);
        grid->SetWidth(7000);
        grid->SetHeight(3000);
        txt->SetLeft(120);
        txt->SetTop(3300);
        txt->SetWidth(2000);
        txt->SetHeight(300);
        lst->SetLeft(2400);
        lst->SetTop(3300);
        lst->SetWidth(2000);
        lst->SetHeight(1500);
        form->Show();
    }
};

TEST_F(QtKitTest, EachKindReportsItsTypeNameAndLacksTheMembersOfOthers) {
    auto spr = form->Add<QtKit::fpSpread>("spr");
    auto mvw = form->Add<QtKit::MonthView>("mvw");
    auto dgr = form->Add<QtKit::DataGrid>("dgr");
    auto cbo = form->Add<QtKit::ComboBox>("cbo");
    EXPECT_EQ(grid->TypeName(), "MSFlexGrid");
    EXPECT_EQ(spr->TypeName(), "fpSpread");
    EXPECT_EQ(mvw->TypeName(), "MonthView");
    EXPECT_EQ(dgr->TypeName(), "DataGrid");
    EXPECT_EQ(cbo->TypeName(), "ComboBox");
    EXPECT_EQ(Capturar([&] { lst->GetRows(); }).Number, 438);
    EXPECT_EQ(Capturar([&] { spr->SetTextMatrix(1, 1, "x"); }).Number, 438);
    EXPECT_EQ(Capturar([&] { txt->AddItem("x"); }).Number, 438);
    EXPECT_EQ(grid->GetParent()->GetName(), "frmQt");
}

TEST_F(QtKitTest, TwipsBecomePixelsAtTheScreensResolution) {
    const int dpi = grid->Widget()->logicalDpiX();
    EXPECT_EQ(grid->Widget()->x(), 120 * dpi / 1440);
    EXPECT_EQ(grid->GetLeft(), 120);
    grid->SetCols(3);
    grid->SetColWidth(1, 1440);  // one inch
    EXPECT_EQ(grid->Table()->columnWidth(1), dpi);
    EXPECT_EQ(grid->GetColWidth(1), 1440);
}

TEST_F(QtKitTest, SettingRowFiresLeaveCellThenEnterCellAtOnce) {
    grid->SetRows(4);
    Strings seen;
    grid->LeaveCell.Attach([&] { seen.push_back("Leave " + std::to_string(grid->GetRow())); });
    grid->EnterCell.Attach([&] {
        seen.push_back("Enter " + std::to_string(grid->GetRow()));
        if (grid->GetRow() == 3) grid->SetRow(2);
    });
    grid->SetRow(3);
    EXPECT_EQ(seen, (Strings{"Leave 1", "Enter 3", "Leave 3", "Enter 2"}));
    EXPECT_EQ(Capturar([&] { grid->SetRow(4); }).Number, 30009);
}

TEST_F(QtKitTest, TheGeometryOfACellIsWhereItIsDrawn) {
    grid->SetRows(4);
    grid->SetCols(4);
    grid->SetColWidth(0, 300);
    grid->SetColWidth(1, 0);
    grid->SetColWidth(2, 1500);
    grid->SetRow(2);
    grid->SetCol(2);
    QTableWidget* t = grid->Table();
    EXPECT_EQ(grid->GetCellLeft(), grid->TwipsX(t->frameWidth() + t->columnViewportPosition(2)));
    EXPECT_EQ(grid->GetCellTop(), grid->TwipsY(t->frameWidth() + t->rowViewportPosition(2)));
    EXPECT_EQ(grid->GetCellWidth(), grid->TwipsX(t->columnWidth(2)));
    EXPECT_EQ(grid->GetColPos(2), grid->GetColPos(1));  // a column of width 0 takes no room
}

TEST_F(QtKitTest, AClickOnACellGivesTheFocusMovesTheCellThenMouseUpAndClick) {
    grid->SetRows(4);
    grid->SetCols(4);
    txt->SetFocus();  // a form shown gives the focus to its first control: take it elsewhere first
    rec.Watch(grid);
    user.ClickCell(grid, 2, 3);
    EXPECT_EQ(rec.Take(), (Strings{"grd.GotFocus", "grd.MouseDown(1)", "grd.LeaveCell", "grd.EnterCell",
                                   "grd.MouseUp(1)", "grd.Click"}));
    EXPECT_EQ(grid->GetRow(), 2);
    EXPECT_EQ(grid->GetCol(), 3);
    user.DoubleClickCell(grid, 1, 1);
    EXPECT_EQ(rec.Take(), (Strings{"grd.MouseDown(1)", "grd.LeaveCell", "grd.EnterCell", "grd.MouseUp(1)",
                                   "grd.Click", "grd.DblClick", "grd.MouseUp(1)"}));
    user.ClickHeader(grid, 2);
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 1);
}

TEST_F(QtKitTest, TheGridLeavesArrowKeysToItsKeyUpHandler) {
    grid->SetRows(4);
    grid->SetFocus();
    rec.Watch(grid);
    user.Down();
    EXPECT_EQ(rec.Take(), (Strings{"grd.KeyDown(40,0)", "grd.KeyUp(40,0)"}));
    EXPECT_EQ(grid->GetRow(), 1);
}

TEST_F(QtKitTest, TypingTwelveCommaFiveWithAHandlerThatZeroesPointsGivesTwelveCommaFive) {
    txt->SetFocus();
    txt->KeyPress.Attach([](int16_t& k) {
        if (k == '.') k = 0;
        if (k == 'a') k = 'b';
    });
    user.Type("1.2,5a");
    EXPECT_EQ(txt->GetText(), "12,5b");
    EXPECT_EQ(txt->Edit()->text(), QString("12,5b"));
}

TEST_F(QtKitTest, TypingReplacesTheSelectionAndSelStartCountsCharacters) {
    txt->SetFocus();
    txt->SetText("añoé");
    EXPECT_EQ(txt->GetSelStart(), 0);
    txt->SetSelStart(1);
    txt->SetSelLength(2);
    user.Type("x");
    EXPECT_EQ(txt->GetText(), "axé");
    user.Backspace();
    EXPECT_EQ(txt->GetText(), "aé");
}

TEST_F(QtKitTest, EachTypedKeyGivesKeyDownKeyPressKeyUpWithThePlatformsCodes) {
    txt->SetFocus();
    rec.Watch(txt);
    user.Type("a,5%");
    user.Enter();
    EXPECT_EQ(rec.Take(), (Strings{"txt.KeyDown(65,0)", "txt.KeyPress(97)", "txt.KeyUp(65,0)",
                                   "txt.KeyDown(188,0)", "txt.KeyPress(44)", "txt.KeyUp(188,0)",
                                   "txt.KeyDown(53,0)", "txt.KeyPress(53)", "txt.KeyUp(53,0)",
                                   "txt.KeyDown(53,1)", "txt.KeyPress(37)", "txt.KeyUp(53,1)",
                                   "txt.KeyDown(13,0)", "txt.KeyPress(13)", "txt.KeyUp(13,0)"}));
}

TEST_F(QtKitTest, AListsListIndexFiresClickAndAUsersClickSelectsTheItem) {
    lst->AddItem("uno");
    lst->AddItem("dos");
    lst->SetItemData(1, 1002);
    rec.Watch(lst);
    lst->SetListIndex(1);
    lst->SetListIndex(1);
    EXPECT_EQ(rec.Take(), (Strings{"lst.Click"}));
    EXPECT_EQ(lst->GetItemData(1), 1002);
    lst->SetText("UNO");
    EXPECT_EQ(lst->GetListIndex(), 0);
    rec.Take();
    user.ClickItem(lst, 1);
    EXPECT_EQ(lst->GetListIndex(), 1);
    EXPECT_EQ(rec.Take(), (Strings{"lst.GotFocus", "lst.MouseDown(1)", "lst.MouseUp(1)", "lst.Click"}));
}

TEST_F(QtKitTest, HidingTheFocusedOverlayFiresItsLostFocus) {
    txt->SetFocus();
    rec.Watch(txt);
    txt->SetVisible(false);
    EXPECT_EQ(rec.Take(), (Strings{"txt.LostFocus"}));
    EXPECT_EQ(Capturar([&] { txt->SetFocus(); }).Number, 5);
}

TEST_F(QtKitTest, AControlOutlivingItsFormRaisesInsteadOfTouchingAGoneWidget) {
    auto f = QtKit::Form::Create("efimero");
    auto g = f->Add<QtKit::MSFlexGrid>("g");
    std::weak_ptr<QtKit::Form> wf = f;
    f.reset();
    EXPECT_TRUE(wf.expired());
    EXPECT_EQ(Capturar([&] { g->SetTextMatrix(0, 0, "x"); }).Number, 91);
}

TEST_F(QtKitTest, TheScreenServicesShowTheWaitCursorAndCount) {
    auto pantalla = std::make_shared<QtKit::QtScreen>();
    SetScreen(pantalla);
    Screen()->SetMousePointer(vbHourglass);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    Screen()->SetMousePointer(vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Screen()->DoEvents();
    Screen()->Beep();
    EXPECT_EQ(pantalla->DoEventsCalls(), 1);
    EXPECT_EQ(pantalla->Beeps(), 1);
    SetScreen(nullptr);
}

}  // namespace
