// The grid controller driven as a user drives it: wiring, the current row's
// colour, sorting by a heading, and editing cells.
#include "binding/controller_fixture.h"

namespace {

using namespace zaro_test;

using Wiring = ControllerTest;
using Editing = ControllerTest;

// ---- Wiring ---------------------------------------------------------------------------

TEST_F(Wiring, AttachingTheOverlaysSetsTheirTabStopTheGridsHighLightAndTheListsHeight) {
    Cargar();
    EXPECT_FALSE(txt->GetTabStop());
    EXPECT_FALSE(lst->GetTabStop());
    EXPECT_EQ(lst->GetHeight(), 2370);
    EXPECT_EQ(grid->GetHighLight(), 0);
    EXPECT_EQ(mvw->GetTabStop(), true);  // the calendar is stored as given, not configured
}

TEST_F(Wiring, AControlThatIsNotAFlexGridIsKeptInertAndATextBoxSetAfterItFails) {
    auto def = std::make_shared<ControlListDefinition>();
    def->control(list);
    EXPECT_EQ(def->control(), list);
    EXPECT_EQ(list->Click.HandlerCount(), 0u);  // no event of it is heard
    Error e = Capturar([&] { def->TextBox(txt); });
    EXPECT_EQ(e.Number, 91);
    auto hfg = form->Add<Headless::MSHFlexGrid>("hfg");
    def->control(hfg);  // the hierarchical grid is not the grid type either
    EXPECT_EQ(hfg->EnterCell.HandlerCount(), 0u);
}

TEST_F(Wiring, AHierarchicalGridLoadedWithOverlaysFailsAsItHasNoGridToAttachThemTo) {
    auto hfg = form->Add<Headless::MSHFlexGrid>("hfg");
    EXPECT_EQ(Capturar([&] { helper->CargaMSFlexGrid(hfg, filas, cols, true, txt, lst, mvw); }).Number, 13);
    helper->CargaMSFlexGrid(hfg, filas, cols);  // without overlays it loads, and stays inert
    EXPECT_EQ(hfg->GetTextMatrix(2, 2), "texto 2");
}

TEST_F(Wiring, WithNoGridTheCurrentCellIsRowOneColumnOne) {
    auto def = std::make_shared<ControlListDefinition>();
    def->Clh = helper;
    auto marcas = std::make_shared<coleccionColumnas>();
    marcas->Add("MARCA", "", 500, 0, "", Check);
    def->Columnas = marcas;
    def->Datos = std::make_shared<Collection>();
    for (auto& e : *filas) def->Datos->Add(Variant(e));
    EXPECT_EQ(Capturar([&] { def->TextBox(txt); }).Number, 91);  // stored before the grid step failed
    def->IniciaEdicion();  // a Check toggle on row 1, column 1; the commit stops without a list
    EXPECT_EQ(def->Entidad, filas->Item(1));
    EXPECT_EQ(txt->GetText(), "0");  // row 1's mark is 1: the new value is 0
}

// ---- Entering and leaving cells: the current row's colour ------------------------------

TEST_F(Wiring, EnteringARowColoursItAndTheRowLeftGoesWhiteWhateverTheColour) {
    Cargar();
    for (int32_t c = 1; c <= 8; ++c) EXPECT_EQ(grid->CellAt(1, c).backColor, kColor) << c;
    user.ClickCell(grid, 2, 3);
    for (int32_t c = 1; c <= 8; ++c) {
        EXPECT_EQ(grid->CellAt(1, c).backColor, 0xFFFFFF) << c;
        EXPECT_EQ(grid->CellAt(2, c).backColor, kColor) << c;
    }
    EXPECT_EQ(grid->CellAt(1, 0).backColor, 0);  // column 0 is left alone
    EXPECT_EQ(grid->CellAt(2, 0).backColor, 0);
    EXPECT_EQ(grid->GetCol(), 3);  // the walk over the columns puts Col back
}

TEST_F(Wiring, AHostHandlerOfTheCellEventsSeesTheColumnWalkSilenced) {
    Cargar();
    int entradas = 0;
    grid->EnterCell.Attach([&] { ++entradas; });
    user.ClickCell(grid, 2, 3);
    // The grid fires EnterCell for every column the colouring walks; the controller ignores those.
    EXPECT_GT(entradas, 2);
    EXPECT_TRUE(host.empty());
}

// ---- Sorting by a click on a heading ------------------------------------------------------

TEST_F(Wiring, TwoClicksOnAHeadingSortAscendingThenDescendingAndAnotherColumnStartsAgain) {
    Cargar();
    user.ClickHeader(grid, 3);  // ENTERO
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "10");
    user.ClickHeader(grid, 3);
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "30");
    user.ClickHeader(grid, 2);  // TEXTO, ascending
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "texto 1");
    user.ClickHeader(grid, 3);  // back: ascending again
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "10");
    EXPECT_EQ(grid->GetTextMatrix(3, 3), "30");
}

