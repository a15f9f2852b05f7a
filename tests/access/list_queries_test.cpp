// The seven list queries: sorting, filtering and totals in memory.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

namespace {

// An entity of the test's own: one field "v" that counts its reads.
class Contador : public IEntidad {
public:
    explicit Contador(Variant v, int* lecturas) : valor(std::move(v)), lecturas_(lecturas) {}
    Variant GetValor(ByRef<std::string>) override {
        ++*lecturas_;
        return valor;
    }
    std::string TypeName() const override { return "Contador"; }
    Variant valor;

private:
    int* lecturas_;
};

class ListaContador : public EntityList<ListaContador, Contador> {};

std::shared_ptr<ListaContador> ListaDe(std::initializer_list<Variant> valores, int* lecturas) {
    auto l = std::make_shared<ListaContador>();
    for (const Variant& v : valores) l->Anexar(std::make_shared<Contador>(v, lecturas));
    return l;
}

std::string Codigos(colarticulo& l) {
    std::string r;
    for (const auto& e : l) r += e->CD_ARTICULO + ",";
    return r;
}

}  // namespace

TEST(OrderBy, CallsGetValorTwiceCountTimesCountMinusOne) {
    for (int n : {2, 3, 7, 20}) {
        int lecturas = 0;
        auto l = std::make_shared<ListaContador>();
        for (int i = 0; i < n; ++i) l->Anexar(std::make_shared<Contador>(Variant(n - i), &lecturas));
        auto ordenada = l->OrderBy("v");
        EXPECT_EQ(lecturas, 2 * n * (n - 1)) << n;
        EXPECT_EQ(ordenada->Count(), n);
    }
}

TEST(OrderBy, OnAListOfOneElementReturnsANewListWithItAndComparesNothing) {
    int lecturas = 0;
    auto l = ListaDe({Variant(1)}, &lecturas);
    auto ordenada = l->OrderBy("v");
    EXPECT_NE(ordenada, l);
    ASSERT_EQ(ordenada->Count(), 1);
    EXPECT_EQ(ordenada->Item(1), l->Item(1));
    EXPECT_EQ(lecturas, 0);
}

TEST(OrderBy, SortedInputStillTakesEveryPass) {
    int lecturas = 0;
    auto l = ListaDe({Variant(1), Variant(2), Variant(3), Variant(4)}, &lecturas);
    l->OrderBy("v");
    EXPECT_EQ(lecturas, 2 * 4 * 3);
}

TEST(OrderBy, TwoElementsDifferingOnlyInCaseKeepTheirOrderBothWays) {
    colarticulo l;
    l.Add("1", 0, {}, {}, 0, 0, {}, 0, 0, 0, "abc");
    l.Add("2", 0, {}, {}, 0, 0, {}, 0, 0, 0, "ABC");
    EXPECT_EQ(Codigos(*l.OrderBy("DESC_ARTICULO")), "1,2,");
    EXPECT_EQ(Codigos(*l.OrderBy("DESC_ARTICULO", true)), "1,2,");
}

TEST(OrderBy, TiesKeepTheirOrderInBothDirections) {
    colarticulo l;
    l.Add("a", 0, {}, {}, 1);
    l.Add("b", 0, {}, {}, 2);
    l.Add("c", 0, {}, {}, 1);
    l.Add("d", 0, {}, {}, 2);
    EXPECT_EQ(Codigos(*l.OrderBy("CD_OP")), "a,c,b,d,");
    EXPECT_EQ(Codigos(*l.OrderBy("CD_OP", true)), "b,d,a,c,");
}

TEST(OrderBy, LeavesTheOldListInItsOrderAndSharesTheEntities) {
    colarticulo l;
    l.Add("B");
    l.Add("A");
    auto ordenada = l.OrderBy("CD_ARTICULO");
    EXPECT_EQ(Codigos(l), "B,A,");
    EXPECT_EQ(Codigos(*ordenada), "A,B,");
    ordenada->Item(1)->DESC_CORTA = "visto";
    EXPECT_EQ(l.Item(2)->DESC_CORTA, "visto");
}

TEST(OrderBy, AStringFieldSortsAsTextAndAnIntegerFieldAsNumbers) {
    colarticulo l;
    l.Add("10", 0, {}, {}, 10);
    l.Add("9", 0, {}, {}, 9);
    EXPECT_EQ(Codigos(*l.OrderBy("CD_ARTICULO")), "10,9,");
    EXPECT_EQ(Codigos(*l.OrderBy("CD_OP")), "9,10,");
}

TEST(OrderBy, AnUnknownFieldKeepsTheOldOrder) {
    colarticulo l;
    l.Add("B");
    l.Add("A");
    EXPECT_EQ(Codigos(*l.OrderBy("NO_EXISTE")), "B,A,");
}

