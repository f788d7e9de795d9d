// The palette as a person uses it: snapshots into the library, the entries in tree and list, the Delete key.
#include "dashboard/Palette.h"

#include "dashboard/CustomLibrary.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "platform/Events.h"
#include "platform/IniFile.h"
#include "platform/Scratch.h"
#include "tests/ScriptedPrompts.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace vistor {
namespace {

class PaletteTest : public testing::Test {
protected:
    PaletteTest() {
        WorkingFolder = folder.path() + u'/';
        SettingsPath = folder.filePath("vxvis.cfg");
        LibraryPath = folder.filePath("VisControl.cfg");
        VariableTable.resize(kVariableCount);
        tableChanged();
    }
    ~PaletteTest() override { deleteScratchFolder(); } // before the folder that it is in
    void library(const QByteArray& text) {
        QFile file(LibraryPath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void open() {
        window.Form_Load();
        window.resize(1300, 800);
        window.show();
        pumpEvents();
    }
    /// Makes a readout of that many pixels an entry of the library.
    void define(const char* name, int width = 200) {
        Instrument* added = window.addInstrument(Kind::Alphanumeric, window.pic[0]);
        added->setGeometry(40, 30, width, 90);
        added->show();
        prompts.inputs.push_back(QLatin1String(name));
        added->mnuDefineCustom_Click();
        EXPECT_EQ(added->geometry(), QRect(40, 30, width, 90));
        window.instruments.removeFrom(window.pic[0]);
    }
    static QDir scratch() { return QDir(scratchFolder(WorkingFolder)); }
    static QStringList bitmaps() { return scratch().entryList({"*.bmp"}, QDir::Files, QDir::Name); }
    const QHash<QString, QIcon>& icons() { return window.trvControl->findChild<Palette*>()->IconImage; }
    /// An entry's icon, once it has been painted with one of its own.
    QImage seen(const QString& image) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return icons().contains(image); })) << image.toStdString();
        return icons().value(image).pixmap(56, 56).toImage();
    }
    QTreeWidgetItem* root(int number) { return window.trvControl->topLevelItem(number); }
    QStringList below(int number) {
        QStringList names;
        for (int i = 0; i < root(number)->childCount(); ++i) names += root(number)->child(i)->text(0);
        return names;
    }
    QStringList listed() {
        QStringList names;
        for (int i = 0; i < window.lvControl->count(); ++i) names += window.lvControl->item(i)->text();
        return names;
    }
    IniFile file() { return IniFile::load(LibraryPath); }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    frmInterface window;
};

TEST_F(PaletteTest, ASnapshotBecomesAnEntryInTreeListAndFile) {
    open();
    window.trvControl->setCurrentItem(root(1));
    define("Lap Time", 240);
    EXPECT_EQ(prompts.takeWords(), QStringList("Enter configuration name"));
    EXPECT_EQ(below(1), QStringList("lap time"));
    EXPECT_EQ(listed(), QStringList({"Alphanumeric", "lap time"}));
    seen("2b");
    EXPECT_EQ(customNumber(file(), Kind::Alphanumeric, "blap time"), 1);
    EXPECT_EQ(customList(file(), Kind::Alphanumeric, 1).value(0), QString::number(240 * 15));
    ASSERT_EQ(bitmaps().size(), 1);
    EXPECT_EQ(customThumbnail(file(), Kind::Alphanumeric, 1), bitmaps().front());
    EXPECT_FALSE(window.ProfileChanged);
}

TEST_F(PaletteTest, ANameInUseAndACancelLeaveNoBitmap) {
    open();
    define("x");
    const QStringList kept = bitmaps();
    prompts.takeWords();
    define("X");
    EXPECT_EQ(prompts.takeWords(),
              QStringList({"Enter configuration name", "Configuration name already exists"}));
    EXPECT_EQ(prompts.messages.back().icon, Icon::Stop);
    define("");
    prompts.inputs.push_back(std::nullopt);
    Instrument* added = window.addInstrument(Kind::Alphanumeric, window.pic[0]);
    added->mnuDefineCustom_Click();
    EXPECT_EQ(bitmaps(), kept);
    EXPECT_EQ(below(1), QStringList("x"));
    EXPECT_EQ(customEntries(file(), Kind::Alphanumeric).size(), 1U);
}

