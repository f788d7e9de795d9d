#include "dashboard/ItemList.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vistor {
namespace {

constexpr qsizetype kMostItems = std::numeric_limits<int>::max();

} // namespace

QStringList readItems(const IniFile& file, const QString& section, qsizetype count) {
    QStringList list(std::max<qsizetype>(count, 0), QStringLiteral("0"));
    const int last = static_cast<int>(std::min<qsizetype>(count, kMostItems)) - 1;
    for (const int item : file.numberedKeys(section, 0, last))
        list[item] = file.value(section, QString::number(item), QStringLiteral("0"), kItemBuffer);
    return list;
}

void writeItems(IniFile& file, const QString& section, const QStringList& list) {
    for (qsizetype item = 0; item < list.size(); ++item)
        file.setValue(section, QString::number(item), list.at(item));
}

int boundedWhole(const QString& text, double least, double most) {
    return static_cast<int>(std::nearbyint(std::clamp(leadingNumber(text), least, most)));
}

} // namespace vistor
