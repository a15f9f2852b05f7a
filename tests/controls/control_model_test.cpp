// The control model: members a kind lacks, type names, events by reference.
#include <gtest/gtest.h>

#include "ZARODatos/platform/HeadlessControls.h"
#include "support/capturar.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

namespace {

// A kind that has nothing: every member raises.
class Bare : public Control {
public:
    std::string TypeName() const override { return "Bare"; }
};

TEST(ControlModel, EveryMemberOfTheBaseRaises438NamingKindAndMember) {
    Bare b;
    Error e = Capturar([&] { b.GetName(); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Description, "Object doesn't support this property or method");
    EXPECT_EQ(e.Source, "Bare.Name");
    EXPECT_EQ(Capturar([&] { b.SetRow(1); }).Source, "Bare.Row");
    EXPECT_EQ(Capturar([&] { b.SetText(1, 2, Variant("x")); }).Source, "Bare.SetText");
    EXPECT_EQ(Capturar([&] { b.SetText("x"); }).Source, "Bare.Text");
    EXPECT_EQ(Capturar([&] { b.GetColumns(); }).Number, 438);
    EXPECT_EQ(Capturar([&] { b.SetValue(Date(1)); }).Number, 438);
}

TEST(ControlModel, AListBoxAskedForRowsRaises438) {
    Headless::ListBox l;
    Error e = Capturar([&] { l.GetRows(); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Source, "ListBox.Rows");
    EXPECT_EQ(Capturar([&] { l.SetTextMatrix(0, 0, "x"); }).Number, 438);
    EXPECT_EQ(Capturar([&] { l.GetSelStart(); }).Number, 438);
}

TEST(ControlModel, ASpreadAskedForTextMatrixRaises438) {
    Headless::fpSpread s;
    Error e = Capturar([&] { s.SetTextMatrix(1, 1, "x"); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Source, "fpSpread.TextMatrix");
    EXPECT_EQ(Capturar([&] { s.GetRows(); }).Number, 438);
}

TEST(ControlModel, ATextBoxAskedForAddItemRaises438) {
    Headless::TextBox t;
    Error e = Capturar([&] { t.AddItem("x"); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Source, "TextBox.AddItem");
    EXPECT_EQ(Capturar([&] { t.GetRow(); }).Number, 438);
    EXPECT_EQ(Capturar([&] { t.GetListIndex(); }).Number, 438);
}

TEST(ControlModel, AGridLacksTheMembersOfListsSpreadsAndTextBoxes) {
    Headless::MSFlexGrid g;
    EXPECT_EQ(Capturar([&] { g.AddItem("x"); }).Number, 438);
    EXPECT_EQ(Capturar([&] { g.GetMaxRows(); }).Number, 438);
    EXPECT_EQ(Capturar([&] { g.GetSelLength(); }).Number, 438);
    EXPECT_EQ(Capturar([&] { g.GetDataSource(); }).Number, 438);
    Headless::MonthView m;
    EXPECT_EQ(Capturar([&] { m.GetText(); }).Number, 438);
    Headless::DataGrid d;
    EXPECT_EQ(Capturar([&] { d.GetTextMatrix(0, 0); }).Number, 438);
}

TEST(ControlModel, EachKindReportsItsTypeName) {
    EXPECT_EQ(Headless::ListBox().TypeName(), "ListBox");
    EXPECT_EQ(Headless::ComboBox().TypeName(), "ComboBox");
    EXPECT_EQ(Headless::MSFlexGrid().TypeName(), "MSFlexGrid");
    EXPECT_EQ(Headless::MSHFlexGrid().TypeName(), "MSHFlexGrid");
    EXPECT_EQ(Headless::DataGrid().TypeName(), "DataGrid");
    EXPECT_EQ(Headless::fpSpread().TypeName(), "fpSpread");
    EXPECT_EQ(Headless::vaSpread().TypeName(), "vaSpread");
    EXPECT_EQ(Headless::TextBox().TypeName(), "TextBox");
    EXPECT_EQ(Headless::MonthView().TypeName(), "MonthView");
    EXPECT_EQ(Headless::Form::Create("f")->TypeName(), "Form");
    // TypeName of any object, as the platform gives it.
    EXPECT_EQ(TypeName(Variant(std::make_shared<Headless::MSFlexGrid>())), "MSFlexGrid");
}

TEST(ControlModel, AKeyPressHandlerThatChangesKeyAsciiChangesWhatTheControlReceives) {
    auto form = Headless::Form::Create("f");
    auto t = form->Add<Headless::TextBox>("txt");
    t->SetFocus();
    t->KeyPress.Attach([](int16_t& k) {
        if (k == 'a') k = 'b';
    });
    HeadlessUser user(form);
    user.Type("aXa");
    EXPECT_EQ(t->GetText(), "bXb");
}

TEST(ControlModel, ASubscriptionDetachesWhenItGoes) {
    auto g = std::make_shared<Headless::MSFlexGrid>();
    g->SetRows(3);
    int calls = 0;
    {
        Subscription s(g, &Control::EnterCell, [&] { ++calls; });
        g->SetRow(2);
        EXPECT_EQ(calls, 1);
        EXPECT_EQ(g->EnterCell.HandlerCount(), 1u);
    }
    EXPECT_EQ(g->EnterCell.HandlerCount(), 0u);
    g->SetRow(1);
    EXPECT_EQ(calls, 1);
}

TEST(ControlModel, ASubscriptionOutlivingItsControlDoesNothingWhenItGoes) {
    Subscription s;
    {
        auto g = std::make_shared<Headless::MSFlexGrid>();
        s = Subscription(g, &Control::Click, [] {});
    }
    s.Reset();  // the grid has gone: nothing to detach, nothing breaks
    SUCCEED();
}

TEST(ControlModel, AHandlerMayDetachItselfWhileTheEventIsRaised) {
    Headless::MSFlexGrid g;
    int first = 0, second = 0, id = 0;
    id = g.Click.Attach([&] {
        ++first;
        g.Click.Detach(id);
    });
    g.Click.Attach([&] { ++second; });
    g.Click.Raise();
    g.Click.Raise();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
}

}  // namespace
