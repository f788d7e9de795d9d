// The custom library: instruments become entries of it, and the kinds get their bitmaps.
#include "dashboard/CustomLibrary.h"
#include "dashboard/Hourglass.h"
#include "dashboard/Palette.h"
#include "dashboard/Thumbnails.h"
#include "dashboard/frmInitControls.h"
#include "dashboard/frmInterface.h"
#include "instruments/Instrument.h"
#include "platform/IniFile.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"

namespace vistor {
namespace {

bool addToLibrary(const Instrument& instrument, const QString& key, const QString& fileName) {
    QStringList mem;
    const int highest = instrument.Serialise(mem);
    IniFile library = IniFile::load(LibraryPath);
    addCustomEntry(library, instrument.kind(), key, mem, highest, fileName);
    return saveLibrary(library);
}

} // namespace

void frmInterface::connectLibrary(Instrument* added) {
    connect(added, &Instrument::SnapshotBegin, this, [this, added] { beginSnapshot(*added); });
    connect(added, &Instrument::SnapshotEnd, this, [this, added] { endSnapshot(*added); });
    connect(added, &Instrument::CustomDefined, this,
            [this, added](const QString& fileName) { defineCustom(*added, fileName); });
}

void frmInterface::beginSnapshot(Instrument& instrument) {
    SavedLeft = static_cast<float>(instrument.leftTwips());
    SavedTop = static_cast<float>(instrument.topTwips());
    instrument.move(0, 0);
    instrument.raise();
}

void frmInterface::endSnapshot(Instrument& instrument) {
    instrument.moveTwips(SavedLeft, SavedTop);
}

void frmInterface::defineCustom(const Instrument& instrument, const QString& fileName) {
    const auto name = InputBox(QStringLiteral("Enter configuration name"));
    const QString key = customKey(instrument.kind(), name.value_or(QString()));
    if (key.isEmpty()) return deleteThumbnail(fileName);
    if (!m_palette->addNode(instrument.kind(), key)) {
        deleteThumbnail(fileName);
        MsgBox(QStringLiteral("Configuration name already exists"), Icon::Stop);
        return;
    }
    if (!addToLibrary(instrument, key, fileName)) {
        m_palette->removeNode(key);
        deleteThumbnail(fileName);
    }
    m_palette->RefreshPaletteList();
}

void frmInterface::GenerateIcons() {
    const Hourglass hourglass;
    frmInitControls window;
    window.show();
    for (const PaletteEntry& plain : kPaletteEntries) {
        QString result;
        window.GenerateIcon(plain.kind, QLatin1String(plain.iconFile), result);
    }
    m_palette->RefreshPaletteList();
}

} // namespace vistor
