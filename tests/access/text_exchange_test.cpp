// Separated text out of and back into a typed list.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

namespace {
std::shared_ptr<entarticulo> ArticuloDeEjemplo(colarticulo& l) {
    return l.Add("A1", 5, Date::FromParts(2026, 3, 1), "1030", 2, 1, "", 3, 4, 1.5, "Cafe", "Cafe");
}
}  // namespace

TEST(ExportarTexto, OfAnEmptyListReturnsCrLf) {
    daarticulo da;
    colarticulo l;
    EXPECT_EQ(da.ExportarTexto(l, ";"), "\r\n");
}

TEST(ExportarTexto, TheWorkedExampleByteForByte) {
    daarticulo da;
    colarticulo l;
    ArticuloDeEjemplo(l);
    EXPECT_EQ(da.ExportarTexto(l, ";"), "5;01/03/2026;1030;2;1;A1;;3;4;1,5;Cafe;Cafe;\r\n\r\n");
}

TEST(ExportarTexto, OneArticleGivesTwelveValuesTwelveSeparatorsAndTwoCrLf) {
    daarticulo da;
    colarticulo l;
    l.Add("X");
    std::string t = da.ExportarTexto(l, "|");
    EXPECT_EQ(std::count(t.begin(), t.end(), '|'), 12);
    EXPECT_EQ(t, "0|0:00:00||0|0|X||0|0|0|||\r\n\r\n");
}

TEST(ExportarTexto, ASeparatorMayBeLongerThanOneCharacter) {
    daarticulo da;
    colarticulo l;
    l.Add("X");
    l.Add("Y");
    EXPECT_EQ(da.ExportarTexto(l, "<>"),
              "0<>0:00:00<><>0<>0<>X<><>0<>0<>0<><><>\r\n0<>0:00:00<><>0<>0<>Y<><>0<>0<>0<><><>\r\n\r\n");
}

TEST(ImportarTexto, OfAnEmptyTextReturnsAnEmptyList) {
    daarticulo da;
    auto l = da.ImportarTexto("", ";");
    ASSERT_TRUE(l);
    EXPECT_EQ(l->Count(), 0);
}

TEST(ImportarTexto, ALineOfTwoCellsSetsTheFirstTwoFieldsByTheirConversions) {
    daarticulo da;
    auto l = da.ImportarTexto("1;abc", ";");
    ASSERT_EQ(l->Count(), 1);
    auto e = l->Item(1);
    EXPECT_EQ(e->COD_TRANSACC, 1);
    EXPECT_TRUE(e->FECHA_REAL.IsZero());
    EXPECT_EQ(e->CD_ARTICULO, "");
}

TEST(ImportarTexto, SurplusCellsAreIgnored) {
    daarticulo da;
    auto l = da.ImportarTexto("1;01/03/2026;h;2;3;A;g;4;5;1,5;d;c;x;y;z", ";");
    ASSERT_EQ(l->Count(), 1);
    EXPECT_EQ(l->Item(1)->DESC_CORTA, "c");
}

TEST(ImportarTexto, ExportedTextComesBackWithTwoTrailingDefaultEntities) {
    daarticulo da;
    colarticulo l;
    auto original = ArticuloDeEjemplo(l);
    l.Add("B2", 7, Date::FromParts(2024, 12, 31), "2359", 9, 2, "gs1", 10, 11, 12.75, "Bocadillo", "Boc");
    auto vuelta = da.ImportarTexto(da.ExportarTexto(l, ";"), ";");
    ASSERT_EQ(vuelta->Count(), 4);
    for (int i = 1; i <= 2; ++i) {
        auto a = l.Item(i);
        auto b = vuelta->Item(i);
        for (int16_t f = 1; f <= 12; ++f) EXPECT_EQ(a->GetValorIndice(f), b->GetValorIndice(f)) << i << " " << f;
    }
    for (int i = 3; i <= 4; ++i) {
        auto d = vuelta->Item(i);
        EXPECT_EQ(d->CD_ARTICULO, "");
        EXPECT_EQ(d->COD_TRANSACC, 0);
        EXPECT_TRUE(d->FECHA_REAL.IsZero());
    }
}

TEST(ImportarTexto, ABareCrOrLfDoesNotSplit) {
    daarticulo da;
    auto l = da.ImportarTexto("1;x;a\nb\r2", ";");
    ASSERT_EQ(l->Count(), 1);
    EXPECT_EQ(l->Item(1)->HORA_REAL, "a\nb\r2");
}

TEST(ImportarTexto, EmptyLinesAreNotSkipped) {
    daarticulo da;
    auto l = da.ImportarTexto("\r\n\r\n", ";");
    EXPECT_EQ(l->Count(), 3);
}

TEST(ImportarTexto, AWrongSeparatorLeavesOneCellPerLine) {
    daarticulo da;
    auto l = da.ImportarTexto("5;A1;x\r\n", ",");
    ASSERT_EQ(l->Count(), 2);
    // "5;A1;x" read as a number is 0.
    EXPECT_EQ(l->Item(1)->COD_TRANSACC, 0);
}

TEST(ImportarTexto, LettersInNumberCellsStoreZero) {
    daarticulo da;
    auto l = da.ImportarTexto("x;y;z;w", ";");
    EXPECT_EQ(l->Item(1)->COD_TRANSACC, 0);
    EXPECT_EQ(l->Item(1)->CD_OP, 0);
}

TEST(ImportarTexto, AnIntegerCellAboveTheRangeFailsWithOverflow) {
    daarticulo da;
    try {
        da.ImportarTexto("2147483648;", ";");
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 6);
        EXPECT_EQ(e.Source, "daarticulo");
        EXPECT_EQ(e.Description, "Overflow");
    }
    EXPECT_EQ(da.ImportarTexto("2147483647;", ";")->Item(1)->COD_TRANSACC, 2147483647);
}

TEST(ImportarTexto, AnEmptySeparatorKeepsTheWholeLineInTheFirstCell) {
    daarticulo da;
    auto l = da.ImportarTexto("12;A", "");
    EXPECT_EQ(l->Item(1)->COD_TRANSACC, 0);
}

TEST(ImportarTexto, ALargeTextIsReadWithoutFailure) {
    daarticulo da;
    std::string linea = "1;01/03/2026;1030;2;1;A1;;3;4;1,5;Cafe con leche y tostada;Cafe;\r\n";
    std::string texto;
    while (texto.size() < 50u * 1024 * 1024) texto += linea;
    auto l = da.ImportarTexto(texto, ";");
    EXPECT_EQ(l->Count(), static_cast<int32_t>(texto.size() / linea.size()) + 1);
    EXPECT_EQ(l->Item(l->Count() - 1)->DESC_ARTICULO, "Cafe con leche y tostada");
}
