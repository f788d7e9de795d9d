// The drawing control inside an instrument. In: properties by number, methods by number. Out: a picture,
// presses and moves of the mouse. Kinds derive from it and paint a static and a moving part.
#pragma once

#include "instruments/displays/PropertyStore.h"

#include <QPixmap>
#include <QWidget>

namespace vistor {

class InnerDisplay : public QWidget {
    Q_OBJECT

public:
    InnerDisplay(const KindTable& table, QWidget* parent);

    const PropertyStore& properties() const { return m_properties; }
    PropertyStore& properties() { return m_properties; }
    /// Takes over other values at once; they come from a store of the same kind.
    void setProperties(const PropertyStore& properties);

    /// Calls a method by its number: redraw, or the property sheet. Other numbers do nothing.
    void call(int method);
    /// Asks for a repaint if a property changed since the last one. Several calls cost one paint.
    void redraw();
    /// Opens the property sheet, modally.
    virtual void openPropertySheet();

Q_SIGNALS:
    void pressed(Qt::MouseButton button, const QPoint& screenPlace);
    void moved();
    /// A person's edit was taken over.
    void edited();

protected:
    /// Makes the next redraw ask for a repaint although no property changed.
    void touch() { m_paintedRevision = 0; }
    /// Other values were taken over: brings those along that the display itself tells.
    virtual void propertiesReplaced() {}
    /// What changes with properties and size only. It covers the whole rectangle.
    virtual void paintStatic(QPainter& painter) = 0;
    /// What moves with the data.
    virtual void paintMoving(QPainter& painter) = 0;
    /// Where the moving part differs from what was painted last, as far as a kind knows: all of the rectangle
    /// unless it tells.
    virtual QRect movedPart() const { return rect(); }

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    double staticRatio() const; ///< pixels of the static picture to a logical one
    bool staticPictureIsCurrent() const;
    void refreshStaticPicture();

    PropertyStore m_properties;
    QPixmap m_static;
    std::uint64_t m_staticRevision = 0;  ///< of the properties when m_static was painted; 0: never
    std::uint64_t m_paintedRevision = 0; ///< of the properties at the last paint or request for one
};

} // namespace vistor
