#include "maths/XmlDocument.h"

#include <gtest/gtest.h>

namespace vistor {
namespace {

/// The tree in a line: elements as name(children), text in quotes, all else as "?".
QString told(const XmlNodeList& nodes) {
    QStringList parts;
    for (const XmlNode node : nodes) {
        if (node.type() == XmlNodeType::Text)
            parts += u'\'' + node.value() + u'\'';
        else if (node.type() == XmlNodeType::Element)
            parts += node.nodeName() + u'(' + told(node.childNodes()) + u')';
        else
            parts += QStringLiteral("?");
    }
    EXPECT_EQ(nodes.length(), static_cast<std::size_t>(parts.size()));
    return parts.join(u' ');
}

TEST(XmlDocument, MakesATreeOfElementsAndText) {
    struct Case {
        const char* bytes;
        const char* tree;
    };
    const Case cases[] = {
        {"<a/>", "a()"},
        {"<a>x</a>\r\n", "a('x')"},
        {"<a> \r\n <b>1</b>\t<b> 2 </b> </a>", "a(b('1') b(' 2 '))"},
        {"<a>   </a>", "a('   ')"},
        {"<a>x<b/>y</a>", "a('x' b() 'y')"},
        {"<a>1 &lt; 2 &amp;&#65;</a>", "a('1 < 2 &A')"},
        {"<a>\xB0\x80</a>", "a('\u00B0\u20AC')"},
        {"<?xml version='1.0' encoding='UTF-8'?><a>\xB0</a>", "a('\u00B0')"},
        {"<a>\xCE\xA9</a><!-- \xB0 -->", "a('\u03A9') ?"},
        {"<a><b>\xE9>\xC2\xB0</b><b>\xC2\xB0&lt;</b></a>", "a(b('\u00E9>\u00C2\u00B0') b('\u00B0<'))"},
        {"<!-- c --><a><!-- d -->x<![CDATA[ y ]]></a>", "? a(? 'x' ?)"},
        {"<a>1\r\n2</a>", "a('1\n2')"},
    };
    for (const Case& c : cases) {
        XmlDocument document;
        ASSERT_TRUE(document.parse(c.bytes)) << c.bytes;
        EXPECT_EQ(told(document.childNodes()).toStdString(), c.tree) << c.bytes;
    }
}

TEST(XmlDocument, EqualNamesShareANumber) {
    XmlDocument document;
    ASSERT_TRUE(document.parse("<a><b/><B/><b/></a>"));
    std::vector<int> numbers;
    for (const XmlNode node : (*document.childNodes().begin()).childNodes())
        numbers.push_back(node.nameNumber());
    EXPECT_EQ(numbers[0], numbers[2]);
    EXPECT_NE(numbers[0], numbers[1]);
}

TEST(XmlDocument, TellsWhyAndWhere) {
    struct Case {
        std::string bytes;
        std::int64_t line;
        std::int64_t linepos;
        std::int64_t filepos;
        const char* source;
    };
    const std::string deep = [] {
        std::string text;
        for (int i = 0; i < 100'000; ++i) text += "<a>";
        return text;
    }();
    const Case cases[] = {
        {"<a>\r\n <b>1 & 2</b>\r\n</a>", 2, 8, 12, " <b>1 & 2</b>"},
        {"<a>\xB0<</a>", 1, 6, 5, "<a>\u00B0<</a>"},
        {"<a>\xCE\xA9\xE9</a><b>\xB0 <</b>", 1, 11, 10, nullptr},
        {"<a>&foreign;</a>", 1, 4, 3, "<a>&foreign;</a>"},
        {"<!DOCTYPE a [<!ENTITY e \"eeee\">]><a>&e;</a>", 1, 1, 0, nullptr},
        {"", 1, 1, 0, ""},
        {deep, 1, 601, 600, nullptr},
    };
    for (const Case& c : cases) {
        XmlDocument document;
        EXPECT_FALSE(document.parse(c.bytes, QStringLiteral("here")));
        const XmlParseError& error = document.parseError();
        EXPECT_NE(error.errorCode, 0);
        EXPECT_TRUE(error.reason.endsWith(QStringLiteral("\r\n")) && error.reason.size() > 4);
        EXPECT_EQ(error.url, "here");
        EXPECT_EQ(document.childNodes().length(), 0U);
        if (!c.source) continue;
        EXPECT_EQ(error.line, c.line) << c.bytes;
        EXPECT_EQ(error.linepos, c.linepos) << c.bytes;
        EXPECT_EQ(error.filepos, c.filepos) << c.bytes;
        EXPECT_EQ(error.srcText.toStdString(), c.source);
    }
}

} // namespace
} // namespace vistor
