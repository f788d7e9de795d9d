#include "instruments/displays/StripDisplay.h"

#include "instruments/Colours.h"
#include "instruments/displays/StripDashes.h"
#include "instruments/displays/StripRaster.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistor {
namespace {

constexpr std::size_t kNewBuffer = 10'000;
constexpr double kLargestPlot = 9e6; ///< device pixels; a larger frame is painted coarser
constexpr int kMostLegendEntries = 12;
constexpr int kMostRunsPainted = 200; ///< of a trace; further back X has been left long ago

std::size_t capacityOf(const PropertyStore& p) {
    const int wanted = p.integer(StripBufferSize);
    return wanted > 0 ? static_cast<std::size_t>(wanted) : kNewBuffer;
}

int ticsThatFit(double length, double pitch) {
    return std::clamp(static_cast<int>(length / std::max(pitch, 1.0)) + 1, 2, 12);
}

void paintPieces(StripRaster& raster, const PathPieces& pieces, const RasterStroke& stroke) {
    for (std::size_t i = 0; i < pieces.count(); ++i) raster.paintLine(pieces.piece(i), stroke);
}

/// The pixels that a line may reach.
QRect boundsOf(const std::vector<QPointF>& line, double width) {
    if (line.empty()) return {};
    const int reach = static_cast<int>(std::ceil(width / 2)) + 2;
    const QRect box = QPolygonF(QList<QPointF>(line.begin(), line.end())).boundingRect().toAlignedRect();
    return box.adjusted(-reach, -reach, reach, reach);
}

double widestOf(const QFontMetricsF& metrics, const QStringList& texts) {
    double widest = 0;
    for (const QString& text : texts) widest = std::max(widest, metrics.horizontalAdvance(text));
    return widest;
}

} // namespace

struct StripDisplay::Scene {
    StripStyle style;
    StripLayout layout;
    StripAxis x;
    StripAxis y; ///< of the current trace
    double ratio = 1;
};

/// A trace as the picture takes it, but for its dashes.
struct StripDisplay::Line {
    AxisMap x; ///< to pixels of the picture
    AxisMap y;
    RasterStroke stroke;
};

StripDisplay::StripDisplay(const KindTable& table, bool scrolling, QWidget* parent)
    : InnerDisplay(table, parent), m_scrolling(scrolling) {}

void StripDisplay::addPoint(int trace, double x, double y) {
    if (trace < 0 || trace >= properties().integer(StripTraceCount)) return;
    const auto index = static_cast<std::size_t>(trace);
    if (index >= m_traces.size()) m_traces.resize(index + 1);
    TraceRing& ring = m_traces[index];
    ring.setCapacity(capacityOf(properties()));
    if (ring.add(x, y)) touch();
}

void StripDisplay::clearPoints() {
    m_traces.clear();
    m_kept.forget();
    touch();
    redraw();
}

void StripDisplay::interrupt() {
    for (TraceRing& ring : m_traces) ring.interrupt();
}

const TraceRing* StripDisplay::heldBy(int trace) const {
    const auto index = static_cast<std::size_t>(trace);
    const bool held = trace >= 0 && index < m_traces.size() && m_traces[index].size() > 0;
    return held ? &m_traces[index] : nullptr;
}

double StripDisplay::highestY(int trace) const {
    const TraceRing* ring = heldBy(trace);
    return ring ? ring->extremes().high : properties().number(StripMaximumY);
}

double StripDisplay::lowestY(int trace) const {
    const TraceRing* ring = heldBy(trace);
    return ring ? ring->extremes().low : properties().number(StripMinimumY);
}

AxisRange StripDisplay::visible() const {
    return visibleX(properties().number(StripOrigin), properties().number(StripLength), m_scrolling);
}

void StripDisplay::tellVisible() {
    const AxisRange ends = visible();
    properties().setNumber(StripMaximumX, ends.high);
    properties().setNumber(StripMinimumX, ends.low);
}

void StripDisplay::setTraceNames(const QStringList& names) {
    if (names == m_names) return;
    m_names = names;
    touch();
    redraw();
}

std::vector<LegendEntry> StripDisplay::legendEntries() const {
    const PropertyStore& p = properties();
    std::vector<LegendEntry> entries;
    const int traces = std::min(p.integer(StripTraceCount), kMostLegendEntries);
    for (int i = 0; i < traces; ++i) {
        QString name = traceName(p, i);
        if (name.isEmpty()) name = m_names.value(i);
        if (!name.isEmpty()) entries.push_back({name, traceStyle(p, i)});
    }
    return entries;
}

