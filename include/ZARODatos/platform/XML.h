// The XML document service over libxml2: a document, its elements and text
// nodes, and their XML text.
//
// Every Create gives a new document of its own. Nodes keep their document
// alive; asking twice for the same node gives the same object. Text is UTF-8.
// Errors (source "XML.DOMDocument"):
//   5001 kInvalidName  createElement with an empty name or one that is not an
//                      XML name: "Invalid XML name: <name>";
//   5002 kNotAllowed   a node put where it can not go: from another document,
//                      into itself or its own descendant, a second document
//                      element, text at the top of the document;
//   5003 kInvalidText  createTextNode with text that is not valid UTF-8.
// createTextNode takes a value in its default string form (CStr), so 12.5
// arrives as "12,5" and the date 0 as "0:00:00" (Null raises 94 there). The
// XML text escapes "<", "&" and ">" and has no declaration.
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
inline constexpr int32_t kInvalidText = 5003;

class DOMDocument;
class IXMLDOMElement;
class IXMLDOMText;

namespace detail {
struct XmlAccess;  // the service's own reach into its nodes, in its source
}

// The key of a node's constructor: only the service makes nodes.
class NodeKey {
    NodeKey() = default;
    friend struct detail::XmlAccess;
};

class IXMLDOMNode : public Object {
public:
    ~IXMLDOMNode() override;
    IXMLDOMNode(const IXMLDOMNode&) = delete;
    IXMLDOMNode& operator=(const IXMLDOMNode&) = delete;

    // The element's name; "#text" for a text node.
    std::string nodeName() const;
    // The text of the node and of all its descendants.
    std::string text() const;
    // The node's XML text.
    std::string xml() const;
    std::shared_ptr<DOMDocument> ownerDocument() const { return doc_; }
    // The child nodes, in order (none for a text node).
    std::vector<std::shared_ptr<IXMLDOMNode>> childNodes() const;
    bool hasChildNodes() const;

    IXMLDOMNode(NodeKey, std::shared_ptr<DOMDocument> doc, _xmlNode* node);

private:
    friend struct detail::XmlAccess;
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
    // Appends a node of the same document as the last child, moving it from
    // where it was. Gives the node back.
    std::shared_ptr<IXMLDOMElement> appendChild(const std::shared_ptr<IXMLDOMElement>& child);
    std::shared_ptr<IXMLDOMText> appendChild(const std::shared_ptr<IXMLDOMText>& child);
    std::shared_ptr<IXMLDOMNode> appendChild(const std::shared_ptr<IXMLDOMNode>& child);
};

class DOMDocument : public Object {
public:
    static std::shared_ptr<DOMDocument> Create();
    ~DOMDocument() override;
    DOMDocument(const DOMDocument&) = delete;
    DOMDocument& operator=(const DOMDocument&) = delete;

    std::shared_ptr<IXMLDOMElement> createElement(const Variant& tagName);
    std::shared_ptr<IXMLDOMText> createTextNode(const Variant& data);
    // Makes the element the document element (there is one at most).
    std::shared_ptr<IXMLDOMElement> appendChild(const std::shared_ptr<IXMLDOMElement>& element);
    std::shared_ptr<IXMLDOMNode> appendChild(const std::shared_ptr<IXMLDOMNode>& node);
    // The document element, or nullptr.
    std::shared_ptr<IXMLDOMElement> documentElement();
    // The document's XML text: its document element's, without a declaration.
    std::string xml() const;

    std::string TypeName() const override { return "DOMDocument"; }

private:
    friend struct detail::XmlAccess;
    DOMDocument();
    _xmlDoc* doc_;
    std::vector<_xmlNode*> created_;  // every node made here, to free those left outside the tree
};

}  // namespace OVT_ZARO::XML
