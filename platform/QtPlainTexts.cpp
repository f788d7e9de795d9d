#include "platform/QtPlainTexts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace vistor {
namespace {

constexpr int kWidestTip = 520; ///< logical pixels; a longer one gets more lines

/// A label is polished before it is laid out for the first time, and a tool tip before it gets its text: at
/// that moment nothing that the text names has been opened yet.
class PlainLabels final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::Polish && event->type() != QEvent::Show) return false;
        auto* label = qobject_cast<QLabel*>(object);
        if (!label) return false;
        if (event->type() == QEvent::Show)
            wrapTip(*label);
        else if (label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
        return false;
    }

private:
    /// The toolkit wraps markup only.
    static void wrapTip(QLabel& label) {
        if (!label.inherits("QTipLabel") || label.width() <= kWidestTip) return;
        label.setWordWrap(true);
        label.resize(kWidestTip, label.heightForWidth(kWidestTip));
    }
};

} // namespace

void keepTextsPlain() {
    qApp->installEventFilter(new PlainLabels(qApp));
}

} // namespace vistor
