// How a variable travels when it is dragged from the tree. The tree offers data of this type; who takes a
// drop asks for them.
#pragma once

namespace vistor {

/// The data are the variable's PhysicalName in UTF-8.
inline constexpr const char* kVariableDragType = "application/x-vistor-variable";

} // namespace vistor
