#include "maths/XmlDocument.h"

#include "platform/CodePage.h"
#include "platform/WholeFile.h"

#include <algorithm>
#include <expat.h>
#include <memory>
#include <unordered_map>

namespace vistor {
namespace {

constexpr int kOwnError = -1; ///< of what the parser library does not judge

bool isWhite(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// The line of `bytes` that holds position `at`.
std::string_view lineAt(std::string_view bytes, std::size_t at) {
    const std::size_t before = at == 0 ? std::string_view::npos : bytes.rfind('\n', at - 1);
    const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
    return bytes.substr(start, end - start);
}

/// A document in UTF-8 made of one whose texts stand in it each as any text in a file, and where its bytes
/// came from.
class Utf8Document {
public:
    explicit Utf8Document(std::string_view bytes) {
        for (std::size_t at = 0; at < bytes.size();) {
            const std::string_view rest = bytes.substr(at);
            const bool isTag = rest.front() == '<';
            const std::size_t end = rest.find(isTag ? '>' : '<');
            const std::string_view piece = rest.substr(0, isTag && end != rest.npos ? end + 1 : end);
            at += piece.size();
            append(piece, static_cast<std::int64_t>(at));
        }
    }
    std::string_view bytes() const { return viewOf(m_bytes); }

    /// The place in the source of a place here; within a text that was brought over, its end at most.
    std::int64_t sourceOf(std::int64_t place) const {
        const auto after = std::upper_bound(m_shifts.begin(), m_shifts.end(), place,
                                            [](std::int64_t p, const Shift& s) { return p < s.here; });
        const Shift before = after == m_shifts.begin() ? Shift{} : *(after - 1);
        const std::int64_t source = before.source + (place - before.here);
        return after == m_shifts.end() ? source : std::min(source, after->source);
    }

private:
    /// From this place on the two run alike.
    struct Shift {
        std::int64_t here = 0;
        std::int64_t source = 0;
    };

    void append(std::string_view piece, std::int64_t sourceEnd) {
        const auto isAscii = [](char c) { return static_cast<signed char>(c) >= 0; };
        if (std::all_of(piece.begin(), piece.end(), isAscii)) {
            m_bytes.append(piece.data(), static_cast<qsizetype>(piece.size()));
            return;
        }
        m_bytes += fromCodePage(piece).toUtf8();
        m_shifts.push_back({m_bytes.size(), sourceEnd});
    }

    QByteArray m_bytes;
    std::vector<Shift> m_shifts;
};

} // namespace

/// Takes the parser's events and appends nodes.
class XmlTreeBuilder {
public:
    XmlTreeBuilder(XmlDocument& document, XML_Parser parser) : m_document(document), m_parser(parser) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(
            parser, [](void* self, const XML_Char* name, const XML_Char**) { of(self).start(name); },
            [](void* self, const XML_Char*) { of(self).end(); });
        XML_SetCharacterDataHandler(parser, [](void* self, const XML_Char* text, int size) {
            of(self).characters({text, static_cast<std::size_t>(size)});
        });
        XML_SetCdataSectionHandler(
            parser, [](void* self) { of(self).startSection(); },
            [](void* self) { of(self).m_inSection = false; });
        XML_SetCommentHandler(parser, [](void* self, const XML_Char*) { of(self).other(); });
        XML_SetProcessingInstructionHandler(
            parser, [](void* self, const XML_Char*, const XML_Char*) { of(self).other(); });
        XML_SetStartDoctypeDeclHandler(parser,
                                       [](void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                          int) { of(self).stop("A document type is not allowed here."); });
    }

    /// Why the parser was stopped from here; null when it was not.
    const char* refusal() const { return m_refusal; }

private:
    static XmlTreeBuilder& of(void* self) { return *static_cast<XmlTreeBuilder*>(self); }

    void start(const XML_Char* name) {
        finishText();
        const std::uint32_t made = append(XmlNodeType::Element);
        m_document.m_nodes[made].name = numberOf(name);
        m_open = made;
        m_last.push_back(0);
        if (m_last.size() > XmlDocument::kDeepest) stop("The elements stand too deep inside one another.");
    }
    void end() {
        const bool leaf = m_document.m_nodes[m_open].children == 1; // all that the element holds is its value
        finishText(leaf);
        m_open = m_document.m_nodes[m_open].parent;
        m_last.pop_back();
    }
    void characters(std::string_view text) {
        if (m_inSection) return;
        if (m_textNode == 0) {
            m_before = m_last.back();
            m_textNode = append(XmlNodeType::Text);
            m_document.m_nodes[m_textNode].textStart = static_cast<std::uint32_t>(m_document.m_text.size());
        }
        m_document.m_text.append(text);
    }
    void startSection() {
        other();
        m_inSection = true;
    }
    void other() {
        finishText();
        append(XmlNodeType::Other);
    }
    void stop(const char* why) {
        m_refusal = why;
        XML_StopParser(m_parser, XML_FALSE);
    }