TEST_F(PaletteTest, ALibraryThatCannotBeWrittenIsTold) {
    open();
    QDir().mkpath(LibraryPath); // a folder where the file should be
    define("x");
    EXPECT_EQ(prompts.takeWords().value(1), "The library of custom instruments cannot be written");
    EXPECT_TRUE(below(1).isEmpty());
    EXPECT_TRUE(bitmaps().isEmpty());
}

TEST_F(PaletteTest, TheDeleteKeyAsksAndRemovesOnlyCustomEntries) {
    open();
    for (const char* name : {"one", "two", "three"}) define(name);
    prompts.takeWords();
    window.trvControl->setCurrentItem(root(1));
    QTest::keyClick(window.trvControl, Qt::Key_Delete);
    window.lvControl->setCurrentRow(0);
    QTest::keyClick(window.lvControl, Qt::Key_Delete);
    EXPECT_TRUE(prompts.takeWords().isEmpty()) << "plain entries stay without a question";

    prompts.answers = {Answer::No, Answer::Yes, Answer::Yes};
    window.trvControl->setCurrentItem(root(1)->child(1));
    QTest::keyClick(window.trvControl, Qt::Key_Delete);
    EXPECT_EQ(below(1).size(), 3);
    QTest::keyClick(window.trvControl, Qt::Key_Delete);
    EXPECT_EQ(below(1), QStringList({"one", "three"}));
    EXPECT_EQ(listed(), QStringList({"Alphanumeric", "one", "three"}));
    EXPECT_EQ(customNumber(file(), Kind::Alphanumeric, "bthree"), 2);
    window.lvControl->setCurrentRow(1);
    QTest::keyClick(window.lvControl, Qt::Key_Delete);
    EXPECT_EQ(below(1), QStringList("three"));
    EXPECT_EQ(listed(), QStringList({"Alphanumeric", "three"}));
    EXPECT_EQ(prompts.takeWords(), QStringList({"Are you sure ?", "Are you sure ?", "Are you sure ?"}));
    EXPECT_EQ(prompts.messages.back().icon, Icon::Question);
    EXPECT_EQ(prompts.messages.back().buttons, Buttons::YesNo);
}

