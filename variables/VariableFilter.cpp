#include "variables/VariableFilter.h"

#include <QStringList>

#include <algorithm>

namespace vistor {
namespace {

bool holdsAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace

std::vector<bool> linesShown(std::span<const TreeLine> lines, std::span<const QString> physicalNames,
                             const QString& words) {
    const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
    std::vector<bool> shown(lines.size(), wanted.isEmpty());
    if (wanted.isEmpty()) return shown;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].kind == LineKind::Group) continue;
        const auto parent = static_cast<std::size_t>(lines[i].parent);
        if (lines[i].kind != LineKind::Variable) {
            shown[i] = shown[parent];
        } else if (holdsAll(lines[i].text + u' ' + physicalNames[i] + u' ' + lines[parent].text, wanted)) {
            shown[i] = shown[parent] = true;
        }
    }
    return shown;
}

} // namespace vistor
