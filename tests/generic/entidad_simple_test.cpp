// The simple key entity and its list, in memory.
#include "support/capturar.h"
#include <gtest/gtest.h>

#include "ZARODatos/generic/EntidadSimple.h"
#include "ZARODatos/generic/Generica.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/XML.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

TEST(entEntidadSimple, NewEntityHasEmptyKeysEmptyDescriptionAndNoObject) {
    entEntidadSimple e;
    EXPECT_TRUE(e.Clave1.IsEmpty());
    EXPECT_TRUE(e.Clave2.IsEmpty());
    EXPECT_TRUE(e.Clave3.IsEmpty());
    EXPECT_EQ(e.Descripcion, "");
    EXPECT_EQ(e.Objeto, nullptr);
}

TEST(entEntidadSimple, ContractNamesAndCount) {
    auto e = std::make_shared<entEntidadSimple>();
    EXPECT_EQ(e->IEntidad_Nombre(), "EntidadSimple");
    EXPECT_EQ(e->IEntidad_Tabla(), "");
    EXPECT_EQ(e->IEntidad_NumCampos(), 5);
    EXPECT_EQ(e->TypeName(), "entEntidadSimple");
}

TEST(entEntidadSimple, GetValorWithEmptyNameReturnsTheDescription) {
    entEntidadSimple e;
    e.Descripcion = "Cerveza";
    EXPECT_EQ(e.GetValor(""), Variant("Cerveza"));
}

TEST(entEntidadSimple, GetValorObjetoReturnsTheClassNameOfTheObject) {
    entEntidadSimple e;
    e.Objeto = std::make_shared<Collection>();
    Variant v = e.GetValor("objeto");
    ASSERT_TRUE(v.IsString());
    EXPECT_EQ(v.Get<std::string>(), "Collection");
    e.Objeto = std::make_shared<entidadGenerica>();
    EXPECT_EQ(e.GetValor("Objeto"), Variant("entidadGenerica"));
    EXPECT_EQ(e.GetValorIndice(int16_t{5}), Variant("entidadGenerica"));
}

TEST(entEntidadSimple, GetValorObjetoOfNoObjectReturnsNothing) {
    entEntidadSimple e;
    EXPECT_EQ(e.GetValor("Objeto"), Variant("Nothing"));
}

TEST(entEntidadSimple, SetValorObjetoDoesNothingWhileAnUnknownNameRaises) {
    entEntidadSimple e;
    auto obj = std::make_shared<Collection>();
    e.Objeto = obj;
    EXPECT_NO_THROW(e.SetValor("Objeto", Variant(std::make_shared<Collection>())));
    EXPECT_NO_THROW(e.SetValor("OBJETO", Variant(5)));
    EXPECT_EQ(e.Objeto, obj);
    Error err = Capturar([&] { e.SetValor("Clave4", Variant(1)); });
    EXPECT_EQ(err.Number, 0);
    EXPECT_EQ(err.Source, "entEntidadSimple");
    EXPECT_EQ(err.Description, "Nombre campo incorrecto");
    // The empty name has no case in SetValor.
    EXPECT_EQ(Capturar([&] { e.SetValor("", Variant(1)); }).Number, 0);
}

TEST(entEntidadSimple, SetValorIndiceFiveDoesNothing) {
    entEntidadSimple e;
    EXPECT_NO_THROW(e.SetValorIndice(int16_t{5}, Variant(std::make_shared<Collection>())));
    EXPECT_EQ(e.Objeto, nullptr);
    EXPECT_NO_THROW(e.SetValorIndice(int16_t{6}, Variant(1)));
    EXPECT_NO_THROW(e.SetValorIndice(int16_t{0}, Variant(1)));
    EXPECT_TRUE(e.Clave1.IsEmpty());
}

TEST(entEntidadSimple, SetValorIndiceOneToFourStoreAsSetValor) {
    entEntidadSimple e;
    e.SetValorIndice(int16_t{1}, Variant(int32_t{1}));
    e.SetValorIndice(int16_t{2}, Variant("b"));
    e.SetValorIndice(int16_t{3}, Variant(Date(3.0)));
    e.SetValorIndice(int16_t{4}, Variant(12.5));
    EXPECT_EQ(e.Clave1, Variant(int32_t{1}));
    EXPECT_EQ(e.Clave2, Variant("b"));
    EXPECT_EQ(e.Clave3, Variant(Date(3.0)));
    EXPECT_EQ(e.Descripcion, "12,5");
}

