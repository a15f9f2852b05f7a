// The dynamic entity and its list, in memory (loading from a database is in
// generic_db_test.cpp).
#include "support/capturar.h"
#include <gtest/gtest.h>

#include "ZARODatos/generic/Generica.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/XML.h"
#include "ZARODatos/tables/articulo.h"
#include "ZARODatos/tables/ticket.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

namespace {

entidadGenericaRef Generica(std::initializer_list<std::pair<const char*, Variant>> campos) {
    auto e = std::make_shared<entidadGenerica>();
    for (const auto& [nombre, valor] : campos) e->SetValor(nombre, Variant(valor));
    return e;
}

}  // namespace

TEST(entidadGenerica, ContractNames) {
    auto e = std::make_shared<entidadGenerica>();
    EXPECT_EQ(e->IEntidad_Nombre(), "entidadGenerica");
    EXPECT_EQ(e->IEntidad_Tabla(), "");
    EXPECT_EQ(e->TypeName(), "entidadGenerica");
    EXPECT_EQ(TypeName(Variant(e)), "entidadGenerica");
}

TEST(entidadGenerica, NewEntityHasNoFieldsAndGetValorReturnsErrorLiteralWithoutMakingAField) {
    entidadGenerica e;
    EXPECT_EQ(e.NumCampos(), 0);
    EXPECT_EQ(e.GetValor("cualquiera"), Variant("#ERROR#"));
    EXPECT_EQ(e.GetValor(""), Variant("#ERROR#"));
    EXPECT_EQ(e.NumCampos(), 0);
}

TEST(entidadGenerica, CamposIsMadeOnFirstUse) {
    entidadGenerica e;
    EXPECT_EQ(e.Campos, nullptr);
    e.NumCampos();
    ASSERT_NE(e.Campos, nullptr);
    EXPECT_EQ(e.Campos->Count(), 0);
    // Set back to no object, the next operation makes a new list again.
    e.Campos = nullptr;
    e.SetValor("a", Variant(1));
    ASSERT_NE(e.Campos, nullptr);
    EXPECT_EQ(e.Campos->Count(), 1);
}

TEST(entidadGenerica, SetValorWithNewNameAddsAFieldAndAnotherCaseChangesIt) {
    entidadGenerica e;
    e.SetValor("Importe", Variant(1.5));
    EXPECT_EQ(e.NumCampos(), 1);
    e.SetValor("IMPORTE", Variant(2.5));
    EXPECT_EQ(e.NumCampos(), 1);
    EXPECT_EQ(e.GetValor("importe"), Variant(2.5));
    EXPECT_EQ(e.GetNombreCampo(int16_t{1}), "Importe");  // the spelling of the first assignment
}

TEST(entidadGenerica, FieldsComeInOrderOfFirstAssignmentAndKeepTheirType) {
    auto e = Generica({{"b", Variant(int32_t{1})}, {"a", Variant("texto")}, {"c", Variant(Date(2.0))}});
    ASSERT_EQ(e->NumCampos(), 3);
    EXPECT_EQ(e->GetNombreCampo(int16_t{1}), "b");
    EXPECT_EQ(e->GetNombreCampo(int16_t{2}), "a");
    EXPECT_EQ(e->GetNombreCampo(int16_t{3}), "c");
    EXPECT_EQ(e->GetValorIndice(int16_t{1}), Variant(int32_t{1}));
    EXPECT_EQ(e->GetValorIndice(int16_t{2}), Variant("texto"));
    EXPECT_EQ(e->GetValorIndice(int16_t{3}), Variant(Date(2.0)));
}

TEST(entidadGenerica, GetValorIndiceOnAnEmptyEntityFailsWithThePositionErrorUnderItsSource) {
    entidadGenerica e;
    Error err = Capturar([&] { e.GetValorIndice(int16_t{1}); });
    EXPECT_EQ(err.Number, 9);
    EXPECT_EQ(err.Source, "entidadGenerica");
    EXPECT_EQ(err.Description, "Subscript out of range");
}

TEST(entidadGenerica, BadIndexFailsInGetNombreCampoAndSetValorIndiceToo) {
    auto e = Generica({{"a", Variant(1)}});
    for (int16_t i : {int16_t{0}, int16_t{2}, int16_t{-1}}) {
        Error err = Capturar([&] { e->GetNombreCampo(i); });
        EXPECT_EQ(err.Number, 9);
        EXPECT_EQ(err.Source, "entidadGenerica");
        err = Capturar([&] { e->SetValorIndice(i, Variant(5)); });
        EXPECT_EQ(err.Number, 9);
        EXPECT_EQ(err.Source, "entidadGenerica");
    }
    EXPECT_EQ(e->NumCampos(), 1);
}

