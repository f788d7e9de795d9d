// The plot of both graphs: traces over a scrolling X axis, or over any X. In: points by method, properties by
// number, see kStripTable. Out: a picture, and the extremes of what is held.
#pragma once

#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/StripKept.h"
#include "instruments/displays/StripPainter.h"
#include "instruments/displays/StripPath.h"
#include "instruments/displays/StripTraces.h"

#include <QImage>
#include <QStringList>

namespace vistor {

class StripRaster;

class StripDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    /// A scrolling one shows X up to its origin and draws no line where X jumps back; the other shows X from
    /// its origin on.
    StripDisplay(const KindTable& table, bool scrolling, QWidget* parent = nullptr);

    /// Method 125. Beyond "Buffer Size" the oldest point of the trace goes. A trace that there is not, and a
    /// point that is not finite, change nothing.
    void addPoint(int trace, double x, double y);
    /// Method 127.
    void clearPoints();
    /// No line leads from the points so far to those that come.
    void interrupt();
    /// Methods 148 and 149. Of a trace that holds nothing, the ends of its range, so that the scale stays.
    double highestY(int trace) const;
    double lowestY(int trace) const;

    /// What the properties make visible, before anything is done to paint it.
    AxisRange visible() const;
    /// Writes the ends of it into the properties that tell them. Due when origin or length was written.
    void tellVisible();
    /// What the legend says of traces to which their line section gives no name.
    void setTraceNames(const QStringList& names);
    /// Where the parts of the picture stand now, in logical pixels.
    StripLayout layoutNow() const;
    /// Numbers, legend and captions, without the traces.
    void paintTexts(QPainter& painter) const;

protected:
    void propertiesReplaced() override { tellVisible(); }
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;

private:
    struct Scene;
    struct Line;

    const TraceRing* heldBy(int trace) const;
    Scene sceneNow() const;
    std::vector<LegendEntry> legendEntries() const;
    /// On a scrolling display at the newest point of the current trace, else where the properties say.
    void paintMarkerNow(QPainter& painter, const Scene& scene) const;
    void copyPlot(QPainter& painter, const Scene& scene) const;
    void paintTexts(QPainter& painter, const Scene& scene) const;
    void paintPlot(const Scene& scene);
    void paintWholePlot(const Scene& scene);
    /// Adds to the picture what has come since it was painted.
    void paintNewPoints(const Scene& scene);
    int tracesShown() const;
    Line lineOf(const Scene& scene, int trace) const;
    std::vector<double> lookOf(const Scene& scene) const;
    void paintTrace(const Scene& scene, StripRaster& raster, int trace);
    void paintSymbols(const TraceRing& ring, const AxisMap& x, const AxisMap& y, const TraceStyle& style,
                      double ratio);

    bool m_scrolling;
    std::vector<TraceRing> m_traces; ///< only as many as have had a point
    QStringList m_names;
    QImage m_plot;    ///< the frame's picture
    QImage m_settled; ///< the same without the tails of the tracks
    QRect m_tails;    ///< where the two may differ
    KeptTracks m_kept;
    std::vector<PathCells> m_visited; ///< by each track, as far as it is settled
};

} // namespace vistor
