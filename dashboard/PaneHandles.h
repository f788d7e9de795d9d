// What the mouse takes hold of to change the panes: the strip above a pane and the border between two. In:
// the mouse. Out: calls of the ControlManager.
#pragma once

#include <QWidget>

namespace vistor {

class ControlManager;

inline constexpr int kCaptionHeight = 16;

/// The strip above pane `number`: dragged, it moves the pane.
class PaneCaption final : public QWidget {
public:
    PaneCaption(ControlManager& manager, int number, const QString& text, QWidget* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPoint inWindow(const QMouseEvent* event) const;

    ControlManager& m_manager;
    int m_number;
    QString m_text;
    QPoint m_pressed;
    bool m_dragging = false;
};

/// The border beside cut `number` of the layout.
class PaneBorder final : public QWidget {
public:
    PaneBorder(ControlManager& manager, std::size_t number, QWidget* window);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ControlManager& m_manager;
    std::size_t m_number;
    QPoint m_grip; ///< where on the border the mouse went down
    bool m_dragging = false;
};

} // namespace vistor
