// The adapter registry: the ten tables by property and by name, created on
// first use with the connection of that moment.
#include <gtest/gtest.h>

#include "base_db.h"
#include "ZARODatos/tables/DataAdapters.h"

using namespace zaro_tablas;

namespace {

const std::vector<std::string> kTablas = {"_definicion_campos", "articulo", "fin_dia", "inicio_dia",
                                          "resumen_diario", "resumen_diario_detalle", "ticket", "ticket_articulo",
                                          "ticket_impuesto", "ticket_pago"};

// Each property of the registry, in the order of Tablas.
std::vector<std::shared_ptr<AdapterBase>> Propiedades(DataAdapters& r) {
    return {r.definicion_campos(), r.articulo(),  r.fin_dia(),         r.inicio_dia(),      r.resumen_diario(),
            r.resumen_diario_detalle(), r.ticket(), r.ticket_articulo(), r.ticket_impuesto(), r.ticket_pago()};
}

std::vector<std::string> Nombres(const CollectionRef& c) {
    std::vector<std::string> r;
    for (const Variant& v : *c) r.push_back(v.Get<std::string>());
    return r;
}

}  // namespace

TEST(DataAdapters, TablasListsTheTenTablesInAFixedOrderInANewCollectionEachTime) {
    DataAdapters r;
    CollectionRef a = r.Tablas();
    EXPECT_EQ(Nombres(a), kTablas);
    EXPECT_NE(r.Tablas(), a);
}

TEST(DataAdapters, EachPropertyServesTheAdapterOfItsTable) {
    DataAdapters r;
    auto adapters = Propiedades(r);
    for (size_t i = 0; i < kTablas.size(); ++i) {
        ASSERT_NE(adapters[i], nullptr);
        EXPECT_EQ(adapters[i]->Tabla(), kTablas[i]);
        EXPECT_EQ(adapters[i]->TypeName(), "da" + kTablas[i]);
    }
}

TEST(DataAdapters, APropertyAskedTwiceReturnsTheSameObject) {
    DataAdapters r;
    EXPECT_EQ(r.articulo(), r.articulo());
    auto primera = Propiedades(r);
    EXPECT_EQ(Propiedades(r), primera);
}

TEST(DataAdapters, DataAdapterArticuloReturnsTheSameObjectAsTheProperty) {
    DataAdapters r;
    std::string nombre = "articulo";
    EXPECT_EQ(r.DataAdapter(nombre), std::static_pointer_cast<IDataAdapter>(r.articulo()));
}

TEST(DataAdapters, EveryNameOfTablasIsAcceptedByDataAdapterAndGivesThePropertysObject) {
    DataAdapters r;
    std::vector<std::string> nombres = Nombres(r.Tablas());
    ASSERT_EQ(nombres.size(), 10u);
    auto adapters = Propiedades(r);
    for (size_t i = 0; i < nombres.size(); ++i)
        EXPECT_EQ(r.DataAdapter(nombres[i]), std::static_pointer_cast<IDataAdapter>(adapters[i])) << nombres[i];
}

TEST(DataAdapters, DataAdapterTakesTheFieldDefinitionsWithTheirUnderscoreOnly) {
    DataAdapters r;
    std::string con = "_definicion_campos", sin = "definicion_campos";
    EXPECT_EQ(r.DataAdapter(con), std::static_pointer_cast<IDataAdapter>(r.definicion_campos()));
    EXPECT_EQ(r.DataAdapter(sin), nullptr);
}

TEST(DataAdapters, DataAdapterOfANameInCapitalsOrEmptyOrUnknownGivesNoObject) {
    DataAdapters r;
    for (std::string n : {"ARTICULO", "Articulo", "", "articulos", " articulo"}) EXPECT_EQ(r.DataAdapter(n), nullptr);
}

TEST(DataAdapters, DataAdapterCreatesTheAdapterWhenItIsFirstAsked) {
    DataAdapters r;
    std::string nombre = "ticket_pago";
    auto porNombre = r.DataAdapter(nombre);
    ASSERT_NE(porNombre, nullptr);
    EXPECT_EQ(porNombre->TypeName(), "daticket_pago");
    EXPECT_EQ(std::static_pointer_cast<IDataAdapter>(r.ticket_pago()), porNombre);
}

TEST(DataAdapters, AnAdapterCreatedWithoutAConnectionHasNoneAndThatIsNoError) {
    DataAdapters r;
    EXPECT_EQ(r.Conexion, nullptr);
    auto da = r.ticket();
    ASSERT_NE(da, nullptr);
    EXPECT_EQ(da->Conexion, nullptr);
}

TEST(DataAdapters, TheConnectionReachesAnAdapterOnlyAtItsCreationUntilLiberarMemoria) {
    DataAdapters r;
    auto primera = std::make_shared<ADODB::Connection>();
    auto segunda = std::make_shared<ADODB::Connection>();
    r.Conexion = primera;
    auto articulo = r.articulo();
    EXPECT_EQ(articulo->Conexion, primera);
    r.Conexion = segunda;
    EXPECT_EQ(r.articulo()->Conexion, primera);
    EXPECT_EQ(r.ticket()->Conexion, segunda) << "created after the change";
    r.LiberarMemoria();
    EXPECT_EQ(r.Conexion, segunda);
    auto nuevo = r.articulo();
    EXPECT_NE(nuevo, articulo);
    EXPECT_EQ(nuevo->Conexion, segunda);
    EXPECT_EQ(articulo->Conexion, primera) << "the adapter a caller holds keeps working as it was";
}

TEST(DataAdapters, LiberarMemoriaGivesFreshAdaptersWithAnEmptyLogAndTheDefaultOrderBy) {
    DataAdapters r;
    auto viejo = r.ticket_impuesto();
    viejo->OrderBy = "propio";
    viejo->LogSQL = std::make_shared<Collection>();
    viejo->LogSQL->Add(Variant("algo"));
    r.LiberarMemoria();
    auto nuevo = r.ticket_impuesto();
    EXPECT_NE(nuevo, viejo);
    EXPECT_EQ(nuevo->LogSQL, nullptr);
    EXPECT_EQ(nuevo->OrderBy, CasoDe("ticket_impuesto").esp.OrderBy);
    EXPECT_EQ(viejo->OrderBy, "propio");
}

class DataAdaptersDb : public PorRoad {};

INSTANTIATE_TEST_SUITE_P(Roads, DataAdaptersDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

TEST_P(DataAdaptersDb, EveryAdapterOfTheRegistryWorksOnTheRegistrysConnection) {
    DataAdapters r;
    r.Conexion = cn;
    for (const CasoTabla* caso : Casos()) {
        std::string nombre = caso->esp.Tabla;
        auto da = std::dynamic_pointer_cast<AdapterBase>(r.DataAdapter(nombre));
        ASSERT_NE(da, nullptr) << nombre;
        EXPECT_EQ(da->Conexion, cn);
        PrepararTabla(*caso, *da);
        caso->Insert(*da, *caso->Muestra());
        EXPECT_EQ(Filas(nombre), 1) << nombre;
        EXPECT_EQ(Log(*da), std::vector<std::string>{caso->esp.Insert}) << nombre;
    }
}