    /// The text node in hand is whole: it is kept unless it is nothing but white space between elements.
    void finishText(bool isValue = false) {
        if (m_textNode == 0) return;
        XmlDocument::Node& node = m_document.m_nodes[m_textNode];
        node.textSize = static_cast<std::uint32_t>(m_document.m_text.size()) - node.textStart;
        if (!isValue && isWhite(std::string_view(m_document.m_text).substr(node.textStart))) {
            m_document.m_text.resize(node.textStart);
            unlink();
        }
        m_textNode = 0;
    }
    /// Takes the newest node, which is the last child of the open element, away again.
    void unlink() {
        m_document.m_nodes.pop_back();
        --m_document.m_nodes[m_open].children;
        m_last.back() = m_before;
        if (m_before == 0)
            m_document.m_nodes[m_open].firstChild = 0;
        else
            m_document.m_nodes[m_before].next = 0;
    }

    std::uint32_t append(XmlNodeType type) {
        const auto made = static_cast<std::uint32_t>(m_document.m_nodes.size());
        XmlDocument::Node node;
        node.type = type;
        node.parent = m_open;
        m_document.m_nodes.push_back(node);
        ++m_document.m_nodes[m_open].children;
        if (m_last.back() == 0)
            m_document.m_nodes[m_open].firstChild = made;
        else
            m_document.m_nodes[m_last.back()].next = made;
        m_last.back() = made;
        return made;
    }
    std::int32_t numberOf(const XML_Char* name) {
        const auto [found, isNew] =
            m_numbers.try_emplace(name, static_cast<std::int32_t>(m_document.m_names.size()));
        if (isNew) m_document.m_names.push_back(found->first);
        return found->second;
    }

    XmlDocument& m_document;
    XML_Parser m_parser;
    std::unordered_map<std::string, std::int32_t> m_numbers;
    std::vector<std::uint32_t> m_last{0}; ///< last child so far of the document and of every open element
    std::uint32_t m_open = 0;
    std::uint32_t m_textNode = 0; ///< text that may still grow
    std::uint32_t m_before = 0;   ///< what stands in front of it
    bool m_inSection = false;     ///< of character data, which is no text
    const char* m_refusal = nullptr;
};

bool XmlDocument::fail(XmlParseError error) {
    error.reason += QStringLiteral("\r\n");
    *this = XmlDocument();
    m_error = std::move(error);
    return false;
}

bool XmlDocument::load(const QString& path) {
    const FileBytes file = readWholeFile(path, kLargestFile);
    if (!file.problem.isEmpty())
        return fail(
            {kOwnError, QStringLiteral("The file cannot be read: %1.").arg(file.problem), 0, 0, 0, {}, path});
    const QByteArray bytes = unmarked(file.bytes);
    return parse(viewOf(bytes), path);
}

bool XmlDocument::parse(std::string_view bytes, const QString& url) {
    *this = XmlDocument();
    const Utf8Document document(bytes);
    bytes = document.bytes();
    // Whatever the document says of itself.
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate("UTF-8"),
                                                                         XML_ParserFree);
    const XmlTreeBuilder builder(*this, parser.get());
    if (XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) == XML_STATUS_OK)
        return true;
    const XML_Error code = XML_GetErrorCode(parser.get());
    const auto at = std::clamp<std::int64_t>(XML_GetCurrentByteIndex(parser.get()), 0,
                                             static_cast<std::int64_t>(bytes.size()));
    const char* reason = builder.refusal() ? builder.refusal() : XML_ErrorString(code);
    return fail({builder.refusal() ? kOwnError : static_cast<int>(code), QString::fromLatin1(reason),
                 static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser.get())),
                 static_cast<std::int64_t>(XML_GetCurrentColumnNumber(parser.get())) + 1,
                 document.sourceOf(at), fromCodePage(lineAt(bytes, static_cast<std::size_t>(at))), url});
}

XmlNodeType XmlNode::type() const {
    return m_document->m_nodes[m_index].type;
}

int XmlNode::nameNumber() const {
    return m_document->m_nodes[m_index].name;
}

QString XmlNode::nodeName() const {
    const int number = nameNumber();
    return number < 0 ? QString()
                      : QString::fromStdString(m_document->m_names[static_cast<std::size_t>(number)]);
}

XmlNode XmlNode::parent() const {
    return {m_document, m_document->m_nodes[m_index].parent};
}

QString XmlNode::value() const {
    const XmlDocument::Node& node = m_document->m_nodes[m_index];
    return QString::fromUtf8(m_document->m_text.data() + node.textStart,
                             static_cast<qsizetype>(node.textSize));
}

XmlNodeList XmlNode::childNodes() const {
    return XmlNodeList(*this);
}

XmlNodeList::Iterator& XmlNodeList::Iterator::operator++() {
    m_node.m_index = m_node.m_document->m_nodes[m_node.m_index].next;
    return *this;
}

std::size_t XmlNodeList::length() const {
    return m_parent.m_document->m_nodes[m_parent.m_index].children;
}

XmlNodeList::Iterator XmlNodeList::begin() const {
    return Iterator(XmlNode(m_parent.m_document, m_parent.m_document->m_nodes[m_parent.m_index].firstChild));
}

XmlNodeList::Iterator XmlNodeList::end() const {
    return Iterator(XmlNode(m_parent.m_document, 0));
}

} // namespace vistor
