// The control with two panes and a bar between them; it holds the palette. In: its properties and drags of
// the bar. Out: the places of its children "Pane0" (left or top) and "Pane1", which a splitter of the toolkit
// lays out, and its surface's mouse events.
#pragma once

#include "dashboard/SplitterRules.h"

#include <QColor>
#include <QWidget>

class QSplitter;

namespace vistor {

class VXSPLITTER : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(int Style READ Style WRITE setStyle)
    Q_PROPERTY(int MinHorizontalSize READ MinHorizontalSize WRITE setMinHorizontalSize)
    Q_PROPERTY(int MinVerticalSize READ MinVerticalSize WRITE setMinVerticalSize)
    Q_PROPERTY(int SplitterHeight READ SplitterHeight WRITE setSplitterHeight)
    Q_PROPERTY(int SplitterWidth READ SplitterWidth WRITE setSplitterWidth)
    Q_PROPERTY(int SplitterTop READ SplitterTop WRITE setSplitterTop)
    Q_PROPERTY(int SplitterLeft READ SplitterLeft WRITE setSplitterLeft)
    Q_PROPERTY(int SplitterOrientation READ SplitterOrientation WRITE setSplitterOrientation)

public:
    explicit VXSPLITTER(QWidget* parent = nullptr);

    QColor BackColor() const;
    void setBackColor(const QColor& colour);
    /// 0 none, 1 a line around the control.
    int BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(int style);
    int Style() const { return m_state.style; }
    void setStyle(int style);
    int MinHorizontalSize() const { return m_state.minHorizontalSize; }
    void setMinHorizontalSize(int twips);
    int MinVerticalSize() const { return m_state.minVerticalSize; }
    void setMinVerticalSize(int twips);
    int SplitterHeight() const { return m_state.barHeight; }
    void setSplitterHeight(int twips);
    int SplitterWidth() const { return m_state.barWidth; }
    void setSplitterWidth(int twips);
    int SplitterTop() const { return m_state.barTop; }
    void setSplitterTop(int twips);
    int SplitterLeft() const { return m_state.barLeft; }
    void setSplitterLeft(int twips);
    int SplitterOrientation() const { return m_state.orientation; }
    /// Shows why where the style forbids it.
    void setSplitterOrientation(int orientation);

    /// Re-arranges the panes.
    void Refresh();
    /// Makes the control that large, in twips.
    void Size(int width, int height);
    /// Pane 0 or 1, to put a child into; the child fills it.
    QWidget* pane(int number) const { return number == 0 ? m_pane0 : m_pane1; }
    void fillPane(int number, QWidget* child);

Q_SIGNALS:
    void Click();
    void DblClick();
    void MouseDown(Qt::MouseButton button, const QPoint& place);
    void MouseMove(const QPoint& place);
    void MouseUp(Qt::MouseButton button, const QPoint& place);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void splitterMoved(int place);

    SplitterState m_state;
    int m_borderStyle = 0;
    QSplitter* m_splitter;
    QWidget* m_pane0;
    QWidget* m_pane1;
};

} // namespace vistor
