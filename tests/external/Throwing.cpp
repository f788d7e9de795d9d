// An external formula class whose constructor fails as classes in C++ do.
#include "maths/VxExternalVars.h"

#include <stdexcept>

int32_t VxInterface() {
    return VX_EXTERNAL_VARS_INTERFACE;
}

void* VxCreate() {
    throw std::runtime_error("not today");
}

void VxRelease(void*) {}

int32_t Initialise(void*, float*, int32_t) {
    return 0;
}

int32_t CalcVariable(void*, float*, int32_t*, int32_t, double*) {
    return 0;
}
