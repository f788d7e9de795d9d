// Definitions in either of their two file forms, told apart by the file's name. In: a path, definitions. Out:
// the same the other way, or in words why not. For tools: it works through the live tables.
#pragma once

#include "maths/LoadAndSaveVariableDefinitions.h"

#include <QString>

#include <optional>

namespace vistor {

/// True for a name that ends in ".xvr": the text form, whose unit conversions stand in a file of their own
/// beside it.
bool isTextForm(const QString& path);

/// What a file of either form holds. No value, and `fault` filled, when it cannot be read.
std::optional<Definitions> readForm(const QString& path, QString& fault);

/// Writes definitions, as they are after the set-up pass, to a file of either form. False and
/// `fault` filled when they cannot stand in it or the file cannot be written: the old file then stands. (The
/// conversions of the text form are a file of their own and may be new already.) What the form cannot tell
/// (more than seven digits, "#" in a formula) is told in `loss`, which is else empty.
bool writeForm(const QString& path, const Definitions& definitions, QString& fault, QString& loss);

} // namespace vistor
