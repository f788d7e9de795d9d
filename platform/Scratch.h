// The folder of this process for pictures that nobody needs after it. In: the working folder. Out: a folder
// of its own in "scratch/" there, under a lock that tells other processes that it is in use.
#pragma once

#include <QString>

namespace vistor {

/// This process's folder, made at the first call; ends in "/". Empty without a working folder, and where no
/// folder can be made in it.
QString scratchFolder(const QString& workingFolder);

/// Deletes that folder with its bitmaps. A file of another kind keeps it.
void deleteScratchFolder();

/// Does the same with what processes left behind that ended without it. Folders in use are left alone.
void deleteForsakenScratch(const QString& workingFolder);

} // namespace vistor