TEST_F(Wiring, WithPermitirOrdenarFalseAHeadingClickDoesNotEvenCancelAnOpenEdit) {
    Cargar(false);
    user.DoubleClickCell(grid, 1, 2);
    user.Type("nuevo");
    user.ClickHeader(grid, 3);
    EXPECT_TRUE(Editando());
    EXPECT_EQ(txt->GetText(), "nuevo");
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "10");
}

TEST_F(Wiring, AClickOnTheHeadingOfColumnZeroCancelsTheEditAndDoesNotSort) {
    Cargar();
    grid->SetFocus();
    user.Down();
    user.Down();  // row 3 first, so that a sort would show
    user.DoubleClickCell(grid, 3, 2);
    user.Type("nuevo");
    user.ClickHeader(grid, 0);
    EXPECT_FALSE(Editando());
    EXPECT_EQ(txt->GetText(), "texto 3");  // back to what the cell shows
    EXPECT_EQ(grid->GetTextMatrix(3, 2), "texto 3");
    EXPECT_TRUE(host.empty());
}

TEST_F(Wiring, SortingKeepsTheSettingsAndOverlaysOfTheLastLoad) {
    Cargar();
    user.ClickHeader(grid, 3);
    user.ClickHeader(grid, 3);  // descending: row 1 is the third entity
    EXPECT_EQ(helper->ValorSeleccionado(grid), filas->Item(3));
    EXPECT_EQ(grid->CellAt(1, 2).backColor, kColor);  // ColorLineaSeleccionada kept
    user.DoubleClickCell(grid, 1, 2);  // the overlays kept
    EXPECT_TRUE(Editando());
    user.Type("x");
    user.Enter();
    EXPECT_EQ(Valor(3, "TEXTO"), Variant("x"));
    user.ClickHeader(grid, 2);  // PermitirOrdenar kept
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "texto 1");
}

TEST_F(Wiring, ALoadWithoutCellEventsNavigatesClicksButtonsAndSortsButNeverCommitsOrColours) {
    Cargar(true, true);
    EXPECT_EQ(grid->CellAt(1, 2).backColor, 0);  // no row colouring
    user.ClickCell(grid, 2, 7);
    EXPECT_EQ(host, (Strings{"Boton BOTON 7,2"}));
    user.ClickCell(grid, 2, 6);  // a Check cell does not toggle
    EXPECT_EQ(Valor(2, "MARCA"), Variant(int32_t{0}));
    user.DoubleClickCell(grid, 2, 2);  // an overlay opens ...
    EXPECT_TRUE(Editando());
    user.Type("nunca");
    user.Enter();  // ... but never commits
    EXPECT_EQ(Valor(2, "TEXTO"), Variant("texto 2"));
    EXPECT_EQ(host.size(), 1u);
    user.Escape();
    user.ClickHeader(grid, 3);
    user.ClickHeader(grid, 3);  // sorting works, and its reload turns the cell events on again
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "30");
    user.ClickCell(grid, 2, 2);
    EXPECT_EQ(grid->CellAt(2, 2).backColor, kColor);
}

