// The XML document: elements, text nodes, names, escaping and ownership.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/XML.h"

using namespace OVT_ZARO;
using namespace OVT_ZARO::XML;

namespace {

Error CreateElementError(const Variant& name) {
    auto doc = DOMDocument::Create();
    try {
        doc->createElement(name);
    } catch (const Error& e) {
        return e;
    }
    return Error(0, "", "no error");
}

// The text between the outer tags of an element's XML, its entities read back.
std::string ParsedText(const std::string& xml) {
    const size_t open = xml.find('>');
    const size_t close = xml.rfind("</");
    if (open == std::string::npos || close == std::string::npos || close < open) return "<not an element>";
    const std::string body = xml.substr(open + 1, close - open - 1);
    std::string r;
    for (size_t i = 0; i < body.size();) {
        if (body[i] == '<') return "<raw less-than>";
        if (body[i] == '&') {
            const size_t semi = body.find(';', i);
            const std::string ent = body.substr(i, semi - i + 1);
            if (ent == "&lt;") r += '<';
            else if (ent == "&gt;") r += '>';
            else if (ent == "&amp;") r += '&';
            else if (ent == "&quot;") r += '"';
            else if (ent == "&apos;") r += '\'';
            else return "<unknown entity " + ent + ">";
            i = semi + 1;
        } else {
            r += body[i++];
        }
    }
    return r;
}

}  // namespace

TEST(XmlDocument, AnElementNamedWithASpaceRaisesInvalidName) {
    const Error e = CreateElementError(Variant("COD ARTICULO"));
    EXPECT_EQ(e.Number, kInvalidName);
    EXPECT_EQ(e.Source, "XML.DOMDocument");
    EXPECT_EQ(e.Description, "Invalid XML name: COD ARTICULO");
}

TEST(XmlDocument, AnEmptyNameAndNamesThatAreNoXmlNamesRaiseInvalidName) {
    for (const Variant& name : {Variant(""), Variant("1abc"), Variant("a<b"), Variant(int32_t{5}), Variant("a&b"),
                                Variant("-x")}) {
        EXPECT_EQ(CreateElementError(name).Number, kInvalidName) << CStr(name);
    }
}

TEST(XmlDocument, ValidNamesIncludingAccentedLettersAreAccepted) {
    auto doc = DOMDocument::Create();
    for (const char* name : {"articulo", "COD_TRANSACC", "_x", "a.b-c", "AÑO", "ns:tag"}) {
        auto el = doc->createElement(Variant(name));
        EXPECT_EQ(el->nodeName(), name);
        EXPECT_EQ(el->xml(), std::string("<") + name + "/>");
    }
}

TEST(XmlDocument, LessThanAndAmpersandComeOutEscapedAndReadBackIntact) {
    auto doc = DOMDocument::Create();
    auto root = doc->createElement(Variant("r"));
    doc->appendChild(root);
    const std::string text = "a < b & c > d \"e\" 'f'";
    root->appendChild(doc->createTextNode(Variant(text)));
    EXPECT_EQ(root->xml(), "<r>a &lt; b &amp; c &gt; d \"e\" 'f'</r>");
    EXPECT_EQ(root->text(), text);
    EXPECT_EQ(ParsedText(doc->xml()), text);
}

TEST(XmlDocument, ADoubleBecomesItsDefaultStringForm) {
    auto doc = DOMDocument::Create();
    auto el = doc->createElement(Variant("IMPORTE"));
    el->appendChild(doc->createTextNode(Variant(12.5)));
    EXPECT_EQ(el->xml(), "<IMPORTE>12,5</IMPORTE>");
}

TEST(XmlDocument, TheDateValueZeroBecomesMidnight) {
    auto doc = DOMDocument::Create();
    auto el = doc->createElement(Variant("FECHA"));
    el->appendChild(doc->createTextNode(Variant(Date(0.0))));
    EXPECT_EQ(el->text(), "0:00:00");
}

TEST(XmlDocument, NumbersBooleansAndEmptyTextTakeTheirDefaultStringForm) {
    auto doc = DOMDocument::Create();
    auto el = doc->createElement(Variant("v"));
    el->appendChild(doc->createTextNode(Variant(int32_t{-7})));
    el->appendChild(doc->createTextNode(Variant(true)));
    el->appendChild(doc->createTextNode(Variant("")));
    EXPECT_EQ(el->text(), "-7True");
    EXPECT_EQ(el->childNodes().size(), 3u);
}

TEST(XmlDocument, ANullValueRaisesTheConversionError) {
    auto doc = DOMDocument::Create();
    try {
        doc->createTextNode(Variant::Null());
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 94);
    }
}

TEST(XmlDocument, TextThatIsNotUtf8RaisesInvalidText) {
    auto doc = DOMDocument::Create();
    try {
        doc->createTextNode(Variant(std::string("caf\xE9")));
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, kInvalidText);
    }
}

TEST(XmlDocument, AccentedTextComesOutAsUtf8) {
    auto doc = DOMDocument::Create();
    auto el = doc->createElement(Variant("DESC"));
    el->appendChild(doc->createTextNode(Variant("Ñandú ´")));
    EXPECT_EQ(el->xml(), "<DESC>Ñandú ´</DESC>");
}

