// The program's entry: command line, look, main window.
#include "dashboard/ReadoutValues.h"
#include "dashboard/frmInterface.h"
#include "platform/EndSignals.h"
#include "platform/Notices.h"
#include "platform/QtPlainTexts.h"
#include "platform/QtPrompts.h"
#include "platform/WholeFile.h"
#include "shell/Appearance.h"
#include "shell/Options.h"
#include "shell/frmMain.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QScreen>

#include <cstdio>

namespace {

using namespace vistor;

constexpr int kScreenshotDelay = 1000; ///< ms
constexpr QSize kWindowSize(1380, 760);

/// A screen smaller than the window's size is filled; without a real screen there is nothing to fill.
void sizeWindow(frmMain& window) {
    window.resize(kWindowSize);
    const QSize available = window.screen()->availableSize();
    const bool fits = available.width() > kWindowSize.width() && available.height() > kWindowSize.height();
    if (!fits && QGuiApplication::platformName() != QLatin1String("offscreen"))
        window.setWindowState(Qt::WindowMaximized);
}

/// Whether all that was asked for on the command line came about.
bool allDone = true;

void saveScreenshot(frmMain& window, const QString& path) {
    QBuffer bytes;
    const QByteArray form = QFileInfo(path).suffix().toLatin1();
    const QString problem = window.grab().save(&bytes, form.constData())
                                ? writeWholeFile(path, bytes.data())
                                : QStringLiteral("its ending is that of no kind of picture, as .png is");
    if (problem.isEmpty()) return;
    allDone = false;
    std::fprintf(stderr, "%s was not written: %s\n", qPrintable(path), qPrintable(problem));
}

/// The end of an unattended run: picture, values, and out, whatever is still open.
void finish(frmMain& window, const Options& options) {
    if (!options.screenshot.isEmpty()) saveScreenshot(window, options.screenshot);
    const QString values = readoutValues(window.dashboard());
    if (!values.isEmpty()) std::printf("%s\n", qPrintable(values));
    window.dashboard().ProfileChanged = false;
    window.close();
    QCoreApplication::exit(allDone ? 0 : 1);
}

void schedule(frmMain& window, const Options& options) {
    if (options.exitAfter) {
        const int milliseconds = static_cast<int>(*options.exitAfter * 1000);
        QTimer::singleShot(milliseconds, &window, [&window, &options] { finish(window, options); });
    } else if (!options.screenshot.isEmpty()) {
        QTimer::singleShot(kScreenshotDelay, &window,
                           [&window, &options] { saveScreenshot(window, options.screenshot); });
    }
}

int run(const Options& options) {
    QtPrompts prompts;
    if (!options.exitAfter) setPrompter(&prompts);
    frmMain window;
    if (options.exitAfter) setNoticeListener({}); // nobody is there to read the line: to the error stream
    sizeWindow(window);
    const EndSignals signals([&window] { window.endBySignal(); });
    const auto store = [&window] { window.dashboard().storeForEnd(); };
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, &window, store, Qt::DirectConnection);
    QObject::connect(qGuiApp, &QCoreApplication::aboutToQuit, &window, store);
    if (!window.MDIForm_Load(options.profile)) return 1;
    window.dashboard().mainTab->Tab(options.tab - 1);
    if (!options.source.isEmpty()) DataSourceDescriptor = options.source;
    if (options.play) window.dashboard().mnuPlayMode_Click();
    schedule(window, options);
    const int result = QApplication::exec();
    setPrompter(nullptr);
    return allDone ? result : 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName(QStringLiteral("Vistor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VISTOR_VERSION));
    Options options;
    {
        // Without a screen: help, version and wrong words need none.
        const QCoreApplication plain(argc, argv);
        options = readOptions(QCoreApplication::arguments());
    }
    if (!options.problem.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(options.problem));
        return 2;
    }
    const QApplication application(argc, argv);
    keepTextsPlain();
    applyAppearance(!options.styleChosen);
    return run(options);
}
