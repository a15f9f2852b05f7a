// Name and value elements: entElemento and coleccionElementos, in memory.
#include "support/capturar.h"
#include <gtest/gtest.h>

#include "ZARODatos/generic/Elementos.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/XML.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

TEST(entElemento, NewElementHasEmptyNombreAndEmptyValor) {
    entElemento e;
    EXPECT_EQ(e.Nombre, "");
    EXPECT_TRUE(e.Valor.IsEmpty());
}

TEST(entElemento, ContractNamesAndCount) {
    auto e = std::make_shared<entElemento>();
    EXPECT_EQ(e->IEntidad_Nombre(), "entElemento");
    EXPECT_EQ(e->IEntidad_Tabla(), "");
    EXPECT_EQ(e->IEntidad_NumCampos(), 2);
    EXPECT_EQ(e->TypeName(), "entElemento");
    EXPECT_EQ(TypeName(Variant(e)), "entElemento");
}

TEST(entElemento, GetValorReachesValorWhateverTheCaseOfTheName) {
    entElemento e;
    e.Valor = Variant(int32_t{42});
    for (const char* nombre : {"Valor", "valor", "VALOR", "vAlOr"}) {
        Variant v = e.GetValor(nombre);
        ASSERT_TRUE(v.Is<int32_t>()) << nombre;
        EXPECT_EQ(v.Get<int32_t>(), 42) << nombre;
    }
}

TEST(entElemento, GetValorOfNombreGivesTheNameAsAString) {
    entElemento e;
    e.Nombre = "Precio";
    Variant v = e.GetValor("NOMBRE");
    ASSERT_TRUE(v.IsString());
    EXPECT_EQ(v.Get<std::string>(), "Precio");
}

TEST(entElemento, GetValorWithEmptyNameReturnsErrorLiteral) {
    entElemento e;
    e.Nombre = "x";
    e.Valor = Variant("y");
    EXPECT_EQ(e.GetValor(""), Variant("#ERROR#"));
}

TEST(entElemento, GetValorWithUnknownNameReturnsErrorLiteralAndRaisesNothing) {
    entElemento e;
    EXPECT_EQ(e.GetValor("Otro"), Variant("#ERROR#"));
}

TEST(entElemento, IndexOneIsNombreTwoIsValorOthersErrorLiteral) {
    entElemento e;
    e.Nombre = "n";
    e.Valor = Variant(2.5);
    EXPECT_EQ(e.GetValorIndice(int16_t{1}), Variant("n"));
    EXPECT_EQ(e.GetValorIndice(int16_t{2}), Variant(2.5));
    EXPECT_EQ(e.GetValorIndice(int16_t{0}), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValorIndice(int16_t{3}), Variant("#ERROR#"));
    EXPECT_EQ(e.GetNombreCampo(int16_t{1}), "Nombre");
    EXPECT_EQ(e.GetNombreCampo(int16_t{2}), "Valor");
    EXPECT_EQ(e.GetNombreCampo(int16_t{0}), "#ERROR#");
    EXPECT_EQ(e.GetNombreCampo(int16_t{3}), "#ERROR#");
}

TEST(entElemento, SetValorIndiceThreeDoesNothingAndRaisesNothing) {
    entElemento e;
    e.Nombre = "n";
    e.Valor = Variant(1);
    EXPECT_NO_THROW(e.SetValorIndice(int16_t{3}, Variant(9)));
    EXPECT_NO_THROW(e.SetValorIndice(int16_t{0}, Variant(9)));
    EXPECT_EQ(e.Nombre, "n");
    EXPECT_EQ(e.Valor, Variant(1));
}

TEST(entElemento, SetValorIndiceOneAndTwoStoreAsSetValor) {
    entElemento e;
    e.SetValorIndice(int16_t{1}, Variant(int32_t{5}));
    e.SetValorIndice(int16_t{2}, Variant(int32_t{6}));
    EXPECT_EQ(e.Nombre, "5");
    EXPECT_EQ(e.Valor, Variant(int32_t{6}));
}

