#include "maths/RewriteScript.h"

#include <QRegularExpression>
#include <QString>

namespace vistor {
namespace {

constexpr const char* kFunctions[] = {"sign", "ceil", "floor", "min",  "max", "asin",
                                      "acos", "atan", "sinh",  "cosh", "tanh"};

QRegularExpression pattern(const char* text) {
    return QRegularExpression(QString::fromLatin1(text), QRegularExpression::CaseInsensitiveOption);
}

} // namespace

void RewriteScript(QString& formula) {
    static const QRegularExpression variable = pattern("(var)_([0-9]{4})");
    static const QRegularExpression constant = pattern("(car)_([0-9]{1,2})");
    formula.replace(variable, QStringLiteral("script_\\1(\\2)"));
    formula.replace(constant, QStringLiteral("script_\\1(\\2)"));
    for (const char* function : kFunctions) {
        const QString name = QString::fromLatin1(function);
        formula.replace(name, QStringLiteral("Script_%1(").arg(name), Qt::CaseInsensitive);
    }
}

} // namespace vistor
