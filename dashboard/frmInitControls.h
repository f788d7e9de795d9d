// The window in which the palette's pictures are made out of sight: one instrument of any kind at a time. In:
// a kind and a list. Out: a picture, or a bitmap in the scratch folder and its name.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <QImage>
#include <QStringList>
#include <QWidget>

namespace vistor {

class frmInitControls : public QWidget {
    Q_OBJECT

public:
    frmInitControls();

    /// The picture of an instrument of a kind, with a saved list or (null) as it comes.
    QImage picture(Kind kind, const QStringList* list);

    /// Makes the bitmap of a kind as it comes, under `fileName`. `result` is the name; empty when nothing
    /// could be made.
    void GenerateIcon(Kind kind, const QString& fileName, QString& result);
};

} // namespace vistor
