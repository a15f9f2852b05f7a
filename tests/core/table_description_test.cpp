// A table description is checked once, when it is built: a broken one fails
// with one clear error naming the table and the problem.
#include <gtest/gtest.h>

#include "ZARODatos/access/TableAdapter.h"
#include "support/capturar.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

namespace {

// One entity class, described in several ways by the tests.
class entprueba : public TableEntity<entprueba> {
public:
    std::string A;
    int32_t B = 0;
    std::string C;
};

using Opciones = TablaBuilder<entprueba>::Opciones;

// A description of three fields with the given places; f changes it before it is finished.
template <class F>
TablaDef Describir(Opciones a, Opciones b, Opciones c, F&& f) {
    TablaBuilder<entprueba> t("prueba", "entprueba", "colprueba", "daprueba");
    t.Campo(&entprueba::A, "A", a);
    t.Campo(&entprueba::B, "B", b);
    t.Campo(&entprueba::C, "C", c);
    TablaDef& d = t.Def();
    d.Select = {"select ", ".A , ", ".B , ", ".C "};
    d.Insert = {" (A, B, C) "};
    d.ArgumentosAdd = {"A", "B", "C"};
    d.ArgumentosItemClave = {"A"};
    f(d);
    return t.Terminar(3);
}
const Opciones kA{1, 1, 1, 0, "  `A` varchar(5), "}, kB{2, 0, 0, 1, "  `B` int, "}, kC{3, 0, 0, 2, "  `C` varchar(5), "};

std::string Problema(std::function<void()> describir) {
    Error e = Capturar(describir);
    EXPECT_EQ(e.Number, 51);
    EXPECT_EQ(e.Source, "TablaDef");
    return e.Description;
}

TEST(TableDescription, AGoodDescriptionIsBuilt) {
    TablaDef d = Describir(kA, kB, kC, [](TablaDef&) {});
    EXPECT_EQ(d.Buscar("b"), 1);
    EXPECT_EQ(d.PorClave, std::vector<int16_t>{0});
}

TEST(TableDescription, ADeviationNamingNoFieldFails) {
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.CampoNombreVacio = d.Campo("D"); }); }),
              "Table description prueba: D names no field");
}

TEST(TableDescription, AnIndexPlaceLeftOutFails) {
    EXPECT_EQ(Problema([] { Describir(kA, kB, {4, 0, 0, 2, "  `C` int, "}, [](TablaDef&) {}); }),
              "Table description prueba: index place 3 is left out");
}

TEST(TableDescription, KeySetAndRequiredPlacesWithAGapFail) {
    EXPECT_EQ(Problema([] { Describir(kA, {2, 3, 0, 1, "  `B` int, "}, kC, [](TablaDef&) {}); }),
              "Table description prueba: key places are not 1 to 2 without a gap (place 2)");
    EXPECT_EQ(Problema([] { Describir(kA, {2, 0, 0, 2, "  `B` int, "}, kC, [](TablaDef&) {}); }),
              "Table description prueba: set places are not 1 to 2 without a gap (place 1)");
    EXPECT_EQ(Problema([] { Describir(kA, kB, {3, 0, 3, 2, "  `C` int, "}, [](TablaDef&) {}); }),
              "Table description prueba: required places are not 1 to 2 without a gap (place 2)");
}

TEST(TableDescription, SelectAndInsertPiecesThatDoNotMatchTheFieldsFail) {
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.Select = {"select ", ".A , ", ".X "}; }); }),
              "Table description prueba: the select list names X, which is no field");
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.Select = {"select ", ".A , ", ".B "}; }); }),
              "Table description prueba: the select list names C 0 times");
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.Insert = {" (A, B, B, C) "}; }); }),
              "Table description prueba: the insert list names B 2 times");
    // A field with no column of its own is read by no select.
    Describir(kA, kB, {3, 0, 0, 2, ""}, [](TablaDef& d) { d.Select = {"select ", ".A , ", ".B "}; });
}

TEST(TableDescription, ArgumentListsNamingNoFieldFail) {
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.ArgumentosAdd = {"A", "Z"}; }); }),
              "Table description prueba: the arguments of Add name Z, which is no field");
    EXPECT_EQ(Problema([] { Describir(kA, kB, kC, [](TablaDef& d) { d.ArgumentosItemClave = {"Q"}; }); }),
              "Table description prueba: the arguments of ItemClave name Q, which is no field");
}

TEST(TableDescription, ASecondIndexForANameThatIsNoFieldFails) {
    Error e = Capturar([] {
        TablaBuilder<entprueba> t("prueba", "entprueba", "colprueba", "daprueba");
        t.Campo(&entprueba::A, "A", kA);
        t.IndiceExtra(2, "NADA");
    });
    EXPECT_EQ(e.Description, "Table description prueba: NADA names no field");
}

// A table of one key field, whose adapter gives its key two values.
class entclave : public TableEntity<entclave> {
public:
    std::string A;
    static const TablaDef& Def() {
        static const TablaDef def = [] {
            TablaBuilder<entclave> t("clave", "entclave", "colclave", "daclave");
            t.Campo(&entclave::A, "A", {1, 1, 1, 0, "  `A` varchar(5), "});
            t.Def().Select = {"select ", ".A "};
            t.Def().Insert = {" (A) "};
            return t.Terminar(1);
        }();
        return def;
    }
};
class colclave : public TypedList<colclave, entclave> {};
class daclave : public TableAdapter<entclave, colclave> {
public:
    EntityRef EntidadConDosValores() { return EntidadPorClave({Variant("a"), Variant("b")}, {}); }
    void BorrarSinValores() { BorrarPorClave({}, {}); }
    ListRef ListarConDosValores() { return ListarPorClave({Variant("a"), Variant("b")}, {}); }
};

TEST(TableDescription, KeyValuesOfAnotherArityThanTheKeyFail) {
    daclave da;
    const std::string problema = "Table description clave: 2 key values given where the key has 1 fields";
    EXPECT_EQ(Problema([&] { da.EntidadConDosValores(); }), problema);
    EXPECT_EQ(Problema([&] { da.ListarConDosValores(); }), problema);
    // Delete with no connection would raise 1 first: give it one that is never reached.
    da.Conexion = std::make_shared<ADODB::Connection>();
    EXPECT_EQ(Problema([&] { da.BorrarSinValores(); }),
              "Table description clave: 0 key values given where the key has 1 fields");
}

}  // namespace