TEST(entEntidadSimple, Clave1KeepsItsType) {
    entEntidadSimple e;
    e.SetValor("Clave1", Variant(int32_t{7}));
    Variant v = e.GetValor("CLAVE1");
    ASSERT_TRUE(v.Is<int32_t>());
    EXPECT_EQ(v.Get<int32_t>(), 7);
}

TEST(entEntidadSimple, GetValorOfAnUnknownNameOrIndexReturnsErrorLiteral) {
    entEntidadSimple e;
    EXPECT_EQ(e.GetValor("Clave4"), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValorIndice(int16_t{0}), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValorIndice(int16_t{6}), Variant("#ERROR#"));
    EXPECT_EQ(e.GetNombreCampo(int16_t{6}), "#ERROR#");
}

TEST(entEntidadSimple, FieldNamesByIndex) {
    entEntidadSimple e;
    const char* nombres[] = {"Clave1", "Clave2", "Clave3", "Descripcion", "Objeto"};
    for (int16_t i = 1; i <= 5; ++i) EXPECT_EQ(e.GetNombreCampo(i), nombres[i - 1]);
}

TEST(entEntidadSimple, SetValorDescripcionWithNullRaisesUnderItsSource) {
    entEntidadSimple e;
    Error err = Capturar([&] { e.SetValor("Descripcion", Variant::Null()); });
    EXPECT_EQ(err.Number, 94);
    EXPECT_EQ(err.Source, "entEntidadSimple");
    err = Capturar([&] { e.SetValorIndice(int16_t{4}, Variant::Null()); });
    EXPECT_EQ(err.Number, 94);
    EXPECT_EQ(err.Source, "entEntidadSimple");
}

TEST(entEntidadSimple, ToXMLWritesTheFiveFieldsAndTheTypeNameOfObjeto) {
    entEntidadSimple e;
    e.Clave1 = Variant(int32_t{1});
    e.Clave2 = Variant("B");
    e.Clave3 = Variant(Date(1.0));
    e.Descripcion = "d";
    std::string nombre;
    auto el = e.ToXML(nombre);
    EXPECT_EQ(nombre, "EntidadSimple");
    EXPECT_EQ(el->xml(),
              "<EntidadSimple><Clave1>1</Clave1><Clave2>B</Clave2><Clave3>31/12/1899</Clave3>"
              "<Descripcion>d</Descripcion><Objeto>Nothing</Objeto></EntidadSimple>");
}

TEST(entEntidadSimple, ToXMLFailureNamesTheSourceEntmaepai) {
    entEntidadSimple e;
    e.Clave2 = Variant::Null();
    Error err = Capturar([&] { e.ToXML(); });
    EXPECT_EQ(err.Number, 94);
    EXPECT_EQ(err.Source, " entmaepai");
}

// ---- colEntidadSimple -----------------------------------------------------

TEST(colEntidadSimple, ContractNames) {
    auto l = std::make_shared<colEntidadSimple>();
    EXPECT_EQ(l->IListaEntidades_Nombre(), "EntidadSimple");
    EXPECT_EQ(l->IListaEntidades_Tabla(), "");
    EXPECT_EQ(l->TypeName(), "colEntidadSimple");
    auto nueva = l->IListaEntidades_NewEntidad();
    ASSERT_TRUE(nueva);
    EXPECT_EQ(nueva->TypeName(), "entEntidadSimple");
    EXPECT_EQ(l->Count(), 0);
}

TEST(colEntidadSimple, AddAssignsKeysDescriptionAndObject) {
    colEntidadSimple l;
    auto obj = std::make_shared<Collection>();
    auto e = l.Add(Variant(1), Variant("x"), Variant(0), "desc", obj);
    EXPECT_EQ(e->Clave1, Variant(1));
    EXPECT_EQ(e->Clave2, Variant("x"));
    EXPECT_EQ(e->Clave3, Variant(0));
    EXPECT_EQ(e->Descripcion, "desc");
    EXPECT_EQ(e->Objeto, obj);
    auto f = l.Add(2, 0, 0);
    EXPECT_EQ(f->Descripcion, "");
    EXPECT_EQ(f->Objeto, nullptr);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.Item(2), f);
}

TEST(colEntidadSimple, ItemClaveWithATextKeyFindsAKeyThatDiffersOnlyInCase) {
    colEntidadSimple l;
    l.Add("uno", 0, 0);
    auto e = l.Add("Cerveza", 0, 0);
    EXPECT_EQ(l.ItemClave(Variant("CERVEZA"), Variant(0), Variant(0)), e);
}

