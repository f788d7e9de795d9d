#include "instruments/InstrumentFrame.h"

#include <algorithm>

namespace vistor {
namespace {

constexpr int kHatchPitch = 140;
constexpr int kHatchWidth = 60; ///< thirteen lines, 5 twips apart

struct HandlePlace {
    int column; ///< 0 left, 1 middle, 2 right
    int row;
    Qt::CursorShape pointer;
};

constexpr std::array<HandlePlace, kHandleCount> kHandles{{
    {0, 0, Qt::SizeFDiagCursor},
    {1, 0, Qt::SizeVerCursor},
    {2, 0, Qt::SizeBDiagCursor},
    {0, 1, Qt::SizeHorCursor},
    {2, 1, Qt::SizeHorCursor},
    {0, 2, Qt::SizeBDiagCursor},
    {1, 2, Qt::SizeVerCursor},
    {2, 2, Qt::SizeFDiagCursor},
}};

std::int32_t along(int place, double start, double length) {
    const double offset = place == 0 ? 0 : place == 1 ? length / 2 - kFrameTwips / 2 : length - kFrameTwips;
    return static_cast<std::int32_t>(start + offset);
}

} // namespace

HandleRects handleRects(double left, double top, double width, double height) {
    HandleRects rects;
    for (std::size_t i = 0; i < rects.size(); ++i) {
        const std::int32_t x = along(kHandles[i].column, left, width);
        const std::int32_t y = along(kHandles[i].row, top, height);
        rects[i] = {x, y, x + kFrameTwips, y + kFrameTwips};
    }
    return rects;
}

int handleAt(const HandleRects& handles, float x, float y) {
    const auto* hit = std::find_if(handles.begin(), handles.end(), [x, y](const HandleRect& r) {
        return float(r.left) <= x && x <= float(r.right) && float(r.top) <= y && y <= float(r.bottom);
    });
    return hit == handles.end() ? -1 : static_cast<int>(hit - handles.begin());
}

Qt::CursorShape pointerOver(int handle) {
    if (handle < 0 || handle >= kHandleCount) return Qt::SizeAllCursor;
    return kHandles[static_cast<std::size_t>(handle)].pointer;
}

std::optional<FrameLayout> frameLayout(double width, double height, bool tagOn) {
    const double frame = kFrameTwips;
    if (width <= 2 * frame || height <= 2 * frame) return {};
    const double band = tagOn ? kTagTwips : 0;
    FrameLayout layout;
    layout.display = QRectF(frame, frame + band, width - 2 * frame, height - 2 * frame - band);
    if (tagOn) layout.tag = QRectF(frame, frame, width - 2 * frame, band);
    return layout;
}

QPainterPath frameHatchTile() {
    constexpr int kTileTwips = kHatchTilePixels * kTwipsPerPixel;
    static_assert(kTileTwips % kHatchPitch == 0);
    QPainterPath hatch;
    for (int i = 0; i <= 2 * kTileTwips; i += kHatchPitch) {
        const double near = double(i) / kTwipsPerPixel;
        const double far = double(i + kHatchWidth) / kTwipsPerPixel;
        hatch.addPolygon(QPolygonF({{0, near}, {near, 0}, {far, 0}, {0, far}}));
    }
    return hatch;
}

QRect pixelsOf(const QRectF& twips) {
    const auto pixel = [](double value) { return qRound(value / kTwipsPerPixel); };
    const QPoint topLeft(pixel(twips.left()), pixel(twips.top()));
    const QSize size(pixel(twips.right()) - topLeft.x(), pixel(twips.bottom()) - topLeft.y());
    return QRect(topLeft, size.expandedTo(QSize(0, 0)));
}

} // namespace vistor
