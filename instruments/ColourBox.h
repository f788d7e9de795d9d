// A box that shows a colour and asks for another when it is clicked. In: a colour's number. Out: the one that
// was picked.
#pragma once

#include <QAbstractButton>
#include <QColor>

#include <cstdint>

namespace vistor {

class ColourBox final : public QAbstractButton {
    Q_OBJECT

public:
    explicit ColourBox(QWidget* parent = nullptr);

    /// 0x00BBGGRR, or a system colour with the top bit set.
    std::int32_t colour() const { return m_colour; }
    void setColour(std::int32_t colour);
    /// A system colour as it is seen here.
    void setColour(std::int32_t colour, const QColor& seen);

    QSize sizeHint() const override;

Q_SIGNALS:
    void picked(std::int32_t colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void pick();

    std::int32_t m_colour = 0;
    QColor m_seen;
};

} // namespace vistor
