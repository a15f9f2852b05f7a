// The XML document service over libxml2: a document, its elements and text
// nodes, and their XML text.
//
// Every Create gives a new document of its own. Elements and text nodes keep
// their document alive. createElement refuses a name that is not an XML
// name: error 5001 "Invalid XML name: <name>" (5000 + 1, source
// "XML.DOMDocument"). createTextNode takes a value in its default string form
// (CStr), so 12.5 arrives as "12,5" and the date 0 as "0:00:00". The XML text
// escapes "<", "&" and ">".
// Thread: one thread at a time per document.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Object.h"
#include "ZARODatos/platform/Variant.h"

struct _xmlDoc;
struct _xmlNode;

namespace OVT_ZARO::XML {

inline constexpr int32_t kInvalidName = 5001;
inline constexpr int32_t kNotAllowed = 5002;

class DOMDocument;

class IXMLDOMNode : public Object {
public:
    std::string nodeName() const;
    // The text of the node and of all its descendants.
    std::string text() const;
    // The node's XML text.
    std::string xml() const;
    std::shared_ptr<DOMDocument> ownerDocument() const { return doc_; }

    // Internal.
    IXMLDOMNode(std::shared_ptr<DOMDocument> doc, _xmlNode* node) : doc_(std::move(doc)), node_(node) {}
    _xmlNode* Native() const { return node_; }

protected:
    std::shared_ptr<DOMDocument> doc_;
    _xmlNode* node_;
};

class IXMLDOMText : public IXMLDOMNode {
public:
    using IXMLDOMNode::IXMLDOMNode;
    std::string TypeName() const override { return "IXMLDOMText"; }
};

class IXMLDOMElement : public IXMLDOMNode {
public:
    using IXMLDOMNode::IXMLDOMNode;
    std::string TypeName() const override { return "IXMLDOMElement"; }
    // Appends a node of the same document; a node of another document
    // raises kNotAllowed.
    void appendChild(const std::shared_ptr<IXMLDOMNode>& child);
    // The child nodes, in order.
    std::vector<std::shared_ptr<IXMLDOMNode>> childNodes() const;
};

class DOMDocument : public Object {
public:
    static std::shared_ptr<DOMDocument> Create();
    ~DOMDocument() override;
    DOMDocument(const DOMDocument&) = delete;
    DOMDocument& operator=(const DOMDocument&) = delete;

    std::shared_ptr<IXMLDOMElement> createElement(const Variant& tagName);
    std::shared_ptr<IXMLDOMText> createTextNode(const Variant& data);
    // Makes the element the document element.
    void appendChild(const std::shared_ptr<IXMLDOMElement>& element);
    std::shared_ptr<IXMLDOMElement> documentElement();
    // The document's XML text, without a declaration.
    std::string xml() const;

    std::string TypeName() const override { return "DOMDocument"; }

private:
    DOMDocument();
    _xmlDoc* doc_;
    std::vector<_xmlNode*> creados_;  // every node made here, to free those left outside the tree
};

}  // namespace OVT_ZARO::XML
