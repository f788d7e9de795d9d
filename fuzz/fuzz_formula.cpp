// Any text as a formula: it is put in one of the forms, checked and run, and a produced value is finite where
// the sample was.
#include "maths/ConvertUnits.h"

#include <QString>

#include <cmath>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    const QString formula =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const FormulaForm form = formOf(formula);
    if (form == FormulaForm::Script || form == FormulaForm::External)
        return 0; // they have targets of their own
    for (const std::int32_t index : {-1, 0, 17, 8000}) {
        for (int pass = 0; pass < 2; ++pass) {
            float value = 2.5F;
            if (!ConvertValue(formula, index, value, false) || !std::isfinite(value)) std::abort();
        }
    }
    return 0;
}
