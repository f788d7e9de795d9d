// A box for a number. In: a number, what a person types. Out: the number, or the mark that there is none.
#pragma once

#include <QLineEdit>

#include <optional>

class QLabel;

namespace vistor {

/// Takes any text and shows at once, by a red frame, that it is not a number or out of bounds. So nothing
/// that was typed is lost or read as another number.
class NumberBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit NumberBox(QWidget* parent = nullptr);

    /// Shows a number; none leaves the box empty.
    void setNumber(std::optional<double> number);
    /// What it takes; without a call any number.
    void setBounds(double low, double high);
    /// An empty box is right, too.
    void letBeEmpty(bool allowed);
    /// The number in it: as long as nothing was typed the very one that was set. None while the box is empty
    /// or wrong.
    std::optional<double> number() const;
    bool isRight() const { return problem().isEmpty(); }
    /// What is wrong, in words; empty when nothing is.
    QString problem() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void look();

    std::optional<double> m_set;
    double m_low;
    double m_high;
    bool m_mayBeEmpty = false;
};

/// Whether an enabled box below `window` is wrong: the first one gets the keyboard, and `words` say why.
bool stopsAtWrongNumber(QWidget& window, QLabel& words);

} // namespace vistor
