// The golden scripts under tests/script/. A file holds sections parted by lines that begin with "'----"; each
// is a script of its own, and its lines count from 1. In a section
//     Function Name ' expect: Integer 5           wants Name() to give an Integer that reads 5
//     Function Name ' expect: error 11 Division by zero at +2       so many lines below this one
//     ' expect: error 1014 Expected 'End' at line 4      on a line of its own: the script does not load
#include "maths/ScriptEngine.h"
#include "maths/ScriptFunctions.h"
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace vistor {
namespace {

QString described(const script::Value& value) {
    script::Budget budget(1 << 20);
    script::Random random;
    const script::Call call{{&value, 1}, budget, random, nullptr};
    const script::Value name = script::findBuiltin(u"typename")->function(call);
    QString text = QString::fromStdU16String(script::toText(name));
    if (value.kind() >= script::Kind::Boolean && value.kind() <= script::Kind::Text)
        text += u' ' + QString::fromStdU16String(script::toText(value));
    return text;
}

QString described(const ScriptError& error) {
    return QStringLiteral("error %1 %2 at line %3").arg(error.Number).arg(error.Description).arg(error.Line);
}

std::unique_ptr<ScriptEngine> makeEngine() {
    auto engine = std::make_unique<ScriptEngine>();
    engine->Timeout(2);
    engine->Language("VBScript");
    engine->AddObject("Math", ScriptObject, true);
    return engine;
}

QString outcome(const QString& code, const QString& function) {
    const auto engine = makeEngine();
    if (!engine->AddCode(code)) return described(engine->Error());
    script::Value result;
    if (!function.isEmpty() && !engine->Run(function, {}, result)) return described(engine->Error());
    return described(result);
}

/// An expectation with its line as a number, where it is told from the line that the expectation stands on.
QString absolute(QString expected, const QString& code, qsizetype position) {
    static const QRegularExpression below(" at \\+(\\d+)$");
    const QRegularExpressionMatch match = below.match(expected);
    if (!match.hasMatch()) return expected;
    const qsizetype line = code.left(position).count(u'\n') + 1 + match.captured(1).toInt();
    return expected.left(match.capturedStart()) + QStringLiteral(" at line %1").arg(line);
}

int checkSection(const QString& file, const QString& code) {
    static const QRegularExpression expectation("^(?:\\s*function\\s+(\\w+).*)?'\\s*expect:\\s*(.*?)\\s*$",
                                                QRegularExpression::CaseInsensitiveOption |
                                                    QRegularExpression::MultilineOption);
    int checked = 0;
    for (auto matches = expectation.globalMatch(code); matches.hasNext(); ++checked) {
        const QRegularExpressionMatch match = matches.next();
        const QString expected = absolute(match.captured(2), code, match.capturedStart());
        EXPECT_EQ(outcome(code, match.captured(1)).toStdString(), expected.toStdString())
            << file.toStdString() << ", " << match.captured(1).toStdString() << "\n"
            << (match.captured(1).isEmpty() ? code.toStdString() : "");
    }
    return checked;
}

int checkFile(const QString& path) {
    static const QRegularExpression separator("^'----.*\n", QRegularExpression::MultilineOption);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    int checked = 0;
    for (const QString& section : QString::fromUtf8(file.readAll()).split(separator, Qt::SkipEmptyParts)) {
        const int here = checkSection(QFileInfo(path).fileName(), section);
        EXPECT_GT(here, 0) << path.toStdString() << ": nothing is expected of\n" << section.toStdString();
        checked += here;
    }
    return checked;
}

TEST(GoldenScripts, GiveWhatTheyExpect) {
    CarConstants = {0.5F, 0.015F, 620, 20, 101, 50, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    LastValue[17] = 2.5F;
    createScriptObject();
    int checked = 0;
    const QDir folder(QStringLiteral(VISTOR_SOURCE_DIR "/tests/script"));
    for (const QFileInfo& file : folder.entryInfoList({"*.vbs"}, QDir::Files))
        checked += checkFile(file.filePath());
    EXPECT_GT(checked, 400);
}

} // namespace
} // namespace vistor
