// How the whole program looks: style, colours and small corrections, in one place. In: the application
// object. Out: its style and palette.
#pragma once

namespace vistor {

/// Once, when the application object stands. The style is left alone where a person has chosen one.
void applyAppearance(bool ownStyle);

} // namespace vistor
