// One page of the dashboard: the ground on which instruments stand, with its colour and the dots of the grid.
// In: mouse and colours. Out: the place of a right click.
#pragma once

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
    void rightPressed(const QPoint& place);
    /// The mouse moved over the page, beside its instruments.
    void moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int m_number;
    int m_pitch = 0; ///< twips between the dots that are drawn; 0: nothing is drawn
    QColor m_back;
};

/// Where dots stand along one side, in pixels: at 0 and every pitch (twips) below `extent` pixels, none
/// twice.
QList<int> gridPlaces(int pitch, int extent);

} // namespace vistor
