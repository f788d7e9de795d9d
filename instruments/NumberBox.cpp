#include "instruments/NumberBox.h"

#include "platform/NumberText.h"

#include <QLabel>
#include <QPainter>

#include <limits>

namespace vistor {
namespace {

constexpr double kAnything = std::numeric_limits<double>::max();
constexpr QRgb kWrong = 0xFFD1392B;
constexpr int kWordsShown = 24; ///< of a wrong text

} // namespace

NumberBox::NumberBox(QWidget* parent) : QLineEdit(parent), m_low(-kAnything), m_high(kAnything) {
    connect(this, &QLineEdit::textChanged, this, &NumberBox::look);
}

void NumberBox::setNumber(std::optional<double> number) {
    m_set = number;
    setText(number ? numberShown(*number) : QString());
    setModified(false);
    setCursorPosition(0);
    look();
}

void NumberBox::setBounds(double low, double high) {
    m_low = low;
    m_high = high;
    look();
}

void NumberBox::letBeEmpty(bool allowed) {
    m_mayBeEmpty = allowed;
    look();
}

std::optional<double> NumberBox::number() const {
    const auto entered = isModified() ? numberEntered(text()) : m_set;
    return entered && *entered >= m_low && *entered <= m_high ? entered : std::nullopt;
}

QString NumberBox::problem() const {
    if (number()) return {};
    const QString typed = text().trimmed();
    if (typed.isEmpty()) return m_mayBeEmpty ? QString() : tr("A number is missing.");
    if (numberEntered(typed)) return tr("A number from %1 to %2, please.").arg(m_low).arg(m_high);
    const QString seen = typed.size() > kWordsShown ? typed.left(kWordsShown) + u'\u2026' : typed;
    return tr("Not a number: %1").arg(seen);
}

void NumberBox::look() {
    setToolTip(problem());
    update();
}

void NumberBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!isEnabled() || isRight()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor::fromRgb(kWrong), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
}

bool stopsAtWrongNumber(QWidget& window, QLabel& words) {
    words.clear();
    for (NumberBox* box : window.findChildren<NumberBox*>()) {
        if (!box->isEnabled() || box->isRight()) continue;
        words.setText(box->problem());
        box->setFocus();
        box->selectAll();
        return true;
    }
    return false;
}

} // namespace vistor
