// Any text as the first page of a help folder: its contents and index are found, and it is laid out.
#include "fuzz/Harness.h"
#include "shell/HelpLook.h"
#include "shell/HelpPages.h"

#include <QFileInfo>
#include <QPalette>
#include <QTextDocument>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    startApplication();
    const QString folder = QFileInfo(fileOf(kFirstHelpPage, data, size)).path() + u'/';
    const HelpPages pages = readHelpPages(folder);
    for (const HelpTopic& topic : pages.contents) {
        if (!helpPageText(folder, topic.page)) std::abort();
    }
    const auto text = helpPageText(folder, QLatin1String(kFirstHelpPage));
    if (!text) std::abort();
    QTextDocument document;
    document.setMarkdown(*text);
    layOutHelpPage(document, QPalette());
    document.setTextWidth(600);
    document.size();
    return 0;
}
