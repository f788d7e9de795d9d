/* The interface of external formula classes. A class is a shared library "VxExternalVars.<Class>.so" in the
 * folder "ExternalVars" of the program or of its working folder, and the formula names it: external dll
 * "<Class>". It exports the functions declared here; C and C++ will do, as will any language that can export
 * C functions. For each sample an object is made, initialised, asked for one value and released again; the
 * library stays loaded. */
#ifndef VX_EXTERNAL_VARS_H
#define VX_EXTERNAL_VARS_H

#include <stdint.h>

#if defined(__GNUC__)
#define VX_EXPORT __attribute__((visibility("default")))
#else
#define VX_EXPORT
#endif

/* What VxInterface has to return. */
#define VX_EXTERNAL_VARS_INTERFACE 1

#ifdef __cplusplus
extern "C" {
#endif

/* The interface that the library was built for. */
VX_EXPORT int32_t VxInterface(void);

/* Makes an object; null when it cannot. */
VX_EXPORT void* VxCreate(void);

/* Releases an object made by VxCreate. */
VX_EXPORT void VxRelease(void* object);

/* Hands over the car constants: 16 elements, in the order CdA, Roll, Mass, Temp, Press, Humid, then car
 * constants 1 to 10. They are the program's own: what is written there stays. Returns 0, anything else is an
 * error. */
VX_EXPORT int32_t Initialise(void* object, float* carConstants, int32_t count);

/* Computes the value. Both arrays have `count` elements (8001) and are addressed by variable number:
 * lastValue has the latest value of each variable, indexNumbers the numbers of the table's rows. They are the
 * program's own. Returns 0 and sets *result, anything else is an error. */
VX_EXPORT int32_t CalcVariable(void* object, float* lastValue, int32_t* indexNumbers, int32_t count,
                               double* result);

#ifdef __cplusplus
}
#endif

#endif
