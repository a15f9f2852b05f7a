#include "ZARODatos/platform/XML.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlstring.h>

#include <algorithm>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::XML {

// What the service reaches inside its nodes and documents.
struct detail::XmlAccess {
    static _xmlNode* Native(const IXMLDOMNode& n) { return n.node_; }
    // The one wrapper of a node of the document.
    static std::shared_ptr<IXMLDOMNode> Wrap(DOMDocument& d, _xmlNode* node) {
        if (node->_private) {
            if (auto existing = static_cast<IXMLDOMNode*>(node->_private)->weak_from_this().lock())
                return std::static_pointer_cast<IXMLDOMNode>(existing);
        }
        auto self = std::static_pointer_cast<DOMDocument>(d.shared_from_this());
        if (node->type == XML_ELEMENT_NODE) return std::make_shared<IXMLDOMElement>(NodeKey(), self, node);
        return std::make_shared<IXMLDOMText>(NodeKey(), self, node);
    }
};

namespace {

using Access = detail::XmlAccess;

xmlNodePtr Native(const IXMLDOMNode& n) { return Access::Native(n); }
std::shared_ptr<IXMLDOMNode> Wrap(DOMDocument& d, xmlNodePtr n) { return Access::Wrap(d, n); }

const char kSource[] = "XML.DOMDocument";

const xmlChar* X(const std::string& s) { return reinterpret_cast<const xmlChar*>(s.c_str()); }

[[noreturn]] void NotAllowed(const std::string& why) { throw Error(kNotAllowed, kSource, why); }

[[noreturn]] void OutOfMemory() { throw Error(7, kSource, PlatformErrorText(7)); }

std::string Dump(xmlNodePtr node) {
    if (!node) return {};
    xmlBufferPtr buf = xmlBufferCreate();
    if (!buf) OutOfMemory();
    xmlNodeDump(buf, node->doc, node, 0, 0);
    std::string r(reinterpret_cast<const char*>(xmlBufferContent(buf)), static_cast<size_t>(xmlBufferLength(buf)));
    xmlBufferFree(buf);
    return r;
}

// Links child as the last child of parent. Done by hand: libxml2's own
// functions merge adjacent text nodes and free one of them, and a text node
// handed out must stay what it is.
void LinkLast(xmlNodePtr parent, xmlNodePtr child) {
    xmlUnlinkNode(child);
    child->parent = parent;
    child->prev = parent->last;
    child->next = nullptr;
    if (parent->last) parent->last->next = child;
    else parent->children = child;
    parent->last = child;
}

void CheckChild(const IXMLDOMNode& parent, const std::shared_ptr<IXMLDOMNode>& child) {
    if (!child) RaisePlatform(ErrNum::ObjectRequired, kSource);
    if (child->ownerDocument() != parent.ownerDocument())
        NotAllowed("The node belongs to another document and can not be inserted here.");
    for (xmlNodePtr a = Native(parent); a; a = a->parent)
        if (a == Native(*child)) NotAllowed("A node can not be inserted into itself or into its own descendant.");
}

}  // namespace

// ------------------------------------------------------------------ nodes

IXMLDOMNode::IXMLDOMNode(NodeKey, std::shared_ptr<DOMDocument> doc, _xmlNode* node) : doc_(std::move(doc)), node_(node) {
    node_->_private = this;
}

IXMLDOMNode::~IXMLDOMNode() {
    if (node_->_private == this) node_->_private = nullptr;
}

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

std::string IXMLDOMNode::xml() const { return Dump(node_); }

std::vector<std::shared_ptr<IXMLDOMNode>> IXMLDOMNode::childNodes() const {
    std::vector<std::shared_ptr<IXMLDOMNode>> r;
    if (node_->type != XML_ELEMENT_NODE) return r;
    for (xmlNodePtr c = node_->children; c; c = c->next) r.push_back(Wrap(*doc_, c));
    return r;
}

bool IXMLDOMNode::hasChildNodes() const { return node_->type == XML_ELEMENT_NODE && node_->children != nullptr; }

std::shared_ptr<IXMLDOMNode> IXMLDOMElement::appendChild(const std::shared_ptr<IXMLDOMNode>& child) {
    CheckChild(*this, child);
    LinkLast(Native(*this), Native(*child));
    return child;
}

