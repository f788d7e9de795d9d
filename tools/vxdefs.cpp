// Makes the definition files from their readable tables, prints one back as such tables, converts one form
// into the other.
#include "maths/DefinitionForms.h"
#include "maths/DefinitionTables.h"
#include "maths/VariableFiles.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace vistor {
namespace {

constexpr qint64 kLargestTable = 64 << 20; ///< bytes

constexpr const char* kUsage =
    "vxdefs build FOLDER [FILE]   make FILE from variables.tsv and units.tsv in FOLDER; without FILE both "
    "forms,\n"
    "                             FOLDER/VistorVars.cfg and FOLDER/Vistor.XVR\n"
    "vxdefs print FILE [FOLDER]   print FILE as such tables, or write them into FOLDER\n"
    "vxdefs convert FILE TO       write what FILE holds to TO\n"
    "--decimal C                  the mark before the fraction in .xvr files (\".\"), that of the machine "
    "they are for\n"
    "A FILE that ends in .xvr is in the text form; its unit conversions stand beside it in\n"
    "StandardUnitsConversions.XVR. Any other is in the binary form.\n";

bool complain(const QString& place, const QString& message) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(place), qPrintable(message));
    return false;
}

bool readTable(const QString& path, QByteArray& text) {
    FileBytes file = readWholeFile(path, kLargestTable);
    text = std::move(file.bytes);
    return file.problem.isEmpty() || complain(path, file.problem);
}

bool writeTable(const QString& path, const QByteArray& bytes) {
    const QString problem = writeWholeFile(path, bytes);
    return problem.isEmpty() || complain(path, problem);
}

bool writeTo(const QString& target, const Definitions& definitions) {
    QString fault;
    QString loss;
    if (!writeForm(target, definitions, fault, loss)) return complain(target, fault);
    if (!loss.isEmpty()) complain(target, loss);
    return true;
}

bool build(const QString& folder, const QString& target) {
    const QDir dir(folder);
    DefinitionTables tables;
    if (!readTable(dir.filePath(kVariablesTable), tables.variables)) return false;
    if (!readTable(dir.filePath(kUnitsTable), tables.units)) return false;
    TableFault fault;
    auto read = readTables(tables, fault);
    if (!read)
        return complain(QStringLiteral("%1:%2").arg(dir.filePath(fault.file)).arg(fault.line), fault.message);
    // Through the set-up pass, so that the file is the one that the program itself would save.
    replaceTables(std::move(*read));
    const Definitions definitions{UnitConversions, VariableTable};
    if (!target.isEmpty()) return writeTo(target, definitions);
    return writeTo(dir.filePath(QLatin1String(kBinaryForm.workingFile)), definitions) &&
           writeTo(dir.filePath(QLatin1String(kTextForm.workingFile)), definitions);
}

bool print(const QString& path, const QString& folder) {
    QString fault;
    const auto definitions = readForm(path, fault);
    if (!definitions) return complain(path, fault);
    const DefinitionTables tables = printTables(*definitions);
    if (folder.isEmpty()) {
        std::printf("%s\n%s", tables.units.constData(), tables.variables.constData());
        return true;
    }
    const QDir dir(folder);
    return writeTable(dir.filePath(kUnitsTable), tables.units) &&
           writeTable(dir.filePath(kVariablesTable), tables.variables);
}

bool convert(const QString& from, const QString& to) {
    QString fault;
    auto read = readForm(from, fault);
    if (!read) return complain(from, fault);
    replaceTables(std::move(*read));
    return writeTo(to, {UnitConversions, VariableTable});
}

/// Takes the option out of the arguments; false when its value is none.
bool takeDecimal(QStringList& arguments) {
    const qsizetype at = arguments.indexOf(QStringLiteral("--decimal"));
    if (at < 0) return true;
    const QString mark = arguments.value(at + 1);
    arguments.remove(at, std::min<qsizetype>(2, arguments.size() - at));
    if (mark.size() != 1 || mark.front().isLetterOrNumber()) return false;
    DecimalSeparator = mark;
    return true;
}

int run(QStringList arguments) {
    if (!takeDecimal(arguments)) {
        complain(QStringLiteral("--decimal"), QStringLiteral("is one character, such as \".\" or \",\""));
        return 2;
    }
    const QString command = arguments.value(1);
    const bool complete = arguments.size() == 3 || arguments.size() == 4;
    if (command == QStringLiteral("build") && complete)
        return build(arguments[2], arguments.value(3)) ? 0 : 1;
    if (command == QStringLiteral("print") && complete)
        return print(arguments[2], arguments.value(3)) ? 0 : 1;
    if (command == QStringLiteral("convert") && arguments.size() == 4)
        return convert(arguments[2], arguments[3]) ? 0 : 1;
    const bool help = command == QStringLiteral("--help") || command == QStringLiteral("-h");
    std::fputs(kUsage, help ? stdout : stderr);
    return help ? 0 : 2;
}

} // namespace
} // namespace vistor

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    return vistor::run(QCoreApplication::arguments());
}
