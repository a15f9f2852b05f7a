// Typed input: the keys a number or date cell lets through, the completion
// of dates, the calendar, and the display text of a commit.
#include "binding/controller_fixture.h"

namespace {

using namespace zaro_test;

using TypedInput = ControllerTest;

// ---- The keystroke filter -----------------------------------------------------------

TEST_F(TypedInput, AThirdDecimalIsRefusedOnlyWhileTheCaretStandsBehindTheComma) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    txt->SetText("12,34");
    txt->SetSelStart(5);
    user.Type("5");
    EXPECT_EQ(txt->GetText(), "12,34");
    txt->SetSelStart(2);  // before the comma
    user.Type("5");
    EXPECT_EQ(txt->GetText(), "125,34");
    txt->SetSelStart(0);
    txt->SetSelLength(6);  // all the text selected
    user.Type("9");
    EXPECT_EQ(txt->GetText(), "9");
}

TEST_F(TypedInput, BackspacePassesAlways) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    txt->SetText("12,34");
    txt->SetSelStart(5);
    user.Backspace();
    EXPECT_EQ(txt->GetText(), "12,3");
}

TEST_F(TypedInput, AMinusInADecimalCellOnlyAtTheStartAndOnlyOnce) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    txt->SetText("12");
    txt->SetSelStart(2);
    user.Type("-");
    EXPECT_EQ(txt->GetText(), "12");
    txt->SetSelStart(0);
    user.Type("-");
    EXPECT_EQ(txt->GetText(), "-12");
    txt->SetSelStart(0);
    user.Type("-");
    EXPECT_EQ(txt->GetText(), "-12");
}

TEST_F(TypedInput, AnIntegerCellLetsMinusAndCommaThroughAnywhereButRefusesThePoint) {
    Cargar();
    user.DoubleClickCell(grid, 1, 3);
    user.Type("1-2,3.4");
    EXPECT_EQ(txt->GetText(), "1-2,34");
}

TEST_F(TypedInput, LettersAndEnterAreSwallowedInNumberAndDateCells) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    user.Type("1a2");
    EXPECT_EQ(txt->GetText(), "12");
    user.DoubleClickCell(grid, 2, 5);
    user.Type("1x5/0-3.");
    EXPECT_EQ(txt->GetText(), "15/0-3.");  // "/", "-" and "." pass in a date
}

TEST_F(TypedInput, AnyKeyPassesInATextCell) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("a.b,c-1 ñ'%");
    EXPECT_EQ(txt->GetText(), "a.b,c-1 ñ'%");
}

TEST_F(TypedInput, AFirstPointInADecimalCellEntersAndTurnsIntoACommaAtTheNextKey) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    user.Type("12.");
    EXPECT_EQ(txt->GetText(), "12.");  // the point does enter ...
    user.Type("5");
    EXPECT_EQ(txt->GetText(), "12,5");  // ... and the next key turns it into a comma
    user.Type(".");  // a second point is refused: there is a comma
    EXPECT_EQ(txt->GetText(), "12,5");
    user.Type(",");  // a second comma is not
    EXPECT_EQ(txt->GetText(), "12,5,");
}

TEST_F(TypedInput, APointLeftInTheTextIsAConmmaAtTheCommit) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    user.Type("7.");
    user.Enter();
    EXPECT_EQ(Valor(1, "DECIMAL"), Variant("7,00"));
}

TEST_F(TypedInput, TheFilterIsAnOperationOfItsOwnThatGivesTheKeyToPass) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    auto def = std::make_shared<ControlListDefinition>();  // a definition over the same grid and columns
    def->control(grid);
    def->Columnas = cols;
    txt->SetText("3,14");
    txt->SetSelStart(4);
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{'9'}), 0);
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{8}), 8);
    txt->SetText("3");
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{'.'}), '.');  // K becomes 44, R stays 46
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{0}), 0);
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{13}), 0);
    EXPECT_EQ(def->FiltraTecla(txt, int16_t{27}), 0);
}

TEST_F(TypedInput, OnFocusNumbersStandRightTextLeftAndAllTheTextIsSelected) {
    Cargar();
    user.DoubleClickCell(grid, 1, 3);
    EXPECT_EQ(txt->GetAlignment(), 1);
    EXPECT_EQ(txt->GetSelLength(), 2);
    user.Escape();
    user.DoubleClickCell(grid, 1, 5);
    EXPECT_EQ(txt->GetAlignment(), 0);
}

// ---- Dates --------------------------------------------------------------------------------

struct Completion {
    const char* typed;
    const char* completed;
    bool valid;
};

