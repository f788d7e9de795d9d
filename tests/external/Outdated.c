/* A library of another interface: it must not be called. */
#include "maths/VxExternalVars.h"

int32_t VxInterface(void) {
    return VX_EXTERNAL_VARS_INTERFACE + 1;
}

void* VxCreate(void) {
    return 0;
}

void VxRelease(void* object) {
    (void)object;
}

int32_t Initialise(void* object, float* carConstants, int32_t count) {
    (void)object;
    (void)carConstants;
    return count;
}

int32_t CalcVariable(void* object, float* lastValue, int32_t* indexNumbers, int32_t count, double* result) {
    (void)object;
    (void)lastValue;
    (void)indexNumbers;
    *result = 1;
    return count;
}
