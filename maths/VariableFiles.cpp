#include "maths/VariableFiles.h"

#include "maths/FileSupportFunctions.h"
#include "maths/LoadAndSaveVariableDefinitions.h"
#include "maths/modXML.h"
#include "variables/SetupVariables.h"

#include <utility>

namespace vistor {

#ifdef VISTOR_XML_VARIABLE_FILES
const constinit bool UseXmlVariableFiles = true;
const constinit VariableFileForm kVariableFileForm = kTextForm;
#else
const constinit bool UseXmlVariableFiles = false;
const constinit VariableFileForm kVariableFileForm = kBinaryForm;
#endif

QStringList variableFileNames(const VariableFileForm& form) {
    QStringList names{QLatin1String(form.workingFile)};
    if (form.unitsFile) names += QLatin1String(form.unitsFile);
    return names;
}

void loadVariables(const QString& path, const VariableFileForm& form) {
    if (!form.unitsFile) return LoadVariableFile(path);
    LoadXvrDocument(path, false);
    LoadXvrDocument(GetUserDataFolder() + QLatin1String(form.unitsFile), true);
    SetupVariables();
    VariableTableEdit = VariableTable;
}

void localiseDelivered(const QString& path) {
    const QString separator = std::exchange(DecimalSeparator, QStringLiteral("."));
    const bool readable = separator != DecimalSeparator && XmlDocument().load(path);
    if (readable) {
        VariableSlots.fill({});
        LoadXvrDocument(path, false);
    }
    DecimalSeparator = separator;
    if (readable) SaveXvrDocument(path);
    VariableSlots.fill({});
}

QByteArray variableFileBytes(const VariableFileForm& form) {
    return form.unitsFile ? xvrBytes(VariableTable) : definitionBytes(UnitConversions, VariableTable);
}

void saveVariables(const QString& path, const VariableFileForm& form) {
    if (form.unitsFile)
        SaveXvrDocument(path);
    else
        SaveVariableFile(path);
}

} // namespace vistor
