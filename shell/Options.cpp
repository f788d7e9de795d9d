#include "shell/Options.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace vistor {
namespace {

constexpr double kLongestRun = 1e6; ///< s, nearly twelve days

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Real-time telemetry dashboard for a motorsport data logger."));
    parser.addPositionalArgument(QStringLiteral("PROFILE"), QStringLiteral("A saved dashboard to open."),
                                 QStringLiteral("[PROFILE]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {QStringLiteral("play"), QStringLiteral("Enter play mode at once.")},
        {QStringLiteral("source"),
         QStringLiteral("Data source: FIL,PATH for a run file, SER,PORT,SPEED for a serial line."),
         QStringLiteral("DESCRIPTOR")},
        {QStringLiteral("tab"), QStringLiteral("Bring a tab to the front, counted from 1."),
         QStringLiteral("NUMBER")},
        {QStringLiteral("screenshot"),
         QStringLiteral("Save a picture of the window: at the end with --exit-after, else after one second."),
         QStringLiteral("FILE")},
        {QStringLiteral("exit-after"),
         QStringLiteral("Run unattended and end after that time: questions are not shown but answered like "
                        "somebody who cancels."),
         QStringLiteral("SECONDS")},
    });
}

void readExitTime(const QCommandLineParser& parser, Options& options) {
    if (!parser.isSet(QStringLiteral("exit-after"))) return;
    bool ok = false;
    const double seconds = parser.value(QStringLiteral("exit-after")).toDouble(&ok);
    if (ok && seconds >= 0 && seconds <= kLongestRun)
        options.exitAfter = seconds;
    else
        options.problem = QStringLiteral("--exit-after needs a number of seconds.");
}

void readTab(const QCommandLineParser& parser, Options& options) {
    if (!parser.isSet(QStringLiteral("tab"))) return;
    bool ok = false;
    options.tab = parser.value(QStringLiteral("tab")).toInt(&ok);
    if (!ok || options.tab < 1) options.problem = QStringLiteral("--tab needs a number from 1.");
}

void readProfilePath(const QStringList& words, Options& options) {
    if (words.isEmpty()) return;
    const QFileInfo file(words.constFirst());
    if (words.size() > 1)
        options.problem = QStringLiteral("One Profile can be opened, not %1.").arg(words.size());
    else if (!file.isFile() || !file.isReadable())
        options.problem = QStringLiteral("%1: cannot be read.").arg(words.constFirst());
    options.profile = file.absoluteFilePath();
}

} // namespace

Options readOptions(const QStringList& words) {
    QCommandLineParser parser;
    addOptions(parser);
    Options options;
    if (!parser.parse(words)) {
        options.problem = parser.errorText();
        return options;
    }
    if (parser.isSet(QStringLiteral("version"))) parser.showVersion();
    if (parser.isSet(QStringLiteral("help"))) parser.showHelp();
    options.play = parser.isSet(QStringLiteral("play"));
    options.source = parser.value(QStringLiteral("source"));
    options.screenshot = parser.value(QStringLiteral("screenshot"));
    readTab(parser, options);
    readExitTime(parser, options);
    readProfilePath(parser.positionalArguments(), options);
    return options;
}

} // namespace vistor
