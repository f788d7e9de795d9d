// A Profile out of a file that may be anything. In: a path. Out: the Profile with what is wrong with it in
// words, or why there is none.
#pragma once

#include "dashboard/ProfileFile.h"

namespace vistor {

struct ProfileReading {
    Profile profile; ///< its damage tells of the text too
    QString problem; ///< not empty: why there is no profile, in words that a person can act on
};

/// A file that cannot be read, or has none of the sections that every Profile has, is a problem.
ProfileReading readProfileFile(const QString& path);

/// The damage that shows in a file's text: bytes that no text has, a last line that breaks off. Empty for
/// none. A last line without a line end breaks off where the lines before it end as the program ends them
/// (CR LF), or where it is neither key, section nor comment; so editors may leave the last line end out.
QString textDamage(const QByteArray& bytes);

} // namespace vistor
