// How the whole program looks: style, colours and small corrections, in one place. In: the application
// object. Out: its style and palette.
#pragma once

namespace vistor {

/// Once, when the application object stands.
void applyAppearance();

} // namespace vistor
