// The deviation the two daily summaries share: idEmpresa, idRestaurante and
// idTPV have no index, no column definition and no place in the select list,
// yet GetValor, SetValor, CargarEntidad, Insert and Update know them. One
// test body over both tables, then what each adds.
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_resumen_diario.h"
#include "expected_resumen_diario_detalle.h"

using namespace zaro_tablas;

namespace {

const std::vector<std::string> kTres = {"idEmpresa", "idRestaurante", "idTPV"};

std::vector<const CasoTabla*> LosResumenes() {
    return {&CasoDe("resumen_diario"), &CasoDe("resumen_diario_detalle")};
}

class Resumenes : public ::testing::TestWithParam<const CasoTabla*> {
protected:
    const CasoTabla& caso = *GetParam();
};

class ResumenesDb : public CasoDb {
protected:
    void SetUp() override {
        AbrirConAdapter();
    }
    // The sample with the three fields set, as a caller sets them.
    std::shared_ptr<IEntidad> ConLosTres() {
        auto e = caso.Muestra();
        int32_t n = 7;
        for (std::string c : kTres) {
            Variant v(n++);
            e->SetValor(c, v);
        }
        return e;
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Ambos, Resumenes, ::testing::ValuesIn(LosResumenes()), NombreDeCaso);
INSTANTIATE_TEST_SUITE_P(Ambos, ResumenesDb,
                         ::testing::Combine(::testing::ValuesIn(LosResumenes()),
                                            ::testing::ValuesIn(zaro_test::AllRoads())),
                         NombreCasoDb);

TEST_P(Resumenes, GetValorAndSetValorReachTheThreeLastFieldsWhileTheIndexBeyondNumCamposAnswersError) {
    auto e = caso.NuevaEntidad();
    int16_t fuera = static_cast<int16_t>(caso.esp.NumCampos + 1);
    for (std::string c : kTres) {
        Variant v(int32_t{42});
        e->SetValor(c, v);
        EXPECT_EQ(e->GetValor(c), Variant(int32_t{42})) << c;
    }
    EXPECT_EQ(e->GetValorIndice(fuera), Variant("#ERROR#"));
    EXPECT_EQ(e->GetNombreCampo(fuera), "#ERROR#");
    e->SetValorIndice(fuera, Variant(int32_t{1}));
    std::string idtpv = "idTPV";
    EXPECT_EQ(e->GetValor(idtpv), Variant(int32_t{42}));
}

TEST_P(Resumenes, TheThreeLastFieldsNeverTravelInTextOrXml) {
    auto da = caso.NuevoAdapter();
    auto l = caso.NuevaLista();
    auto e = caso.AddEntidad(*l, caso.Muestra());
    std::string texto = caso.ExportarTexto(*da, *l, ";");
    EXPECT_EQ(std::count(texto.begin(), texto.end(), ';'), caso.esp.NumCampos);
    auto vuelta = caso.Item(*caso.ImportarTexto(*da, texto, ";"), 1);
    std::string idempresa = "idEmpresa";
    EXPECT_EQ(vuelta->GetValor(idempresa), Variant(int32_t{0}));
    EXPECT_EQ(caso.ToXML(*e, "")->childNodes().size(), static_cast<size_t>(caso.esp.NumCampos));
}

TEST_P(Resumenes, CountsAreIntegersAndAmountsAreDoublesThroughTheNumberRule) {
    auto e = caso.NuevaEntidad();
    std::string cantidad = caso.esp.Tabla == "resumen_diario" ? "N_VENTAS" : "ARTICULOS_V";
    std::string importe = caso.esp.Tabla == "resumen_diario" ? "IMPBRUTO_V" : "IMPBRUTO_VSFZ";
    Variant dos_y_medio("2,5");
    e->SetValor(cantidad, dos_y_medio);
    Variant mil("1.234,5");
    e->SetValor(importe, mil);
    EXPECT_EQ(e->GetValor(importe), Variant(1234.5));
    // The count of sales is a 32-bit integer (2,5 rounds to 2); the quantity of articles a double.
    EXPECT_EQ(e->GetValor(cantidad), caso.esp.Tabla == "resumen_diario" ? Variant(int32_t{2}) : Variant(2.5));
}

TEST_P(ResumenesDb, InsertAndUpdateOnATableTheLibraryMadeFailWithAnUnknownColumn) {
    ASSERT_TRUE(da->CrearTabla());
    auto e = caso.Muestra();
    Error err = Capturar([&] { caso.Insert(*da, *e); });
    EXPECT_EQ(err.Number, 1054);
    EXPECT_NE(err.Description.find("idEmpresa"), std::string::npos);
    Error err2 = Capturar([&] { caso.Update(*da, *e); });
    EXPECT_EQ(err2.Number, 1054);
    EXPECT_EQ(err2.Source, caso.esp.Fuentes[1]);
    EXPECT_EQ(da->LogSQL, nullptr);
}

TEST_P(ResumenesDb, AnEntityReadByListarHasZeroInTheThreeLastFieldsAndUpdateWritesTheZerosBack) {
    PrepararTabla(caso, *da);
    caso.Insert(*da, *ConLosTres());
    EXPECT_EQ(Leer("select idTPV from " + caso.esp.Tabla), Variant(int32_t{9}));
    auto leida = caso.Item(*caso.ListarTodo(*da), 1);
    for (std::string c : kTres) EXPECT_EQ(leida->GetValor(c), Variant(int32_t{0})) << c;
    caso.Update(*da, *leida);
    EXPECT_EQ(Leer("select idEmpresa + idRestaurante + idTPV from " + caso.esp.Tabla), Variant(int64_t{0}));
}

TEST_P(ResumenesDb, OnlyAQueryOfTheCallersOwnBringsTheThreeLastFieldsIn) {
    PrepararTabla(caso, *da);
    caso.Insert(*da, *ConLosTres());
    auto l = caso.Listar_SQLQuery(*da, "select * from " + caso.esp.Tabla);
    auto e = caso.Item(*l, 1);
    std::string idrestaurante = "idRestaurante";
    EXPECT_EQ(e->GetValor(idrestaurante), Variant(int32_t{8}));
}

TEST_P(ResumenesDb, ExisteComparesTheDatesByDayWhileItemClaveComparesTheFullDateValue) {
    PrepararTabla(caso, *da);
    auto e = caso.Muestra();
    caso.Insert(*da, *e);
    auto conHora = caso.Muestra();
    Variant fecha(Date::FromParts(2026, 3, 3, 18, 30, 0));  // the sample's FECHA_REAL, with a time of day
    std::string campo = "FECHA_REAL";
    conHora->SetValor(campo, fecha);
    EXPECT_TRUE(caso.Existe(*da, *conHora));
    auto l = caso.NuevaLista();
    caso.AddEntidad(*l, e);
    EXPECT_EQ(caso.ItemClave(*l, *e), e);
    EXPECT_EQ(caso.ItemClave(*l, *conHora), nullptr);
}

// What each summary adds.

TEST(ResumenDiario, CamposOkFailsOnZeroOrTheZeroDateInAnyOfTheFiveKeyFields) {
    daresumen_diario da;
    for (const char* campo : {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "CD_OP", "FECHA_CONTABLE"}) {
        entresumen_diario e;
        MuestraResumenDiario(e);
        const CampoDef& c = entresumen_diario::Def().Campos[static_cast<size_t>(entresumen_diario::Def().Buscar(campo))];
        CopiarCampo(c, *std::make_shared<entresumen_diario>(), e);
        std::string mensajes;
        EXPECT_FALSE(da.CamposOk(e, mensajes)) << campo;
        EXPECT_EQ(mensajes, std::string("\r\n\r\n\tEl campo [") + campo + "] es obligatorio.\r\n");
    }
}

TEST(ResumenDiario, ItemClaveTakesTheKeyAlphabetically) {
    colresumen_diario l;
    Date real = Date::FromParts(2026, 3, 1), contable = Date::FromParts(2026, 3, 2);
    auto e = l.Add(1, real, 2, 3, contable);  // COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE
    EXPECT_EQ(l.ItemClave(3, 1, contable, real, 2), e);  // CD_OP, COD_TRANSACC, FECHA_CONTABLE, FECHA_REAL, ID_REGISTRO
    EXPECT_EQ(l.ItemClave(1, 3, contable, real, 2), nullptr);
}

TEST(ResumenDiarioDetalle, CamposOkFailsWhenTheFamilySubfamilyOrFiscalTypeIs0) {
    daresumen_diario_detalle da;
    for (const char* campo : {"TIPO_FAMILIA", "TIPO_SUBFAMILIA", "TIPO_FISCAL"}) {
        entresumen_diario_detalle e;
        MuestraResumenDiarioDetalle(e);
        Variant cero(int32_t{0});
        std::string nombre = campo;
        e.SetValor(nombre, cero);
        std::string mensajes;
        EXPECT_FALSE(da.CamposOk(e, mensajes)) << campo;
        EXPECT_EQ(mensajes, std::string("\r\n\r\n\tEl campo [") + campo + "] es obligatorio.\r\n");
    }
}

TEST(ResumenDiarioDetalle, ItemClaveWithItsArgumentsInKeyOrderComparesTheSubfamilyWithTheFiscalType) {
    colresumen_diario_detalle l;
    Date real = Date::FromParts(2026, 3, 1);
    // COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL
    auto e = l.Add(1, real, 2, 3, 40, 5);
    // COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_FISCAL, TIPO_SUBFAMILIA
    EXPECT_EQ(l.ItemClave(1, real, 2, 3, 5, 40), e);
    EXPECT_EQ(l.ItemClave(1, real, 2, 3, 40, 5), nullptr);
}