// ---- What starts an edit --------------------------------------------------------------------

TEST_F(Editing, ADoubleClickOpensTheOverlayOverTheCellWithAllItsTextSelected) {
    Cargar();
    user.DoubleClickCell(grid, 2, 2);
    EXPECT_TRUE(Editando());
    EXPECT_EQ(txt->GetText(), "texto 2");
    EXPECT_EQ(txt->GetSelStart(), 0);
    EXPECT_EQ(txt->GetSelLength(), 7);
    EXPECT_EQ(txt->GetLeft(), 300 + grid->GetColPos(2));
    EXPECT_EQ(txt->GetTop(), 600 + grid->RowPos(2));
    EXPECT_EQ(txt->GetWidth(), 1500);
    EXPECT_EQ(txt->GetHeight(), 240);
    EXPECT_EQ(txt->GetBackColor(), kColor);
    EXPECT_EQ(form->ActiveControl(), txt);
    EXPECT_EQ(txt->GetAlignment(), 0);
    EXPECT_FALSE(lst->GetVisible());  // no OrigenDatos: the list stays hidden
}

TEST_F(Editing, TheOverlayIsClippedAtTheGridsRightEdge) {
    grid->SetWidth(5000);
    Cargar();
    user.DoubleClickCell(grid, 1, 5);  // FECHA starts at 4100 and is 1200 wide
    EXPECT_EQ(txt->GetWidth(), 5000 - grid->GetColPos(5));
}

TEST_F(Editing, KeysGoNowhereUntilTheGridHasTheFocus) {
    Cargar();
    user.Down();
    EXPECT_EQ(grid->GetRow(), 1);
    grid->SetFocus();
    user.Down();
    EXPECT_EQ(grid->GetRow(), 2);
}

TEST_F(Editing, TypingOnTheGridStartsNoEditButF2Does) {
    Cargar();
    user.ClickCell(grid, 1, 2);
    user.Type("abc");
    EXPECT_FALSE(Editando());
    user.F2();
    EXPECT_TRUE(Editando());
}

TEST_F(Editing, TextoFijoAndBotonCellsAreNeverEdited) {
    Cargar();
    user.DoubleClickCell(grid, 1, 8);
    EXPECT_FALSE(Editando());
    user.DoubleClickCell(grid, 1, 7);  // a button ignores a double click ...
    user.F2();                         // ... and F2
    EXPECT_FALSE(Editando());
    EXPECT_EQ(host, (Strings{"Boton BOTON 7,1"}));  // the click before the double click
}

TEST_F(Editing, AClickOnAButtonCellRaisesClickBotonWithItsCellAndEntity) {
    IEntidadRef visto;
    helper->ClickBoton.Attach([&](ControlRef& c, ColumnaRef&, IEntidadRef& e, int32_t&, int32_t&) {
        EXPECT_EQ(c, grid);
        visto = e;
    });
    Cargar();
    user.ClickCell(grid, 3, 7);
    EXPECT_EQ(host, (Strings{"Boton BOTON 7,3"}));
    EXPECT_EQ(visto, filas->Item(3));
}

// ---- Commit ------------------------------------------------------------------------------------

TEST_F(Editing, EnterCommitsTheTextIntoTheEntityAndTheCellThenMovesRight) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("hola");
    user.Enter();
    EXPECT_EQ(Valor(1, "TEXTO"), Variant("hola"));
    EXPECT_EQ(grid->GetTextMatrix(1, 2), "hola");
    EXPECT_FALSE(Editando());
    EXPECT_EQ(grid->GetCol(), 3);
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(host, (Strings{"Comprueba 2,1 texto 1>hola", "Modificada TEXTO 2,1 texto 1>hola"}));
    EXPECT_EQ(form->ActiveControl(), grid);
}

