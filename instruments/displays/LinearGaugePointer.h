// A pointer of a linear gauge as it moves: a bar or a mark. In: a pointer that is laid out, values of a
// store. Out: paint, and what differs from the last one.
#pragma once

#include "instruments/displays/LinearGaugeLayout.h"

#include <QBrush>

class QPainter;

namespace vistor {

class LinearPointer {
public:
    explicit LinearPointer(const PointerPlace& place);

    /// Where the pointer stands for the values of a store, along its scale.
    double place(const PropertyStore& properties) const;
    /// Where the picture for a place differs from what was painted last; empty for the same place.
    QRectF moved(double place) const;
    void paint(QPainter& painter, double place);

private:
    BarSpan span(double to) const;
    void paintBar(QPainter& painter, const BarSpan& bar) const;
    void paintTank(QPainter& painter, const BarSpan& bar) const;
    void paintMark(QPainter& painter, double place) const;
    void paintTriangle(QPainter& painter, const BarSpan& at) const;

    PointerPlace m_pointer;
    QBrush m_light; ///< of a bar
    double m_painted = 0;
};

/// A pointer's value in digits.
class LinearNumber {
public:
    explicit LinearNumber(const NumberPlace& place);

    /// Whether another number stands there now, and where it does.
    bool changed(const PropertyStore& properties) const;
    QRectF bounds() const { return m_bounds; }
    void paint(QPainter& painter, const PropertyStore& properties);

private:
    double rounded(const PropertyStore& properties) const;
    double middleFor(double width) const;

    NumberPlace m_number;
    QRectF m_bounds; ///< of the longest number
    double m_painted = 0;
};

} // namespace vistor
