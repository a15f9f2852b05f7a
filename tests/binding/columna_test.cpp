// The column model and the definition record.
#include "binding/fixture.h"

namespace {

using namespace zaro_test;

TEST(Columna, ANewColumnIsEmptyOfTypeNoDefinidoAndAlignedLeft) {
    Columna c;
    EXPECT_EQ(c.Nombre, "");
    EXPECT_EQ(c.AnchoColuna, 0);
    EXPECT_EQ(c.Alineacion, 0);
    EXPECT_EQ(c.TipoDato, NoDefinido);
    EXPECT_EQ(c.Conexion, nullptr);
    EXPECT_EQ(c.Imagen, nullptr);
    EXPECT_FALSE(c.CheckDblClick);
    EXPECT_EQ(c.NombreCabecera(), "");
}

TEST(Columna, AddWithTheNameFechaAloneGivesWidth1000LeftAlignedNoDefinidoHeadedFecha) {
    coleccionColumnas cols;
    ColumnaRef c = cols.Add("FECHA");
    EXPECT_EQ(c->AnchoColuna, 1000);
    EXPECT_EQ(c->Alineacion, 0);
    EXPECT_EQ(c->TipoDato, NoDefinido);
    EXPECT_EQ(c->Formato, "");
    EXPECT_EQ(c->NombreCabecera(), "FECHA");
    EXPECT_EQ(cols.Item("fecha"), c);
}

TEST(Columna, AHeadingNotWrittenIsTheNameWithBlanksForUnderscores) {
    coleccionColumnas cols;
    ColumnaRef c = cols.Add("DESC_CORTA");
    EXPECT_EQ(c->NombreCabecera(), "DESC CORTA");
    c->NombreCabecera("Descripción");
    EXPECT_EQ(c->NombreCabecera(), "Descripción");
    c->NombreCabecera("");
    EXPECT_EQ(c->NombreCabecera(), "DESC CORTA");
    EXPECT_EQ(c->Nombre, "DESC_CORTA");  // the derived heading is not stored
}

TEST(Columna, AddStoresEveryArgument) {
    coleccionColumnas cols;
    ColumnaRef c = cols.Add("PRECIOMAX", "Precio", 1200, 1, "0.000", NumDecimal);
    EXPECT_EQ(c->NombreCabecera(), "Precio");
    EXPECT_EQ(c->AnchoColuna, 1200);
    EXPECT_EQ(c->Alineacion, 1);
    EXPECT_EQ(c->Formato, "0.000");
    EXPECT_EQ(c->TipoDato, NumDecimal);
}

TEST(Columna, AddOfTheSameNameTwiceFailsAlsoWhenOnlyTheCaseDiffers) {
    coleccionColumnas cols;
    cols.Add("UDS");
    EXPECT_EQ(Capturar([&] { cols.Add("UDS"); }).Number, 457);
    EXPECT_EQ(Capturar([&] { cols.Add("uds"); }).Number, 457);
    EXPECT_EQ(cols.Count(), 1);
}

TEST(Columna, ItemWithAKeyThatIsNotThereGivesAnUnaddedFixedTextColumn) {
    coleccionColumnas cols;
    cols.Add("UDS");
    ColumnaRef c = cols.Item("NADA");
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->Nombre, "");
    EXPECT_EQ(c->TipoDato, TextoFijo);
    EXPECT_EQ(cols.Count(), 1);
    EXPECT_NE(cols.Item("NADA"), c);  // a new one each time
}

TEST(Columna, ItemWithPositionZeroOrBeyondTheEndDoesTheSame) {
    coleccionColumnas cols;
    cols.Add("UDS");
    EXPECT_EQ(cols.Item(0)->TipoDato, TextoFijo);
    EXPECT_EQ(cols.Item(0)->Nombre, "");
    EXPECT_EQ(cols.Item(2)->TipoDato, TextoFijo);
    EXPECT_EQ(cols.Item(Variant::Null())->TipoDato, TextoFijo);
    EXPECT_EQ(cols.Item(1)->Nombre, "UDS");
    EXPECT_EQ(cols.Count(), 1);
}

