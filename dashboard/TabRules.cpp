#include "dashboard/TabRules.h"

namespace vistor {

CaptionVerdict judgeNewCaption(const std::optional<QString>& answer, const QStringList& captions) {
    if (!answer) return CaptionVerdict::Cancelled;
    if (answer->isEmpty()) return CaptionVerdict::Empty;
    return captions.contains(*answer, Qt::CaseInsensitive) ? CaptionVerdict::Duplicate : CaptionVerdict::Fine;
}

bool mayRename(const std::optional<QString>& answer, const QStringList& captions) {
    return answer && !answer->isEmpty() && !captions.contains(*answer);
}

} // namespace vistor
