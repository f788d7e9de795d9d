#include "platform/CodePage.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vistor {
namespace {

TEST(CodePage, EveryByteSurvives) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        all += one;
        EXPECT_EQ(fromCodePage(one).size(), 1) << byte;
        EXPECT_EQ(toCodePage(fromCodePage(one)).toStdString(), one) << byte;
    }
    EXPECT_EQ(toCodePage(fromCodePage(all)).toStdString(), all);
}

TEST(CodePage, BytesOfATextAreOfTheCodePageWhereThatReadsBack) {
    const std::pair<QString, QByteArray> cases[] = {
        {QString(), ""},
        {"plain", "plain"},
        {QString::fromUtf8("\u00D6l \u20AC"), "\xD6l \x80"},
        {QString::fromUtf8("\u03A9"), "\xCE\xA9"},
        {QString::fromUtf8("\u00CE\u00A9"), "\xC3\x8E\xC2\xA9"}, // its own bytes would read as the one above
        {QString::fromUtf8("\u6CB9\u00B0"), "\xE6\xB2\xB9\xC2\xB0"},
        {QString::fromUtf8("\U0001F600"), "\xF0\x9F\x98\x80"},
        {QString(QChar(0x80)), "\xC2\x80"},
        {QString(QChar(0xFEFF)) + "x", "\xEF\xBB\xBFx"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(toCodePage(text), bytes) << text.toStdString();
        EXPECT_EQ(fromCodePage(viewOf(bytes)), text) << text.toStdString();
    }
    EXPECT_EQ(fromCodePage("\xED\xA0\x80").size(), 3) << "no UTF-8";
    EXPECT_EQ(fromCodePage("\xC0\x80").size(), 2) << "no UTF-8";
    EXPECT_EQ(toCodePage(QString(QChar(0xD83D)) + "x"), "?x") << "half a character";
}

/// A text of characters that lie close to all the rules.
QString anyText(std::mt19937& random) {
    const char32_t ends[] = {0x7F, 0xFF, 0x178, 0x3FF, 0x20AC, 0x2122, 0xD7FF, 0xFFFF, 0x10FFFF};
    std::u32string text;
    for (auto size = random() % 12; size > 0; --size) {
        const char32_t c = static_cast<char32_t>(random()) % (ends[random() % std::size(ends)] + 1);
        text += c >= 0xD800 && c <= 0xDFFF ? U'x' : c;
    }
    return QString::fromStdU32String(text);
}

TEST(CodePage, AnyTextAndAnyBytesGoBothWays) {
    std::mt19937 random(14);
    for (int i = 0; i < 50'000; ++i) {
        const QString text = anyText(random);
        const QByteArray bytes = toCodePage(text);
        ASSERT_EQ(fromCodePage(viewOf(bytes)), text) << bytes.toHex().toStdString();

        const auto most = static_cast<qsizetype>(random() % 12);
        const QByteArray cut = toCodePage(text, most);
        const QString kept = fromCodePage(viewOf(cut));
        ASSERT_LE(cut.size(), most);
        ASSERT_TRUE(text.startsWith(kept) && kept.isValidUtf16())
            << bytes.toHex().toStdString() << ' ' << most;

        std::string any;
        for (auto size = random() % 8; size > 0; --size) any += static_cast<char>(random());
        const QString read = fromCodePage(any);
        ASSERT_EQ(fromCodePage(viewOf(toCodePage(read))), read)
            << QByteArray::fromStdString(any).toHex().toStdString();
    }
}

TEST(CodePage, MarkedFilesReadAsTheirText) {
    const QString text = QString::fromUtf8("a=\u00C2\u00B0\n\u03A9=\U0001F600\n");
    const auto utf16 = [&](bool big) {
        QByteArray bytes(big ? "\xFE\xFF" : "\xFF\xFE");
        for (const QChar c : text) {
            const char high = static_cast<char>(c.unicode() >> 8);
            const char low = static_cast<char>(c.unicode() & 0xFF);
            bytes += big ? high : low;
            bytes += big ? low : high;
        }
        return bytes;
    };
    for (const QByteArray& file : {"\xEF\xBB\xBF" + text.toUtf8(), utf16(false), utf16(true)}) {
        const QByteArray plain = unmarked(file);
        QStringList lines;
        for (std::string_view rest = viewOf(plain); !rest.empty();) lines += fromCodePage(takeLine(rest));
        EXPECT_EQ(lines, text.trimmed().split(u'\n'));
    }
    EXPECT_EQ(unmarked("\xEF\xBB"), "\xEF\xBB");
    EXPECT_EQ(unmarked("plain"), "plain");
}

TEST(CodePage, LinesEndInEachOfThreeWays) {
    std::string_view rest = "a\nb\r\nc\rd\r\r\n\ne";
    QStringList lines;
    while (!rest.empty()) lines += fromCodePage(takeLine(rest));
    EXPECT_EQ(lines, QStringList({"a", "b", "c", "d", "", "", "e"}));
}

TEST(CodePage, NamesFoldByLetterNotByLook) {
    const auto same = [](const char* a, const char* b) {
        return foldedCase(QString::fromUtf8(a)) == foldedCase(QString::fromUtf8(b));
    };
    EXPECT_TRUE(same("OIL", "oil"));
    EXPECT_TRUE(same("\u00D6L", "\u00F6l"));
    EXPECT_TRUE(same("\u03A9", "\u03C9"));
    EXPECT_FALSE(same("\u00B5", "\u03BC")) << "micro sign and mu have one capital";
    EXPECT_FALSE(same("\u2126", "\u03C9")) << "ohm sign";
    EXPECT_FALSE(same("\u212A", "k")) << "kelvin sign";
    EXPECT_FALSE(same("\u00DF", "ss"));
}

} // namespace
} // namespace vistor
