// An entity written out as an XML element.
#include <gtest/gtest.h>

#include "ZARODatos/platform/XML.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

namespace {

// Entities of the test's own, described like the tables.
class SinCampos : public TableEntity<SinCampos> {
public:
    static const TablaDef& Def() {
        static const TablaDef def = TablaBuilder<SinCampos>("vacia", "entvacia", "colvacia", "davacia").Terminar(0);
        return def;
    }
};

class NombreMalo : public TableEntity<NombreMalo> {
public:
    std::string Campo;
    static const TablaDef& Def() {
        static const TablaDef def = [] {
            TablaBuilder<NombreMalo> b("mala", "entmala", "colmala", "damala");
            b.Campo(&NombreMalo::Campo, "mal nombre", {1, 0, 0, 0, ""});
            return b.Terminar(1);
        }();
        return def;
    }
};

}  // namespace

TEST(ToXML, WithTheArgumentLeftOutTheElementIsNamedAfterTheEntity) {
    entarticulo e;
    auto el = e.ToXML();
    ASSERT_TRUE(el);
    EXPECT_EQ(el->nodeName(), "articulo");
    EXPECT_EQ(el->xml().substr(0, 40), "<articulo><COD_TRANSACC>0</COD_TRANSACC>");
}

TEST(ToXML, WithAGivenNameTheElementHasThatName) {
    entarticulo e;
    auto el = e.ToXML("Producto");
    EXPECT_EQ(el->nodeName(), "Producto");
}

TEST(ToXML, AStringVariablePassedEmptyComesBackHoldingTheNombre) {
    entarticulo e;
    std::string nombre;
    e.ToXML(nombre);
    EXPECT_EQ(nombre, "articulo");
    std::string propio = "otro";
    e.ToXML(propio);
    EXPECT_EQ(propio, "otro");
}

TEST(ToXML, HoldsOneChildPerFieldInIndexOrderWithTheDefaultStringForm) {
    entarticulo e;
    e.COD_TRANSACC = 5;
    e.FECHA_REAL = Date::FromParts(2026, 3, 1);
    e.PRECIOMAX = 12.5;
    e.CD_ARTICULO = "A1";
    auto el = e.ToXML();
    EXPECT_EQ(el->xml(),
              "<articulo><COD_TRANSACC>5</COD_TRANSACC><FECHA_REAL>01/03/2026</FECHA_REAL><HORA_REAL></HORA_REAL>"
              "<CD_OP>0</CD_OP><TIPO_OPERACION>0</TIPO_OPERACION><CD_ARTICULO>A1</CD_ARTICULO>"
              "<IDARTICOLGS1></IDARTICOLGS1><TIPO_FAMILIA>0</TIPO_FAMILIA><TIPO_SUBFAMILIA>0</TIPO_SUBFAMILIA>"
              "<PRECIOMAX>12,5</PRECIOMAX><DESC_ARTICULO></DESC_ARTICULO><DESC_CORTA></DESC_CORTA></articulo>");
}

TEST(ToXML, TheZeroDateReadsAsMidnight) {
    entarticulo e;
    auto el = e.ToXML();
    EXPECT_NE(el->xml().find("<FECHA_REAL>0:00:00</FECHA_REAL>"), std::string::npos);
}

TEST(ToXML, AnEntityWithNoFieldsGivesARootWithNoChildren) {
    SinCampos e;
    auto el = e.ToXML();
    EXPECT_EQ(el->nodeName(), "vacia");
    EXPECT_EQ(el->xml(), "<vacia/>");
}

TEST(ToXML, TwoCallsGiveTwoSeparateDocuments) {
    entarticulo e;
    auto a = e.ToXML();
    auto b = e.ToXML();
    EXPECT_NE(a, b);
    EXPECT_NE(a->ownerDocument(), b->ownerDocument());
}

TEST(ToXML, AFieldNameThatIsNoXmlNameFailsWithTheSourceOfToXml) {
    NombreMalo e;
    try {
        e.ToXML();
        FAIL();
    } catch (const Error& err) {
        // The document service's number and description, under the source of ToXML.
        EXPECT_EQ(err.Source, " entmaepai");
        EXPECT_EQ(err.Number, XML::kInvalidName);
        EXPECT_EQ(err.Description, "Invalid XML name: mal nombre");
    }
}

TEST(ToXML, AnElementNameThatIsNoXmlNameFailsOnATableEntityToo) {
    entarticulo e;
    std::string nombre = "dos palabras";
    try {
        e.ToXML(nombre);
        FAIL();
    } catch (const Error& err) {
        EXPECT_EQ(err.Source, " entmaepai");
        EXPECT_EQ(err.Number, XML::kInvalidName);
        EXPECT_EQ(err.Description, "Invalid XML name: dos palabras");
    }
}

TEST(ToXML, LessThanAndAmpersandArriveIntactInTheTextNode) {
    entarticulo e;
    e.DESC_ARTICULO = "a < b & c > d";
    auto el = e.ToXML();
    EXPECT_NE(el->xml().find("<DESC_ARTICULO>a &lt; b &amp; c &gt; d</DESC_ARTICULO>"), std::string::npos);
}

TEST(EntidadToXML, FailsWithItsOwnSource) {
    NombreMalo e;
    std::string nombre;
    try {
        BasTroquel::EntidadToXML(e, nombre);
        FAIL();
    } catch (const Error& err) {
        EXPECT_EQ(err.Source, "EntidadToXML");
        EXPECT_EQ(err.Number, XML::kInvalidName);
        EXPECT_EQ(err.Description, "Invalid XML name: mal nombre");
    }
    EXPECT_EQ(nombre, "mala");
}
