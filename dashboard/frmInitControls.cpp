#include "dashboard/frmInitControls.h"

#include "dashboard/Thumbnails.h"
#include "instruments/Instrument.h"
#include "instruments/Snapshot.h"
#include "platform/Events.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLabel>

namespace vistor {
namespace {

/// Two entries of one number that are made within a second would share a name; the later one takes the next
/// second's.
QString freeName(int number) {
    QDateTime time = QDateTime::currentDateTime();
    QString name = snapshotName(time, number);
    while (QFileInfo::exists(thumbnailPath(name))) {
        time = time.addSecs(1);
        name = snapshotName(time, number);
    }
    return name;
}

} // namespace

frmInitControls::frmInitControls() {
    setObjectName(QStringLiteral("frmInitControls"));
    setAttribute(Qt::WA_DontShowOnScreen);
    auto* text = new QLabel(QStringLiteral("Loading....... Please wait"), this);
    text->setAlignment(Qt::AlignCenter);
    text->resize(kSnapshotPixels, kSnapshotPixels);
    resize(kSnapshotPixels, kSnapshotPixels);
}

void frmInitControls::GenerateIcon(Kind kind, int number, const QStringList& list, const QString& fileName,
                                   QString& result) {
    result.clear();
    const std::unique_ptr<Instrument> element = makeInstrument(kind, this);
    if (!element) return;
    if (number != 0) element->Deserialise(list);
    element->move(0, 0);
    element->setSizeTwips(kSnapshotPixels * kTwipsPerPixel, kSnapshotPixels * kTwipsPerPixel);
    element->show();
    DoEvents();
    const QString name = number == 0 ? fileName : freeName(number);
    const QString path = thumbnailPath(name);
    if (!path.isEmpty() && snapshotInside(*element).save(path, "BMP")) result = name;
}

} // namespace vistor
