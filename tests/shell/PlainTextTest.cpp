// No text from outside is markup: every window is opened with texts that would have a file opened, and every
// label and tool tip in it is looked at.
#include "acquisition/FrmSelectInput.h"
#include "dashboard/CustomLibrary.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "instruments/PropertySheet.h"
#include "instruments/displays/InnerDisplay.h"
#include "instruments/frmPinAssignmentGraph.h"
#include "maths/FrmCalculusSetup.h"
#include "maths/frmCurveFit.h"
#include "maths/frmFilterDesign.h"
#include "maths/frmVariableTransformation.h"
#include "platform/Events.h"
#include "platform/IniFile.h"
#include "platform/Notices.h"
#include "platform/QtPrompts.h"
#include "shell/CarDialog.h"
#include "shell/frmMain.h"
#include "tests/shell/FreshAccount.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QHelpEvent>
#include <QLabel>
#include <QProcess>
#include <QTableWidget>
#include <QToolTip>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vistor {
namespace {

/// A file that nobody may open while this lives.
class Trap {
public:
    explicit Trap(const QString& path) : m_watch(inotify_init1(IN_NONBLOCK)) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) ADD_FAILURE();
        file.close();
        EXPECT_GE(inotify_add_watch(m_watch, path.toLocal8Bit().constData(), IN_OPEN), 0);
    }
    ~Trap() { ::close(m_watch); }
    bool wasOpened() {
        char event[sizeof(inotify_event) + 256];
        return ::read(m_watch, event, sizeof event) > 0;
    }

private:
    int m_watch;
};

class PlainText : public FreshAccount {
protected:
    PlainText() : trap(root.filePath("trap")) {}

    /// Every label and every tool tip of a window, those of lists and trees by the mouse over their lines.
    void walk(QWidget& window, const char* name) {
        pumpEvents();
        for (QLabel* label : window.findChildren<QLabel*>()) {
            label->ensurePolished();
            EXPECT_TRUE(!label->pixmap().isNull() || label->textFormat() == Qt::PlainText) << name;
            hostileLabels += label->text().contains(hostile) ? 1 : 0;
        }
        QList<QWidget*> all = window.findChildren<QWidget*>();
        all.prepend(&window);
        for (QWidget* widget : all) {
            if (!widget->toolTip().isEmpty()) point(*widget, widget->rect().center(), name);
            auto* view = qobject_cast<QAbstractItemView*>(widget);
            if (view && view->model() && view->isVisible()) walkLines(*view, {}, name);
        }
        EXPECT_FALSE(trap.wasOpened()) << name;
    }
    void walkLines(QAbstractItemView& view, const QModelIndex& parent, const char* name) {
        const QAbstractItemModel& model = *view.model();
        for (int row = 0; row < std::min(model.rowCount(parent), 80); ++row)
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex index = model.index(row, column, parent);
                if (index.data().toString().contains(hostile)) {
                    view.scrollTo(index);
                    point(*view.viewport(), view.visualRect(index).center(), name);
                }
                if (column == 0) walkLines(view, index, name);
            }
    }
    /// Rests the mouse on a place.
    void point(QWidget& widget, const QPoint& place, const char* name) {
        QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &help);
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* tip = qobject_cast<QLabel*>(top);
            if (!tip || !tip->inherits("QTipLabel")) continue;
            EXPECT_EQ(tip->textFormat(), Qt::PlainText) << name;
            hostileTips += tip->text().contains(hostile) ? 1 : 0;
            delete tip;
        }
    }
    template <class Dialog>
    void walkDialog(Dialog&& dialog, const char* name) {
        dialog.show();
        walk(dialog, name);
    }
    /// Walks whatever modal window `run` opens, and closes it.
    void inModal(const char* name, const std::function<void()>& run) {
        bool seen = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            for (QWidget* top : QApplication::topLevelWidgets())
                if (!modal && top->inherits("QMessageBox") && top->isVisible()) modal = top;
            if (!modal) return;
            if (!seen) walk(*modal, name);
            seen = true;
            modal->close();
        });
        timer.start(1);
        run();
        EXPECT_TRUE(seen) << name;
    }
    void hostileTable() {
        for (const std::size_t row : {2U, 4U, 10U}) {
            VariableDefinition& variable = VariableTable[row];
            variable.PhysicalName = variable.BaseName = hostile + QString::number(row);
            variable.CustomUnits = hostile;
        }
        SetupVariables();
        VariableTableEdit = VariableTable;
    }

    QString hostile = QStringLiteral("<img src=\"file://%1\">").arg(root.filePath("trap"));
    Trap trap;
    int hostileLabels = 0;
    int hostileTips = 0;
};