TEST(Columna, AddColumnaFailsWhateverItIsGivenAndAddsNothing) {
    coleccionColumnas cols;
    auto c = std::make_shared<Columna>();
    c->Nombre = "UDS";
    Error e = Capturar([&] { cols.AddColumna(c); });
    EXPECT_EQ(e.Number, 438);
    EXPECT_EQ(e.Description, "Object doesn't support this property or method");
    EXPECT_EQ(Capturar([&] { cols.AddColumna(ColumnaRef()); }).Number, 438);
    EXPECT_EQ(cols.Count(), 0);
}

TEST(Columna, RemoveOfAKeyOrPositionThatIsNotThereFails) {
    coleccionColumnas cols;
    cols.Add("A");
    cols.Add("B");
    EXPECT_EQ(Capturar([&] { cols.Remove(Variant("C")); }).Number, 5);
    EXPECT_EQ(Capturar([&] { cols.Remove(Variant(int32_t{3})); }).Number, 9);
    cols.Remove(Variant("a"));
    EXPECT_EQ(cols.Count(), 1);
    EXPECT_EQ(cols.Item(1)->Nombre, "B");
}

TEST(Columna, EnumerationGoesInTheOrderOfTheColumns) {
    coleccionColumnas cols;
    cols.Add("C");
    cols.Add("A");
    cols.Add("B");
    std::string orden;
    for (const ColumnaRef& c : cols) orden += c->Nombre;
    EXPECT_EQ(orden, "CAB");
}

TEST(Columna, ImagenTakesAPictureOfTheStripByKeyIgnoringCase) {
    Columna c;
    c.Imagen = Form1().Imagen("LUPA");
    EXPECT_EQ(c.Imagen, Form1().Imagen("lupa"));
    c.Imagen2 = Form1().Imagen("no existe");
    EXPECT_EQ(c.Imagen2, nullptr);
}

TEST(Definicion, ANewDefinitionIsEmptyWhiteAndFalse) {
    ControlListDefinition d;
    ASSERT_NE(d.Datos, nullptr);
    EXPECT_EQ(d.Datos->Count(), 0);
    ASSERT_NE(d.Columnas, nullptr);
    EXPECT_EQ(d.Columnas->Count(), 0);
    EXPECT_EQ(d.ColorLineaSeleccionada, 0xFFFFFF);
    EXPECT_FALSE(d.PermitirOrdenar);
    EXPECT_FALSE(d.Iniciando);
    EXPECT_FALSE(d.bNoEventosCambioCelda);
    EXPECT_EQ(d.Recordset, nullptr);
    EXPECT_EQ(d.Clh.lock(), nullptr);
    EXPECT_EQ(d.TextBox(), nullptr);
    EXPECT_EQ(d.control(), nullptr);
}

TEST(Definicion, TheEntidadOfANewDefinitionDoesNothing) {
    ControlListDefinition d;
    ASSERT_NE(d.Entidad, nullptr);
    EXPECT_TRUE(d.Entidad->GetValor(std::string("CD_ARTICULO")).IsEmpty());
    EXPECT_TRUE(d.Entidad->GetValorIndice(int16_t{1}).IsEmpty());
    EXPECT_EQ(d.Entidad->NumCampos(), 0);
    EXPECT_EQ(d.Entidad->GetNombreCampo(int16_t{1}), "");
    EXPECT_EQ(d.Entidad->Nombre(), "");
    d.Entidad->SetValor(std::string("X"), Variant(1));  // raises nothing
}

TEST(Definicion, TextBoxAndListBoxGivenNothingKeepTheEarlierOnesMonthViewDropsIt) {
    ControlListDefinition d;
    d.control(std::make_shared<Headless::MSFlexGrid>());  // the overlays attach to the grid given first
    auto t = std::make_shared<Headless::TextBox>();
    auto l = std::make_shared<Headless::ListBox>();
    auto m = std::make_shared<Headless::MonthView>();
    d.TextBox(t);
    d.ListBox(l);
    d.MonthView(m);
    d.TextBox(nullptr);
    d.ListBox(nullptr);
    d.MonthView(nullptr);
    EXPECT_EQ(d.TextBox(), t);
    EXPECT_EQ(d.ListBox(), l);
    EXPECT_EQ(d.MonthView(), nullptr);
}

}  // namespace