TEST_F(Editing, TheEntityGetsTheDisplayTextOfANumberNotWhatWasTyped) {
    Cargar();
    user.DoubleClickCell(grid, 2, 4);
    EXPECT_EQ(txt->GetAlignment(), 1);  // numbers stand right in the overlay
    user.Type("1234,5");
    user.Enter();
    EXPECT_EQ(Valor(2, "DECIMAL"), Variant("1.234,50"));
    EXPECT_EQ(grid->GetTextMatrix(2, 4), "1.234,50");
}

TEST_F(Editing, LeavingTheCellCommitsLikeEnter) {
    Cargar();
    user.DoubleClickCell(grid, 1, 3);
    user.Type("77");
    user.ClickCell(grid, 3, 2);
    EXPECT_EQ(Valor(1, "ENTERO"), Variant("77"));
    EXPECT_EQ(grid->GetTextMatrix(1, 3), "77");
    EXPECT_FALSE(Editando());
}

TEST_F(Editing, EscapeDropsTheTypedTextAndHidesTheOverlays) {
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("nada");
    user.Escape();
    EXPECT_FALSE(Editando());
    EXPECT_EQ(txt->GetText(), "texto 1");
    EXPECT_EQ(Valor(1, "TEXTO"), Variant("texto 1"));
    EXPECT_TRUE(host.empty());
    EXPECT_EQ(form->ActiveControl(), grid);
}

TEST_F(Editing, AnEmptiedNumberOrTextCellCommitsAnEmptyDisplayText) {
    Cargar();
    user.DoubleClickCell(grid, 1, 4);
    user.Backspace();
    user.Enter();
    EXPECT_EQ(Valor(1, "DECIMAL"), Variant(""));
    user.DoubleClickCell(grid, 2, 2);
    user.Backspace();
    user.Enter();
    EXPECT_EQ(Valor(2, "TEXTO"), Variant(""));
    EXPECT_EQ(grid->GetTextMatrix(2, 2), "");
}

TEST_F(Editing, AHostThatRefusesHearsCompruebaCeldaEntradaTwiceForOneEnterAndHoldsTheCell) {
    Cargar();
    refusar = true;
    user.DoubleClickCell(grid, 2, 3);
    user.Type("999");
    user.Enter();
    EXPECT_EQ(host, (Strings{"Comprueba 3,2 20>999", "Comprueba 3,2 20>999"}));
    EXPECT_EQ(Valor(2, "ENTERO"), Variant(int32_t{20}));
    EXPECT_EQ(grid->GetRow(), 2);  // the cursor was brought back
    EXPECT_EQ(grid->GetCol(), 3);
    EXPECT_TRUE(Editando());
    EXPECT_EQ(txt->GetText(), "999");
    ASSERT_NE(Aviso(2), nullptr);
    EXPECT_EQ(Aviso(2)->Key(), "atencion");
    EXPECT_EQ(txt->GetToolTipText(), "");  // no tool tip and no beep for a host's refusal
    EXPECT_EQ(Screen()->Beeps(), 0);
    // Allowed again, the same Enter commits and clears the warning.
    refusar = false;
    host.clear();
    txt->SetFocus();
    user.Enter();
    EXPECT_EQ(Valor(2, "ENTERO"), Variant("999"));
    EXPECT_EQ(Aviso(2), nullptr);
    EXPECT_EQ(grid->GetCol(), 4);
}

TEST_F(Editing, AfterAFailedValidationTheCursorReturnsOnEnterCellAndTheTargetRowIsNotColoured) {
    Cargar();
    refusar = true;
    user.DoubleClickCell(grid, 1, 2);
    user.Type("no");
    user.ClickCell(grid, 3, 3);
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 2);
    EXPECT_EQ(grid->CellAt(3, 3).backColor, 0xFFFFFF);  // white from the walk away, never the row colour
    EXPECT_NE(grid->CellAt(3, 2).backColor, kColor);
    EXPECT_EQ(Aviso(1)->Key(), "atencion");
}

