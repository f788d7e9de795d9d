// What the two graphs share: tracks of an X and a Y pin, the pairing of their values, the points' display.
// In: values of one axis at a time, in either order. Out: points on the display, with the axes kept on them.
#pragma once

#include "instruments/Instrument.h"

#include <vector>

namespace vistor {

class StripDisplay;

/// Track i has its X in column 0 and its Y in column 1 of row i of the pin table, and draws trace i - 1.
class GraphInstrument : public Instrument {
    Q_OBJECT

public:
    GraphInstrument(Kind kind, StripDisplay* display, QWidget* parent);

    using Instrument::AssignPin;
    using Instrument::refreshValue;
    using Instrument::RemovePin;

    /// The names, and in columns 2 to 5 the latest values and what of them waits for its other half.
    PinTable curVarTable() const override;
    void refreshValue(std::int16_t pin, std::uint8_t axis, float value) override;
    /// Forgets the points, and halves of points that wait.
    void ClearCurrentData() override;
    void interruptData() override;
    void UserControl_Initialize() override;
    void Deserialise(const QStringList& list) override;
    PinTable AssignPin(int pin, std::uint8_t axis, const QString& name) override;
    PinTable RemovePin(int pin, std::uint8_t axis) override;

protected:
    void pinsChanged() override;
    StripDisplay& strip();
    const StripDisplay& strip() const;
    /// Shows settings that were just written, and opens the sheet of all properties where it is wanted too.
    void showConfigured(bool openSheet);
    /// Brings the axes to a point that was just added.
    virtual void followPoint(double x, double y) = 0;
    /// Writes the visible X, and the ends of it that the display reports.
    void showX(double origin);
    void showX(double origin, double length);
    /// Writes the range of Y that the first trace's points take.
    void scaleYToPoints();
    /// What the legend calls a track.
    virtual QString trackName(const PinTable& table, int track) const;

private:
    /// One axis of a track.
    struct Half {
        float value = 0;
        bool known = false;   ///< a value has come
        bool waiting = false; ///< and is not plotted yet
    };
    struct Track {
        Half x;
        Half y;
    };

    void forgetValues();
    void forgetHalves();
    void nameTraces(const PinTable& table);

    std::vector<Track> m_tracks; ///< as many as the pin table has rows, 0 unused
};

} // namespace vistor
