// The list queries when the new list they answer cannot be made: each carries
// on past the failure, answers no object and leaves the list it ran on as it was.
#include <gtest/gtest.h>

#include "falla_memoria.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

namespace {

std::shared_ptr<colarticulo> TresArticulos() {
    auto l = std::make_shared<colarticulo>();
    for (const char* cd : {"C", "A", "B"}) l->Add(cd);
    return l;
}

std::vector<std::string> Codigos(colarticulo& l) {
    std::vector<std::string> r;
    for (int32_t i = 1; i <= l.Count(); ++i) r.push_back(l.Item(i)->CD_ARTICULO);
    return r;
}

}  // namespace

TEST(ListQueriesOutOfMemory, OrderByWhoseNewListCannotBeMadeAnswersNoObjectAndLeavesTheListAsItWas) {
    auto l = TresArticulos();
    std::string campo = "CD_ARTICULO";
    bool descendente = false;
    zaro_tablas::FallarProximaReserva();
    EXPECT_EQ(l->OrderBy(campo, descendente), nullptr);
    EXPECT_EQ(Codigos(*l), (std::vector<std::string>{"C", "A", "B"}));
    EXPECT_EQ(Codigos(*l->OrderBy(campo, descendente)), (std::vector<std::string>{"A", "B", "C"}));
}

TEST(ListQueriesOutOfMemory, WhereWhoseNewListCannotBeMadeAnswersNoObject) {
    auto l = TresArticulos();
    std::string campo = "CD_ARTICULO", valor = "a";
    zaro_tablas::FallarProximaReserva();
    EXPECT_EQ(l->Where(campo, valor), nullptr);
    EXPECT_EQ(l->Count(), 3);
    EXPECT_EQ(Codigos(*l->Where(campo, valor)), (std::vector<std::string>{"A"}));
}

TEST(ListQueriesOutOfMemory, WhereDelegadoWhoseNewListCannotBeMadeStillOffersEveryElementAndAnswersNoObject) {
    auto l = TresArticulos();
    int ofrecidos = 0;
    l->DelegadoEvaluaElementoWhere.Attach([&](std::string&, std::shared_ptr<entarticulo>&, bool& resultado) {
        ++ofrecidos;
        resultado = true;
    });
    std::string id = "todos";
    zaro_tablas::FallarProximaReserva();
    EXPECT_EQ(l->WhereDelegado(id), nullptr);
    EXPECT_EQ(ofrecidos, 3);
    EXPECT_EQ(l->Count(), 3);
}