TEST(colEntidadSimple, ItemClaveWithTheNumberSevenDoesNotFindTheTextSeven) {
    colEntidadSimple l;
    l.Add("7", 0, 0);
    EXPECT_EQ(l.ItemClave(Variant(7), Variant(0), Variant(0)), nullptr);
    auto e = l.Add(7, 0, 0);
    EXPECT_EQ(l.ItemClave(Variant(7), Variant(0), Variant(0)), e);
    EXPECT_EQ(l.ItemClave(Variant(7.0), Variant(int16_t{0}), Variant(0.0)), e);  // numbers by value
}

TEST(colEntidadSimple, ItemClaveWithANullArgumentFindsNothing) {
    colEntidadSimple l;
    l.Add(1, 0, 0);
    l.Add(Variant::Null(), 0, 0);
    EXPECT_EQ(l.ItemClave(Variant::Null(), Variant(0), Variant(0)), nullptr);
    EXPECT_EQ(l.ItemClave(Variant(1), Variant::Null(), Variant(0)), nullptr);
    EXPECT_EQ(l.ItemClave(Variant(1), Variant(0), Variant::Null()), nullptr);
}

TEST(colEntidadSimple, ItemClaveFindsEmptyKeysWithEmptyVariantsAndZerosWithZeros) {
    colEntidadSimple l;
    auto ceros = l.Add(1, 0, 0);
    auto vacias = l.Add(2, Variant(), Variant());
    EXPECT_EQ(l.ItemClave(Variant(1), Variant(0), Variant(0)), ceros);
    EXPECT_EQ(l.ItemClave(Variant(2), Variant(), Variant()), vacias);
    // An empty value counts as 0 against a number.
    EXPECT_EQ(l.ItemClave(Variant(2), Variant(0), Variant(0)), vacias);
}

TEST(colEntidadSimple, TwoEntitiesWithTheSameKeysStandInOneListAndItemClaveReturnsTheFirst) {
    colEntidadSimple l;
    auto primero = l.Add("A", "B", "C", "uno");
    auto segundo = l.Add("a", "b", "c", "dos");
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.ItemClave(Variant("A"), Variant("B"), Variant("C")), primero);
    EXPECT_NE(primero, segundo);
}

TEST(colEntidadSimple, ItemClaveComparesDatesByValue) {
    colEntidadSimple l;
    auto e = l.Add(Variant(Date(45000.0)), 0, 0);
    EXPECT_EQ(l.ItemClave(Variant(Date(45000.0)), Variant(0), Variant(0)), e);
    EXPECT_EQ(l.ItemClave(Variant(Date(45001.0)), Variant(0), Variant(0)), nullptr);
}

TEST(colEntidadSimple, ItemClaveOverAnObjectKeyRaisesTypeMismatch) {
    colEntidadSimple l;
    l.Add(Variant(std::make_shared<Collection>()), 0, 0);
    EXPECT_EQ(Capturar([&] { l.ItemClave(Variant(1), Variant(0), Variant(0)); }).Number, 13);
}

TEST(colEntidadSimple, ItemClaveArgumentsBindToVariables) {
    colEntidadSimple l;
    auto e = l.Add("k", 1, 2);
    Variant c1("K"), c2(1), c3(2);
    EXPECT_EQ(l.ItemClave(c1, c2, c3), e);
    EXPECT_EQ(c1, Variant("K"));  // not written to
}

TEST(colEntidadSimple, AddEntidadAppendsTheGivenObject) {
    colEntidadSimple l;
    auto e = std::make_shared<entEntidadSimple>();
    EXPECT_EQ(l.AddEntidad(e), e);
    EXPECT_EQ(l.Item(Variant(1)), e);
    // No object is appended too; ItemClave raises 91 when it reaches it before a match.
    EXPECT_EQ(l.AddEntidad(entEntidadSimpleRef()), nullptr);
    EXPECT_EQ(l.Count(), 2);
    EXPECT_EQ(l.ItemClave(Variant(), Variant(), Variant()), e);
    EXPECT_EQ(Capturar([&] { l.ItemClave(Variant(1), Variant(), Variant()); }).Number, 91);
}

TEST(colEntidadSimple, ItemRemoveAndEnumeration) {
    colEntidadSimple l;
    l.Add(1, 0, 0, "a");
    l.Add(2, 0, 0, "b");
    l.Add(3, 0, 0, "c");
    EXPECT_EQ(Capturar([&] { l.Item(4); }).Number, 9);
    l.Remove(Variant(2));
    std::string d;
    for (const auto& e : l) d += e->Descripcion;
    EXPECT_EQ(d, "ac");
}
