// The table entity template, shown on the article entity.
#include "support/capturar.h"
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

TEST(EntidadArticulo, NewEntityHasZerosEmptyStringsAndTheZeroDate) {
    entarticulo e;
    EXPECT_EQ(e.COD_TRANSACC, 0);
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
    EXPECT_EQ(e.HORA_REAL, "");
    EXPECT_EQ(e.PRECIOMAX, 0.0);
    EXPECT_EQ(e.DESC_CORTA, "");
}

TEST(EntidadArticulo, NombreTablaAndNumCamposAreConstants) {
    entarticulo e;
    EXPECT_EQ(e.Nombre(), "articulo");
    EXPECT_EQ(e.Tabla(), "articulo");
    EXPECT_EQ(e.IEntidad_Nombre(), "articulo");
    EXPECT_EQ(e.IEntidad_Tabla(), "articulo");
    EXPECT_EQ(e.NumCampos(), 12);
    EXPECT_EQ(e.TypeName(), "entarticulo");
}

TEST(EntidadArticulo, GetNombreCampoSpellsEachFieldInIndexOrder) {
    entarticulo e;
    const char* nombres[] = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "CD_OP", "TIPO_OPERACION", "CD_ARTICULO",
                             "IDARTICOLGS1", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "PRECIOMAX", "DESC_ARTICULO",
                             "DESC_CORTA"};
    for (int16_t i = 1; i <= 12; ++i) EXPECT_EQ(e.GetNombreCampo(i), nombres[i - 1]);
}

TEST(EntidadArticulo, GetValorIgnoresCase) {
    entarticulo e;
    e.DESC_ARTICULO = "Cafe";
    EXPECT_EQ(e.GetValor("desc_articulo"), e.GetValor("DESC_ARTICULO"));
    EXPECT_EQ(e.GetValor("Desc_Articulo"), Variant("Cafe"));
}

TEST(EntidadArticulo, GetValorTagsEachValueWithItsFieldType) {
    entarticulo e;
    e.COD_TRANSACC = 5;
    e.PRECIOMAX = 1.5;
    e.FECHA_REAL = Date::FromParts(2026, 3, 1);
    EXPECT_EQ(e.GetValor("COD_TRANSACC").VarType(), vbLong);
    EXPECT_EQ(e.GetValor("PRECIOMAX").VarType(), vbDouble);
    EXPECT_EQ(e.GetValor("FECHA_REAL").VarType(), vbDate);
    EXPECT_EQ(e.GetValor("HORA_REAL").VarType(), vbString);
    EXPECT_EQ(e.GetValor("COD_TRANSACC"), Variant(int32_t{5}));
}

TEST(EntidadArticulo, GetValorOfAnUnknownNameReturnsTheErrorText) {
    entarticulo e;
    EXPECT_EQ(e.GetValor("NO_EXISTE"), Variant("#ERROR#"));
}

TEST(EntidadArticulo, GetValorIndiceAndGetNombreCampoOutsideTheTableReturnTheErrorText) {
    entarticulo e;
    EXPECT_EQ(e.GetValorIndice(0), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValorIndice(13), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValorIndice(-1), Variant("#ERROR#"));
    EXPECT_EQ(e.GetNombreCampo(0), "#ERROR#");
    EXPECT_EQ(e.GetNombreCampo(13), "#ERROR#");
}

TEST(EntidadArticulo, GetValorWithAnEmptyNameReturnsDescArticulo) {
    entarticulo e;
    e.DESC_ARTICULO = "Bocadillo";
    EXPECT_EQ(e.GetValor(""), Variant("Bocadillo"));
}

TEST(EntidadArticulo, GetValorIndiceAnswersWhatGetValorAnswers) {
    entarticulo e;
    e.CD_ARTICULO = "A1";
    EXPECT_EQ(e.GetValorIndice(6), e.GetValor("CD_ARTICULO"));
}

TEST(EntidadArticulo, SetValorOfAnUnknownNameRaisesNombreCampoIncorrecto) {
    entarticulo e;
    Error err = Capturar([&] { e.SetValor("NO_EXISTE", Variant(1)); });
    EXPECT_EQ(err.Number, 0);
    EXPECT_EQ(err.Source, "articuloIEntidad_SetValor");
    EXPECT_EQ(err.Description, "Nombre campo incorrecto");
}

TEST(EntidadArticulo, SetValorWithAnEmptyNameRaises) {
    entarticulo e;
    Error err = Capturar([&] { e.SetValor("", Variant("x")); });
    EXPECT_EQ(err.Description, "Nombre campo incorrecto");
    EXPECT_EQ(e.DESC_ARTICULO, "");
}

TEST(EntidadArticulo, SetValorIndiceOutsideTheTableDoesNothingAndRaisesNothing) {
    entarticulo e;
    EXPECT_NO_THROW(e.SetValorIndice(13, Variant("x")));
    EXPECT_NO_THROW(e.SetValorIndice(0, Variant("x")));
    EXPECT_EQ(e.DESC_CORTA, "");
}

TEST(EntidadArticulo, SetValorOfLettersOnADoubleStoresZero) {
    entarticulo e;
    e.PRECIOMAX = 7;
    e.SetValor("PRECIOMAX", Variant("abc"));
    EXPECT_EQ(e.PRECIOMAX, 0.0);
}

TEST(EntidadArticulo, SetValorOfLettersOnADateStoresTheZeroDate) {
    entarticulo e;
    e.FECHA_REAL = Date::FromParts(2024, 1, 1);
    e.SetValor("FECHA_REAL", Variant("abc"));
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
}

