// What every table inherits from the templates, asserted on all ten tables
// by one test body each, against the table's own expectations
// (expected_<tabla>.h). No database: the operations that need one are
// tested here only as far as they fail without a connection.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "caso_tabla.h"
#include "comun.h"
#include "falla_memoria.h"
#include "ZARODatos/platform/Conversions.h"

using namespace zaro_tablas;

namespace {

class Tablas : public ::testing::TestWithParam<const CasoTabla*> {
protected:
    const CasoTabla& caso = *GetParam();
    const Esperado& esp = caso.esp;

    int16_t Indices() const { return static_cast<int16_t>(esp.Nombres.size()); }
    // The first index whose field is a string.
    int16_t IndiceTexto() const {
        for (int16_t i = 1; i <= Indices(); ++i) {
            const int pos = caso.Def().PorIndice(i);
            if (caso.Def().Campos[static_cast<size_t>(pos)].Tipo == TipoCampo::Texto) return i;
        }
        return 0;
    }
};

std::string Minusculas(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Todas, Tablas, ::testing::ValuesIn(Casos()), NombreDeCaso);

TEST_P(Tablas, EntityAndListAnswerTheTableLiteral) {
    auto e = caso.NuevaEntidad();
    EXPECT_EQ(e->Nombre(), esp.Tabla);
    EXPECT_EQ(e->Tabla(), esp.Tabla);
    EXPECT_EQ(e->IEntidad_Nombre(), esp.Tabla);
    EXPECT_EQ(e->TypeName(), esp.ClaseEntidad);
    auto l = caso.NuevaLista();
    EXPECT_EQ(l->Nombre(), esp.Tabla);
    EXPECT_EQ(l->IListaEntidades_Tabla(), esp.Tabla);
    EXPECT_EQ(l->TypeName(), esp.ClaseLista);
    auto nueva = l->IListaEntidades_NewEntidad();
    EXPECT_EQ(nueva->Nombre(), esp.Tabla);
    EXPECT_EQ(caso.Count(*l), 0);
    EXPECT_EQ(caso.NuevoAdapter()->TypeName(), esp.ClaseAdapter);
}

TEST_P(Tablas, NumCamposIsTheTablesCount) {
    EXPECT_EQ(caso.NuevaEntidad()->NumCampos(), esp.NumCampos);
    EXPECT_EQ(caso.NuevaEntidad()->IEntidad_NumCampos(), esp.NumCampos);
}

TEST_P(Tablas, GetNombreCampoWalksTheIndexTableAndAnswersErrorOutsideIt) {
    auto e = caso.NuevaEntidad();
    for (int16_t i = 1; i <= Indices(); ++i) EXPECT_EQ(e->GetNombreCampo(i), esp.Nombres[static_cast<size_t>(i - 1)]);
    EXPECT_EQ(e->GetNombreCampo(int16_t{0}), "#ERROR#");
    EXPECT_EQ(e->GetNombreCampo(static_cast<int16_t>(Indices() + 1)), "#ERROR#");
    EXPECT_EQ(e->GetNombreCampo(int16_t{-1}), "#ERROR#");
}

TEST_P(Tablas, GetValorIndiceOutsideTheIndexTableAnswersError) {
    auto e = caso.Muestra();
    EXPECT_EQ(e->GetValorIndice(int16_t{0}), Variant("#ERROR#"));
    EXPECT_EQ(e->GetValorIndice(static_cast<int16_t>(Indices() + 1)), Variant("#ERROR#"));
}

TEST_P(Tablas, GetValorIndiceAnswersWhatGetValorAnswersForTheFieldsName) {
    auto e = caso.Muestra();
    for (int16_t i = 1; i <= Indices(); ++i) {
        std::string nombre = esp.Nombres[static_cast<size_t>(i - 1)];
        if (nombre == caso.Def().NombreArgumento) continue;  // that name means the argument (its own test)
        EXPECT_EQ(e->GetValorIndice(i), e->GetValor(nombre)) << nombre;
    }
}

TEST_P(Tablas, GetValorIgnoresTheCaseOfTheName) {
    auto e = caso.Muestra();
    for (const std::string& n : esp.Nombres) {
        if (n == caso.Def().NombreArgumento) continue;
        std::string abajo = Minusculas(n);
        std::string arriba = n;
        EXPECT_EQ(e->GetValor(abajo), e->GetValor(arriba)) << n;
    }
}

TEST_P(Tablas, GetValorOfAnUnknownNameAnswersErrorAndRaisesNothing) {
    EXPECT_EQ(caso.Muestra()->GetValor("NO_EXISTE"), Variant("#ERROR#"));
}

TEST_P(Tablas, GetValorWithAnEmptyNameAnswersTheTablesChosenField) {
    auto e = caso.Muestra();
    std::string vacio;
    if (esp.CampoVacio.empty()) {
        EXPECT_EQ(e->GetValor(vacio), Variant(std::string()));
    } else {
        Variant v = e->GetValor(vacio);
        std::string campo = esp.CampoVacio;
        EXPECT_EQ(v, e->GetValor(campo));
        EXPECT_FALSE(v == caso.NuevaEntidad()->GetValor(campo)) << "the sample's value, not a default";
    }
}

TEST_P(Tablas, SetValorIndiceOutsideTheIndexTableChangesNothingAndRaisesNothing) {
    auto e = caso.Muestra();
    e->SetValorIndice(static_cast<int16_t>(Indices() + 1), Variant("9"));
    e->SetValorIndice(int16_t{0}, Variant("9"));
    EXPECT_TRUE(CamposDistintos(caso, *e, *caso.Muestra()).empty());
}

TEST_P(Tablas, SetValorIndiceStoresEachIndexedFieldThroughItsConversion) {
    auto origen = caso.Muestra();
    auto e = caso.NuevaEntidad();
    for (int16_t i = 1; i <= Indices(); ++i) {
        Variant texto(CStr(origen->GetValorIndice(i)));
        e->SetValorIndice(i, texto);
    }
    for (int16_t i = 1; i <= Indices(); ++i) EXPECT_EQ(e->GetValorIndice(i), origen->GetValorIndice(i)) << i;
}

TEST_P(Tablas, SetValorOfAnUnknownNameRaisesWithTheSetValorSourceAndChangesNothing) {
    auto e = caso.Muestra();
    Error err = Capturar([&] { e->SetValor("NO_EXISTE", Variant(1)); });
    EXPECT_EQ(err.Number, 0);
    EXPECT_EQ(err.Source, esp.Fuentes[2]);
    EXPECT_EQ(err.Description, "Nombre campo incorrecto");
    EXPECT_TRUE(CamposDistintos(caso, *e, *caso.Muestra()).empty());
}

TEST_P(Tablas, SetValorIndiceOfNullRaisesWithTheSetValorIndiceSource) {
    auto e = caso.Muestra();
    // Index 1 of every table is an integer or a string: null has no text form.
    Error err = Capturar([&] { e->SetValorIndice(int16_t{1}, Variant::Null()); });
    EXPECT_EQ(err.Number, ErrNum::InvalidUseOfNull);
    EXPECT_EQ(err.Source, esp.Fuentes[3]);
}

TEST_P(Tablas, AShortageOfMemoryInsideGetValorRaisesWithTheEntidadSource) {
    auto e = caso.NuevaEntidad();
    int16_t i = IndiceTexto();
    ASSERT_GT(i, 0);
    e->SetValorIndice(i, Variant(std::string(64, 'x')));
    Error err = Capturar([&] {
        FallarProximaReserva();
        e->GetValorIndice(i);
    });
    EXPECT_EQ(err.Number, 7);
    EXPECT_EQ(err.Source, esp.Fuentes[4]);
    std::string nombre = esp.Nombres[static_cast<size_t>(i - 1)];
    Error err2 = Capturar([&] {
        FallarProximaReserva();
        e->GetValor(nombre);
    });
    EXPECT_EQ(err2.Number, 7);
    EXPECT_EQ(err2.Source, esp.Fuentes[4]);
}

TEST_P(Tablas, UpdateWithNoConnectionRaisesWithTheUpdateSource) {
    auto da = caso.NuevoAdapter();
    auto e = caso.Muestra();
    Error err = Capturar([&] { caso.Update(*da, *e); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, esp.Fuentes[1]);
    EXPECT_EQ(err.Description, kSinConexion);
}

TEST_P(Tablas, ExisteInsertAndDeleteWithNoConnectionRaiseFromTheAdapter) {
    auto da = caso.NuevoAdapter();
    auto e = caso.Muestra();
    for (auto op : std::vector<std::function<void()>>{[&] { caso.Existe(*da, *e); }, [&] { caso.Insert(*da, *e); },
                                                       [&] { caso.Delete(*da, *e); }}) {
        Error err = Capturar(op);
        EXPECT_EQ(err.Number, 1);
        EXPECT_EQ(err.Source, esp.Fuentes[0]);
        EXPECT_EQ(err.Description, kSinConexion);
    }
    EXPECT_EQ(da->LogSQL, nullptr);
}

TEST_P(Tablas, ReadsWithNoConnectionRaiseTheTextWithoutTheAccentedLetter) {
    auto da = caso.NuevoAdapter();
    auto e = caso.Muestra();
    for (auto op : std::vector<std::function<void()>>{[&] { caso.Entidad(*da, *e); }, [&] { caso.Listar(*da, *e); },
                                                       [&] { caso.rsListar(*da, *e); }, [&] { caso.ListarTodo(*da); }}) {
        Error err = Capturar(op);
        EXPECT_EQ(err.Number, 1);
        EXPECT_EQ(err.Source, esp.Fuentes[0]);
        EXPECT_EQ(err.Description, kSinConexionLectura);
    }
}

TEST_P(Tablas, CrearTablaWithNoConnectionReturnsFalse) { EXPECT_FALSE(caso.NuevoAdapter()->CrearTabla()); }

TEST_P(Tablas, AFailureOfToXmlNamesTheEntitysFixedSource) {
    auto e = caso.Muestra();
    Error err = Capturar([&] { caso.ToXML(*e, "1 no es nombre"); });
    EXPECT_EQ(err.Source, esp.FuenteToXML);
    EXPECT_EQ(err.Number, XML::kInvalidName);
}

TEST_P(Tablas, ToXmlHoldsOneElementPerIndexUpToNumCampos) {
    auto e = caso.Muestra();
    auto el = caso.ToXML(*e, "");
    EXPECT_EQ(el->nodeName(), esp.Tabla);
    auto hijos = el->childNodes();
    ASSERT_EQ(hijos.size(), static_cast<size_t>(esp.NumCampos));
    for (size_t i = 0; i < hijos.size(); ++i) {
        EXPECT_EQ(hijos[i]->nodeName(), esp.Nombres[i]);
        EXPECT_EQ(hijos[i]->text(), CStr(e->GetValorIndice(static_cast<int16_t>(i + 1))));
    }
}

TEST_P(Tablas, SelectSqlAndOrderByAreTheTablesTextBlankForBlank) {
    auto da = caso.NuevoAdapter();
    EXPECT_EQ(da->Tabla(), esp.Tabla);
    EXPECT_EQ(da->SelectSQL(), esp.SelectSQL);
    EXPECT_EQ(da->OrderBy, esp.OrderBy);
}

TEST_P(Tablas, WritingTablaPutsTheNewNameInSelectAndOrderByAndDropsACustomOrderBy) {
    auto da = caso.NuevoAdapter();
    da->OrderBy = "propio";
    da->Tabla("copia");
    auto cambiar = [&](std::string s) {
        for (const std::string& viejo : {" " + esp.Tabla + ".", " from " + esp.Tabla + " "}) {
            const std::string nuevo = viejo == " " + esp.Tabla + "." ? " copia." : " from copia ";
            for (size_t p = s.find(viejo); p != std::string::npos; p = s.find(viejo, p + nuevo.size()))
                s.replace(p, viejo.size(), nuevo);
        }
        return s;
    };
    EXPECT_EQ(da->SelectSQL(), cambiar(esp.SelectSQL));
    EXPECT_EQ(da->OrderBy, cambiar(esp.OrderBy));
    EXPECT_EQ(caso.NuevaEntidad()->Tabla(), esp.Tabla);
}

TEST_P(Tablas, CamposOkOfANewEntityNamesEveryRequiredFieldInOrder) {
    auto da = caso.NuevoAdapter();
    auto e = caso.NuevaEntidad();
    std::string mensajes = "previo";
    std::string esperado = "\r\n\r\n";
    for (const std::string& r : esp.Requeridos) esperado += "\tEl campo [" + r + "] es obligatorio.\r\n";
    EXPECT_FALSE(caso.CamposOk(*da, *e, mensajes));
    EXPECT_EQ(mensajes, esperado);
}

TEST_P(Tablas, CamposOkOfTheSamplePassesWithAnEmptyText) {
    auto da = caso.NuevoAdapter();
    std::string mensajes = "previo";
    EXPECT_TRUE(caso.CamposOk(*da, *caso.Muestra(), mensajes));
    EXPECT_EQ(mensajes, "");
}

TEST_P(Tablas, CamposOkFailsOnEachRequiredFieldAlone) {
    auto da = caso.NuevoAdapter();
    for (const std::string& r : esp.Requeridos) {
        auto e = caso.Muestra();
        const CampoDef& c = caso.Def().Campos[static_cast<size_t>(caso.Def().Buscar(r))];
        CopiarCampo(c, *caso.NuevaEntidad(), *e);
        std::string mensajes;
        EXPECT_FALSE(caso.CamposOk(*da, *e, mensajes)) << r;
        EXPECT_EQ(mensajes, "\r\n\r\n\tEl campo [" + r + "] es obligatorio.\r\n");
    }
}

TEST_P(Tablas, AddWithEveryArgumentFillsEveryFieldItTakes) {
    auto l = caso.NuevaLista();
    auto m = caso.Muestra();
    auto e = caso.AddCompleto(*l, *m);
    EXPECT_EQ(caso.Count(*l), 1);
    EXPECT_EQ(caso.Item(*l, 1), e);
    EXPECT_EQ(CamposDistintos(caso, *e, *m), esp.FueraDeAdd);
    // Against an entity of the key alone, every field Add takes beyond the key differs (the sample
    // gives each field a value of its own).
    std::vector<std::string> masAllaDeLaClave;
    for (const CampoDef& c : caso.Def().Campos)
        if (c.Clave == 0 && std::find(esp.FueraDeAdd.begin(), esp.FueraDeAdd.end(), c.Nombre) == esp.FueraDeAdd.end())
            masAllaDeLaClave.emplace_back(c.Nombre);
    EXPECT_EQ(CamposDistintos(caso, *e, *caso.SoloClave()), masAllaDeLaClave);
    for (const std::string& n : esp.FueraDeAdd)
        EXPECT_EQ(detail::LeerMiembro(*e, caso.Def().Campos[static_cast<size_t>(caso.Def().Buscar(n))]),
                  detail::LeerMiembro(*caso.NuevaEntidad(), caso.Def().Campos[static_cast<size_t>(caso.Def().Buscar(n))]));
}

TEST_P(Tablas, AddWithTheRequiredArgumentsLeavesEveryOtherFieldAtZero) {
    auto l = caso.NuevaLista();
    auto e = caso.AddRequeridos(*l, *caso.Muestra());
    std::vector<std::string> distintos = CamposDistintos(caso, *e, *caso.NuevaEntidad());
    std::vector<std::string> requeridos = esp.Requeridos;
    std::sort(distintos.begin(), distintos.end());
    std::sort(requeridos.begin(), requeridos.end());
    EXPECT_EQ(distintos, requeridos);
}

TEST_P(Tablas, ItemClaveFindsTheFirstEntityWithTheKeyInItsOwnArgumentOrder) {
    auto l = caso.NuevaLista();
    auto m = caso.Muestra();
    EXPECT_EQ(caso.ItemClave(*l, *m), nullptr);
    caso.AddEntidad(*l, caso.NuevaEntidad());
    auto primero = caso.AddEntidad(*l, caso.Muestra());
    caso.AddEntidad(*l, caso.Muestra());
    EXPECT_EQ(caso.Count(*l), 3);
    EXPECT_EQ(caso.ItemClave(*l, *m), primero);
    l = caso.NuevaLista();
    caso.AddEntidad(*l, caso.NuevaEntidad());
    EXPECT_EQ(caso.ItemClave(*l, *m), nullptr);
}

TEST_P(Tablas, ExportarTextoWritesTheFieldsUpToNumCamposEachWithItsSeparator) {
    auto da = caso.NuevoAdapter();
    auto l = caso.NuevaLista();
    auto e = caso.AddEntidad(*l, caso.Muestra());
    std::string esperado;
    for (int16_t i = 1; i <= esp.NumCampos; ++i) esperado += CStr(e->GetValorIndice(i)) + "|";
    esperado += "\r\n\r\n";
    EXPECT_EQ(caso.ExportarTexto(*da, *l, "|"), esperado);
    EXPECT_EQ(caso.ExportarTexto(*da, *caso.NuevaLista(), "|"), "\r\n");
}

TEST_P(Tablas, ATextFromExportarTextoComesBackWithTheFieldsUpToNumCamposAndTwoEmptyEntities) {
    auto da = caso.NuevoAdapter();
    auto l = caso.NuevaLista();
    auto m = caso.AddEntidad(*l, caso.Muestra());
    auto vuelta = caso.ImportarTexto(*da, caso.ExportarTexto(*da, *l, ";"), ";");
    ASSERT_EQ(caso.Count(*vuelta), 3);
    auto e = caso.Item(*vuelta, 1);
    for (int16_t i = 1; i <= esp.NumCampos; ++i) EXPECT_EQ(e->GetValorIndice(i), m->GetValorIndice(i)) << i;
    // What lies beyond NumCampos does not travel.
    for (int16_t i = static_cast<int16_t>(esp.NumCampos + 1); i <= Indices(); ++i)
        EXPECT_EQ(e->GetValorIndice(i), caso.NuevaEntidad()->GetValorIndice(i)) << i;
    EXPECT_TRUE(CamposDistintos(caso, *caso.Item(*vuelta, 2), *caso.NuevaEntidad()).empty());
    EXPECT_TRUE(CamposDistintos(caso, *caso.Item(*vuelta, 3), *caso.NuevaEntidad()).empty());
}

TEST_P(Tablas, ImportarTextoIgnoresACellBeyondTheIndexTable) {
    auto da = caso.NuevoAdapter();
    std::string linea;
    for (int16_t i = 1; i <= Indices(); ++i) linea += "1;";
    auto justa = caso.ImportarTexto(*da, linea, ";");
    auto larga = caso.ImportarTexto(*da, linea + "1;1;", ";");
    ASSERT_EQ(caso.Count(*larga), 1);
    EXPECT_TRUE(CamposDistintos(caso, *caso.Item(*justa, 1), *caso.Item(*larga, 1)).empty());
}