TEST(OrderBy, AnEmptyFieldNameSortsOnTheChosenField) {
    colarticulo l;
    l.Add("1", 0, {}, {}, 0, 0, {}, 0, 0, 0, "zeta");
    l.Add("2", 0, {}, {}, 0, 0, {}, 0, 0, 0, "alfa");
    EXPECT_EQ(Codigos(*l.OrderBy("")), "2,1,");
}

TEST(OrderBy, NullValuesNeverSwapAndANumberSortsBeforeAString) {
    int lecturas = 0;
    auto l = ListaDe({Variant::Null(), Variant(3), Variant("b"), Variant(1), Variant::Null()}, &lecturas);
    auto r = l->OrderBy("v");
    std::vector<Variant> valores;
    for (const auto& e : *r) valores.push_back(e->valor);
    // A null stops a swap past it: [Null, 3, "b", 1, Null] -> [Null, 1, 3, "b", Null].
    ASSERT_EQ(valores.size(), 5u);
    EXPECT_TRUE(valores[0].IsNull());
    EXPECT_EQ(valores[1], Variant(1));
    EXPECT_EQ(valores[2], Variant(3));
    EXPECT_EQ(valores[3], Variant("b"));
    EXPECT_TRUE(valores[4].IsNull());
}

TEST(OrderBy, EmptyListGivesANewEmptyList) {
    colarticulo l;
    auto r = l.OrderBy("CD_OP");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->Count(), 0);
}

TEST(Where, FindsAStringIgnoringCase) {
    colarticulo l;
    l.Add("ABC");
    l.Add("X");
    auto r = l.Where("CD_ARTICULO", "abc");
    ASSERT_EQ(r->Count(), 1);
    EXPECT_EQ(r->Item(1)->CD_ARTICULO, "ABC");
}

TEST(Where, OnAnIntegerFieldMatchesItsTextOnly) {
    colarticulo l;
    l.Add("A", 0, {}, {}, 12);
    EXPECT_EQ(l.Where("CD_OP", "12")->Count(), 1);
    EXPECT_EQ(l.Where("CD_OP", "12.0")->Count(), 0);
}

TEST(Where, ADoubleMatchesItsTextInTheLocalesFormAndADateItsShortForm) {
    colarticulo l;
    l.Add("A", 0, Date::FromParts(2026, 3, 1), {}, 0, 0, {}, 0, 0, 1.5);
    EXPECT_EQ(l.Where("PRECIOMAX", "1,5")->Count(), 1);
    EXPECT_EQ(l.Where("PRECIOMAX", "1.5")->Count(), 0);
    EXPECT_EQ(l.Where("FECHA_REAL", "01/03/2026")->Count(), 1);
    EXPECT_EQ(l.Where("FECHA_REAL", "2026-03-01")->Count(), 0);
}

TEST(Where, AnUnknownFieldMatchesOnlyTheErrorLiteralInAnyCase) {
    colarticulo l;
    l.Add("A");
    EXPECT_EQ(l.Where("NO_EXISTE", "x")->Count(), 0);
    EXPECT_EQ(l.Where("NO_EXISTE", "#error#")->Count(), 1);
}

TEST(Where, ANullValueNeverMatches) {
    int lecturas = 0;
    auto l = ListaDe({Variant::Null(), Variant("")}, &lecturas);
    EXPECT_EQ(l->Where("v", "")->Count(), 1);
}

TEST(WhereDelegado, WithNoHandlerReturnsAnEmptyList) {
    colarticulo l;
    l.Add("A");
    l.Add("B");
    auto r = l.WhereDelegado("p");
    ASSERT_TRUE(r);
    EXPECT_EQ(r->Count(), 0);
}

TEST(WhereDelegado, AnAnswerThatIsNeverResetKeepsTheElementAndAllThatFollow) {
    colarticulo l;
    l.Add("A");
    l.Add("B");
    l.Add("C");
    l.DelegadoEvaluaElementoWhere.Attach([](std::string& id, std::shared_ptr<entarticulo>& elem, bool& resultado) {
        EXPECT_EQ(id, "proceso");
        if (elem->CD_ARTICULO == "B") resultado = true;
    });
    EXPECT_EQ(Codigos(*l.WhereDelegado("proceso")), "B,C,");
}