TEST_F(Editing, EscapeOnAHeldCellLeavesTheWarningUntilTheNextValidation) {
    Cargar();
    refusar = true;
    user.DoubleClickCell(grid, 1, 2);
    user.Type("no");
    user.Enter();
    txt->SetFocus();
    user.Escape();
    EXPECT_FALSE(Editando());
    EXPECT_NE(Aviso(1), nullptr);
    refusar = false;
    // A plain move validates nothing (no overlay open) and clears the held cell and its warning.
    user.ClickCell(grid, 2, 2);
    EXPECT_EQ(Aviso(1), nullptr);
    EXPECT_EQ(grid->GetRow(), 2);
}

TEST_F(Editing, WithATextOverlayButNoListOverlayTheCommitStopsBeforeWriting) {
    helper->CargaMSFlexGrid(grid, filas, cols, true, txt, nullptr, mvw, kColor);
    user.DoubleClickCell(grid, 1, 2);
    user.Type("hola");
    user.Enter();
    EXPECT_EQ(Valor(1, "TEXTO"), Variant("texto 1"));
    EXPECT_EQ(host, (Strings{"Comprueba 2,1 texto 1>hola", "Comprueba 2,1 texto 1>hola"}));
}

TEST_F(Editing, TheOverlayStaysWhereItWasWhenTheGridsColumnsMove) {
    Cargar();
    user.DoubleClickCell(grid, 1, 3);
    const int32_t left = txt->GetLeft();
    grid->SetColWidth(2, 3000);  // the cell moves, no event tells the overlay
    EXPECT_EQ(txt->GetLeft(), left);
}

TEST_F(Editing, CeldaModificadaRunsBeforeTheOverlaysAreHidden) {
    bool visible = false;
    helper->CeldaModificada.Attach(
        [&](ControlRef&, ColumnaRef&, IEntidadRef&, int32_t&, int32_t&, Variant&, Variant&) { visible = txt->GetVisible(); });
    Cargar();
    user.DoubleClickCell(grid, 1, 2);
    user.Type("x");
    user.Enter();
    EXPECT_TRUE(visible);
}

// ---- Moving with the keys -------------------------------------------------------------------------

TEST_F(Editing, LeftFromTheFirstColumnOfRowOneStaysAndOfALowerRowGoesToTheEndOfTheRowAbove) {
    auto visibles = std::make_shared<coleccionColumnas>();
    visibles->Add("TEXTO", "", 1000, 0, "", Texto);
    visibles->Add("ENTERO", "", 1000, 0, "", Entero);
    cols = visibles;
    Cargar();
    grid->SetFocus();  // the keys go to the grid
    EXPECT_EQ(grid->GetCol(), 1);
    user.Left();
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 1);
    user.Down();
    user.Left();
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 2);
}

TEST_F(Editing, RightFromTheLastCellWrapsToRowOneAndSkipsAHiddenFirstColumn) {
    Cargar();
    user.ClickCell(grid, 3, 8);
    user.Right();
    EXPECT_EQ(grid->GetRow(), 1);
    EXPECT_EQ(grid->GetCol(), 2);  // column 1 has no width
    user.ClickCell(grid, 1, 8);
    user.Right();  // the end of a line goes to the start of the next
    EXPECT_EQ(grid->GetRow(), 2);
    EXPECT_EQ(grid->GetCol(), 2);
    user.Left();  // ... and Left can land on the hidden column
    EXPECT_EQ(grid->GetCol(), 1);
}

TEST_F(Editing, UpAndDownMoveWithinTheRows) {
    Cargar();
    grid->SetFocus();
    user.Up();
    EXPECT_EQ(grid->GetRow(), 1);
    user.Down();
    user.Down();
    user.Down();
    EXPECT_EQ(grid->GetRow(), 3);
    user.Up();
    EXPECT_EQ(grid->GetRow(), 2);
}

TEST_F(Editing, EnterOnTheGridWithNoOverlayOpenMovesRight) {
    Cargar();
    grid->SetFocus();
    user.Enter();
    EXPECT_EQ(grid->GetCol(), 3);
    EXPECT_TRUE(host.empty());
}

// ---- Check cells ---------------------------------------------------------------------------------