TEST_F(PlainText, TheTrapsAndTheWalkWork) {
    QLabel told(hostile);
    told.setTextFormat(Qt::RichText); // asked for: then it is markup
    told.show();
    pumpEvents();
    EXPECT_TRUE(trap.wasOpened());
}

TEST_F(PlainText, NoWindowTakesATextFromOutsideForMarkup) {
    deliver();
    IniFile library;
    addCustomEntry(library, Kind::Alphanumeric, customKey(Kind::Alphanumeric, QStringLiteral("<img src=x>")),
                   {QStringLiteral("0")}, 0, hostile);
    write(working("VisControl.cfg"), {});
    library.save(working("VisControl.cfg"));
    frmMain window;
    window.resize(1300, 850);
    ASSERT_TRUE(window.MDIForm_Load());
    frmInterface& page = window.dashboard();
    hostileTable();
    page.RegenerateVariableTree();
    DataSourceDescriptor = QStringLiteral("SER,") + hostile + QStringLiteral(",1");
    Q_EMIT page.sourceChanged();
    page.mainTab->TabCaption(0, hostile);
    page.setWindowTitle(hostile);
    const QString name = VariableTable[2].PhysicalName;
    for (const KindInfo& info : kInstrumentKinds) {
        Instrument* instrument = page.addInstrument(info.kind, page.pic[0]);
        PropertyStore& properties = instrument->inCTRL().properties();
        for (std::size_t block = 0; block < properties.table().blockCount(); ++block)
            for (const PropertyInfo& field : properties.table().fields(block))
                if (field.type == PropertyType::String)
                    for (int i = 0; i < properties.sections(block); ++i)
                        properties.setText(field.number, i, hostile);
        for (const std::uint8_t axis : {std::uint8_t{0}, std::uint8_t{1}})
            for (const int pin : {1, 2}) instrument->AssignPin(pin, axis, name);
        instrument->TagOn(true);
        instrument->show();
        inModal(info.className, [&] { instrument->mnuProperties_Click(); });
        walkDialog(PropertySheet(properties), info.className);
        if (info.kind == Kind::TextTag) continue;
        inModal(info.className, [&] { instrument->mnuVariables_Click(); });
        const PinQuestion question{{}, 1, instrument, {}, name, instrument->curVarTable()};
        if (instrument->curVarTable().columns() > 1)
            walkDialog(frmPinAssignmentGraph(question, nullptr), info.className);
        else
            walkDialog(frmPinAssignment(question, nullptr), info.className);
        window.command("mnuShowPropertiesWindow")->setChecked(true);
        window.mnuShowPropertiesWindow_Click();
        Q_EMIT page.propertiesShown(instrument, {hostile}, {hostile});
    }
    notify(hostile);
    walk(window, "frmMain");
    for (const char* command : {"mnuOptions", "mnuSelectDataSource", "carNumbers"})
        inModal(command, [&] { window.command(QLatin1String(command))->trigger(); });
    VariableDefinition& row = VariableTableEdit[2];
    walkDialog(frmVariableTransformation(row, 2), "transformation");
    walkDialog(frmFilterDesign(row), "filter");
    walkDialog(FrmCalculusSetup(row, nullptr), "calculus");
    walkDialog(CorrectionStandardChoice(row, nullptr), "correction");
    walkDialog(frmCurveFit(), "curve");
    window.command("mnuVXHelp")->trigger();
    walk(window, "help");
    QtPrompts real;
    inModal("message", [&] { real.message({hostile, Icon::Stop, Buttons::Ok, hostile}); });
    inModal("input", [&] { real.input({hostile, hostile, hostile}); });
    page.ProfileChanged = false;
    window.close();
    EXPECT_GE(hostileLabels, 10);
    EXPECT_GE(hostileTips, 20);
}

TEST_F(PlainText, AProfileThatNamesAPipeLoadsAndPlays) {
    deliver();
    const QString pipe = root.filePath("pipe");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    write(root.filePath("a.vis"),
          "[TABS]\nPIC=1\n[SYSTEM]\nPORT=SER,<img src=file://" + pipe.toUtf8() + ">,1\n");
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), root.filePath("person"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(VISTOR_PROGRAM), {root.filePath("a.vis"), "--exit-after", "0.5"});
    const bool ended = program.waitForFinished(20000);
    if (!ended) program.kill();
    EXPECT_TRUE(ended) << "it waits for the pipe";
    program.waitForFinished();
}

} // namespace
} // namespace vistor
