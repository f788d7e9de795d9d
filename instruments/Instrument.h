// What all instruments share: frame, handles, modes, tag, pin table, list form, events. In: values from the
// dispatch, settings from a person or a file. Out: signals; an instrument knows neither the dashboard nor the
// main window.
#pragma once

#include "instruments/InstrumentFrame.h"
#include "instruments/InstrumentKinds.h"
#include "instruments/PinTable.h"

#include <QStringList>
#include <QWidget>

#include <cstdint>

class QLabel;

namespace vistor {

class InnerDisplay;

/// One panel on a page. Geometry in arguments and lists is in twips (15 to a logical pixel). A signal may end
/// with the instrument being deleted, but by deleteLater only.
class Instrument : public QWidget {
    Q_OBJECT

public:
    /// `display` becomes a child of the instrument.
    Instrument(Kind kind, InnerDisplay* display, QWidget* parent);

    Kind kind() const { return m_kind; }
    InnerDisplay& inCTRL() { return *m_display; }
    const InnerDisplay& inCTRL() const { return *m_display; }
    bool tagIsOn() const { return m_tagOn; }
    QString tagText() const;
    /// How many pins a person can choose from: as many as there are needles, pointers, portions or tracks.
    int pinCount() const;
    /// Whether a pin moves something. One that is left over, its needle or track having been removed, does
    /// not; nor does any number below 1.
    bool hasPin(int pin) const { return pin >= 1 && pin <= pinCount(); }
    /// Its place on the page and its size. Twips that are not whole pixels are kept as they were given for as
    /// long as the widget stays where they put it.
    double leftTwips() const;
    double topTwips() const;
    double widthTwips() const;
    double heightTwips() const;
    /// Moves, keeping the size in pixels.
    void moveTwips(double left, double top);
    /// Resizes to the nearest logical pixels and lays out at once, also while hidden.
    void setSizeTwips(double width, double height);
    /// Moves and resizes, every edge to its nearest pixel, so that an edge that stays is not seen to move.
    void placeTwips(const QRectF& place);
    /// A variable is over it that a drop would bind.
    bool showsDropTarget() const { return m_dropTarget; }

    /// Stores the background, gives it to the instrument and its tag, and `fore` to the tag's text. Colours
    /// are 0x00BBGGRR, or a system colour with the top bit set.
    void setColour(std::int32_t back, std::int32_t fore);
    /// True is edit: frame painted, display enabled. False is play: frame cleared, display disabled where its
    /// kind asks for it.
    virtual void mode(bool edit);
    virtual PinTable curVarTable() const;
    /// Shows a new value on a pin; one that is left over moves nothing. On the path of every sample:
    /// allocates nothing, looks nothing up by name.
    virtual void refreshValue(std::int16_t pin, float value);
    /// The same for the graphs, axis 0 X and 1 Y.
    virtual void refreshValue(std::int16_t pin, std::uint8_t axis, float value);
    /// Forgets stored points; only graphs have any.
    virtual void ClearCurrentData();
    /// From here on it gets no values for a while: no line leads over that time. Only graphs draw any.
    virtual void interruptData();

    void TagOn(bool on);
    void mnuTag_Click();
    void mnuCopy_Click();
    void mnuCut_Click();
    void mnuDelete_Click();
    void mnuDefineCustom_Click();
    /// Opens the window of all bindings, modally.
    void mnuVariables_Click();
    virtual void mnuProperties_Click();
    virtual void UserControl_Initialize();
    /// Lays display and tag out for the size; nothing happens at 160 twips or less either way.
    void UserControl_Resize();

    /// Writes the whole state to a positional list; answers the count that goes with it.
    virtual int Serialise(QStringList& list) const;
    /// Restores from a list, which may be short, long or wrong: what can be used is taken, the rest stays.
    virtual void Deserialise(const QStringList& list);
    /// A variable was dropped here: pin 1 takes it, or the person is asked for the pin.
    virtual void FunctionDrop(const QString& name);
    virtual PinTable AssignPin(int pin, const QString& name);
    virtual PinTable RemovePin(int pin, const QString& unused = {});
    /// The same on an axis of a graph's track, 0 X and others Y. Kinds without axes ignore it.
    virtual PinTable AssignPin(int pin, std::uint8_t axis, const QString& name);
    virtual PinTable RemovePin(int pin, std::uint8_t axis);

Q_SIGNALS:
    void ControlMoving(float startX, float startY, float x, float y);
    void ControlMoved(float startX, float startY, float x, float y);
    void ControlSizing(std::uint8_t handle, float x, float y);
    void ControlSized(std::uint8_t handle, float x, float y);
    void ControlCopy(const QStringList& list);
    void ControlCut(const QStringList& list);
    void ControlDelete();
    void CustomDefined(const QString& fileName);
    void SnapshotBegin();
    void SnapshotEnd();

    /// A drag of the instrument or of a handle begins, pressed at this place in its own twips, or was given
    /// up. A press that lets go again where it was is no drag and says nothing.
    void dragBegun(float startX, float startY);
    void dragCancelled();
    /// An arrow key: -1 to 1 columns and rows; `fine` asks for a pixel instead of a grid step.
    void stepWanted(int columns, int rows, bool fine);
    /// It has got the keyboard.
    void focused();
    /// A variable was dropped by `source`.
    void variableDropped(QObject* source);
    /// A setting changed: the other end marks the profile.
    void layoutChanged();
    /// The pop-up menu is wanted at a place of the screen.
    void menuWanted(const QPoint& place);
    /// The mouse is over the display in edit mode: what the properties window shows.
    void propertiesShown(const QString& kind, const QStringList& labels, const QStringList& values);

protected:
    /// A press on the display: the right button asks for the menu in edit mode.
    virtual void displayPressed(Qt::MouseButton button, const QPoint& place);
    /// The pin table changed; nobody else has been told yet.
    virtual void pinsChanged() {}
    /// The display's size as the layout asks for it, before it is rounded to pixels.
    QSizeF displayTwips() const { return m_displayTwips; }
    /// Asks a person which of several pins takes a dropped variable.
    virtual void choosePin(const QString& name);
    /// The rows of the properties window: labels and values in step. By default those of the kind's table.
    virtual QStringList shownLabels() const;
    virtual QStringList shownValues() const;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void displayMoved();
    void refreshCaption();
    void paintFrame(QPainter& painter) const;
    void paintMark(QPainter& painter) const;
    QPointF twipsAt(const QMouseEvent& event) const;
    bool takeKey(const QKeyEvent& event);
    bool isHeld() const { return m_dragging || m_sizing; }
    bool dragsTo(const QMouseEvent& event);
    void letGo();
    void giveUpDrag();
    void showDropTarget(bool shown);
    void saveSnapshot(const QString& fileName);

    Kind m_kind;
    InnerDisplay* m_display;
    QLabel* lblTag;
    PinTable pins;
    HandleRects m_handles{};
    QRectF m_place;  ///< twips as they were given
    QRect m_placeAt; ///< the widget's place for which they hold
    QSize m_laidOut;
    QSizeF m_displayTwips;
    std::uint8_t m_activeHandle = 0;
    bool m_dragging = false;
    bool m_sizing = false;
    bool m_moved = false; ///< the press has become a drag
    QPoint m_pressedAt;   ///< on the screen, in pixels
    bool m_tagOn = false;
    bool m_framePainted = false;
    bool m_dropTarget = false;
    float m_dragStartX = 0;
    float m_dragStartY = 0;
    std::int32_t m_backColour = 0x00FFFFFF;
};

} // namespace vistor
