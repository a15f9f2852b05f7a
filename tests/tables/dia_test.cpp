// The start and the end of a trading day: two tables, one description. One
// test body over both; each table keeps its own adapter and rows.
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_fin_dia.h"
#include "expected_inicio_dia.h"

using namespace zaro_tablas;

namespace {

std::vector<const CasoTabla*> LosDias() { return {&CasoDe("inicio_dia"), &CasoDe("fin_dia")}; }

class Dias : public ::testing::TestWithParam<const CasoTabla*> {
protected:
    const CasoTabla& caso = *GetParam();
};

class DiasDb : public CasoDb {
protected:
    void SetUp() override {
        AbrirConAdapter();
        ASSERT_TRUE(da->CrearTabla());
    }
    void Poner(IEntidad& e, std::string campo, Variant v) { e.SetValor(campo, v); }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Ambos, Dias, ::testing::ValuesIn(LosDias()), NombreDeCaso);
INSTANTIATE_TEST_SUITE_P(Ambos, DiasDb,
                         ::testing::Combine(::testing::ValuesIn(LosDias()), ::testing::ValuesIn(zaro_test::AllRoads())),
                         NombreCasoDb);

TEST(Dia, TheTwoTablesShareTheirFieldsAndDifferInTheirNames) {
    entinicio_dia inicio;
    entfin_dia fin;
    EXPECT_EQ(inicio.Nombre(), "inicio_dia");
    EXPECT_EQ(fin.Nombre(), "fin_dia");
    for (int16_t i = 1; i <= 6; ++i) EXPECT_EQ(inicio.GetNombreCampo(i), fin.GetNombreCampo(i));
    EXPECT_EQ(dainicio_dia().TypeName(), "dainicio_dia");
    EXPECT_EQ(dafin_dia().TypeName(), "dafin_dia");
    EXPECT_EQ(colfin_dia().TypeName(), "colfin_dia");
}

TEST_P(Dias, CamposOkFailsOnCodTransacc0CdOp0OrTheZeroAccountingDateButNotWithoutFechaReal) {
    auto da = caso.NuevoAdapter();
    auto e = caso.Muestra();
    Variant cero_fecha(Date{});
    std::string real = "FECHA_REAL";
    e->SetValor(real, cero_fecha);
    std::string mensajes;
    EXPECT_TRUE(caso.CamposOk(*da, *e, mensajes));
    for (std::string campo : {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE"}) {
        auto f = caso.Muestra();
        Variant cero = campo == "FECHA_CONTABLE" ? Variant(Date{}) : Variant(int32_t{0});
        f->SetValor(campo, cero);
        EXPECT_FALSE(caso.CamposOk(*da, *f, mensajes)) << campo;
        EXPECT_EQ(mensajes, "\r\n\r\n\tEl campo [" + campo + "] es obligatorio.\r\n");
    }
}

TEST_P(Dias, ItemClaveTakesCdOpFirstWhereAddAndTheKeyBeginWithCodTransacc) {
    auto l = caso.NuevaLista();
    auto e = caso.AddRequeridos(*l, *caso.Muestra());
    EXPECT_EQ(caso.ItemClave(*l, *caso.Muestra()), e);
    colinicio_dia inicio;
    Date dia = Date::FromParts(2026, 3, 1);
    auto x = inicio.Add(1, 2, dia);  // COD_TRANSACC 1, CD_OP 2
    EXPECT_EQ(inicio.ItemClave(2, 1, dia), x);
    EXPECT_EQ(inicio.ItemClave(1, 2, dia), nullptr);
}

TEST_P(DiasDb, AnEntityWithoutFechaRealIsWrittenWithTheTextOfTheZeroDate) {
    auto e = caso.Muestra();
    Poner(*e, "FECHA_REAL", Variant(Date{}));
    caso.Insert(*da, *e);
    EXPECT_NE(Log(*da).back().find("'1899-12-30'"), std::string::npos);
    EXPECT_EQ(Leer("select date_format(FECHA_REAL, '%Y-%m-%d') from " + caso.esp.Tabla), Variant("1899-12-30"));
}

TEST_P(DiasDb, UpdateChangesOnlyTheTimeStampAndAnotherCdOpAddressesAnotherRow) {
    auto e = caso.Muestra();
    caso.Insert(*da, *e);
    auto cambio = caso.Muestra();
    Poner(*cambio, "HORA_REAL", Variant("2359"));
    Poner(*cambio, "FECHA_REAL", Variant(Date::FromParts(2026, 4, 1)));
    caso.Update(*da, *cambio);
    auto leida = caso.Entidad(*da, *e);
    std::string hora = "HORA_REAL";
    EXPECT_EQ(leida->GetValor(hora), Variant("2359"));
    auto otro = caso.Muestra();
    Poner(*otro, "CD_OP", Variant(int32_t{999}));
    Poner(*otro, "HORA_REAL", Variant("0000"));
    caso.Update(*da, *otro);
    EXPECT_EQ(caso.Entidad(*da, *e)->GetValor(hora), Variant("2359"));
    EXPECT_EQ(Filas(caso.esp.Tabla), 1);
}

TEST_P(DiasDb, ASecondInsertForTheSameOperatorTransactionAndDateRaisesWithTheThreeKeyLines) {
    auto e = caso.Muestra();
    caso.Insert(*da, *e);
    Error err = Capturar([&] { caso.Insert(*da, *caso.Muestra()); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Description, "El registro ya existe.\r\n\r\n\tCOD_TRANSACC = 101\r\n\tCD_OP = 104\r\n"
                               "\tFECHA_CONTABLE = 06/03/2026\r\n  ");
}

TEST_P(DiasDb, ExisteComparesTheAccountingDateByDayWhileItemClaveComparesTheFullDate) {
    auto e = caso.Muestra();
    caso.Insert(*da, *e);
    auto conHora = caso.Muestra();
    Poner(*conHora, "FECHA_CONTABLE", Variant(Date::FromParts(2026, 3, 6, 9, 15, 0)));
    EXPECT_TRUE(caso.Existe(*da, *conHora));
    auto l = caso.NuevaLista();
    caso.AddEntidad(*l, e);
    EXPECT_EQ(caso.ItemClave(*l, *conHora), nullptr);
    EXPECT_EQ(caso.ItemClave(*l, *caso.Muestra()), e);
}

TEST_P(DiasDb, TheAdaptersAreIndependentOfEachOther) {
    const CasoTabla& otro = caso.esp.Tabla == "inicio_dia" ? CasoDe("fin_dia") : CasoDe("inicio_dia");
    auto daOtro = otro.NuevoAdapter();
    daOtro->Conexion = cn;
    ASSERT_TRUE(daOtro->CrearTabla());
    caso.Insert(*da, *caso.Muestra());
    EXPECT_EQ(Filas(otro.esp.Tabla), 0);
    EXPECT_FALSE(otro.Existe(*daOtro, *otro.Muestra()));
    otro.Insert(*daOtro, *otro.Muestra());
    EXPECT_EQ(Filas(caso.esp.Tabla), 1);
    EXPECT_EQ(daOtro->LogSQL->Count(), 1);
    EXPECT_EQ(da->LogSQL->Count(), 1);
}
