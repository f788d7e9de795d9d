#include "acquisition/SourceChoice.h"

#include "acquisition/DataSource.h"
#include "acquisition/Serial_API.h"
#include "variables/SetupVariables.h"

#include <algorithm>

namespace vistor {
namespace {

QString numberIn(const QString& text) {
    return QString::number(ParseNumber(QString(text)), 'g', 15);
}

QString offeredSpeed(const QString& speed) {
    const bool offered = std::any_of(std::begin(kLineSpeeds), std::end(kLineSpeeds),
                                     [&](std::int32_t one) { return QString::number(one) == speed; });
    return offered ? speed : QString::number(kDefaultLineSpeed);
}

} // namespace

SourceChoice choiceOf(const QString& descriptor) {
    const QString kind = descriptor.left(3);
    SourceChoice choice;
    choice.file = kind == QStringLiteral("FIL");
    choice.gsm = kind == QStringLiteral("GSM");
    choice.speed = offeredSpeed(choice.file ? QString() : descriptor.section(u',', 2, 2));
    if (choice.file) choice.fileName = descriptor.mid(4);
    return choice;
}

QString descriptorOf(const SourceChoice& choice) {
    if (choice.file) return QStringLiteral("FIL,") + choice.fileName;
    const QString line = numberIn(choice.port) + u',' + numberIn(choice.speed);
    return choice.gsm ? QStringLiteral("GSM,") + line + u',' + choice.telephone
                      : QStringLiteral("SER,") + line;
}

std::int32_t portOf(const QString& descriptor) {
    return descriptor.startsWith(QStringLiteral("FIL")) ? 0 : descriptor.section(u',', 1, 1).toInt();
}

std::vector<std::int32_t> detectPorts() {
    std::vector<std::int32_t> ports;
    for (std::int32_t number = 1; number <= kHighestPort; ++number) {
        CloseDataSource();
        if (OpenPort(number, kDefaultLineSpeed)) ports.push_back(number);
        CloseDataSource();
    }
    return ports;
}

} // namespace vistor
