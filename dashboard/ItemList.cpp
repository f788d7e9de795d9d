#include "dashboard/ItemList.h"

#include <algorithm>
#include <cmath>

namespace vistor {

QStringList readItems(const IniFile& file, const QString& section, qsizetype count) {
    QStringList list;
    for (qsizetype item = 0; item < count; ++item)
        list << file.value(section, QString::number(item), QStringLiteral("0"), kItemBuffer);
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
