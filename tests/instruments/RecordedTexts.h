// Writes down the texts that something paints and where they stand, in place of pixels.
#pragma once

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <vector>

namespace vistor {

struct RecordedText {
    QString text;
    QRectF place; ///< of its advance and capital height, on the device
    QRectF clip;  ///< all that may be seen of it
    QColor colour;
};

class TextRecorder final : public QPaintDevice {
public:
    explicit TextRecorder(const QSize& size) : m_size(size) {}
    QPaintEngine* paintEngine() const override { return &m_engine; }
    const std::vector<RecordedText>& texts() const { return m_engine.texts; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmWidthMM:
            return m_size.width();
        case PdmHeight:
        case PdmHeightMM:
            return m_size.height();
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 0;
        }
    }

private:
    class Engine final : public QPaintEngine {
    public:
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        Type type() const override { return User; }
        void drawTextItem(const QPointF& at, const QTextItem& item) override {
            const QFontMetricsF metrics(item.font());
            const double height = metrics.capHeight();
            const QTransform& device = painter()->combinedTransform();
            const QRectF box(at.x(), at.y() - height, metrics.horizontalAdvance(item.text()), height);
            const QRectF clip = painter()->hasClipping() ? device.mapRect(painter()->clipBoundingRect())
                                                         : QRectF(0, 0, 1e9, 1e9);
            texts.push_back({item.text(), device.mapRect(box), clip, painter()->pen().color()});
        }

        std::vector<RecordedText> texts;
    };

    QSize m_size;
    mutable Engine m_engine;
};

} // namespace vistor
