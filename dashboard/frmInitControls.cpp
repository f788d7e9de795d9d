#include "dashboard/frmInitControls.h"

#include "dashboard/Thumbnails.h"
#include "instruments/Instrument.h"
#include "instruments/Snapshot.h"
#include "platform/Events.h"

#include <QLabel>

namespace vistor {

frmInitControls::frmInitControls() {
    setObjectName(QStringLiteral("frmInitControls"));
    setAttribute(Qt::WA_DontShowOnScreen);
    auto* text = new QLabel(QStringLiteral("Loading....... Please wait"), this);
    text->setAlignment(Qt::AlignCenter);
    text->resize(kSnapshotPixels, kSnapshotPixels);
    resize(kSnapshotPixels, kSnapshotPixels);
}

QImage frmInitControls::picture(Kind kind, const QStringList* list) {
    const std::unique_ptr<Instrument> element = makeInstrument(kind, this);
    if (list) element->Deserialise(*list);
    element->move(0, 0);
    element->setSizeTwips(kSnapshotPixels * kTwipsPerPixel, kSnapshotPixels * kTwipsPerPixel);
    element->show();
    return snapshotInside(*element);
}

void frmInitControls::GenerateIcon(Kind kind, const QString& fileName, QString& result) {
    result.clear();
    DoEvents();
    const QString path = thumbnailPath(fileName);
    if (!path.isEmpty() && picture(kind, nullptr).save(path, "BMP")) result = fileName;
}

} // namespace vistor
