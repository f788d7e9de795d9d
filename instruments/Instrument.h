// What all instruments share: frame, handles, modes, tag, pin table, list form, events. In: values from the
// dispatch, settings from a person or a file. Out: signals; an instrument knows neither the dashboard nor the
// main window.
#pragma once

#include "instruments/PinTable.h"

#include <QStringList>
#include <QWidget>

#include <cstdint>

namespace vistor {

/// One panel on a page. Geometry in arguments and lists is in twips (15 to a logical pixel).
class Instrument : public QWidget {
    Q_OBJECT

public:
    /// Stores the background, gives it to the instrument and its tag, and `fore` to the tag's text. Colours
    /// are 0x00BBGGRR, or a system colour with the top bit set.
    void setColour(std::int32_t back, std::int32_t fore);
    /// True is edit: frame painted, display enabled. False is play: frame cleared, display disabled.
    virtual void mode(bool edit);
    virtual PinTable curVarTable() const;
    /// Shows a new value on a pin. On the path of every sample: allocates nothing, looks nothing up by name.
    virtual void refreshValue(std::int16_t pin, float value);
    /// The same for the graphs, axis 0 X and 1 Y.
    virtual void refreshValue(std::int16_t pin, std::uint8_t axis, float value);
    /// Forgets stored points; only graphs have any.
    virtual void ClearCurrentData();

    void TagOn(bool on);
    void mnuTag_Click();
    void mnuCopy_Click();
    void mnuCut_Click();
    void mnuDelete_Click();
    void mnuDefineCustom_Click();
    virtual void mnuVariables_Click();
    virtual void mnuProperties_Click();
    virtual void UserControl_Initialize();

    /// Writes the whole state to a positional list; answers the count that goes with it.
    virtual int Serialise(QStringList& list) const;
    virtual void Deserialise(const QStringList& list);
    virtual void FunctionDrop(const QString& name);
    virtual PinTable AssignPin(int pin, const QString& name);
    virtual PinTable RemovePin(int pin, const QString& unused = {});

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

    /// A setting changed: the other end marks the profile.
    void layoutChanged();
    /// The pop-up menu is wanted at a place of the screen.
    void menuWanted(const QPoint& place);
    /// The mouse is over the display in edit mode: what the properties window shows.
    void propertiesShown(const QString& kind, const QStringList& labels, const QStringList& values);
};

} // namespace vistor
