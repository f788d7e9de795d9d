// What may be a tab's caption. In: the person's answer and the captions that stand. Out: a verdict.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace vistor {

enum class CaptionVerdict : std::uint8_t { Cancelled, Empty, Duplicate, Fine };

/// Judges the caption for a new tab: another tab's caption in any case is a duplicate.
CaptionVerdict judgeNewCaption(const std::optional<QString>& answer, const QStringList& captions);

/// Whether a tab may be renamed so: only a caption that stands to the letter is refused, so "abc" may stand
/// beside "ABC".
bool mayRename(const std::optional<QString>& answer, const QStringList& captions);

} // namespace vistor
