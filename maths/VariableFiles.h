// Which form the variable table is kept in: binary, or under the build constant text. Commands and start-up
// call these and know nothing of the forms. In: paths. Out: the live tables, or files.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace vistor {

/// What the form decides beside reading and writing.
struct VariableFileForm {
    const char* workingFile; ///< name in the person's folder and among the delivered files
    const char* unitsFile;   ///< beside it; null where the conversions stand in the same file
    const char* filter;      ///< of the file dialogs
    const char* extension;
};

inline constexpr VariableFileForm kBinaryForm = {"VistorVars.cfg", nullptr,
                                                 "Variable Config File (*.var)|*.var", "var"};
inline constexpr VariableFileForm kTextForm = {"Vistor.XVR", "StandardUnitsConversions.XVR",
                                               "Variable Config File (*.xvr)|*.xvr", "xvr"};

/// Decided by the build: true keeps the table as text. False as delivered.
extern const bool UseXmlVariableFiles;
extern const VariableFileForm kVariableFileForm;

/// The files that the form keeps in the person's folder.
QStringList variableFileNames(const VariableFileForm& form = kVariableFileForm);

/// Reads a file of the form into the live tables and runs the set-up pass; in the text form the conversions
/// come from their own file in the person's folder.
void loadVariables(const QString& path, const VariableFileForm& form = kVariableFileForm);
/// Brings a delivered text file, whose numbers have ".", to the separator of the person's locale. Goes
/// through the live table. A file that is no document stays as it is.
void localiseDelivered(const QString& path);
/// The live table as a file of the form holds it.
QByteArray variableFileBytes(const VariableFileForm& form = kVariableFileForm);
/// Writes the live table to a file of the form.
void saveVariables(const QString& path, const VariableFileForm& form = kVariableFileForm);

} // namespace vistor