StripDisplay::Scene StripDisplay::sceneNow() const {
    const PropertyStore& p = properties();
    Scene scene;
    scene.style = stripStyle(p, size());
    const QFontMetricsF metrics(scene.style.font);
    const QRectF room = panelInside(scene.style.panel, rect());
    StripLook look;
    look.numbersX = scene.style.numbersX;
    look.numbersY = scene.style.numbersY;
    look.ratio = devicePixelRatioF();
    look.lineHeight = metrics.ascent() + metrics.descent();
    const auto entries = static_cast<double>(legendEntries().size());
    look.legend = entries > 0 && room.width() / entries > look.lineHeight * 5;
    scene.layout = layOutStrip(room, look);
    const double pitchY = look.lineHeight * 2.4;
    const int current = currentTrace(p);
    scene.y = axisOf(rangeY(p, current), ticsThatFit(scene.layout.frame.height(), pitchY),
                     leastDecimals(p, StripDecimalsY, current));
    look.widestY = widestOf(metrics, scene.y.texts);
    scene.layout = layOutStrip(room, look);
    const double width = scene.layout.frame.width();
    const auto axisX = [&](double pitch) {
        return axisOf(visible(), ticsThatFit(width, pitch), leastDecimals(p, StripDecimalsX));
    };
    scene.x = axisX(look.lineHeight * 2.6);
    const double pitchX = widestOf(metrics, scene.x.texts) + look.lineHeight * 1.2;
    if (pitchX * scene.x.tics.count > width) scene.x = axisX(pitchX);
    const double pixels = width * scene.layout.frame.height();
    scene.ratio = std::min(devicePixelRatioF(), std::sqrt(kLargestPlot / std::max(pixels, 1.0)));
    return scene;
}

StripLayout StripDisplay::layoutNow() const {
    return sceneNow().layout;
}

void StripDisplay::paintStatic(QPainter& painter) {
    const PropertyStore& p = properties();
    const StripStyle style = stripStyle(p, size());
    paintPanel(painter, style.panel, rect());
}

void StripDisplay::paintMoving(QPainter& painter) {
    const Scene scene = sceneNow();
    paintPlot(scene);
    copyPlot(painter, scene);
    if (scene.style.marker) paintMarkerNow(painter, scene);
    paintTexts(painter, scene);
}

void StripDisplay::paintTexts(QPainter& painter, const Scene& scene) const {
    paintCaptions(painter, scene.style, scene.layout, properties());
    paintNumbers(painter, scene.style, scene.layout, scene.x, scene.y);
    if (!scene.layout.legend.isEmpty()) paintLegend(painter, scene.style, scene.layout, legendEntries());
}

void StripDisplay::paintTexts(QPainter& painter) const {
    paintTexts(painter, sceneNow());
}

/// Pixel by pixel also where the display stands between the screen's pixels.
void StripDisplay::copyPlot(QPainter& painter, const Scene& scene) const {
    const QTransform& toDevice = painter.deviceTransform();
    QRectF place = scene.layout.frame;
    if (toDevice.type() <= QTransform::TxScale && std::abs(toDevice.m11() - scene.ratio) < 1e-6)
        place = toDevice.inverted().mapRect(
            QRectF(toDevice.map(place.topLeft()).toPoint(), QSizeF(m_plot.size())));
    painter.drawImage(place, m_plot);
}

void StripDisplay::paintMarkerNow(QPainter& painter, const Scene& scene) const {
    const TraceRing* current = heldBy(currentTrace(properties()));
    const bool holdsPoints =
        std::any_of(m_traces.begin(), m_traces.end(), [](const TraceRing& ring) { return ring.size() > 0; });
    if (m_scrolling ? current == nullptr : !holdsPoints) return;
    const PropertyStore& p = properties();
    const QPointF place = m_scrolling
                              ? QPointF(current->x(current->size() - 1), current->y(current->size() - 1))
                              : QPointF(p.number(StripMarkerX), p.number(StripMarkerY));
    paintMarker(painter, scene.style, place, scene.layout, scene.x.range, scene.y.range);
}

int StripDisplay::tracesShown() const {
    return std::min(static_cast<int>(m_traces.size()), properties().integer(StripTraceCount));
}

StripDisplay::Line StripDisplay::lineOf(const Scene& scene, int trace) const {
    const TraceStyle style = traceStyle(properties(), trace);
    return {frameMapX(scene.layout, scene.x.range, scene.ratio),
            frameMapY(scene.layout, paintable(rangeY(properties(), trace)), scene.ratio),
            {style.colour.rgb(), style.width * scene.ratio}};
}

/// All that the picture of the tracks depends on beside their points; empty where a dash or a symbol depends
/// on the points before it.
std::vector<double> StripDisplay::lookOf(const Scene& scene) const {
    const StripStyle& style = scene.style;
    std::vector<double> look{
        scene.ratio,         scene.x.range.low,          scene.x.range.high,         scene.y.range.low,
        scene.y.range.high,  double(scene.x.tics.count), double(scene.y.tics.count), double(style.gridX),
        double(style.gridY), double(style.plot.rgb()),   double(style.grid.rgb())};
    for (const QRectF& place : {scene.layout.frame, scene.layout.data})
        look.insert(look.end(), {place.left(), place.top(), place.width(), place.height()});
    for (int trace = 0; trace < tracesShown(); ++trace) {
        const TraceStyle line = traceStyle(properties(), trace);
        if (!line.dashes.empty() || line.symbol != StripSymbol::None) return {};
        const AxisRange y = rangeY(properties(), trace);
        look.insert(look.end(), {y.low, y.high, double(line.colour.rgb()), line.width});
    }
    return look;
}

