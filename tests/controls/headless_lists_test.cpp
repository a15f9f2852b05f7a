// The headless list box, combo box, text box, spread, month view and data grid.
#include <gtest/gtest.h>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/HeadlessControls.h"
#include "ZARODatos/platform/Strings.h"
#include "support/capturar.h"
#include "support/recorder.h"
#include "support/roads.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;
using Strings = std::vector<std::string>;

namespace {

struct ListTest : ::testing::Test {
    std::shared_ptr<Headless::Form> form = Headless::Form::Create("frm");
    std::shared_ptr<Headless::ListBox> list = form->Add<Headless::ListBox>("lst");
    zaro_test::EventRecorder rec;
};

TEST_F(ListTest, AddItemAppendsAndSetsNewIndex) {
    list->AddItem("uno");
    EXPECT_EQ(list->GetNewIndex(), 0);
    list->AddItem("dos");
    EXPECT_EQ(list->GetNewIndex(), 1);
    list->AddItem("cero", 0);
    EXPECT_EQ(list->GetNewIndex(), 0);
    EXPECT_EQ(list->GetListCount(), 3);
    EXPECT_EQ(list->GetList(0), "cero");
    EXPECT_EQ(list->GetList(2), "dos");
    EXPECT_EQ(Capturar([&] { list->AddItem("x", 9); }).Number, 5);
}

TEST_F(ListTest, SettingListIndexFiresClickOnceAndOnlyOnAChange) {
    list->AddItem("a");
    list->AddItem("b");
    rec.Watch(list);
    list->SetListIndex(1);
    list->SetListIndex(1);
    list->SetListIndex(-1);
    EXPECT_EQ(rec.Take(), (Strings{"lst.Click", "lst.Click"}));
    EXPECT_EQ(Capturar([&] { list->SetListIndex(2); }).Number, 380);
}

TEST_F(ListTest, AListIndexSetInsideClickFiresClickAgainAtOnce) {
    list->AddItem("a");
    list->AddItem("b");
    list->AddItem("c");
    Strings seen;
    list->Click.Attach([&] {
        seen.push_back("Click at " + std::to_string(list->GetListIndex()));
        if (list->GetListIndex() == 2) {
            list->SetListIndex(0);
            seen.push_back("back at " + std::to_string(list->GetListIndex()));
        }
    });
    list->SetListIndex(2);
    EXPECT_EQ(seen, (Strings{"Click at 2", "Click at 0", "back at 0"}));
}

TEST_F(ListTest, SettingTextSelectsTheItemOfThatTextOrNone) {
    list->AddItem("Café solo");
    list->AddItem("Agua");
    rec.Watch(list);
    list->SetText("AGUA");
    EXPECT_EQ(list->GetListIndex(), 1);
    EXPECT_EQ(list->GetText(), "Agua");
    list->SetText("nada");
    EXPECT_EQ(list->GetListIndex(), -1);
    EXPECT_EQ(list->GetText(), "");
    EXPECT_EQ(rec.Take(), (Strings{"lst.Click", "lst.Click"}));
}

TEST_F(ListTest, ItemDataBelongsToEachItem) {
    list->AddItem("a");
    list->SetItemData(list->GetNewIndex(), 1001);
    list->AddItem("b");
    list->SetItemData(list->GetNewIndex(), 1002);
    EXPECT_EQ(list->GetItemData(0), 1001);
    EXPECT_EQ(list->GetItemData(1), 1002);
    EXPECT_EQ(Capturar([&] { list->GetItemData(2); }).Number, 381);
}

TEST_F(ListTest, ClearEmptiesWithoutAClick) {
    list->AddItem("a");
    list->SetListIndex(0);
    rec.Watch(list);
    list->Clear();
    EXPECT_EQ(list->GetListCount(), 0);
    EXPECT_EQ(list->GetListIndex(), -1);
    EXPECT_EQ(list->GetNewIndex(), -1);
    EXPECT_TRUE(rec.Events().empty());
}

TEST_F(ListTest, AUsersClickOnAnItemSelectsItAndClicksAlsoOnTheSelectedOne) {
    list->AddItem("a");
    list->AddItem("b");
    HeadlessUser user(form);
    rec.Watch(list);
    user.ClickItem(list, 1);
    user.ClickItem(list, 1);
    EXPECT_EQ(rec.Take(), (Strings{"lst.GotFocus", "lst.MouseDown(1)", "lst.MouseUp(1)", "lst.Click",
                                   "lst.MouseDown(1)", "lst.MouseUp(1)", "lst.Click"}));
    EXPECT_EQ(list->GetListIndex(), 1);
}

TEST_F(ListTest, UpAndDownMoveTheSelectionOfAFocusedList) {
    list->AddItem("a");
    list->AddItem("b");
    list->SetListIndex(0);
    list->SetFocus();
    HeadlessUser user(form);
    rec.Watch(list);
    user.Down();
    EXPECT_EQ(list->GetListIndex(), 1);
    user.Down();
    EXPECT_EQ(list->GetListIndex(), 1);
    EXPECT_EQ(rec.Take(), (Strings{"lst.KeyDown(40,0)", "lst.Click", "lst.KeyUp(40,0)", "lst.KeyDown(40,0)",
                                   "lst.KeyUp(40,0)"}));
}

TEST(ComboBox, KeepsATextOfItsOwnAndSelectsAMatchingItem) {
    Headless::ComboBox c;
    c.AddItem("Bebidas");
    c.SetText("bebidas");
    EXPECT_EQ(c.GetListIndex(), 0);
    c.SetText("Otra cosa");
    EXPECT_EQ(c.GetListIndex(), -1);
    EXPECT_EQ(c.GetText(), "Otra cosa");
    EXPECT_EQ(c.TypeName(), "ComboBox");
}

struct TextBoxTest : ::testing::Test {
    std::shared_ptr<Headless::Form> form = Headless::Form::Create("frm");
    std::shared_ptr<Headless::TextBox> box = form->Add<Headless::TextBox>("txt");
    HeadlessUser user{form};
    void SetUp() override { box->SetFocus(); }
};

TEST_F(TextBoxTest, TypingTwelveCommaFiveWithAHandlerThatZeroesPointsGivesTwelveCommaFive) {
    box->KeyPress.Attach([](int16_t& k) {
        if (k == '.') k = 0;
    });
    user.Type("12,5");
    EXPECT_EQ(box->GetText(), "12,5");
    box->SetText("");
    user.Type("1.2,5");
    EXPECT_EQ(box->GetText(), "12,5");
}

TEST_F(TextBoxTest, TypingReplacesTheSelection) {
    box->SetText("abcdef");
    box->SetSelStart(2);
    box->SetSelLength(2);
    user.Type("X");
    EXPECT_EQ(box->GetText(), "abXef");
    EXPECT_EQ(box->GetSelStart(), 3);
    EXPECT_EQ(box->GetSelLength(), 0);
}

TEST_F(TextBoxTest, AllTextSelectedIsReplacedByTheFirstKey) {
    box->SetText("15-03-2024");
    box->SetSelStart(0);
    box->SetSelLength(Len(box->GetText()));
    user.Type("7");
    EXPECT_EQ(box->GetText(), "7");
}

TEST_F(TextBoxTest, SettingTextPutsTheCaretAtTheStartAndSelStartDropsTheSelection) {
    box->SetText("hola");
    EXPECT_EQ(box->GetSelStart(), 0);
    box->SetSelLength(9);
    EXPECT_EQ(box->GetSelLength(), 4);
    box->SetSelStart(9);
    EXPECT_EQ(box->GetSelStart(), 4);
    EXPECT_EQ(box->GetSelLength(), 0);
}

TEST_F(TextBoxTest, SelStartAndSelLengthCountCharactersNotBytes) {
    box->SetText("añoé");
    box->SetSelStart(1);
    box->SetSelLength(2);
    user.Type("x");
    EXPECT_EQ(box->GetText(), "axé");
}

TEST_F(TextBoxTest, BackspaceDeletesTheSelectionOrTheCharacterBeforeTheCaret) {
    user.Type("abc");
    user.Backspace();
    EXPECT_EQ(box->GetText(), "ab");
    box->SetSelStart(0);
    box->SetSelLength(2);
    user.Backspace();
    EXPECT_EQ(box->GetText(), "");
}

TEST_F(TextBoxTest, LeftRightHomeEndMoveTheCaretAndDeleteRemovesAhead) {
    user.Type("abcd");
    user.Left();
    user.Left();
    user.Type("X");
    EXPECT_EQ(box->GetText(), "abXcd");
    user.Press(vbKeyHome);
    user.Press(vbKeyDelete);
    EXPECT_EQ(box->GetText(), "bXcd");
    user.Press(vbKeyEnd);
    user.Right();
    user.Type("!");
    EXPECT_EQ(box->GetText(), "bXcd!");
}

TEST_F(TextBoxTest, EachTypedKeyGivesKeyDownKeyPressKeyUpWithItsKeyCode) {
    zaro_test::EventRecorder rec;
    rec.Watch(box);
    user.Type("a,5.%");
    EXPECT_EQ(rec.Take(), (Strings{"txt.KeyDown(65,0)", "txt.KeyPress(97)", "txt.KeyUp(65,0)",
                                   "txt.KeyDown(188,0)", "txt.KeyPress(44)", "txt.KeyUp(188,0)",
                                   "txt.KeyDown(53,0)", "txt.KeyPress(53)", "txt.KeyUp(53,0)",
                                   "txt.KeyDown(190,0)", "txt.KeyPress(46)", "txt.KeyUp(190,0)",
                                   "txt.KeyDown(53,1)", "txt.KeyPress(37)", "txt.KeyUp(53,1)"}));
    user.Enter();
    user.F2();
    EXPECT_EQ(rec.Take(), (Strings{"txt.KeyDown(13,0)", "txt.KeyPress(13)", "txt.KeyUp(13,0)",
                                   "txt.KeyDown(113,0)", "txt.KeyUp(113,0)"}));
    EXPECT_EQ(box->GetText(), "a,5.%");
}

TEST_F(TextBoxTest, KeepsAlignmentToolTipBackColourAndFontSize) {
    box->SetAlignment(1);
    box->SetToolTipText("Formato fecha incorrecto");
    box->SetBackColor(12648447);
    box->SetFontSize(10);
    EXPECT_EQ(box->GetAlignment(), 1);
    EXPECT_EQ(box->GetToolTipText(), "Formato fecha incorrecto");
    EXPECT_EQ(box->GetBackColor(), 12648447);
    EXPECT_EQ(box->GetFontSize(), 10);
}

TEST(Form, FocusMovesWithLostFocusBeforeGotFocus) {
    auto form = Headless::Form::Create("frm");
    auto a = form->Add<Headless::TextBox>("a");
    auto b = form->Add<Headless::ListBox>("b");
    zaro_test::EventRecorder rec;
    rec.Watch(a);
    rec.Watch(b);
    a->SetFocus();
    b->SetFocus();
    b->SetFocus();
    EXPECT_EQ(rec.Take(), (Strings{"a.GotFocus", "a.LostFocus", "b.GotFocus"}));
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST(Form, HidingTheFocusedControlFiresItsLostFocusAndLeavesNoFocus) {
    auto form = Headless::Form::Create("frm");
    auto a = form->Add<Headless::TextBox>("a");
    a->SetFocus();
    zaro_test::EventRecorder rec;
    rec.Watch(a);
    a->SetVisible(false);
    EXPECT_EQ(rec.Take(), (Strings{"a.LostFocus"}));
    EXPECT_EQ(form->ActiveControl(), nullptr);
    EXPECT_EQ(Capturar([&] { a->SetFocus(); }).Number, 5);
}

TEST(Form, IsTheParentOfItsControlsAndFindsThemByName) {
    auto form = Headless::Form::Create("frmVentas");
    auto g = form->Add<Headless::MSFlexGrid>("grdLineas");
    EXPECT_EQ(g->GetParent()->GetName(), "frmVentas");
    EXPECT_EQ(form->Controls("GRDLINEAS"), g);
    EXPECT_EQ(Capturar([&] { form->Controls("nada"); }).Number, 730);
    EXPECT_EQ(Capturar([&] { form->GetParent(); }).Number, 438);
    Headless::MSFlexGrid loose;
    EXPECT_EQ(loose.GetParent(), nullptr);
    EXPECT_EQ(loose.GetName(), "");
}

TEST(Form, GoingAwayReleasesControlsWhoseHandlersHoldThem) {
    std::weak_ptr<Headless::MSFlexGrid> weakGrid;
    std::weak_ptr<Headless::Form> weakForm;
    {
        auto form = Headless::Form::Create("frm");
        auto grid = form->Add<Headless::MSFlexGrid>("grd");
        auto box = form->Add<Headless::TextBox>("txt");
        // Handlers that hold the controls: a cycle that only detaching breaks.
        grid->EnterCell.Attach([grid, box] { box->SetText(grid->GetText()); });
        box->KeyUp.Attach([grid](int16_t&, int16_t&) { grid->SetRow(1); });
        weakGrid = grid;
        weakForm = form;
    }
    EXPECT_TRUE(weakForm.expired());
    EXPECT_TRUE(weakGrid.expired());
}

TEST(Spread, KeepsTypedCellsAddressedByRowAndCol) {
    Headless::fpSpread s;
    s.SetMaxCols(3);
    s.SetMaxRows(2);
    s.SetRow(2);
    s.SetCol(3);
    s.SetCellType(CellTypeFloat);
    s.SetTypeHAlign(1);
    s.SetTypeFloatSeparator(true);
    s.SetTypeFloatDecimalPlaces(3);
    s.SetFloat(3, 2, 1234.5);
    s.SetInteger(1, 2, 7);
    s.SetText(2, 2, Variant(12.5));
    s.SetText(1, 0, Variant("Cantidad"));
    EXPECT_EQ(s.CellAt(3, 2).type, CellTypeFloat);
    EXPECT_EQ(s.GetTypeFloatDecimalPlaces(), 3);
    EXPECT_TRUE(s.GetTypeFloatSeparator());
    EXPECT_EQ(s.CellAt(3, 2).value, Variant(1234.5));
    EXPECT_EQ(s.CellAt(1, 2).value, Variant(int32_t{7}));
    EXPECT_EQ(s.CellAt(2, 2).value, Variant("12,5"));
    EXPECT_EQ(s.CellAt(1, 0).value, Variant("Cantidad"));
    EXPECT_EQ(s.CellAt(2, 1).type, CellTypeEdit);  // an untouched cell keeps the spread's default
    EXPECT_EQ(s.CellAt(2, 1).decimalPlaces, 2);
    EXPECT_EQ(Capturar([&] { s.SetInteger(4, 1, 1); }).Number, 381);
}

TEST(Spread, GrowsByMaxRowsAndKeepsTheCellsThatRemain) {
    Headless::fpSpread s;
    s.SetMaxCols(1);
    s.SetMaxRows(1);
    s.SetText(1, 1, Variant("a"));
    s.SetMaxRows(2);
    s.SetText(1, 2, Variant("b"));
    EXPECT_EQ(s.CellAt(1, 1).value, Variant("a"));
    s.SetMaxRows(0);
    EXPECT_EQ(Capturar([&] { s.CellAt(1, 1); }).Number, 381);
    EXPECT_EQ(s.GetActiveRow(), 1);
}

TEST(Spread, ColWidthIsInCharactersAndAUserClickSetsTheActiveCell) {
    auto form = Headless::Form::Create("frm");
    auto s = form->Add<Headless::vaSpread>("spr");
    s->SetMaxCols(2);
    s->SetMaxRows(5);
    s->SetColWidth(1, 10.5);
    EXPECT_EQ(s->GetColWidth(1), 10.5);
    EXPECT_EQ(s->GetColWidth(2), 9.0);
    s->UserClickCell(4, 2);
    EXPECT_EQ(s->GetActiveRow(), 4);
    EXPECT_EQ(s->GetActiveCol(), 2);
    EXPECT_EQ(form->ActiveControl(), s);
}

TEST(MonthView, StartsTodayAndAPickedDaySetsValueThenDateClick) {
    auto form = Headless::Form::Create("frm");
    auto m = form->Add<Headless::MonthView>("mvw");
    EXPECT_EQ(m->GetValue(), Today());
    Date seen;
    Date valueSeen;
    m->DateClick.Attach([&](Date& d) {
        seen = d;
        valueSeen = m->GetValue();
    });
    HeadlessUser user(form);
    const Date day = Date::FromParts(2024, 3, 15);
    user.PickDay(m, day);
    EXPECT_EQ(seen, day);
    EXPECT_EQ(valueSeen, day);
    EXPECT_EQ(form->ActiveControl(), m);
}

TEST(DataGrid, TakesItsColumnsFromTheFieldsOfItsDataSource) {
    auto cn = zaro_test::OpenRoad(zaro_test::AllRoads()[0]);
    auto rs = cn->Execute("select 1 as CD_ARTICULO, 'Agua' as DESC_CORTA, 1.5 as PRECIOMAX union all select 2, 'Cola', 2");
    Headless::DataGrid g;
    EXPECT_EQ(g.GetRow(), -1);
    g.SetDataSource(rs);
    auto cols = g.GetColumns();
    ASSERT_EQ(cols.size(), 3u);
    EXPECT_EQ(cols[1]->GetDataField(), "DESC_CORTA");
    EXPECT_EQ(cols[1]->GetCaption(), "DESC_CORTA");
    EXPECT_TRUE(cols[1]->GetVisible());
    EXPECT_EQ(g.GetRow(), 0);
    g.SetRow(1);
    EXPECT_EQ(CStr(rs->Fields().Item("DESC_CORTA").Value()), "Cola");
    EXPECT_EQ(Capturar([&] { g.SetRow(2); }).Number, 380);
    EXPECT_EQ(g.GetDataSource(), rs);
}

TEST(DataGrid, AnEmptyOrNoDataSourceGivesNoColumnsAndNoRow) {
    auto cn = zaro_test::OpenRoad(zaro_test::AllRoads()[0]);
    auto rs = cn->Execute("select 1 as a from dual where 1 = 0");
    Headless::DataGrid g;
    g.SetDataSource(rs);
    EXPECT_EQ(g.GetColumns().size(), 1u);
    EXPECT_EQ(g.GetRow(), -1);
    g.SetDataSource(nullptr);
    EXPECT_TRUE(g.GetColumns().empty());
}

}  // namespace
