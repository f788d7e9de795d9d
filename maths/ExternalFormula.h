// The external form of a formula: the text names a class in a shared library. In: the text, the car
// constants, the variables' last values. Out: the value, or a message box.
#pragma once

#include <QString>

namespace vistor {

/// The class that a formula names: what stands in its first pair of double quotes, up to the first ".". Empty
/// when there is none.
QString externalClassName(const QString& formula);

/// Makes an object of the class, initialises it, stores what it computes and releases it. False when any of
/// that failed: `value` stands, and a message box has told so. A name that is not an identifier never reaches
/// the file system.
bool runExternalFormula(const QString& formula, float& value);

} // namespace vistor