TEST(entidadGenerica, SetValorIndiceStoresInThatField) {
    auto e = Generica({{"a", Variant(1)}, {"b", Variant(2)}});
    e->SetValorIndice(int16_t{2}, Variant("nuevo"));
    EXPECT_EQ(e->GetValor("B"), Variant("nuevo"));
}

TEST(entidadGenerica, TwoEntitiesSharingCamposShareTheirFields) {
    entidadGenerica a, b;
    a.SetValor("x", Variant(1));
    b.Campos = a.Campos;
    b.SetValor("X", Variant(2));
    b.SetValor("y", Variant(3));
    EXPECT_EQ(a.GetValor("x"), Variant(2));
    EXPECT_EQ(a.NumCampos(), 2);
}

TEST(entidadGenerica, CargarDeFromATicketGives24FieldsEndingWithIdTicket) {
    auto t = std::make_shared<entticket>();
    t->CD_TICKET = 77;
    t->idTicket = 5;
    t->ImpNeto_T = 12.5;
    t->Origen = "MAD";
    t->idTPVTransaccion = 99;  // behind idTicket: not copied
    entidadGenerica e;
    e.CargarDe(t);
    ASSERT_EQ(e.NumCampos(), 24);
    EXPECT_EQ(e.GetNombreCampo(int16_t{24}), "idTicket");
    EXPECT_EQ(e.GetNombreCampo(int16_t{1}), "COD_TRANSACC");
    EXPECT_EQ(e.GetValor("idticket"), Variant(int32_t{5}));
    EXPECT_EQ(e.GetValor("CD_TICKET"), Variant(int32_t{77}));
    EXPECT_EQ(e.GetValor("ImpNeto_T"), Variant(12.5));
    EXPECT_EQ(e.GetValor("Origen"), Variant("MAD"));
    EXPECT_EQ(e.GetValor("idTPVTransaccion"), Variant("#ERROR#"));
}

TEST(entidadGenerica, CargarEnIntoAnArticleStoresKnownFieldsAndDropsOthersSilently) {
    auto e = Generica({{"CD_ARTICULO", Variant("A1")}, {"NoExiste", Variant(5)}, {"PRECIOMAX", Variant("3,5")}});
    auto art = std::make_shared<entarticulo>();
    EXPECT_NO_THROW(e->CargarEn(art));
    EXPECT_EQ(art->CD_ARTICULO, "A1");
    EXPECT_DOUBLE_EQ(art->PRECIOMAX, 3.5);  // through the article's own SetValor
}

TEST(entidadGenerica, CargarDeAndCargarEnCarryOnPastAFailingField) {
    // A field of the article that fails (null into an integer field) is
    // skipped and the next one runs.
    auto e = Generica({{"COD_TRANSACC", Variant::Null()}, {"CD_OP", Variant(4)}, {"CD_ARTICULO", Variant("Z")}});
    entarticulo art;
    EXPECT_NO_THROW(e->CargarEn(art));
    EXPECT_EQ(art.COD_TRANSACC, 0);
    EXPECT_EQ(art.CD_OP, 4);
    EXPECT_EQ(art.CD_ARTICULO, "Z");
}

TEST(entidadGenerica, CargarDeAndCargarEnWithNoObjectRaiseNothing) {
    entidadGenerica e;
    EXPECT_NO_THROW(e.CargarDe(std::shared_ptr<IEntidad>()));
    EXPECT_NO_THROW(e.CargarEn(std::shared_ptr<IEntidad>()));
    EXPECT_EQ(e.NumCampos(), 0);
}

TEST(entidadGenerica, CargarDeFromAnotherGenericEntityCopiesValuesNotElements) {
    auto a = Generica({{"x", Variant(1)}, {"y", Variant("b")}});
    entidadGenerica b;
    b.SetValor("Y", Variant("antes"));
    b.CargarDe(a);
    ASSERT_EQ(b.NumCampos(), 2);
    EXPECT_EQ(b.GetNombreCampo(int16_t{1}), "Y");  // existing field kept, value changed
    EXPECT_EQ(b.GetValor("y"), Variant("b"));
    EXPECT_NE(b.Campos->Item(1), a->Campos->Item(2));
}

