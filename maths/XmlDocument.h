// An XML document as a small tree of nodes that is read and walked, never changed. In: the bytes of a file in
// the program's code page. Out: nodes, or why and where the bytes are no document.
#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vistor {

class XmlNodeList;

enum class XmlNodeType : std::uint8_t { Document, Element, Text, Other };

/// One node of a document, which must outlive it.
class XmlNode {
public:
    XmlNodeType type() const;
    /// A small number, from 0, that equal element names of one document share; of what has no name, -1.
    int nameNumber() const;
    QString nodeName() const;
    XmlNode parent() const;
    /// Of a text node, with references resolved.
    QString value() const;
    XmlNodeList childNodes() const;

private:
    friend class XmlDocument;
    friend class XmlNodeList;
    XmlNode(const class XmlDocument* document, std::uint32_t index) : m_document(document), m_index(index) {}

    const XmlDocument* m_document;
    std::uint32_t m_index;
};

/// The children of a node, in the order of the document.
class XmlNodeList {
public:
    class Iterator {
    public:
        explicit Iterator(XmlNode node) : m_node(node) {}
        XmlNode operator*() const { return m_node; }
        Iterator& operator++();
        bool operator!=(const Iterator& other) const { return m_node.m_index != other.m_node.m_index; }

    private:
        XmlNode m_node;
    };

    std::size_t length() const;
    Iterator begin() const;
    Iterator end() const;

private:
    friend class XmlNode;
    explicit XmlNodeList(XmlNode parent) : m_parent(parent) {}

    XmlNode m_parent;
};

/// Why and where a document could not be read.
struct XmlParseError {
    int errorCode = 0;
    QString reason; ///< ends with a line end
    std::int64_t line = 0;
    std::int64_t linepos = 0; ///< from 1
    std::int64_t filepos = 0; ///< bytes
    QString srcText;          ///< the line with the error
    QString url;
};

/// Text of nothing but white space between elements is left out, and text on both sides of a reference is one
/// node. A document type is refused, so that no entity can expand and nothing outside is fetched.
class XmlDocument {
public:
    static constexpr qint64 kLargestFile = 32 << 20; ///< bytes; a full table takes six megabytes
    static constexpr int kDeepest = 200;             ///< elements inside one another

    /// Reads a file; false, with parseError() filled and the document empty, when it is none.
    bool load(const QString& path);
    /// The same from bytes; `url` is what an error tells as the place.
    bool parse(std::string_view bytes, const QString& url = {});

    const XmlParseError& parseError() const { return m_error; }
    /// The nodes beside the root element, and that one.
    XmlNodeList childNodes() const { return XmlNode(this, 0).childNodes(); }

private:
    friend class XmlNode;
    friend class XmlNodeList;
    friend class XmlTreeBuilder;

    /// 0 stands for no node: the document itself is nobody's child.
    struct Node {
        XmlNodeType type = XmlNodeType::Document;
        std::int32_t name = -1;
        std::uint32_t parent = 0;
        std::uint32_t firstChild = 0;
        std::uint32_t next = 0;
        std::uint32_t children = 0;
        std::uint32_t textStart = 0; ///< in m_text
        std::uint32_t textSize = 0;
    };

    bool fail(XmlParseError error);

    std::vector<Node> m_nodes{Node{}};
    std::vector<std::string> m_names;
    std::string m_text; ///< of all text nodes, UTF-8
    XmlParseError m_error;
};

} // namespace vistor
