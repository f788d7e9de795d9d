// The program's own pictures, drawn from outlines kept in the code. In: a picture's name. Out: an icon that
// is crisp at any size and density and takes its colours from the palette.
#pragma once

#include <QIcon>

namespace vistor {

/// The icon of that name; an empty one where there is none.
QIcon picture(const char* name);

} // namespace vistor
