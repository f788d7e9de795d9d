// The dashboard's work is kept before it goes, and comes back.
#include "dashboard/ProfileFile.h"
#include "dashboard/RecoveryKeeper.h"
#include "dashboard/frmInterface.h"
#include "dashboard/frmLoadOptions.h"
#include "instruments/Instrument.h"
#include "maths/VariableFiles.h"
#include "platform/Folders.h"
#include "platform/Notices.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QBuffer>
#include <QImage>
#include <QScopedValueRollback>

#include <algorithm>

namespace vistor {
namespace {

constexpr int kMinute = 60'000; ///< ms
constexpr QSize kPictureSize(320, 200);

QByteArray profileBytes(const Profile& profile) {
    IniFile file;
    WriteProfileLayout(profile, file);
    WriteProfileInstruments(profile, file);
    return file.toBytes();
}

QByteArray smallPicture(QWidget& page) {
    const QImage image = page.grab().toImage();
    if (image.isNull()) return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    // Halved first: averaging all pixels of a large page costs more than its picture is worth.
    image.scaled(kPictureSize * 2, Qt::KeepAspectRatio, Qt::FastTransformation)
        .scaled(kPictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .save(&buffer, "PNG");
    return bytes;
}

bool isDelivered(const QByteArray& table) {
    const QString path = deliveredFolder() + QLatin1String(kVariableFileForm.workingFile);
    return readWholeFile(path, kLargestCopy).bytes == table;
}

int variableCount() {
    return static_cast<int>(
        std::count_if(VariableTable.begin(), VariableTable.end(),
                      [](const VariableDefinition& row) { return row.IndexNumber != 0; }));
}

} // namespace

void frmInterface::beginRecovery() {
    m_recovery = std::make_unique<RecoveryKeeper>(recoveryFolder());
    connect(&m_minute, &QTimer::timeout, this, &frmInterface::keepEveryMinute, Qt::UniqueConnection);
    m_minute.start(kMinute);
    layoutSaved();
}

void frmInterface::tellOfLostWork() {
    if (m_recovery && m_recovery->lostRuns() > 0)
        notify(QStringLiteral("Vistor ended the last time before changes were saved. A copy of them is kept: "
                              "open it with File > Recover..."));
}

void frmInterface::endRecovery() {
    m_minute.stop();
    m_recovery.reset();
}

/// Everything that is kept of the layout, but for the window's size.
QString frmInterface::layoutHash() {
    return recoveryHash(currentProfile());
}

bool frmInterface::isLayoutEmpty() const {
    return instruments.placedCount() == 0 && mainTab->Tabs() == 1;
}

void frmInterface::layoutSaved() {
    if (!m_recovery) return;
    m_savedHash = layoutHash();
    m_recovery->setUnsaved({});
}

void frmInterface::keepLayoutNow(RecoveryReason reason, bool evenSaved) {
    if (!m_recovery || m_loadingProfile || isLayoutEmpty()) return;
    const Profile profile = currentProfile();
    const QString hash = recoveryHash(profile);
    const bool isUnsaved = ProfileChanged && hash != m_savedHash;
    if (!isUnsaved && !evenSaved) return;
    const QString name = m_recovery->keep(
        reason, {false, mainTab->Tabs(), instruments.placedCount(), ProfilePath, hash,
                 [&profile] { return profileBytes(profile); },
                 [this] { return smallPicture(*pic.at(static_cast<std::size_t>(CurrentTab))); }});
    if (isUnsaved && !name.isEmpty()) m_recovery->setUnsaved(name);
}

void frmInterface::keepLayout(RecoveryReason reason) {
    keepLayoutNow(reason, false);
}

void frmInterface::keepBeforeClearing(RecoveryReason reason) {
    keepLayoutNow(reason, true);
}

void frmInterface::keepTable(RecoveryReason reason) {
    if (!m_recovery || VariableTable.empty()) return;
    const QByteArray table = variableFileBytes();
    if (isDelivered(table)) return; // it can be restored
    m_recovery->keep(reason, {true, 0, variableCount(), {}, recoveryHash(table), [&] { return table; }, {}});
}

void frmInterface::keepEveryMinute() {
    if (PlayMode) return; // nothing changes, and the tick is not to be held up
    keepLayout(RecoveryReason::Minute);
    if (m_keptRevision == tableRevision) return;
    m_keptRevision = tableRevision;
    keepTable(RecoveryReason::Minute);
}

void frmInterface::storeForEnd() {
    if (!m_loaded) return;
    storeSettings();
    keepLayout(RecoveryReason::Ended);
}

void frmInterface::loadAskingFirst(const std::function<void(bool clear)>& load) {
    if (m_loadingProfile) return;
    if (instruments.placedCount() == 0) return load(false);
    frmLoadOptions options(this);
    if (options.exec() != QDialog::Accepted) return;
    const LoadChoice& choice = options.choice();
    if (choice.load && (!choice.save || save())) load(choice.clear);
}

void frmInterface::openRecent(const QString& path) {
    loadAskingFirst([&](bool clear) { ProfileChanged |= openProfile(path, clear); });
}

void frmInterface::openRecovered(const RecoveryCopy& copy) {
    const FileBytes file = readRecovery(recoveryFolder(), copy);
    if (!file.problem.isEmpty()) return tellUnreadable(file.problem);
    const IniFile document = IniFile::parse({file.bytes.constData(), std::size_t(file.bytes.size())});
    loadAskingFirst([&](bool clear) { loadRecovered(copy, document, clear); });
}

/// Nobody's file: the next save asks for a name.
void frmInterface::loadRecovered(const RecoveryCopy& copy, const IniFile& document, bool clear) {
    keepLayout(RecoveryReason::LoadOver);
    if (clear) mnuNew_Click();
    const bool wasEmpty = isLayoutEmpty();
    HasProfilePath = false;
    ProfilePath.clear();
    setWindowTitle(QStringLiteral("Untitled"));
    const int clearings = m_clearings;
    takeProfile(readProfile(document));
    if (clearings != m_clearings) return; // an event in the middle began a new one
    ProfileChanged = true;
    if (m_recovery && wasEmpty) m_recovery->recovered(copy, layoutHash());
}

} // namespace vistor
