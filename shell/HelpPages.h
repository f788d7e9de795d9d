// The delivered help pages as plain data: what there is, in which order, and under which words. In: a folder
// of Markdown pages. Out: contents, index and the text of a page.
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace vistor {

struct HelpTopic {
    QString title;
    QString page;   ///< a file name in the folder
    QString anchor; ///< of a heading; empty for the page's beginning
    bool isPage = true;
};

struct HelpWord {
    QString word;
    HelpTopic topic;
};

struct HelpPages {
    QString folder; ///< ends in "/"
    /// Each page followed by its headings, in the order in which the first page lists them.
    std::vector<HelpTopic> contents;
    std::vector<HelpWord> index; ///< by word
};

/// The first page. It links to all others in a list.
inline constexpr const char* kFirstHelpPage = "README.md";

/// The pages in a folder; no contents where the first page is missing.
HelpPages readHelpPages(const QString& folder);

/// A page's Markdown without the words for the index; no value for a page that is not there or not a plain
/// file name.
std::optional<QString> helpPageText(const QString& folder, const QString& page);

/// The anchor of a heading: lower case, blanks as "-", no punctuation.
QString helpAnchor(const QString& heading);

} // namespace vistor