std::shared_ptr<IXMLDOMElement> IXMLDOMElement::appendChild(const std::shared_ptr<IXMLDOMElement>& child) {
    appendChild(std::static_pointer_cast<IXMLDOMNode>(child));
    return child;
}

std::shared_ptr<IXMLDOMText> IXMLDOMElement::appendChild(const std::shared_ptr<IXMLDOMText>& child) {
    appendChild(std::static_pointer_cast<IXMLDOMNode>(child));
    return child;
}

// ------------------------------------------------------------------ document

DOMDocument::DOMDocument() : doc_(xmlNewDoc(BAD_CAST "1.0")) {
    if (!doc_) OutOfMemory();
    // Text is written out as UTF-8, not as character references.
    doc_->encoding = xmlStrdup(BAD_CAST "UTF-8");
}

DOMDocument::~DOMDocument() {
    // Nodes that never reached the tree (or were cut off with their parent)
    // are not freed with it: each such subtree is freed once, from its top.
    xmlNodePtr root = xmlDocGetRootElement(doc_);
    std::vector<xmlNodePtr> tops;
    for (xmlNodePtr n : created_) {
        xmlNodePtr t = n;
        while (t->parent && t->parent->type != XML_DOCUMENT_NODE) t = t->parent;
        if (t != root && std::find(tops.begin(), tops.end(), t) == tops.end()) tops.push_back(t);
    }
    for (xmlNodePtr t : tops) {
        xmlUnlinkNode(t);
        xmlFreeNode(t);
    }
    xmlFreeDoc(doc_);
}

std::shared_ptr<DOMDocument> DOMDocument::Create() {
    xmlInitParser();  // once per process; safe to repeat
    return std::shared_ptr<DOMDocument>(new DOMDocument());
}

std::shared_ptr<IXMLDOMElement> DOMDocument::createElement(const Variant& tagName) {
    const std::string name = CStr(tagName);
    if (name.empty() || xmlValidateName(X(name), 0) != 0)
        throw Error(kInvalidName, kSource, "Invalid XML name: " + name);
    xmlNodePtr n = xmlNewDocNode(doc_, nullptr, X(name), nullptr);
    if (!n) OutOfMemory();
    created_.push_back(n);
    return std::static_pointer_cast<IXMLDOMElement>(Wrap(*this, n));
}

std::shared_ptr<IXMLDOMText> DOMDocument::createTextNode(const Variant& data) {
    const std::string text = CStr(data);
    if (!xmlCheckUTF8(X(text)) || text.find('\0') != std::string::npos)
        throw Error(kInvalidText, kSource, "The text of a text node must be valid UTF-8.");
    xmlNodePtr n = xmlNewDocTextLen(doc_, X(text), static_cast<int>(text.size()));
    if (!n) OutOfMemory();
    created_.push_back(n);
    return std::static_pointer_cast<IXMLDOMText>(Wrap(*this, n));
}

std::shared_ptr<IXMLDOMNode> DOMDocument::appendChild(const std::shared_ptr<IXMLDOMNode>& node) {
    if (!node) RaisePlatform(ErrNum::ObjectRequired, kSource);
    if (node->ownerDocument().get() != this)
        NotAllowed("The node belongs to another document and can not be inserted here.");
    if (Native(*node)->type != XML_ELEMENT_NODE) NotAllowed("Only an element can be the top of a document.");
    xmlNodePtr root = xmlDocGetRootElement(doc_);
    if (root == Native(*node)) return node;
    if (root) NotAllowed("Only one top level element is allowed in an XML document.");
    xmlUnlinkNode(Native(*node));
    xmlDocSetRootElement(doc_, Native(*node));
    return node;
}

std::shared_ptr<IXMLDOMElement> DOMDocument::appendChild(const std::shared_ptr<IXMLDOMElement>& element) {
    appendChild(std::static_pointer_cast<IXMLDOMNode>(element));
    return element;
}

std::shared_ptr<IXMLDOMElement> DOMDocument::documentElement() {
    xmlNodePtr r = xmlDocGetRootElement(doc_);
    if (!r) return nullptr;
    return std::static_pointer_cast<IXMLDOMElement>(Wrap(*this, r));
}

std::string DOMDocument::xml() const { return Dump(xmlDocGetRootElement(doc_)); }

}  // namespace OVT_ZARO::XML
