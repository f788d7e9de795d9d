// Holds the sources to the order of their layers: an include points down or sideways, and what needs no
// window sees no header of the window system.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace vistor {
namespace {

enum Layer {
    Platform,
    State,
    Maths,
    Pipeline,
    Acquisition,
    Windows,
    MathsWindows,
    Tree,
    Instruments,
    Dashboard,
    Shell
};

bool isWindow(const QString& file) {
    const QString name = file.section(u'/', -1);
    return name.startsWith(QStringLiteral("frm")) || name.startsWith(QStringLiteral("Frm")) ||
           name.startsWith(QStringLiteral("Qt"));
}

/// What needs no window in a folder of windows.
bool isCore(const QString& file) {
    return file.startsWith(QStringLiteral("dashboard/ProfileFile")) ||
           file.startsWith(QStringLiteral("dashboard/Recovery"));
}

/// Files of a folder that do not stand in the layer of their folder.
Layer layerOf(const QString& file) {
    const QString folder = file.section(u'/', 0, 0);
    const QString name = file.section(u'/', -1).section(u'.', 0, 0);
    if (folder == QStringLiteral("platform")) return Platform;
    if (folder == QStringLiteral("variables")) {
        static const QSet<QString> state = {"GlobalVarsAndTypes", "Constants", "SetupVariables"};
        if (state.contains(name)) return State;
        return name == QStringLiteral("SamplePipeline") ? Pipeline : Tree;
    }
    if (folder == QStringLiteral("maths")) return isWindow(file) ? MathsWindows : Maths;
    if (folder == QStringLiteral("acquisition")) return isWindow(file) ? Windows : Acquisition;
    if (folder == QStringLiteral("instruments")) return Instruments;
    if (folder == QStringLiteral("dashboard")) return Dashboard;
    return Shell;
}

QStringList sources() {
    const QDir root(QStringLiteral(VISTOR_SOURCE_DIR));
    QStringList files;
    for (const char* folder :
         {"platform", "variables", "maths", "acquisition", "instruments", "dashboard", "shell"}) {
        QDirIterator walk(root.filePath(QLatin1String(folder)), {"*.h", "*.cpp"}, QDir::Files,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) files += root.relativeFilePath(walk.next());
    }
    return files;
}

/// What a file includes, in quotes (ours) or angle brackets.
QStringList includesOf(const QString& file, bool ours) {
    QFile source(QStringLiteral(VISTOR_SOURCE_DIR "/") + file);
    if (!source.open(QIODevice::ReadOnly)) return {};
    const QRegularExpression pattern(ours ? QStringLiteral("^#include \"([^\"]+)\"")
                                          : QStringLiteral("^#include <(\\w+)"),
                                     QRegularExpression::MultilineOption);
    QStringList found;
    auto matches = pattern.globalMatch(QString::fromUtf8(source.readAll()));
    while (matches.hasNext()) found += matches.next().captured(1);
    return found;
}

/// The names of the headers in a folder of the toolkit.
QSet<QString> toolkitHeaders(const char* module) {
    const QStringList names =
        QDir(QStringLiteral(VISTOR_QT_HEADERS "/") + QLatin1String(module)).entryList(QDir::Files);
    return {names.begin(), names.end()};
}

TEST(Layers, NoFileIncludesUpward) {
    const QStringList files = sources();
    ASSERT_GT(files.size(), 20);
    for (const QString& file : files) {
        for (const QString& included : includesOf(file, true))
            EXPECT_LE(layerOf(included), layerOf(file))
                << file.toStdString() << " includes " << included.toStdString();
    }
}

TEST(Layers, TheCoreSeesNoWindowSystem) {
    const QSet<QString> forbidden =
        toolkitHeaders("QtGui") + toolkitHeaders("QtWidgets") + toolkitHeaders("QtCharts");
    ASSERT_TRUE(forbidden.contains(QStringLiteral("QPainter")));
    ASSERT_TRUE(forbidden.contains(QStringLiteral("QWidget")));
    for (const QString& file : sources()) {
        if ((layerOf(file) > Acquisition || isWindow(file)) && !isCore(file)) continue;
        for (const QString& included : includesOf(file, false))
            EXPECT_FALSE(forbidden.contains(included) || included.startsWith(QStringLiteral("QtGui")) ||
                         included.startsWith(QStringLiteral("QtWidgets")))
                << file.toStdString() << " includes " << included.toStdString();
    }
}

} // namespace
} // namespace vistor
