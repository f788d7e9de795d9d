/* An external formula class: the ratio of variables 17 and 18 times CAR_1. An object counts its calls, which
 * shows that each sample gets a new one. */
#include "maths/VxExternalVars.h"

#include <stdlib.h>

struct SpeedRatio {
    float factor;
    int calls;
};

int32_t VxInterface(void) {
    return VX_EXTERNAL_VARS_INTERFACE;
}

void* VxCreate(void) {
    return calloc(1, sizeof(struct SpeedRatio));
}

void VxRelease(void* object) {
    free(object);
}

int32_t Initialise(void* object, float* carConstants, int32_t count) {
    if (count < 16) return 1;
    ((struct SpeedRatio*)object)->factor = carConstants[6];
    return 0;
}

int32_t CalcVariable(void* object, float* lastValue, int32_t* indexNumbers, int32_t count, double* result) {
    struct SpeedRatio* self = object;
    if (count < 8001 || lastValue[18] == 0 || ++self->calls > 1) return 1;
    *result = (double)(self->factor * lastValue[17] / lastValue[18]) + indexNumbers[17];
    return 0;
}