// The raise of number 0 passes through the operation's own handler, which
// gives every failure the source "entElemento" followed by a blank.
TEST(entElemento, SetValorWithUnknownNameRaises) {
    entElemento e;
    Error err = Capturar([&] { e.SetValor("Otro", Variant(1)); });
    EXPECT_EQ(err.Number, 0);
    EXPECT_EQ(err.Description, "Nombre campo incorrecto");
    EXPECT_EQ(err.Source, "entElemento ");
    EXPECT_EQ(e.Nombre, "");
    EXPECT_TRUE(e.Valor.IsEmpty());
}

TEST(entElemento, SetValorNombreWithTheNumberFiveStoresTheTextFive) {
    entElemento e;
    e.SetValor("Nombre", Variant(int32_t{5}));
    EXPECT_EQ(e.Nombre, "5");
    Variant v = e.GetValor("Nombre");
    ASSERT_TRUE(v.IsString());
    EXPECT_EQ(v.Get<std::string>(), "5");
}

TEST(entElemento, SetValorValorKeepsTheVariantAsItIs) {
    entElemento e;
    e.SetValor("valor", Variant("1.234,5"));
    EXPECT_EQ(e.Valor, Variant("1.234,5"));  // no number conversion
    e.SetValor("Valor", Variant::Null());
    EXPECT_TRUE(e.Valor.IsNull());
    e.SetValor("Valor", Variant(Date(45000.5)));
    EXPECT_EQ(e.Valor, Variant(Date(45000.5)));
    auto otro = std::make_shared<entElemento>();
    e.SetValor("Valor", Variant(otro));
    ASSERT_TRUE(e.Valor.IsObject());
    EXPECT_EQ(e.Valor.Get<ObjectRef>(), otro);
}

TEST(entElemento, SetValorNombreWithNullRaisesInvalidUseOfNullUnderItsSource) {
    entElemento e;
    e.Nombre = "antes";
    Error err = Capturar([&] { e.SetValor("Nombre", Variant::Null()); });
    EXPECT_EQ(err.Number, 94);
    EXPECT_EQ(err.Source, "entElemento ");
    EXPECT_EQ(err.Description, "Invalid use of Null");
    EXPECT_EQ(e.Nombre, "antes");
}

TEST(entElemento, SetValorThroughAByRefVariableReachesTheField) {
    entElemento e;
    std::string campo = "Valor";
    Variant valor("abc");
    e.IEntidad_SetValor(campo, valor);
    EXPECT_EQ(e.Valor, Variant("abc"));
}

TEST(entElemento, ToXMLWritesNombreAndValor) {
    entElemento e;
    e.Nombre = "Total";
    e.Valor = Variant(12.5);
    auto el = e.ToXML();
    ASSERT_TRUE(el);
    EXPECT_EQ(el->xml(), "<entElemento><Nombre>Total</Nombre><Valor>12,5</Valor></entElemento>");
}

TEST(entElemento, ToXMLWithEmptyVariableWritesBackTheNombre) {
    entElemento e;
    std::string nombre;
    auto el = e.ToXML(nombre);
    EXPECT_EQ(nombre, "entElemento");
    EXPECT_EQ(el->nodeName(), "entElemento");
    auto el2 = e.ToXML("par");
    EXPECT_EQ(el2->nodeName(), "par");
    EXPECT_NE(el->ownerDocument(), el2->ownerDocument());
}

TEST(entElemento, ToXMLFailureNamesTheSourceEntmaepai) {
    entElemento e;
    Error err = Capturar([&] { e.ToXML("no valido"); });
    EXPECT_EQ(err.Source, " entmaepai");
    EXPECT_EQ(err.Number, XML::kInvalidName);
}

TEST(entElemento, ToXMLOfANullValorFailsUnderEntmaepai) {
    entElemento e;
    e.Valor = Variant::Null();
    Error err = Capturar([&] { e.ToXML(); });
    EXPECT_EQ(err.Source, " entmaepai");
    EXPECT_EQ(err.Number, 94);
}

// ---- coleccionElementos ---------------------------------------------------

TEST(coleccionElementos, ContractNames) {
    auto l = std::make_shared<coleccionElementos>();
    EXPECT_EQ(l->IListaEntidades_Nombre(), "coleccionElementos");
    EXPECT_EQ(l->IListaEntidades_Tabla(), "");
    EXPECT_EQ(l->TypeName(), "coleccionElementos");
    auto nueva = l->IListaEntidades_NewEntidad();
    ASSERT_TRUE(nueva);
    EXPECT_EQ(nueva->TypeName(), "entElemento");
    EXPECT_EQ(l->Count(), 0);  // NewEntidad does not add
}

