// How the whole program looks: style, colours and small corrections, in one place. In: the application
// object. Out: its style and palette.
#pragma once

class QApplication;

namespace vistor {

void applyAppearance(QApplication& application);

} // namespace vistor
