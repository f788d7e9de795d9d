// How a help page looks: fonts, margins, tables and code in the palette's colours. In: a document made from
// Markdown. Out: the same document, laid out.
#pragma once

class QPalette;
class QTextDocument;

namespace vistor {

void layOutHelpPage(QTextDocument& document, const QPalette& palette);

} // namespace vistor
