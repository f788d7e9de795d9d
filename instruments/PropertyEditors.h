// Fitting editors for the lines of a property sheet. In: the declaration of a property. Out: a spin box, a
// list of words, a list of fonts or a line of text that hands over every change at once.
#pragma once

#include "instruments/displays/PropertyTable.h"

#include <QStyledItemDelegate>
#include <QTreeView>

namespace vistor {

/// Where a view's index gets its declaration from; null for a branch.
const PropertyInfo* propertyOf(const QModelIndex& index);

class PropertyDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QWidget* spinEditor(QWidget* parent, const PropertyInfo& property) const;
    QWidget* choiceEditor(QWidget* parent, const QStringList& words) const;
    QWidget* fontEditor(QWidget* parent) const;
    QWidget* lineEditor(QWidget* parent, const PropertyInfo& property) const;
    void handOver(QWidget* editor) const;
};

/// A tree whose value column is edited by one click or by keys; colours ask with the colour dialog.
class PropertyView final : public QTreeView {
    Q_OBJECT

public:
    explicit PropertyView(QWidget* parent = nullptr);

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

private:
    void pickColour(const QModelIndex& index);
};

} // namespace vistor