TEST(XmlDocument, TheElementOfAnEntityHasOneChildPerFieldInOrder) {
    auto doc = DOMDocument::Create();
    auto root = doc->createElement(Variant("articulo"));
    doc->appendChild(root);
    for (const char* f : {"COD_TRANSACC", "CD_ARTICULO", "VACIO"}) {
        auto child = doc->createElement(Variant(f));
        root->appendChild(child);
        child->appendChild(doc->createTextNode(Variant(std::string(f) == "VACIO" ? "" : "0")));
    }
    EXPECT_EQ(root->xml(), "<articulo><COD_TRANSACC>0</COD_TRANSACC><CD_ARTICULO>0</CD_ARTICULO><VACIO></VACIO></articulo>");
    EXPECT_EQ(doc->xml(), root->xml());
    EXPECT_EQ(doc->documentElement(), root);
    auto children = root->childNodes();
    ASSERT_EQ(children.size(), 3u);
    EXPECT_EQ(children[1]->nodeName(), "CD_ARTICULO");
    EXPECT_EQ(children[1]->childNodes()[0]->nodeName(), "#text");
    EXPECT_EQ(children[1]->ownerDocument(), doc);
}

TEST(XmlDocument, TwoDocumentsAreSeparate) {
    auto a = DOMDocument::Create();
    auto b = DOMDocument::Create();
    EXPECT_NE(a, b);
    a->appendChild(a->createElement(Variant("uno")));
    EXPECT_EQ(b->documentElement(), nullptr);
    EXPECT_EQ(b->xml(), "");
}

TEST(XmlDocument, ANodeOfAnotherDocumentIsRefused) {
    auto a = DOMDocument::Create();
    auto b = DOMDocument::Create();
    auto ea = a->createElement(Variant("a"));
    auto eb = b->createElement(Variant("b"));
    try {
        ea->appendChild(eb);
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, kNotAllowed);
    }
    EXPECT_THROW(a->appendChild(eb), Error);
}

TEST(XmlDocument, ASecondDocumentElementIsRefused) {
    auto doc = DOMDocument::Create();
    doc->appendChild(doc->createElement(Variant("a")));
    try {
        doc->appendChild(doc->createElement(Variant("b")));
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, kNotAllowed);
    }
    // Text at the top of the document is refused too.
    EXPECT_THROW(doc->appendChild(std::shared_ptr<IXMLDOMNode>(doc->createTextNode(Variant("t")))), Error);
}

TEST(XmlDocument, AnElementCanNotGoIntoItselfOrItsDescendant) {
    auto doc = DOMDocument::Create();
    auto a = doc->createElement(Variant("a"));
    auto b = doc->createElement(Variant("b"));
    a->appendChild(b);
    EXPECT_THROW(a->appendChild(a), Error);
    EXPECT_THROW(b->appendChild(a), Error);
}

TEST(XmlDocument, AppendingANodeAgainMovesIt) {
    auto doc = DOMDocument::Create();
    auto a = doc->createElement(Variant("a"));
    auto b = doc->createElement(Variant("b"));
    auto c = doc->createElement(Variant("c"));
    a->appendChild(c);
    b->appendChild(c);
    EXPECT_EQ(a->xml(), "<a/>");
    EXPECT_EQ(b->xml(), "<b><c/></b>");
}

TEST(XmlDocument, TwoTextNodesSideBySideStayTwoNodes) {
    auto doc = DOMDocument::Create();
    auto el = doc->createElement(Variant("e"));
    auto t1 = doc->createTextNode(Variant("uno"));
    auto t2 = doc->createTextNode(Variant("dos"));
    el->appendChild(t1);
    el->appendChild(t2);
    ASSERT_EQ(el->childNodes().size(), 2u);
    EXPECT_EQ(el->childNodes()[0], t1);
    EXPECT_EQ(t2->text(), "dos");
    EXPECT_EQ(el->text(), "unodos");
}

TEST(XmlDocument, AnElementKeepsItsDocumentAlive) {
    std::shared_ptr<IXMLDOMElement> el;
    {
        auto doc = DOMDocument::Create();
        el = doc->createElement(Variant("vive"));
        doc->appendChild(el);
        el->appendChild(doc->createTextNode(Variant("sí")));
    }
    EXPECT_EQ(el->xml(), "<vive>sí</vive>");
    EXPECT_EQ(el->ownerDocument()->documentElement(), el);
}

TEST(XmlDocument, NodesLeftOutsideTheTreeAreFreedWithTheDocument) {
    // Under the sanitizer build a leak here fails the program.
    auto doc = DOMDocument::Create();
    auto loose = doc->createElement(Variant("suelto"));
    loose->appendChild(doc->createTextNode(Variant("x")));
    loose->appendChild(doc->createElement(Variant("hijo")));
    doc->createTextNode(Variant("nadie"));
    auto root = doc->createElement(Variant("r"));
    doc->appendChild(root);
    auto moved = doc->createElement(Variant("m"));
    root->appendChild(moved);
    loose->appendChild(moved);
    EXPECT_EQ(root->xml(), "<r/>");
}

TEST(XmlDocument, ObjectsReportTheirTypeNames) {
    auto doc = DOMDocument::Create();
    EXPECT_EQ(TypeName(Variant(doc)), "DOMDocument");
    EXPECT_EQ(TypeName(Variant(doc->createElement(Variant("e")))), "IXMLDOMElement");
    EXPECT_EQ(TypeName(Variant(doc->createTextNode(Variant("t")))), "IXMLDOMText");
}
