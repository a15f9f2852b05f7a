// What the generic entities share: the quick field-name comparison and the
// error of a failed load.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "generic/Comun.h"

using namespace OVT_ZARO;

TEST(MismoNombre, AgreesWithTheTextComparisonOnEveryPair) {
    const std::vector<std::string> nombres = {
        "", "a", "A", "b", "ab", "AB", "aB", "a_b", "A_B", "ab_", "COD_TRANSACC", "cod_transacc", "cod_transac",
        "count(*)", "COUNT(*)", "x y", "X Y", "xy", "a\x01", "\x01" "a", "a\tb", "ab\x7f", "a-b", "A-B",
        "A\xC3\xB1o", "A\xC3\x91O", "Ano", "ANO", "\xC3\xA1rbol", "\xC3\x81RBOL", "arbol", "ARBOL", "Descripcion",
        "Descripci\xC3\xB3n", "1", "01", "_"};
    for (const std::string& a : nombres) {
        const bool llano = generico::EsNombreLlano(a);
        for (const std::string& b : nombres)
            EXPECT_EQ(generico::MismoNombre(a, llano, b), TextEquals(a, b)) << "[" << a << "] [" << b << "]";
    }
}

TEST(MismoNombre, PlainNamesAreLettersDigitsAndUnderscore) {
    EXPECT_TRUE(generico::EsNombreLlano("COD_TRANSACC1"));
    EXPECT_TRUE(generico::EsNombreLlano(""));
    EXPECT_FALSE(generico::EsNombreLlano("x y"));
    EXPECT_FALSE(generico::EsNombreLlano("count(*)"));
    EXPECT_FALSE(generico::EsNombreLlano("A\xC3\xB1o"));
    EXPECT_FALSE(generico::EsNombreLlano("a\x01"));
}

// The branch stays although reading a column through LeerCampo or
// ValorDeCampo never lets an item-not-found error out.
TEST(RelanzarCarga, TurnsItemNotFoundIntoTheStructureErrorUnderItsOwnSource) {
    try {
        try {
            throw Error(3265, "ADODB.Fields", "Item cannot be found");
        } catch (...) {
            generico::RelanzarCarga("entElemento ", " entEntidadSimple");
        }
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3);
        EXPECT_EQ(e.Source, " entEntidadSimple");
        EXPECT_EQ(e.Description, "La estructura del registro no coincide con la entidad");
    }
}

TEST(RelanzarCarga, KeepsNumberAndDescriptionOfAnyOtherErrorUnderTheOperationSource) {
    try {
        try {
            RaisePlatform(ErrNum::InvalidUseOfNull, "dentro");
        } catch (...) {
            generico::RelanzarCarga("entElemento ", " entEntidadSimple");
        }
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 94);
        EXPECT_EQ(e.Source, "entElemento ");
        EXPECT_EQ(e.Description, "Invalid use of Null");
    }
}
