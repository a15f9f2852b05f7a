// The shared functions of BasTroquel that need no database.
#include <gtest/gtest.h>

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/platform/Error.h"

using namespace OVT_ZARO;
using namespace OVT_ZARO::BasTroquel;

TEST(NormalizarNumero, RemovesPointsAndTurnsCommasIntoPoints) {
    EXPECT_EQ(NormalizarNumero("1.234,56"), "1234.56");
    EXPECT_EQ(NormalizarNumero("12,5"), "12.5");
}

TEST(NormalizarNumero, TakesAPointForAGroupSeparator) { EXPECT_EQ(NormalizarNumero("12.5"), "125"); }

TEST(NormalizarNumero, GivesZeroForAnEmptyTextAndForLetters) {
    EXPECT_EQ(NormalizarNumero(""), "0");
    EXPECT_EQ(NormalizarNumero("abc"), "0");
    EXPECT_EQ(NormalizarNumero("12a"), "0");
}

TEST(NormalizarNumero, LeavesASignedIntegerAsItIs) {
    EXPECT_EQ(NormalizarNumero("-3"), "-3");
    EXPECT_EQ(NormalizarNumero("1E+20"), "1E+20");
}

TEST(ValorPorDefecto, NullGivesTheDefault) {
    EXPECT_EQ(ValorPorDefecto(Variant::Null(), Variant(0)), Variant(0));
}

TEST(ValorPorDefecto, AnEmptyStringGivesTheDefault) {
    EXPECT_EQ(ValorPorDefecto(Variant(""), Variant(7)), Variant(7));
    EXPECT_EQ(ValorPorDefecto(Variant(), Variant(7)), Variant(7));
}

TEST(ValorPorDefecto, ZeroIsAValue) { EXPECT_EQ(ValorPorDefecto(Variant(0), Variant(7)), Variant(0)); }

TEST(ValorPorDefecto, AByteArrayIsReturnedAsItIs) {
    ByteArray vacio;
    EXPECT_EQ(ValorPorDefecto(Variant(vacio), Variant(7)), Variant(vacio));
    ByteArray bytes{1, 2, 3};
    EXPECT_EQ(ValorPorDefecto(Variant(bytes), Variant(7)), Variant(bytes));
}

TEST(ValorPorDefecto, ABlankIsAValue) { EXPECT_EQ(ValorPorDefecto(Variant(" "), Variant(7)), Variant(" ")); }

TEST(NumeroNormalizado, ReadsTheNormalisedTextWithAPointAsDecimal) {
    EXPECT_DOUBLE_EQ(NumeroNormalizado(Variant("1.234,5")), 1234.5);
    EXPECT_DOUBLE_EQ(NumeroNormalizado(Variant(12.5)), 12.5);
    EXPECT_DOUBLE_EQ(NumeroNormalizado(Variant("abc")), 0);
    EXPECT_DOUBLE_EQ(NumeroNormalizado(Variant(true)), 0);
}

TEST(RelanzarError, RaisesTheCurrentErrorWithTheGivenSource) {
    try {
        try {
            throw Error(13, "dentro", "Type mismatch");
        } catch (...) {
            RelanzarError(std::string("EntidadToXML"), int16_t{0});
        }
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 13);
        EXPECT_EQ(e.Source, "EntidadToXML");
        EXPECT_EQ(e.Description, "Type mismatch");
    }
}
