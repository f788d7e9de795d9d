#include "shell/HelpPages.h"

#include "platform/WholeFile.h"

#include <QRegularExpression>

#include <algorithm>

namespace vistor {
namespace {

constexpr qint64 kLargestPage = 1 << 20; ///< bytes

std::optional<QString> wholePage(const QString& folder, const QString& page) {
    const bool plain = page.endsWith(QLatin1String(".md")) && !page.contains(u'/') && !page.contains(u'\\');
    const FileBytes file = plain ? readWholeFile(folder + page, kLargestPage) : FileBytes{{}, page, true};
    if (!file.problem.isEmpty()) return {};
    return QString::fromUtf8(file.bytes);
}

/// What stands between the marks of "<!-- index: one, two -->".
QStringList indexWords(const QString& line) {
    static const QRegularExpression pattern(QStringLiteral("^<!-- index: (.+) -->$"));
    const QRegularExpressionMatch match = pattern.match(line);
    QStringList words;
    for (const QString& word : match.captured(1).split(u',', Qt::SkipEmptyParts)) words += word.trimmed();
    return words;
}

/// Adds a page with its headings to the contents, and its words to the index.
void addPage(HelpPages& pages, const QString& page, const QString& title, const QString& text) {
    HelpTopic topic{title, page, {}, true};
    pages.contents.push_back(topic);
    bool isCode = false;
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(QLatin1String("```"))) isCode = !isCode;
        if (isCode) continue;
        if (line.startsWith(QLatin1String("## "))) {
            topic = {line.mid(3).trimmed(), page, helpAnchor(line.mid(3)), false};
            pages.contents.push_back(topic);
        }
        for (const QString& word : indexWords(line)) pages.index.push_back({word, topic});
    }
}

} // namespace

HelpPages readHelpPages(const QString& folder) {
    HelpPages pages;
    pages.folder = folder.endsWith(u'/') ? folder : folder + u'/';
    const auto first = wholePage(pages.folder, QLatin1String(kFirstHelpPage));
    if (!first) return pages;
    static const QRegularExpression link(QStringLiteral("^- \\[([^\\]]+)\\]\\(([^)#]+\\.md)\\)"));
    for (const QString& line : first->split(u'\n')) {
        const QRegularExpressionMatch match = link.match(line);
        if (!match.hasMatch()) continue;
        if (const auto text = wholePage(pages.folder, match.captured(2)))
            addPage(pages, match.captured(2), match.captured(1), *text);
    }
    std::stable_sort(pages.index.begin(), pages.index.end(), [](const HelpWord& a, const HelpWord& b) {
        return a.word.compare(b.word, Qt::CaseInsensitive) < 0;
    });
    return pages;
}

std::optional<QString> helpPageText(const QString& folder, const QString& page) {
    auto text = wholePage(folder, page);
    static const QRegularExpression words(QStringLiteral("^<!-- index: .+ -->\\n"),
                                          QRegularExpression::MultilineOption);
    if (text) text->remove(words);
    return text;
}

QString helpAnchor(const QString& heading) {
    QString anchor;
    for (const QChar character : heading.trimmed().toLower()) {
        if (character.isLetterOrNumber() || character == u'_' || character == u'-') anchor += character;
        if (character == u' ') anchor += u'-';
    }
    return anchor;
}

} // namespace vistor
