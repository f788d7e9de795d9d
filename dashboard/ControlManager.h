// Lets a person move and size the window's panes at run time: a strip above each pane moves it, the borders
// between panes size them. In: stored geometry, the mouse, the window's size. Out: the panes' places, and
// signals after each change.
#pragma once

#include "dashboard/PaneLayout.h"
#include "dashboard/WindowSettings.h"

#include <QObject>
#include <QWidget>

#include <memory>

class QRubberBand;

namespace vistor {

class PaneCaption;
class PaneBorder;

/// Panes go by the numbers of PaneLayout.h. All of them are children of one window.
class ControlManager : public QObject {
    Q_OBJECT

public:
    explicit ControlManager(QWidget* window);
    ~ControlManager() override;

    void addPane(int number, QWidget* pane, const QString& caption);
    /// Puts a pane exactly where it is told, in twips; the next showing fits it to the window.
    void placePane(int number, const TwipsBox& box);
    /// The pane's geometry in twips: as it was told where that is where it stands.
    TwipsBox paneBox(int number) const;
    /// Leaves a pane out of the layout; its room goes to the others.
    void removePane(int number);
    /// Makes the panes fill the window without overlap. That they stand is told when pending events run.
    void fitPanes();

Q_SIGNALS:
    void ControlResizeComplete();
    /// A pane found another place beside a pane, or at an edge of the window.
    void paneMoved();
    void paneDocked();
    /// A border is being dragged, or the window sized.
    void paneResizing();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class PaneCaption;
    friend class PaneBorder;
    struct Pane {
        QWidget* widget = nullptr;
        PaneCaption* caption = nullptr;
        TwipsBox box;
        bool present = false;
    };

    QRect room() const;
    QRect outerRect(const Pane& pane) const;
    void adoptGeometry();
    void complete();
    void place();
    void placeBorders();
    void dragBorder(std::size_t border, const QPoint& place);
    void endBorderDrag();
    void dragPane(int number, const QPoint& place);
    void dropPane(int number, const QPoint& place);

    QWidget* m_window;
    std::array<Pane, kPaneCount> m_panes;
    PaneLayout m_layout;
    bool m_adopted = false; ///< m_layout stands for the geometry of the panes
    bool m_completionPending = false;
    std::vector<PaneBorder*> m_borders;
    std::unique_ptr<QRubberBand> m_preview;
};

} // namespace vistor