TEST_F(TypedInput, DatesOfSixAndEightDigitsAreCompletedWithTheCenturyRule) {
    const Completion casos[] = {
        {"150324", "15-03-2024", true},   {"150331", "15-03-1931", true},  {"150330", "15-03-2030", true},
        {"15032024", "15-03-2024", true}, {"15/03/2024", "15-03-2024", true}, {"15-03-2024", "15-03-2024", true},
        {"15/3/24", "15324", false},      {"010100", "01-01-2000", true},  {"311299", "31-12-1999", true},
        {"310299", "31-02-1999", false},  {"151324", "15-13-2024", false},
        // Month and day go to the recognition as they are: month-first is tried when day-first can not be.
        {"121324", "12-13-2024", true},
    };
    Cargar();
    for (const Completion& k : casos) {
        host.clear();
        user.DoubleClickCell(grid, 1, 5);
        user.Type(k.typed);
        user.Enter();
        if (k.valid) {
            EXPECT_FALSE(Editando()) << k.typed;
            EXPECT_EQ(host.size(), 2u) << k.typed;
            EXPECT_EQ(host[0], std::string("Comprueba 5,1 ") + (host[0].substr(14, host[0].find('>') - 14)) + ">" +
                                   k.completed)
                << k.typed;  // the host is asked with the completed text
        } else {
            EXPECT_TRUE(Editando()) << k.typed;
            EXPECT_EQ(txt->GetText(), k.completed) << k.typed;  // the user sees the bare digits
            EXPECT_TRUE(host.empty()) << k.typed;
            txt->SetFocus();
            user.Escape();
        }
    }
}

TEST_F(TypedInput, ABadDateHoldsTheCellWithTheWarningTheToolTipAndABeep) {
    Cargar();
    user.DoubleClickCell(grid, 2, 5);
    user.Type("999");
    user.Enter();
    EXPECT_TRUE(Editando());
    EXPECT_EQ(txt->GetToolTipText(), "Formato fecha incorrecto");
    EXPECT_EQ(Aviso(2)->Key(), "atencion");
    EXPECT_EQ(txt->GetSelStart(), 0);
    EXPECT_EQ(txt->GetSelLength(), 3);
    EXPECT_EQ(Screen()->Beeps(), 2);  // Enter's commit and the move's LeaveCell each validate once
    EXPECT_EQ(grid->GetRow(), 2);
    EXPECT_EQ(grid->GetCol(), 5);
    EXPECT_TRUE(host.empty());
    // The move right ends by giving the grid the focus: the user clicks back into the overlay,
    // which selects all its text again.
    EXPECT_EQ(form->ActiveControl(), grid);
    user.Click(txt);
    EXPECT_EQ(txt->GetSelLength(), 3);
    // A good date then clears the tool tip and the warning.
    user.Type("01042024");
    user.Enter();
    EXPECT_EQ(txt->GetToolTipText(), "");
    EXPECT_EQ(Aviso(2), nullptr);
    EXPECT_EQ(Valor(2, "FECHA"), Variant("01-04-2024"));
}

TEST_F(TypedInput, AnEmptyDateFailsSoADateCellCanNotBeEmptied) {
    Cargar();
    user.DoubleClickCell(grid, 1, 5);
    user.Backspace();
    user.Enter();
    EXPECT_TRUE(Editando());
    EXPECT_EQ(txt->GetToolTipText(), "Formato fecha incorrecto");
    EXPECT_EQ(Valor(1, "FECHA"), Variant(Date::FromParts(2024, 3, 1)));
}

TEST_F(TypedInput, ADateColumnsFormatoFormatsTheCommittedDate) {
    cols->Item("FECHA")->Formato = "dd/mm/yy";
    Cargar();
    EXPECT_EQ(grid->GetTextMatrix(1, 5), "01/03/24");
    user.DoubleClickCell(grid, 1, 5);
    user.Type("25122025");
    user.Enter();
    EXPECT_EQ(grid->GetTextMatrix(1, 5), "25/12/25");
}

// ---- The calendar ------------------------------------------------------------------------------

TEST_F(TypedInput, ADoubleClickOnADateCellOpensTheCalendarBelowItOnTheCellsDate) {
    Cargar();
    user.DoubleClickCell(grid, 2, 5);
    EXPECT_TRUE(mvw->GetVisible());
    EXPECT_EQ(mvw->GetValue(), Date::FromParts(2024, 3, 2));
    EXPECT_EQ(mvw->GetLeft(), 300 + grid->GetColPos(5));
    EXPECT_EQ(mvw->GetTop(), 600 + grid->RowPos(2) + 240);
    EXPECT_EQ(mvw->GetFontSize(), grid->GetFontSize());
}

