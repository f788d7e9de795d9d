#include "shell/Options.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace vistor {
namespace {

constexpr double kLongestRun = 1e6; ///< s, nearly twelve days

/// Options that every program of the toolkit has, behind one "-" or two.
struct ToolkitOption {
    const char* name;
    bool takesValue; ///< as the next word, or behind "="
};
constexpr ToolkitOption kToolkitOptions[] = {
    {"platform", true}, {"platformpluginpath", true}, {"platformtheme", true}, {"plugin", true},
    {"style", true},    {"stylesheet", true},         {"widgetcount", false},  {"reverse", false},
    {"session", true},  {"qwindowgeometry", true},    {"qwindowicon", true},   {"qwindowtitle", true},
    {"display", true},  {"geometry", true},           {"qmljsdebugger", true},
};

const ToolkitOption* toolkitOption(const QString& word) {
    const qsizetype dashes = word.startsWith(QLatin1String("--")) ? 2 : word.startsWith(u'-') ? 1 : 0;
    const QString name = word.mid(dashes).section(u'=', 0, 0);
    const auto* found = std::find_if(std::begin(kToolkitOptions), std::end(kToolkitOptions),
                                     [&](const ToolkitOption& o) { return name == QLatin1String(o.name); });
    return dashes == 0 || found == std::end(kToolkitOptions) ? nullptr : found;
}

/// The words without those of the toolkit, which takes its own out only when it has a screen.
QStringList ownWords(const QStringList& words, Options& options) {
    QStringList own;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const ToolkitOption* option = i > 0 ? toolkitOption(words[i]) : nullptr;
        if (!option)
            own << words[i];
        else if (option->takesValue && !words[i].contains(u'='))
            ++i;
        if (option && QLatin1String(option->name) == QLatin1String("style")) options.styleChosen = true;
    }
    return own;
}

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
    if (!parser.parse(ownWords(words, options))) {
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