TEST(WhereDelegado, AHandlerThatAnswersEveryTimeFilters) {
    colarticulo l;
    l.Add("A", 0, {}, {}, 1);
    l.Add("B", 0, {}, {}, 2);
    l.Add("C", 0, {}, {}, 1);
    l.DelegadoEvaluaElementoWhere.Attach(
        [](std::string&, std::shared_ptr<entarticulo>& elem, bool& resultado) { resultado = elem->CD_OP == 1; });
    auto r = l.WhereDelegado("x");
    EXPECT_EQ(Codigos(*r), "A,C,");
    // The new list is a fresh object: no handler of the old list is attached.
    EXPECT_EQ(r->DelegadoEvaluaElementoWhere.HandlerCount(), 0u);
}

TEST(WhereDelegado, AFailingHandlerIsSkipped) {
    colarticulo l;
    l.Add("A");
    l.Add("B");
    l.DelegadoEvaluaElementoWhere.Attach([](std::string&, std::shared_ptr<entarticulo>& elem, bool& resultado) {
        if (elem->CD_ARTICULO == "A") throw Error(5, "host", "fallo");
        resultado = true;
    });
    EXPECT_EQ(Codigos(*l.WhereDelegado("x")), "B,");
}

TEST(Totales, MaximoOfNegativeValuesIsZeroAndMinimoOfPositiveValuesIsZero) {
    colarticulo l;
    l.Add("A", 0, {}, {}, -1);
    l.Add("B", 0, {}, {}, -2);
    EXPECT_EQ(l.ObtenerMaximo("CD_OP"), 0);
    EXPECT_EQ(l.ObtenerMinimo("CD_OP"), -2);
    colarticulo p;
    p.Add("A", 0, {}, {}, 1);
    p.Add("B", 0, {}, {}, 2);
    EXPECT_EQ(p.ObtenerMinimo("CD_OP"), 0);
    EXPECT_EQ(p.ObtenerMaximo("CD_OP"), 2);
}

TEST(Totales, AllFourOfAnEmptyListAreZero) {
    colarticulo l;
    EXPECT_EQ(l.ObtenerSuma("CD_OP"), 0);
    EXPECT_EQ(l.ObtenerMedia("CD_OP"), 0);
    EXPECT_EQ(l.ObtenerMaximo("CD_OP"), 0);
    EXPECT_EQ(l.ObtenerMinimo("CD_OP"), 0);
}

TEST(Totales, SumaOverATextFieldReadsTheDecimalComma) {
    colarticulo l;
    l.Add("A", 0, {}, {}, 0, 0, {}, 0, 0, 0, "1.234,5");
    EXPECT_DOUBLE_EQ(l.ObtenerSuma("DESC_ARTICULO"), 1234.5);
}

TEST(Totales, SumaAndMediaOfDoubles) {
    colarticulo l;
    l.Add("A", 0, {}, {}, 0, 0, {}, 0, 0, 1.5);
    l.Add("B", 0, {}, {}, 0, 0, {}, 0, 0, 2.25);
    l.Add("C");
    EXPECT_DOUBLE_EQ(l.ObtenerSuma("PRECIOMAX"), 3.75);
    EXPECT_DOUBLE_EQ(l.ObtenerMedia("PRECIOMAX"), 1.25);
}

TEST(Totales, DatesAndNonNumericTextAndTheErrorLiteralCountAsZero) {
    colarticulo l;
    l.Add("A", 0, Date::FromParts(2026, 3, 1));
    EXPECT_EQ(l.ObtenerSuma("FECHA_REAL"), 0);
    EXPECT_EQ(l.ObtenerSuma("CD_ARTICULO"), 0);
    EXPECT_EQ(l.ObtenerSuma("NO_EXISTE"), 0);
}

TEST(Totales, ANullValueAddsNothingButCountsInTheMean) {
    int lecturas = 0;
    auto l = ListaDe({Variant(4), Variant::Null()}, &lecturas);
    EXPECT_EQ(l->ObtenerSuma("v"), 4);
    EXPECT_EQ(l->ObtenerMedia("v"), 2);
}

TEST(Totales, ANullValueKeepsThePreviousElementsValueForMaximoAndMinimo) {
    int lecturas = 0;
    auto l = ListaDe({Variant(-3), Variant::Null(), Variant(5)}, &lecturas);
    EXPECT_EQ(l->ObtenerMinimo("v"), -3);
    EXPECT_EQ(l->ObtenerMaximo("v"), 5);
}

TEST(Totales, ADoubleWrittenWithAPointByTheLocaleLosesItsPoint) {
    HostLocale antes = HostLocale::Current();
    HostLocale punto = antes;
    punto.DecimalSeparator = '.';
    punto.GroupSeparator = ',';
    HostLocale::Set(punto);
    colarticulo l;
    l.Add("A", 0, {}, {}, 0, 0, {}, 0, 0, 12.5);
    double suma = l.ObtenerSuma("PRECIOMAX");
    HostLocale::Set(antes);
    EXPECT_DOUBLE_EQ(suma, 125);
}