void StripDisplay::paintPlot(const Scene& scene) {
    if (m_scrolling) return paintWholePlot(scene);
    std::vector<double> look = lookOf(scene);
    if (m_kept.canGrow(look, m_traces)) return paintNewPoints(scene);
    paintWholePlot(scene);
    m_settled = m_plot.copy();
    m_tails = {};
    m_kept.begin(std::move(look), m_traces);
}

void StripDisplay::paintNewPoints(const Scene& scene) {
    QPainter(&m_plot).drawImage(m_tails.topLeft(), m_settled, m_tails);
    m_tails = {};
    StripRaster raster(m_plot, m_plot.rect(), scene.ratio);
    StripRaster settled(m_settled, m_settled.rect(), scene.ratio);
    for (int trace = 0; trace < tracesShown(); ++trace) {
        const Line line = lineOf(scene, trace);
        const auto index = static_cast<std::size_t>(trace);
        const std::vector<QPointF> tail = m_kept.tail(index, m_traces[index], line.x, line.y);
        const PathPieces seen = unvisitedParts(tail, m_visited[index]);
        paintPieces(raster, seen, line.stroke);
        if (KeptTracks::isLong(tail)) {
            paintPieces(settled, seen, line.stroke);
            visitAlong(tail, m_visited[index]);
            m_kept.settle(index, m_traces[index]);
        } else {
            m_tails |= boundsOf(seen.points, line.stroke.width) & m_plot.rect();
        }
    }
}

void StripDisplay::paintWholePlot(const Scene& scene) {
    const QSize pixels = (scene.layout.frame.size() * scene.ratio).toSize().expandedTo(QSize(1, 1));
    if (m_plot.size() != pixels) m_plot = QImage(pixels, QImage::Format_RGB32);
    if (!m_scrolling) m_visited.assign(m_traces.size(), PathCells(m_plot.size(), PathCells::kFine));
    paintGrid(m_plot, scene.style, scene.layout, scene.x, scene.y);
    StripRaster raster(m_plot, m_plot.rect(), scene.ratio);
    for (int trace = 0; trace < tracesShown(); ++trace) {
        if (!heldBy(trace)) continue;
        paintTrace(scene, raster, trace);
    }
}

void StripDisplay::paintTrace(const Scene& scene, StripRaster& raster, int trace) {
    const TraceRing& ring = *heldBy(trace);
    const TraceStyle style = traceStyle(properties(), trace);
    const auto [x, y, stroke] = lineOf(scene, trace);
    const double pen = stroke.width / 2 + 1;
    std::vector<double> dashes;
    for (const double dash : style.dashes) dashes.push_back(dash * stroke.width);
    if (m_scrolling) {
        const auto runs = std::min<std::size_t>(ring.runCount(), kMostRunsPainted);
        for (std::size_t i = 0; i < runs; ++i) {
            if (dashes.empty())
                raster.paintRun(ring, ring.run(i), x, y, stroke);
            else
                paintPieces(raster, dashedInOrder(ring, ring.run(i), x, y, m_plot.size(), pen, dashes),
                            stroke);
        }
    } else {
        PathCells& visited = m_visited[static_cast<std::size_t>(trace)];
        const PathPieces path = thinnedPath(ring, x, y, m_plot.size(), pen, visited);
        paintPieces(raster, dashes.empty() ? path : dashed(path, dashes), stroke);
    }
    if (style.symbol != StripSymbol::None) paintSymbols(ring, x, y, style, scene.ratio);
}

void StripDisplay::paintSymbols(const TraceRing& ring, const AxisMap& x, const AxisMap& y,
                                const TraceStyle& style, double ratio) {
    const QImage symbol = symbolImage(style, ratio);
    const QPointF middle(symbol.width() / 2.0, symbol.height() / 2.0);
    const double spacing = style.symbolSize * ratio * 2;
    QPainter painter(&m_plot);
    const auto paintAll = [&](const std::vector<QPointF>& places) {
        for (const QPointF& place : places) painter.drawImage((place - middle).toPoint(), symbol);
    };
    if (!m_scrolling) return paintAll(symbolPlaces(ring, x, y, m_plot.size(), spacing));
    const auto runs = std::min<std::size_t>(ring.runCount(), kMostRunsPainted);
    for (std::size_t i = 0; i < runs; ++i)
        paintAll(symbolPlacesInOrder(ring, ring.run(i), x, y, m_plot.size(), spacing));
}

} // namespace vistor
