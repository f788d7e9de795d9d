// One page of the dashboard: the ground on which instruments stand, with its colour and the dots of the grid.
// In: mouse and colours. Out: clicks, and what the palette drops.
#pragma once

#include <QPixmap>
#include <QWidget>

namespace vistor {

class Page : public QWidget {
    Q_OBJECT

public:
    Page(int number, QWidget* parent);

    /// The page's number, which is its tab's number.
    int number() const { return m_number; }
    void setBackColour(const QColor& colour);
    /// Draws dots with that pitch in twips; they stay until they are cleared. Not above 0 draws none.
    void drawGrid(int pitch);
    void clearDrawing();
    bool hasDrawing() const { return m_pitch > 0; }

Q_SIGNALS:
    void leftPressed();
    void rightPressed(const QPoint& place);
    /// The mouse moved over the page, beside its instruments.
    void moved();
    /// An entry of the palette was dropped on the page itself, not on an instrument.
    void dropped(QObject* source, const QPointF& place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    const QPixmap& gridRow();

    int m_number;
    int m_pitch = 0; ///< twips between the dots that are drawn; 0: nothing is drawn
    QColor m_back;
    QPixmap m_row;      ///< one row of dots
    int m_rowPitch = 0; ///< for which it was painted
};

/// Where dots stand along one side, in pixels: at 0 and every pitch (twips) below `extent` pixels, each on
/// its nearest pixel, where an instrument on that line begins, and none twice.
QList<int> gridPlaces(int pitch, int extent);

} // namespace vistor
