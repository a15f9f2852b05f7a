#include "ZARODatos/platform/XML.h"

#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::XML {

namespace {
const char kSource[] = "XML.DOMDocument";

const xmlChar* X(const std::string& s) { return reinterpret_cast<const xmlChar*>(s.c_str()); }

std::string Volcar(xmlNodePtr node) {
    if (!node) return {};
    xmlBufferPtr buf = xmlBufferCreate();
    if (!buf) RaisePlatform(ErrNum::InvalidCall, kSource);
    xmlNodeDump(buf, node->doc, node, 0, 0);
    std::string r(reinterpret_cast<const char*>(xmlBufferContent(buf)), static_cast<size_t>(xmlBufferLength(buf)));
    xmlBufferFree(buf);
    return r;
}
}  // namespace

std::string IXMLDOMNode::nodeName() const {
    if (node_->type == XML_TEXT_NODE) return "#text";
    return node_->name ? reinterpret_cast<const char*>(node_->name) : "";
}

std::string IXMLDOMNode::text() const {
    xmlChar* c = xmlNodeGetContent(node_);
    std::string r = c ? reinterpret_cast<const char*>(c) : "";
    xmlFree(c);
    return r;
}

std::string IXMLDOMNode::xml() const { return Volcar(node_); }

void IXMLDOMElement::appendChild(const std::shared_ptr<IXMLDOMNode>& child) {
    if (!child) RaisePlatform(ErrNum::ObjectRequired, kSource);
    if (child->ownerDocument() != doc_ || child.get() == this)
        throw Error(kNotAllowed, kSource, "The node can not be inserted here.");
    xmlNodePtr n = child->Native();
    xmlUnlinkNode(n);
    if (!xmlAddChild(node_, n)) throw Error(kNotAllowed, kSource, "The node can not be inserted here.");
}

std::vector<std::shared_ptr<IXMLDOMNode>> IXMLDOMElement::childNodes() const {
    std::vector<std::shared_ptr<IXMLDOMNode>> r;
    for (xmlNodePtr c = node_->children; c; c = c->next) {
        if (c->type == XML_ELEMENT_NODE) r.push_back(std::make_shared<IXMLDOMElement>(doc_, c));
        else r.push_back(std::make_shared<IXMLDOMText>(doc_, c));
    }
    return r;
}

DOMDocument::DOMDocument() : doc_(xmlNewDoc(BAD_CAST "1.0")) {
    if (!doc_) RaisePlatform(7, kSource);
}

DOMDocument::~DOMDocument() {
    // Nodes never put into the tree are not freed with it.
    std::vector<xmlNodePtr> sueltos;
    for (xmlNodePtr n : creados_)
        if (!n->parent) sueltos.push_back(n);
    for (xmlNodePtr n : sueltos) xmlFreeNode(n);
    xmlFreeDoc(doc_);
}

std::shared_ptr<DOMDocument> DOMDocument::Create() { return std::shared_ptr<DOMDocument>(new DOMDocument()); }

std::shared_ptr<IXMLDOMElement> DOMDocument::createElement(const Variant& tagName) {
    std::string nombre = CStr(tagName);
    if (nombre.empty() || xmlValidateName(X(nombre), 0) != 0)
        throw Error(kInvalidName, kSource, "Invalid XML name: " + nombre);
    xmlNodePtr n = xmlNewDocNode(doc_, nullptr, X(nombre), nullptr);
    if (!n) RaisePlatform(7, kSource);
    creados_.push_back(n);
    return std::make_shared<IXMLDOMElement>(std::static_pointer_cast<DOMDocument>(shared_from_this()), n);
}

std::shared_ptr<IXMLDOMText> DOMDocument::createTextNode(const Variant& data) {
    std::string texto = CStr(data);
    xmlNodePtr n = xmlNewDocTextLen(doc_, X(texto), static_cast<int>(texto.size()));
    if (!n) RaisePlatform(7, kSource);
    creados_.push_back(n);
    return std::make_shared<IXMLDOMText>(std::static_pointer_cast<DOMDocument>(shared_from_this()), n);
}

void DOMDocument::appendChild(const std::shared_ptr<IXMLDOMElement>& element) {
    if (!element) RaisePlatform(ErrNum::ObjectRequired, kSource);
    if (element->ownerDocument().get() != this || xmlDocGetRootElement(doc_))
        throw Error(kNotAllowed, kSource, "The node can not be inserted here.");
    xmlNodePtr n = element->Native();
    xmlUnlinkNode(n);
    xmlDocSetRootElement(doc_, n);
}

std::shared_ptr<IXMLDOMElement> DOMDocument::documentElement() {
    xmlNodePtr r = xmlDocGetRootElement(doc_);
    if (!r) return nullptr;
    return std::make_shared<IXMLDOMElement>(std::static_pointer_cast<DOMDocument>(shared_from_this()), r);
}

std::string DOMDocument::xml() const { return Volcar(xmlDocGetRootElement(doc_)); }

}  // namespace OVT_ZARO::XML
