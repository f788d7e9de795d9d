#include "platform/QtPlainTexts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace vistor {
namespace {

/// A label is polished before it is laid out for the first time, and a tool tip before it gets its text: at
/// that moment nothing that the text names has been opened yet.
class PlainLabels final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() != QEvent::Polish) return false;
        auto* label = qobject_cast<QLabel*>(object);
        if (label && label->textFormat() == Qt::AutoText) label->setTextFormat(Qt::PlainText);
        return false;
    }
};

} // namespace

void keepTextsPlain() {
    qApp->installEventFilter(new PlainLabels(qApp));
}

} // namespace vistor
