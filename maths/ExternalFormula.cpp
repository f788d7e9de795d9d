#include "maths/ExternalFormula.h"

#include "maths/VxExternalVars.h"
#include "platform/Folders.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <cmath>
#include <dlfcn.h>
#include <optional>

namespace vistor {
namespace {

/// The functions of a loaded library.
struct ExternalClass {
    decltype(&VxInterface) interfaceNumber = nullptr;
    decltype(&VxCreate) create = nullptr;
    decltype(&VxRelease) release = nullptr;
    decltype(&Initialise) initialise = nullptr;
    decltype(&CalcVariable) calcVariable = nullptr;

    bool complete() const { return interfaceNumber && create && release && initialise && calcVariable; }
};

bool isIdentifier(const QString& name) {
    const auto fits = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_';
    };
    return !name.isEmpty() && !(name[0] >= u'0' && name[0] <= u'9') &&
           std::all_of(name.begin(), name.end(), fits);
}

template <typename Function>
void resolve(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
}

/// Nothing where the file is no library or lacks a function; it is then unloaded again.
std::optional<ExternalClass> loadLibrary(const QString& path) {
    void* library = dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library) return std::nullopt;
    ExternalClass loaded;
    resolve(library, "VxInterface", loaded.interfaceNumber);
    resolve(library, "VxCreate", loaded.create);
    resolve(library, "VxRelease", loaded.release);
    resolve(library, "Initialise", loaded.initialise);
    resolve(library, "CalcVariable", loaded.calcVariable);
    if (loaded.complete() && loaded.interfaceNumber() == VX_EXTERNAL_VARS_INTERFACE) return loaded;
    dlclose(library);
    return std::nullopt;
}

std::optional<ExternalClass> classIn(const QString& folder, const QString& name) {
    static QHash<QString, ExternalClass> loaded; // by path; a library that is loaded stays so
    const QString path = folder + QStringLiteral("ExternalVars/VxExternalVars.%1.so").arg(name);
    const auto known = loaded.constFind(path);
    if (known != loaded.constEnd()) return *known;
    if (folder.isEmpty() || !isPlainFile(path)) return std::nullopt; // opening a pipe would wait
    const std::optional<ExternalClass> found = loadLibrary(path);
    if (found) loaded.insert(path, *found);
    return found;
}

std::optional<ExternalClass> findClass(const QString& name) {
    if (!isIdentifier(name)) return std::nullopt;
    const std::optional<ExternalClass> found = classIn(programFolder(), name);
    return found ? found : classIn(WorkingFolder, name);
}

std::optional<double> calculate(const ExternalClass& external, void* object) {
    double result = 0;
    const bool done =
        external.initialise(object, CarConstants.data(), static_cast<std::int32_t>(CarConstants.size())) ==
            0 &&
        external.calcVariable(object, LastValue.data(), IndexNumbers.data(), kVariableCount, &result) == 0;
    return done ? std::optional(result) : std::nullopt;
}

/// Whatever a class written in C++ throws is an error like any other.
std::optional<double> calculateOnce(const ExternalClass& external) {
    void* object = nullptr;
    std::optional<double> result;
    try {
        object = external.create();
        if (object) result = calculate(external, object);
    } catch (...) {
        result.reset();
    }
    try {
        if (object) external.release(object);
    } catch (...) {
        result.reset();
    }
    return result;
}

} // namespace

QString externalClassName(const QString& formula) {
    return formula.section(u'"', 1, 1).section(u'.', 0, 0);
}

bool runExternalFormula(const QString& formula, float& value) {
    const std::optional<ExternalClass> external = findClass(externalClassName(formula));
    const std::optional<double> result = external ? calculateOnce(*external) : std::nullopt;
    if (!result) {
        MsgBox(QStringLiteral("There was an error with the external DLL"), Icon::Stop);
        return false;
    }
    const auto single = static_cast<float>(*result);
    if (std::isfinite(single)) value = single; // an overflow stores nothing
    return true;
}

} // namespace vistor
