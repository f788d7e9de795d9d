// The window in which the palette's bitmaps are made out of sight: one instrument of any kind at a time. In:
// a kind and a list. Out: a bitmap in the folder of bitmaps, and its name.
#pragma once

#include "instruments/InstrumentKinds.h"

#include <QStringList>
#include <QWidget>

namespace vistor {

class frmInitControls : public QWidget {
    Q_OBJECT

public:
    frmInitControls();

    /// Makes the bitmap of a kind as it comes, under `fileName` (number 0), or of entry `number` with its
    /// list, under a name made of the time. `result` is the name; empty when nothing could be made.
    void GenerateIcon(Kind kind, int number, const QStringList& list, const QString& fileName,
                      QString& result);
};

} // namespace vistor
