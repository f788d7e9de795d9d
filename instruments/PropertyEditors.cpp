#include "instruments/PropertyEditors.h"

#include "instruments/Colours.h"
#include "instruments/PropertyModel.h"
#include "platform/NumberText.h"
#include "platform/Prompts.h"

#include <QAbstractProxyModel>
#include <QComboBox>
#include <QFontComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QValidator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace vistor {
namespace {

constexpr int kLongestText = 199; ///< what a profile keeps of one
constexpr int kRowPadding = 6;

struct Range {
    int low;
    int high;
};

Range rangeOf(const PropertyInfo& property) {
    if (property.low < property.high) return {int(property.low), int(property.high)};
    if (property.type == PropertyType::Integer)
        return {std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()};
    return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
}

/// The number of a text with either decimal mark, held to a property's bounds; no value for other texts.
std::optional<double> enteredNumber(const PropertyInfo& property, const QString& text) {
    const auto value = numberEntered(text);
    return value && property.low < property.high ? std::clamp(*value, property.low, property.high) : value;
}

class NumberValidator final : public QValidator {
public:
    NumberValidator(const PropertyInfo& property, QObject* parent)
        : QValidator(parent), m_property(property) {}

    State validate(QString& text, int&) const override {
        static const QRegularExpression kBegun(QStringLiteral("^[-+]?[0-9]*[.,]?[0-9]*([eE][-+]?[0-9]*)?$"));
        const auto number = enteredNumber(m_property, text);
        if (number) return number == numberEntered(text) ? Acceptable : Intermediate;
        return kBegun.match(text).hasMatch() ? Intermediate : Invalid;
    }
    /// What is out of bounds becomes the bound when the entry ends.
    void fixup(QString& text) const override {
        if (const auto number = enteredNumber(m_property, text)) text = numberShown(*number);
    }

private:
    const PropertyInfo& m_property; ///< of a table, which outlives all
};

bool isWhole(PropertyType type) {
    return type == PropertyType::Integer || type == PropertyType::Long;
}

} // namespace

const PropertyInfo* propertyOf(const QModelIndex& index) {
    QModelIndex source = index;
    while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(source.model()))
        source = proxy->mapToSource(source);
    const auto* model = qobject_cast<const PropertyModel*>(source.model());
    return model ? model->property(source) : nullptr;
}

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    const PropertyInfo* property = propertyOf(index);
    if (!property) return nullptr;
    const QStringList words = index.data(PropertyModel::WordsRole).toStringList();
    QWidget* editor = !words.isEmpty()                           ? choiceEditor(parent, words)
                      : property->type == PropertyType::FontName ? fontEditor(parent)
                      : isWhole(property->type)                  ? spinEditor(parent, *property)
                                                                 : lineEditor(parent, *property);
    editor->setAutoFillBackground(true);
    return editor;
}

/// Editing is seen at once, not only when the editor closes.
void PropertyDelegate::handOver(QWidget* editor) const {
    Q_EMIT const_cast<PropertyDelegate*>(this)->commitData(editor);
}

QWidget* PropertyDelegate::spinEditor(QWidget* parent, const PropertyInfo& property) const {
    auto* spin = new QSpinBox(parent);
    const Range range = rangeOf(property);
    spin->setRange(range.low, range.high);
    connect(spin, &QSpinBox::valueChanged, this, [this, spin] { handOver(spin); });
    return spin;
}

QWidget* PropertyDelegate::choiceEditor(QWidget* parent, const QStringList& words) const {
    auto* list = new QComboBox(parent);
    list->addItems(words);
    connect(list, &QComboBox::activated, this, [this, list] { handOver(list); });
    return list;
}

QWidget* PropertyDelegate::fontEditor(QWidget* parent) const {
    auto* list = new QFontComboBox(parent);
    connect(list, &QFontComboBox::currentFontChanged, this, [this, list] { handOver(list); });
    return list;
}

QWidget* PropertyDelegate::lineEditor(QWidget* parent, const PropertyInfo& property) const {
    auto* line = new QLineEdit(parent);
    line->setMaxLength(kLongestText);
    if (!isText(property.type)) line->setValidator(new NumberValidator(property, line));
    connect(line, &QLineEdit::textEdited, this, [this, line] { handOver(line); });
    return line;
}

void PropertyDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QVariant value = index.data(Qt::EditRole);
    const QSignalBlocker quiet(editor);
    if (auto* spin = qobject_cast<QSpinBox*>(editor)) {
        // A value from a file may lie outside what a person is offered; looking at it does not change it.
        spin->setRange(std::min(spin->minimum(), value.toInt()), std::max(spin->maximum(), value.toInt()));
        spin->setValue(value.toInt());
    } else if (auto* fonts = qobject_cast<QFontComboBox*>(editor)) {
        fonts->setCurrentFont(QFont(value.toString()));
    } else if (auto* list = qobject_cast<QComboBox*>(editor)) {
        list->setCurrentIndex(value.toInt() < list->count() ? value.toInt() : -1);
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        if (!line->isModified())
            line->setText(index.data(Qt::DisplayRole).toString()); // not under the typing hand
    }
}

void PropertyDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const {
    if (auto* spin = qobject_cast<QSpinBox*>(editor)) {
        model->setData(index, double(spin->value()));
    } else if (auto* fonts = qobject_cast<QFontComboBox*>(editor)) {
        model->setData(index, fonts->currentFont().family());
    } else if (auto* list = qobject_cast<QComboBox*>(editor)) {
        if (list->currentIndex() >= 0) model->setData(index, double(list->currentIndex()));
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        const PropertyInfo* property = propertyOf(index);
        if (!line->isModified() || property == nullptr) return;
        if (isText(property->type))
            model->setData(index, line->text());
        else if (const auto number = enteredNumber(*property, line->text()))
            model->setData(index, *number);
    }
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRowPadding);
}

PropertyView::PropertyView(QWidget* parent) : QTreeView(parent) {
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(EditKeyPressed | AnyKeyPressed);
    setItemDelegate(new PropertyDelegate(this));
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == PropertyModel::ValueColumn && index.flags().testFlag(Qt::ItemIsEditable))
            QTreeView::edit(index);
    });
}

bool PropertyView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const QModelIndex value = index.siblingAtColumn(PropertyModel::ValueColumn);
    const PropertyInfo* property = propertyOf(index);
    const bool asked = trigger == AllEditTriggers || (editTriggers() & trigger) != 0;
    if (!property || !asked) return QTreeView::edit(index, trigger, event);
    if (property->editor != Editor::Colour) return QTreeView::edit(value, trigger, event);
    pickColour(value);
    return true;
}

void PropertyView::pickColour(const QModelIndex& index) {
    const QPersistentModelIndex place(index);
    const auto stored = static_cast<std::int32_t>(index.data(Qt::EditRole).toDouble());
    const auto picked = PickColour(numberOf(colourOf(stored))); // a system colour as what it looks like
    if (picked && place.isValid()) model()->setData(place, double(*picked));
}

} // namespace vistor