TEST(EntidadArticulo, SetValorReadsTheDecimalCommaOfTheHost) {
    entarticulo e;
    e.SetValor("PRECIOMAX", Variant("12,5"));
    EXPECT_DOUBLE_EQ(e.PRECIOMAX, 12.5);
    e.SetValor("PRECIOMAX", Variant(12.5));
    EXPECT_DOUBLE_EQ(e.PRECIOMAX, 12.5);
    e.SetValor("PRECIOMAX", Variant("1.234,5"));
    EXPECT_DOUBLE_EQ(e.PRECIOMAX, 1234.5);
}

TEST(EntidadArticulo, SetValorTakesAPointForAGroupSeparator) {
    entarticulo e;
    e.SetValor("PRECIOMAX", Variant("12.5"));
    EXPECT_DOUBLE_EQ(e.PRECIOMAX, 125);
}

TEST(EntidadArticulo, SetValorOnAnIntegerRoundsHalfToEven) {
    entarticulo e;
    e.SetValor("CD_OP", Variant("2,5"));
    EXPECT_EQ(e.CD_OP, 2);
    e.SetValor("CD_OP", Variant("3,5"));
    EXPECT_EQ(e.CD_OP, 4);
    e.SetValor("CD_OP", Variant(7.5));
    EXPECT_EQ(e.CD_OP, 8);
}

TEST(EntidadArticulo, SetValorOfAnIntegerAboveTheRangeRaisesOverflow) {
    entarticulo e;
    Error err = Capturar([&] { e.SetValor("CD_OP", Variant("2147483648")); });
    EXPECT_EQ(err.Number, 6);
    EXPECT_EQ(err.Source, "articuloIEntidad_SetValor");
    Error err2 = Capturar([&] { e.SetValorIndice(4, Variant("3000000000")); });
    EXPECT_EQ(err2.Number, 6);
    EXPECT_EQ(err2.Source, "articuloIEntidad_SetValorIndice");
    EXPECT_EQ(e.CD_OP, 0);
}

TEST(EntidadArticulo, SetValorOfNullOnAStringRaisesInvalidUseOfNull) {
    entarticulo e;
    Error err = Capturar([&] { e.SetValor("DESC_CORTA", Variant::Null()); });
    EXPECT_EQ(err.Number, 94);
    EXPECT_EQ(err.Source, "articuloIEntidad_SetValor");
    Error err2 = Capturar([&] { e.SetValor("CD_OP", Variant::Null()); });
    EXPECT_EQ(err2.Number, 94);
}

TEST(EntidadArticulo, SetValorOfNullOnADateStoresTheZeroDate) {
    entarticulo e;
    e.FECHA_REAL = Date::FromParts(2024, 1, 1);
    e.SetValor("FECHA_REAL", Variant::Null());
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
}

TEST(EntidadArticulo, SetValorOfADateTextStoresThatDate) {
    entarticulo e;
    e.SetValor("fecha_real", Variant("15/03/2024"));
    EXPECT_EQ(e.FECHA_REAL, Date::FromParts(2024, 3, 15));
}

TEST(EntidadArticulo, SetValorOfAStringStoresItsTextUntrimmed) {
    entarticulo e;
    e.SetValor("DESC_CORTA", Variant("  a b  "));
    EXPECT_EQ(e.DESC_CORTA, "  a b  ");
    e.SetValor("DESC_CORTA", Variant(12.5));
    EXPECT_EQ(e.DESC_CORTA, "12,5");
}

TEST(EntidadArticulo, SetValorIndiceStoresByIndex) {
    entarticulo e;
    e.SetValorIndice(1, Variant("5"));
    e.SetValorIndice(6, Variant("A1"));
    EXPECT_EQ(e.COD_TRANSACC, 5);
    EXPECT_EQ(e.CD_ARTICULO, "A1");
}

TEST(EntidadArticulo, PrefixedNamesReachTheSameOperations) {
    entarticulo e;
    e.IEntidad_SetValor("CD_ARTICULO", Variant("X"));
    EXPECT_EQ(e.IEntidad_GetValor("cd_articulo"), Variant("X"));
    EXPECT_EQ(e.IEntidad_GetNombreCampo(6), "CD_ARTICULO");
    EXPECT_EQ(e.IEntidad_NumCampos(), 12);
    e.IEntidad_SetValorIndice(12, Variant("corta"));
    EXPECT_EQ(e.IEntidad_GetValorIndice(12), Variant("corta"));
}

TEST(EntidadArticulo, TheEntityIsReachedThroughTheContract) {
    auto e = std::make_shared<entarticulo>();
    std::shared_ptr<IEntidad> contrato = e;
    contrato->SetValor("DESC_ARTICULO", Variant("Agua"));
    EXPECT_EQ(e->DESC_ARTICULO, "Agua");
    EXPECT_EQ(contrato->NumCampos(), 12);
}

TEST(Contratos, AContractObjectDoesNothingAndRaisesNothing) {
    IEntidad e;
    EXPECT_TRUE(e.GetValor("x").IsEmpty());
    EXPECT_TRUE(e.GetValorIndice(1).IsEmpty());
    EXPECT_EQ(e.NumCampos(), 0);
    EXPECT_EQ(e.GetNombreCampo(1), "");
    EXPECT_NO_THROW(e.SetValor("x", Variant(1)));
    EXPECT_NO_THROW(e.SetValorIndice(1, Variant(1)));
    EXPECT_EQ(e.Nombre(), "");
    IListaEntidades l;
    EXPECT_EQ(l.Nombre(), "");
    EXPECT_EQ(l.Tabla(), "");
    EXPECT_EQ(l.NewEntidad(), nullptr);
    IDataAdapter a;
    EXPECT_EQ(a.TypeName(), "IDataAdapter");
}
