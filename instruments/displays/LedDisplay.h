// Lamps in rows. In: properties by number, see kLedTable. Out: a picture.
#pragma once

#include "instruments/displays/InnerDisplay.h"
#include "instruments/displays/LampPainter.h"
#include "instruments/displays/LedRows.h"

#include <QHash>

#include <vector>

namespace vistor {

class LedDisplay final : public InnerDisplay {
    Q_OBJECT

public:
    explicit LedDisplay(QWidget* parent = nullptr);

    /// The places of the rows' lamps at the present size.
    std::vector<LedRowPlace> places() const;

protected:
    void paintStatic(QPainter& painter) override;
    void paintMoving(QPainter& painter) override;
    QRect movedPart() const override;

private:
    static constexpr int kUnlit = -2; ///< where a lit lamp has its state, -1 when there are no states

    struct Row {
        LedRowPlace place;
        LampShape shape = LampShape::Round;
        int first = 1; ///< number of its first lamp
        bool oneColour = false;
        std::vector<int> states{};  ///< lamp by lamp
        std::vector<int> painted{}; ///< the states in which they were painted lit
    };

    void layOut();
    QRectF panel() const;
    LampLook look(const Row& row, int state, bool lit) const;
    const QPixmap& picture(const Row& row, int state, bool lit);
    void paintLampAt(QPainter& painter, const Row& row, int lamp, int state, bool lit);
    /// Where a lamp paints to.
    QRectF shiningPlace(const Row& row, int lamp, bool lit) const;
    /// Fills m_lit with what a row's lamps show now.
    void readLit(std::size_t index) const;

    std::vector<Row> m_rows;
    double m_textWidth = 0;             ///< of the longest text, by which all are fitted
    QHash<quint64, QPixmap> m_pictures; ///< of lamps by row, state and light
    double m_picturePixels = 0;
    mutable std::vector<int> m_lit; ///< kept to spare allocations
};

} // namespace vistor
