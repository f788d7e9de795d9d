// Values as cells of a tab-separated table. In: values. Out: cells; and the way back. An empty cell is the
// value 0, an empty text, or an array that was never allocated, and is not handed to fromCell.
#pragma once

#include "variables/GlobalVarsAndTypes.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace vistor {

QString toCell(const QString& text);
QString toCell(std::int32_t number);
QString toCell(float number);
/// "yes", or an empty cell.
QString toCell(Bool16 flag);
/// The texts, parted by "|".
QString toCell(const std::optional<QStringList>& list);

/// A cell that is not empty and stands for an empty text.
QString emptyTextCell();

/// The value behind a cell; false when the cell stands for none: digits that are no number of that range, an
/// unknown escape, half of a character, a text of more than 65,535
/// bytes.
bool fromCell(const QString& cell, QString& text);
bool fromCell(const QString& cell, std::int32_t& number);
bool fromCell(const QString& cell, std::uint8_t& number);
bool fromCell(const QString& cell, float& number);
bool fromCell(const QString& cell, Bool16& flag);
bool fromCell(const QString& cell, std::optional<QStringList>& list);

} // namespace vistor