TEST_F(PaletteTest, DeletingTakesTheBitmapThatTheAngularGaugesNameAndNoOther) {
    library(
        "[VXAGAUGE_FILE]\n1=../outside.bmp\n2=gauge2.bmp\n"
        "[VXALPHANUME]\nCNT=2\n1=bone\nbone=1\n2=btwo\nbtwo=2\n[VXALPHANUME_FILE]\n1=own1.bmp\n2=own2.bmp\n");
    for (const char* name : {"../outside.bmp", "gauge2.bmp", "own1.bmp", "own2.bmp"})
        ASSERT_TRUE(QFile(scratch().filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
    open();
    prompts.answers = {Answer::Yes, Answer::Yes};
    window.trvControl->setCurrentItem(root(1)->child(1));
    QTest::keyClick(window.trvControl, Qt::Key_Delete);
    EXPECT_FALSE(scratch().exists("gauge2.bmp"));
    window.trvControl->setCurrentItem(root(1)->child(0));
    QTest::keyClick(window.trvControl, Qt::Key_Delete);
    for (const char* name : {"../outside.bmp", "own1.bmp", "own2.bmp"})
        EXPECT_TRUE(scratch().exists(QLatin1String(name))) << name;
    EXPECT_TRUE(below(1).isEmpty());
}

TEST_F(PaletteTest, EveryKindHasABitmapAndEveryEntryThePictureOfItsList) {
    IniFile made;
    const std::unique_ptr<Instrument> dark = makeInstrument(Kind::AngularGauge, nullptr);
    QStringList list;
    const int highest = dark->Serialise(list);
    for (const char* key : {"aone", "atwo"})
        addCustomEntry(made, Kind::AngularGauge, QLatin1String(key), list, highest, "agauge.bmp/../x.bmp");
    addCustomEntry(made, Kind::AngularGauge, "athree", {"nonsense"}, 0, "old.bmp");
    ASSERT_TRUE(made.save(LibraryPath));
    const QByteArray before = made.toBytes();
    open();
    EXPECT_TRUE(window.lvControl->item(0)->icon().isNull()) << "no bitmap, no icon";
    window.GenerateIcons();
    EXPECT_FALSE(window.lvControl->item(0)->icon().isNull());
    EXPECT_EQ(bitmaps(), QStringList({"agauge.bmp", "alphanume.bmp", "led.bmp", "lgauge.bmp", "odo.bmp",
                                      "pctbar.bmp", "strip.bmp", "texttag.bmp", "xygraph.bmp"}));
    const QImage image(scratch().filePath("agauge.bmp"));
    EXPECT_EQ(image.size(), QSize(192, 192)); // 203 less the frame
    EXPECT_NE(image.pixel(96, 96), image.pixel(2, 96));
    for (const char* name : {"2a", "3a", "4a"}) {
        const QImage icon = seen(QLatin1String(name));
        EXPECT_NE(icon.pixel(28, 28), icon.pixel(1, 28)) << name;
    }
    EXPECT_EQ(file().toBytes(), before) << "looking changes nothing";
}

/// A library of thousands costs what is seen of it.
TEST_F(PaletteTest, IconsAreMadeWhenTheyAreSeen) {
    IniFile made;
    constexpr int kEntries = 300;
    for (int i = 0; i < kEntries; ++i)
        addCustomEntry(made, Kind::TextTag, QStringLiteral("hentry %1").arg(i),
                       {"3000", "3000", QString::number(i)}, 2, {});
    ASSERT_TRUE(made.save(LibraryPath));
    open();
    window.trvControl->setCurrentItem(root(7));
    ASSERT_EQ(listed().size(), kEntries + 1);
    seen("2h");
    const auto count = [this] { return static_cast<int>(icons().size()); };
    EXPECT_LT(count(), kEntries / 2);
    window.lvControl->scrollToBottom();
    seen(QString::number(kEntries + 1) + "h");
    EXPECT_LT(count(), kEntries / 2) << "nothing between them";
}

TEST_F(PaletteTest, AWrongLibraryLeavesWhatCanBeUsed) {
    library("[VXAGAUGE]\nCNT=900000000\n1=afirst\n2=zwrong\n3=afirst\n4=a\n5=afifth\n"
            "[VXAGAUGE_FILE]\n1=../../etc/passwd\n5=\n[VXODO]\nCNT=1\n1=eodd\n");
    open();
    EXPECT_EQ(below(0), QStringList({"first", "fifth"}));
    EXPECT_EQ(root(0)->child(0)->childCount(), 1) << "the ninth node takes the odometer's";
    EXPECT_EQ(listed().value(0), "Angular gauge");
    window.trvControl->setCurrentItem(root(0)->child(0)->child(0));
    prompts.answers = {Answer::Yes};
    window.trvControl->setCurrentItem(root(0)->child(0));
    QTest::keyClick(window.trvControl, Qt::Key_Delete); // the node and what stands below it
    EXPECT_EQ(below(0), QStringList("fifth"));
    library("");
    window.trvControl->setCurrentItem(root(0)->child(0));
    prompts.answers = {Answer::Yes};
    QTest::keyClick(window.trvControl, Qt::Key_Delete); // gone from the file meanwhile
    EXPECT_TRUE(below(0).isEmpty());
}

} // namespace
} // namespace vistor