TEST(coleccionElementos, ItemClaveFindsANameThatDiffersOnlyInCase) {
    coleccionElementos l;
    l.Add("Precio", Variant(1));
    auto e = l.Add("Descripcion", Variant("d"));
    EXPECT_EQ(l.ItemClave("DESCRIPCION"), e);
    EXPECT_EQ(l.ItemClave("descripcion"), e);
}

TEST(coleccionElementos, AddTwiceWithOneNameKeepsBothAndItemClaveReturnsTheFirst) {
    coleccionElementos l;
    auto primero = l.Add("x", Variant(1));
    auto segundo = l.Add("X", Variant(2));
    EXPECT_EQ(l.Count(), 2);
    EXPECT_NE(primero, segundo);
    EXPECT_EQ(l.ItemClave("x"), primero);
}

TEST(coleccionElementos, ItemBeyondCountFailsWithTheCollectionErrorWhileItemClaveOfUnknownNameIsNull) {
    coleccionElementos l;
    l.Add("a", Variant(1));
    Error err = Capturar([&] { l.Item(2); });
    EXPECT_EQ(err.Number, 9);
    EXPECT_EQ(err.Description, "Subscript out of range");
    EXPECT_EQ(Capturar([&] { l.Item(Variant(0)); }).Number, 9);
    EXPECT_EQ(l.ItemClave("b"), nullptr);
}

TEST(coleccionElementos, ItemWithAStringFailsBecauseElementsHaveNoKey) {
    coleccionElementos l;
    l.Add("a", Variant(1));
    EXPECT_EQ(Capturar([&] { l.Item(Variant("a")); }).Number, 5);
}

TEST(coleccionElementos, RemoveClosesTheGap) {
    coleccionElementos l;
    auto a = l.Add("a", Variant(1));
    auto b = l.Add("b", Variant(2));
    auto c = l.Add("c", Variant(3));
    l.Remove(Variant(1));
    ASSERT_EQ(l.Count(), 2);
    EXPECT_EQ(l.Item(1), b);
    EXPECT_EQ(l.Item(2), c);
    l.Remove(2);
    ASSERT_EQ(l.Count(), 1);
    EXPECT_EQ(l.Item(Variant(1)), b);
}

TEST(coleccionElementos, AddEntidadAppendsTheGivenObjectNotACopy) {
    coleccionElementos l;
    auto e = std::make_shared<entElemento>();
    auto r = l.AddEntidad(e);
    EXPECT_EQ(r, e);
    EXPECT_EQ(l.Item(1), e);
    e->Nombre = "cambiado";
    EXPECT_EQ(l.ItemClave("CAMBIADO"), e);
}

TEST(coleccionElementos, AddEntidadOfNoObjectAppendsItAndItemClaveRaisesWhenItReachesIt) {
    coleccionElementos l;
    l.Add("antes", Variant(1));
    EXPECT_EQ(l.AddEntidad(entElementoRef()), nullptr);
    l.Add("despues", Variant(2));
    EXPECT_EQ(l.Count(), 3);
    EXPECT_EQ(l.ItemClave("ANTES"), l.Item(1));  // found before the element that is no object
    EXPECT_EQ(Capturar([&] { l.ItemClave("despues"); }).Number, 91);
}

TEST(coleccionElementos, AddAssignsBothFieldsWithoutConversion) {
    coleccionElementos l;
    auto e = l.Add("Fecha", Variant(Date(1.0)));
    EXPECT_EQ(e->Nombre, "Fecha");
    EXPECT_EQ(e->Valor, Variant(Date(1.0)));
}

TEST(coleccionElementos, EnumerationGoesInInsertionOrder) {
    coleccionElementos l;
    l.Add("a", Variant(1));
    l.Add("b", Variant(2));
    l.Add("c", Variant(3));
    std::string nombres;
    for (const auto& e : l) nombres += e->Nombre;
    EXPECT_EQ(nombres, "abc");
}
