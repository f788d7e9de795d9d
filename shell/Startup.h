// The steps of start-up that need no window: working folder, definition file, car constants, evaluators. In:
// the folders of program and person. Out: the program-wide data filled, or a message.
#pragma once

#include <QString>

namespace vistor {

/// Asks for the working folder, makes it where it is missing, and forms the paths of the files in it.
void findWorkingFolder();

/// Finds the definition file, after copying the delivered one into a working folder that has none. False when
/// there is nothing to copy: the person has been told, and the program must end.
bool findDefinitionFile();

/// Puts the default definition file, which lies beside the program, in place of that in the working folder.
/// Its path there; empty when there is no default.
QString restoreDefinitionFile();

/// Loads the definition file where one was found.
void loadDefinitions();

/// The value behind a key of the car file, 0 without one. A missing file is made, empty.
double ReadCarConstant(const QString& path, const QString& key);
void readIgnitionPulses();
void readDecimalSeparator();
void readCarConstants();

/// The profile that was open at the last end, empty for none.
QString lastLayout();
/// Offers the last layout, or where there never was one the default layout, if the file exists. The path that
/// the person wants opened, empty for none.
QString offerLayout(const QString& last);

/// The main window's title, with the version.
QString mainWindowTitle();

} // namespace vistor