TEST_F(TypedInput, ADayPickedCommitsAtOnceThroughTheTextEditAndHidesTheCalendar) {
    Cargar();
    user.DoubleClickCell(grid, 2, 5);
    user.PickDay(mvw, Date::FromParts(2025, 12, 24));
    EXPECT_EQ(Valor(2, "FECHA"), Variant("24-12-2025"));
    EXPECT_EQ(grid->GetTextMatrix(2, 5), "24-12-2025");
    EXPECT_FALSE(mvw->GetVisible());
    EXPECT_FALSE(Editando());
    EXPECT_EQ(host, (Strings{"Comprueba 5,2 02/03/2024>24-12-2025", "Modificada FECHA 5,2 02/03/2024>24-12-2025"}));
}

TEST_F(TypedInput, ADayRefusedByTheHostStillHidesTheCalendar) {
    Cargar();
    refusar = true;
    user.DoubleClickCell(grid, 2, 5);
    user.PickDay(mvw, Date::FromParts(2025, 12, 24));
    EXPECT_FALSE(mvw->GetVisible());
    EXPECT_TRUE(Editando());
    EXPECT_EQ(Valor(2, "FECHA"), Variant(Date::FromParts(2024, 3, 2)));
}

TEST_F(TypedInput, TheCalendarLosingTheFocusHidesItWithoutACommit) {
    Cargar();
    user.DoubleClickCell(grid, 2, 5);
    mvw->SetFocus();
    txt->SetFocus();
    EXPECT_FALSE(mvw->GetVisible());
    EXPECT_TRUE(host.empty());
}

TEST_F(TypedInput, ADoubleClickInTheOverlayOfADateCellOpensTheCalendarOnTheTypedDate) {
    Cargar();
    user.DoubleClickCell(grid, 1, 5);
    mvw->SetVisible(false);
    user.Type("10/10/2010");
    user.DoubleClick(txt);
    EXPECT_TRUE(mvw->GetVisible());
    EXPECT_EQ(mvw->GetValue(), Date::FromParts(2010, 10, 10));
    user.Escape();
    user.DoubleClickCell(grid, 1, 2);
    mvw->SetVisible(false);
    user.DoubleClick(txt);  // not a date column
    EXPECT_FALSE(mvw->GetVisible());
}

TEST_F(TypedInput, WithoutADateInTheOverlayTheCalendarOpensOnToday) {
    Cargar();
    user.DoubleClickCell(grid, 1, 5);
    user.Backspace();
    user.DoubleClick(txt);
    EXPECT_EQ(mvw->GetValue(), Today());
}

// ---- The display text ------------------------------------------------------------------------

TEST_F(TypedInput, ADecimalCommitWithoutFormatoShowsTwoDecimalsAndTheThousandsMark) {
    Cargar();
    user.DoubleClickCell(grid, 3, 4);
    user.Type("1234567,891");
    user.Enter();
    EXPECT_EQ(grid->GetTextMatrix(3, 4), "1.234.567,89");  // the third decimal was refused
    EXPECT_TRUE(cols->Item("DECIMAL")->Formato.empty() || cols->Item("DECIMAL")->Formato == "#,##0.00");
}

TEST_F(TypedInput, FormateaValorGivesTheDisplayTextForAnyColumn) {
    Cargar();
    std::string texto = "1.5";
    int32_t col = 4;
    auto definicion = std::make_shared<ControlListDefinition>();
    auto& d = *definicion;
    d.control(grid);
    d.Columnas = cols;
    EXPECT_EQ(d.FormateaValor(texto, col), "1,50");
    EXPECT_EQ(texto, "1,5");  // the argument is changed too
    std::string fecha = "5-3-24";
    int32_t colFecha = 5;
    EXPECT_EQ(d.FormateaValor(fecha, colFecha), "05-03-2024");
    std::string libre = "hola";
    int32_t colTexto = 2;
    EXPECT_EQ(d.FormateaValor(libre, colTexto), "hola");
    std::string noNumero = "abc";
    EXPECT_EQ(d.FormateaValor(noNumero, col), "abc");  // text the format can not read comes back as it is
    grid->SetCol(3);
    std::string entero = "1234";
    int32_t actual = 0;  // 0: the current column
    // The load stored the default "#,##0" on the integer column, and it stays there.
    EXPECT_EQ(d.FormateaValor(entero, actual), "1.234");
    EXPECT_EQ(actual, 3);
}

}  // namespace
