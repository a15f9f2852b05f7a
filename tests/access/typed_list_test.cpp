// The typed list template, shown on the article list.
#include <gtest/gtest.h>

#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

TEST(ListaArticulo, NombreAndTablaAreTheTableLiteral) {
    colarticulo l;
    EXPECT_EQ(l.IListaEntidades_Nombre(), "articulo");
    EXPECT_EQ(l.IListaEntidades_Tabla(), "articulo");
    EXPECT_EQ(l.TypeName(), "colarticulo");
}

TEST(ListaArticulo, NewEntidadGivesAFreshEntityAndLeavesCountUnchanged) {
    colarticulo l;
    auto e = l.IListaEntidades_NewEntidad();
    ASSERT_TRUE(e);
    EXPECT_EQ(e->Nombre(), "articulo");
    EXPECT_EQ(l.Count(), 0);
}

TEST(ListaArticulo, AddingTwoEqualKeysKeepsBothAndItemClaveFindsTheFirst) {
    colarticulo l;
    auto a = l.Add("A1", 1);
    auto b = l.Add("A1", 2);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.ItemClave("A1"), a);
    l.Remove(1);
    EXPECT_EQ(l.ItemClave("A1"), b);
}

TEST(ListaArticulo, ItemClaveWithAKeyDifferingOnlyInCaseFindsTheElement) {
    colarticulo l;
    auto a = l.Add("ABC");
    EXPECT_EQ(l.ItemClave("abc"), a);
}

TEST(ListaArticulo, ItemClaveOnAnEmptyListOrWithAnUnknownKeyReturnsNoObject) {
    colarticulo l;
    EXPECT_EQ(l.ItemClave("X"), nullptr);
    l.Add("A");
    EXPECT_EQ(l.ItemClave("B"), nullptr);
}

TEST(ListaArticulo, ItemOnAnEmptyListFailsWithTheCollectionsError) {
    colarticulo l;
    try {
        l.Item(1);
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 9);
        EXPECT_EQ(e.Description, "Subscript out of range");
    }
}

TEST(ListaArticulo, ItemWithAStringFailsOnAFullList) {
    colarticulo l;
    l.Add("A1");
    try {
        l.Item(Variant("A1"));
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 5);
    }
    EXPECT_THROW(l.Remove(Variant("A1")), Error);
    EXPECT_EQ(l.Count(), 1);
}

TEST(ListaArticulo, RemoveClosesTheGap) {
    colarticulo l;
    l.Add("A");
    auto b = l.Add("B");
    l.Remove(Variant(1));
    EXPECT_EQ(l.Item(1), b);
    EXPECT_EQ(l.Count(), 1);
}

TEST(ListaArticulo, TheSameEntityAddedTwiceStandsTwiceAndAChangeShowsAtBoth) {
    colarticulo l;
    auto e = std::make_shared<entarticulo>();
    EXPECT_EQ(l.AddEntidad(e), e);
    l.AddEntidad(e);
    EXPECT_EQ(l.Count(), 2);
    l.Item(1)->DESC_CORTA = "cambiado";
    EXPECT_EQ(l.Item(2)->DESC_CORTA, "cambiado");
}

TEST(ListaArticulo, AddWithOnlyTheRequiredArgumentsGivesZerosEmptyStringsAndTheZeroDate) {
    colarticulo l;
    auto e = l.Add("A1");
    EXPECT_EQ(e->CD_ARTICULO, "A1");
    EXPECT_EQ(e->COD_TRANSACC, 0);
    EXPECT_TRUE(e->FECHA_REAL.IsZero());
    EXPECT_EQ(e->HORA_REAL, "");
    EXPECT_EQ(e->PRECIOMAX, 0.0);
}

TEST(ListaArticulo, AddAssignsEveryArgumentToTheFieldOfTheSameName) {
    colarticulo l;
    auto e = l.Add("A1", 5, Date::FromParts(2026, 3, 1), "1030", 2, 1, "gs1", 3, 4, 1.5, "Cafe", "Cafe corto");
    EXPECT_EQ(e->COD_TRANSACC, 5);
    EXPECT_EQ(e->FECHA_REAL, Date::FromParts(2026, 3, 1));
    EXPECT_EQ(e->HORA_REAL, "1030");
    EXPECT_EQ(e->CD_OP, 2);
    EXPECT_EQ(e->TIPO_OPERACION, 1);
    EXPECT_EQ(e->IDARTICOLGS1, "gs1");
    EXPECT_EQ(e->TIPO_FAMILIA, 3);
    EXPECT_EQ(e->TIPO_SUBFAMILIA, 4);
    EXPECT_EQ(e->PRECIOMAX, 1.5);
    EXPECT_EQ(e->DESC_ARTICULO, "Cafe");
    EXPECT_EQ(e->DESC_CORTA, "Cafe corto");
    EXPECT_EQ(l.Item(1), e);
}

TEST(ListaArticulo, EnumerationWalksTheElementsInOrder) {
    colarticulo l;
    l.Add("A");
    l.Add("B");
    l.Add("C");
    std::string codigos;
    for (const auto& e : l) codigos += e->CD_ARTICULO;
    EXPECT_EQ(codigos, "ABC");
}

TEST(ListaArticulo, AddEntidadOfNoObjectAppendsItAsItIs) {
    colarticulo l;
    l.Add("A");
    EXPECT_EQ(l.AddEntidad(std::shared_ptr<entarticulo>()), nullptr);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.Item(2), nullptr);
}

TEST(ListaArticulo, AConstantStringIsAcceptedWhereAnArgumentIsByReference) {
    colarticulo l;
    l.Add("A", 0, {}, {}, 5);
    const std::string campo = "CD_OP";
    EXPECT_EQ(l.ObtenerSuma(campo), 5);
}
