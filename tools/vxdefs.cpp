// Makes the definition file from its readable tables and prints one back as such tables.
#include "maths/DefinitionTables.h"
#include "maths/LoadAndSaveVariableDefinitions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringList>

#include <cstdio>
#include <utility>

namespace vistor {
namespace {

constexpr const char* kUsage =
    "vxdefs build FOLDER [FILE]   make FILE (FOLDER/VistorVars.cfg) from variables.tsv and units.tsv in "
    "FOLDER\n"
    "vxdefs print FILE [FOLDER]   print FILE as such tables, or write them into FOLDER\n";

bool complain(const QString& place, const QString& message) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(place), qPrintable(message));
    return false;
}

bool readTable(const QString& path, QByteArray& text) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return complain(path, file.errorString());
    text = file.readAll();
    return true;
}

bool writeWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return complain(path, file.errorString());
    return true;
}

bool build(const QString& folder, const QString& target) {
    const QDir dir(folder);
    DefinitionTables tables;
    if (!readTable(dir.filePath(kVariablesTable), tables.variables)) return false;
    if (!readTable(dir.filePath(kUnitsTable), tables.units)) return false;
    TableFault fault;
    auto definitions = readTables(tables, fault);
    if (!definitions)
        return complain(QStringLiteral("%1:%2").arg(dir.filePath(fault.file)).arg(fault.line), fault.message);
    // Through the set-up pass, so that the file is the one that the program itself would save.
    replaceTables(std::move(*definitions));
    return writeWhole(target.isEmpty() ? dir.filePath(QStringLiteral("VistorVars.cfg")) : target,
                      definitionBytes(UnitConversions, VariableTable));
}

bool print(const QString& path, const QString& folder) {
    const auto bytes = readDefinitionFile(path);
    if (!bytes) return complain(path, QStringLiteral("cannot be read"));
    const auto definitions = readDefinitions({bytes->constData(), static_cast<std::size_t>(bytes->size())});
    if (!definitions) return complain(path, QStringLiteral("is no definition file, or a damaged one"));
    const DefinitionTables tables = printTables(*definitions);
    if (folder.isEmpty()) {
        std::printf("%s\n%s", tables.units.constData(), tables.variables.constData());
        return true;
    }
    const QDir dir(folder);
    return writeWhole(dir.filePath(kUnitsTable), tables.units) &&
           writeWhole(dir.filePath(kVariablesTable), tables.variables);
}

int run(const QStringList& arguments) {
    const QString command = arguments.value(1);
    const bool complete = arguments.size() == 3 || arguments.size() == 4;
    if (command == QStringLiteral("build") && complete)
        return build(arguments[2], arguments.value(3)) ? 0 : 1;
    if (command == QStringLiteral("print") && complete)
        return print(arguments[2], arguments.value(3)) ? 0 : 1;
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