TEST_F(Editing, ACheckCellOfOneBecomesZeroAndAnyOtherValueBecomesOne) {
    filas->Item(2)->SetValor(std::string("MARCA"), Variant(""));
    filas->Item(3)->SetValor(std::string("MARCA"), Variant(int32_t{7}));
    Cargar();
    user.ClickCell(grid, 1, 6);
    user.ClickCell(grid, 2, 6);
    user.ClickCell(grid, 3, 6);
    EXPECT_EQ(Valor(1, "MARCA"), Variant("0"));
    EXPECT_EQ(Valor(2, "MARCA"), Variant("1"));
    EXPECT_EQ(Valor(3, "MARCA"), Variant("1"));
    EXPECT_EQ(grid->CellAt(1, 6).picture->Key(), "unchecked");
    EXPECT_EQ(grid->CellAt(2, 6).picture->Key(), "checked");
    EXPECT_EQ(grid->GetTextMatrix(2, 6), "");
    // A toggle asks the host nothing: no CompruebaCeldaEntrada.
    EXPECT_EQ(host, (Strings{"Modificada MARCA 6,1 1>0", "Modificada MARCA 6,2 >1", "Modificada MARCA 6,3 7>1"}));
}

TEST_F(Editing, WithoutCheckDblClickEachClickTogglesAndTheDoubleClickAddsNone) {
    Cargar();
    user.DoubleClickCell(grid, 1, 6);  // its first click toggles once
    EXPECT_EQ(Valor(1, "MARCA"), Variant("0"));
    user.ClickCell(grid, 1, 6);
    EXPECT_EQ(Valor(1, "MARCA"), Variant("1"));
}

TEST_F(Editing, WithCheckDblClickASingleClickDoesNothingAndADoubleClickToggles) {
    cols->Item("MARCA")->CheckDblClick = true;
    Cargar();
    user.ClickCell(grid, 2, 6);
    EXPECT_EQ(Valor(2, "MARCA"), Variant(int32_t{0}));
    user.DoubleClickCell(grid, 2, 6);
    EXPECT_EQ(Valor(2, "MARCA"), Variant("1"));
}

TEST_F(Editing, SpaceOrF2OnACheckCellToggles) {
    Cargar();
    user.ClickCell(grid, 2, 6);
    user.Space();
    EXPECT_EQ(Valor(2, "MARCA"), Variant("0"));  // the click toggled to 1, the space back to 0
    user.F2();
    EXPECT_EQ(Valor(2, "MARCA"), Variant("1"));
    user.ClickCell(grid, 2, 2);
    user.Space();  // a space on another column does nothing
    EXPECT_FALSE(Editando());
}

TEST_F(Editing, ACheckColumnsPicturesFollowImagenKeyOrImagenAndImagen2) {
    cols->Item("MARCA")->ImagenKey = "star";
    Cargar();
    user.ClickCell(grid, 2, 6);
    EXPECT_EQ(grid->CellAt(2, 6).picture->Key(), "star");
    user.ClickCell(grid, 2, 6);
    EXPECT_EQ(grid->CellAt(2, 6).picture, nullptr);
    cols->Item("MARCA")->ImagenKey = "";
    cols->Item("MARCA")->Imagen = Form1().Imagen("add");
    cols->Item("MARCA")->Imagen2 = Form1().Imagen("delete");
    user.ClickCell(grid, 3, 6);
    EXPECT_EQ(grid->CellAt(3, 6).picture, Form1().Imagen("add"));
    user.ClickCell(grid, 3, 6);
    EXPECT_EQ(grid->CellAt(3, 6).picture, Form1().Imagen("delete"));
}

TEST_F(Editing, AHelperThatWentAwayTurnsTheEditsSilentWithoutBreakingTheGrid) {
    Cargar();
    helper.reset();  // the definitions go with it, and their handlers with them
    user.DoubleClickCell(grid, 1, 2);
    EXPECT_FALSE(Editando());
    EXPECT_EQ(grid->EnterCell.HandlerCount(), 0u);
}

}  // namespace