TEST(entidadGenerica, ToXMLWritesOneChildPerField) {
    auto e = Generica({{"a", Variant(int32_t{1})}, {"b", Variant("x<y&z")}});
    auto el = e->ToXML();
    EXPECT_EQ(el->xml(), "<entidadGenerica><a>1</a><b>x&lt;y&amp;z</b></entidadGenerica>");
    std::string nombre;
    e->ToXML(nombre);
    EXPECT_EQ(nombre, "entidadGenerica");
}

TEST(entidadGenerica, ToXMLOfAnEntityWithoutFieldsIsAnEmptyElement) {
    entidadGenerica e;
    auto el = e.ToXML("fila");
    EXPECT_EQ(el->nodeName(), "fila");
    EXPECT_FALSE(el->hasChildNodes());
}

TEST(entidadGenerica, ToXMLWithAFieldNameThatIsNoXMLNameFailsUnderEntmaepai) {
    auto e = Generica({{"count(*)", Variant(int32_t{3})}});
    Error err = Capturar([&] { e->ToXML(); });
    EXPECT_EQ(err.Number, XML::kInvalidName);
    EXPECT_EQ(err.Source, " entmaepai");
}

// ---- coleccionGenerica ----------------------------------------------------

TEST(coleccionGenerica, ContractNames) {
    auto l = std::make_shared<coleccionGenerica>();
    EXPECT_EQ(l->IListaEntidades_Nombre(), "coleccionGenerica");
    EXPECT_EQ(l->IListaEntidades_Tabla(), "");
    EXPECT_EQ(l->TypeName(), "coleccionGenerica");
    auto nueva = l->IListaEntidades_NewEntidad();
    ASSERT_TRUE(nueva);
    EXPECT_EQ(nueva->IEntidad_Nombre(), "entidadGenerica");
    EXPECT_EQ(l->Count(), 0);
}

TEST(coleccionGenerica, AddAppendsTheGivenObjectAndItemReturnsIt) {
    coleccionGenerica l;
    auto e = Generica({{"a", Variant(1)}});
    EXPECT_EQ(l.Add(e), e);
    EXPECT_EQ(l.Item(1), e);
    EXPECT_EQ(l.Item(Variant(int16_t{1})), e);
    EXPECT_EQ(Capturar([&] { l.Item(2); }).Number, 9);
}

TEST(coleccionGenerica, AddOfNoObjectAppendsItAsItIs) {
    coleccionGenerica l;
    EXPECT_EQ(l.Add(entidadGenericaRef()), nullptr);
    EXPECT_EQ(l.Count(), 1);
    EXPECT_EQ(l.Item(1), nullptr);
}

TEST(coleccionGenerica, CargarWithNoRecordsetRaisesObjectNotSet) {
    coleccionGenerica l;
    EXPECT_EQ(Capturar([&] { l.Cargar(std::shared_ptr<ADODB::Recordset>()); }).Number, 91);
}

TEST(coleccionGenerica, QueriesReadFieldsThroughGetValorAndSeeErrorLiteralForAMissingName) {
    coleccionGenerica l;
    l.Add(Generica({{"n", Variant(int32_t{3})}}));
    l.Add(Generica({{"otro", Variant(int32_t{1})}}));
    l.Add(Generica({{"n", Variant(int32_t{1})}}));
    // The text "#ERROR#" sorts after any number.
    auto ordenada = l.OrderBy("n");
    EXPECT_EQ(ordenada->TypeName(), "coleccionGenerica");
    EXPECT_EQ(ordenada->Item(1), l.Item(3));
    EXPECT_EQ(ordenada->Item(2), l.Item(1));
    EXPECT_EQ(ordenada->Item(3), l.Item(2));
    EXPECT_EQ(l.Where("n", "#error#")->Count(), 1);
    EXPECT_DOUBLE_EQ(l.ObtenerSuma("n"), 4.0);
}

TEST(coleccionGenerica, WhereDelegadoRaisesTheEventWithEachEntity) {
    coleccionGenerica l;
    l.Add(Generica({{"n", Variant(1)}}));
    l.Add(Generica({{"n", Variant(2)}}));
    std::vector<std::string> procesos;
    l.DelegadoEvaluaElementoWhere.Attach([&](std::string& id, entidadGenericaRef& elem, bool& r) {
        procesos.push_back(id);
        r = elem->GetValor("n") == Variant(2);
    });
    auto filtrada = l.WhereDelegado("par");
    ASSERT_EQ(filtrada->Count(), 1);
    EXPECT_EQ(filtrada->Item(1), l.Item(2));
    EXPECT_EQ(procesos, (std::vector<std::string>{"par", "par"}));
    EXPECT_EQ(filtrada->DelegadoEvaluaElementoWhere.HandlerCount(), 0u);
}
