// Any text as what the clipboard holds: it becomes cells, the cells points, the points a formula of finite
// numbers.
#include "maths/CellText.h"
#include "maths/CurveFit.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace vistor;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::vector<QStringList> rows = cellsOfText(text);
    if (rows.size() > static_cast<std::size_t>(kMostPastedRows)) std::abort();
    const std::vector<FitPoint> points = pointsOf(rows);
    const CurveFit fit = fitCurve(points);
    if (fit.formula.contains(u'n') || fit.label.isEmpty()) std::abort(); // "nan", "inf"
    curvePoints(points, fit);
    return 0;
}
