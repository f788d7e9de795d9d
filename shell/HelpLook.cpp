#include "shell/HelpLook.h"

#include <QFontDatabase>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace vistor {
namespace {

constexpr double kMargin = 22;      ///< logical pixels around a page
constexpr double kLineHeight = 125; ///< percent
constexpr double kBetween = 9;
constexpr int kWidestPicture = 680;
constexpr int kHeadingSizes[] = {21, 16, 13, 12}; ///< points, by level

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto part = [&](int x, int y) { return qRound(x * (1 - share) + y * share); };
    return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()));
}

bool isCode(const QTextBlock& block) {
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence) ||
           block.blockFormat().nonBreakableLines();
}

void layOutHeading(QTextCursor& cursor, int level) {
    QTextBlockFormat block = cursor.blockFormat();
    block.setTopMargin(level == 1 ? 0 : 2 * kBetween);
    block.setBottomMargin(kBetween * 0.7);
    cursor.setBlockFormat(block);
    QTextCharFormat text;
    text.setFontPointSize(kHeadingSizes[std::clamp(level - 1, 0, 3)]);
    text.setFontWeight(QFont::DemiBold);
    cursor.select(QTextCursor::BlockUnderCursor);
    cursor.mergeCharFormat(text);
}

void layOutCode(QTextCursor& cursor, const QPalette& palette, bool isLast) {
    QTextBlockFormat block = cursor.blockFormat();
    block.setBackground(mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.07));
    block.setLeftMargin(12);
    block.setTextIndent(8);
    block.setTopMargin(0);
    block.setBottomMargin(isLast ? 1.5 * kBetween : 0);
    cursor.setBlockFormat(block);
}

/// A picture wider than a page's usual width is shown smaller.
void layOutPicture(QTextDocument& document, const QString& name) {
    const QUrl url(name);
    const auto image = document.resource(QTextDocument::ImageResource, url).value<QImage>();
    if (image.width() > kWidestPicture)
        document.addResource(QTextDocument::ImageResource, url,
                             image.scaledToWidth(kWidestPicture, Qt::SmoothTransformation));
}

/// Whether the block holds a picture.
bool layOutPictures(QTextDocument& document, const QTextBlock& block) {
    bool found = false;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextCharFormat format = it.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        layOutPicture(document, format.toImageFormat().name());
        found = true;
    }
    return found;
}

void layOutText(QTextCursor& cursor) {
    QTextBlockFormat block = cursor.blockFormat();
    const bool isInList = cursor.currentList() != nullptr;
    if (!layOutPictures(*cursor.document(), cursor.block()))
        block.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    block.setTopMargin(0);
    block.setBottomMargin(cursor.currentTable() ? 0 : isInList ? kBetween / 2 : kBetween);
    cursor.setBlockFormat(block);
}

void layOutTable(QTextTable& table, const QPalette& palette) {
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(palette.color(QPalette::Mid));
    format.setCellPadding(5);
    format.setCellSpacing(0);
    format.setTopMargin(kBetween / 2);
    format.setBottomMargin(1.5 * kBetween);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat head = cell.format();
        head.setBackground(mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.14));
        cell.setFormat(head);
    }
}

/// Words of code in a line keep the size of the line: the toolkit takes the system's fixed font as it is.
void layOutFragments(const QTextBlock& block, const QPalette& palette, double points) {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const bool isLink = fragment.charFormat().isAnchor();
        if (!fragment.charFormat().fontFixedPitch() && !isLink) continue;
        QTextCursor cursor(block);
        cursor.setPosition(fragment.position());
        cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
        QTextCharFormat format;
        if (isLink) format.setForeground(palette.color(QPalette::Link));
        if (fragment.charFormat().fontFixedPitch()) {
            format.setFontFamilies({fixed.family()});
            format.setFontPointSize(points);
        }
        cursor.mergeCharFormat(format);
    }
}

} // namespace

void layOutHelpPage(QTextDocument& document, const QPalette& palette) {
    document.setDocumentMargin(kMargin);
    const double points = document.defaultFont().pointSizeF();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        const int level = block.blockFormat().headingLevel();
        if (level > 0)
            layOutHeading(cursor, level);
        else if (isCode(block))
            layOutCode(cursor, palette, !isCode(block.next()));
        else
            layOutText(cursor);
        if (level == 0) layOutFragments(block, palette, points);
    }
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) layOutTable(*table, palette);
    }
}

} // namespace vistor
