// The variable tree as a person sees it. In: lines and a filter. Out: which line is acted on, and variables
// to drag.
#pragma once

#include "variables/VariableTree.h"

#include <QIcon>
#include <QSet>
#include <QTreeWidget>

#include <functional>

namespace vistor {

class VariableTreeView final : public QTreeWidget {
    Q_OBJECT

public:
    explicit VariableTreeView(QWidget* parent = nullptr);

    /// Where pictures come from, by their names.
    std::function<QIcon(const char*)> pictureOf;

    /// Puts lines in place of those that stand there. What was open, what was selected and what stood at the
    /// top stay so, for variables by their PhysicalName in `table`, which the lines were made from.
    void showLines(std::vector<TreeLine>&& lines, std::span<const VariableDefinition> table);
    /// Gives the line of that key another text until lines are shown again.
    void setLineText(const QString& key, const QString& text);
    /// Hides the variables that do not have all the words, and opens the groups of those that do. An empty
    /// text shows everything, with the groups as they were before.
    void setFilter(const QString& words);

    /// The line behind an item; null for none.
    const TreeLine* lineOf(const QTreeWidgetItem* item) const;
    /// The item of that key; null for none.
    QTreeWidgetItem* itemOf(const QString& key) const;
    /// The PhysicalName of the variable to which an item belongs; empty for a group.
    QString variableOf(const QTreeWidgetItem* item) const;

Q_SIGNALS:
    /// A line that has something to edit was double-clicked, or Enter pressed on it.
    void lineActivated(const TreeLine& line);
    /// A person selected, pressed or began to drag a line of this variable.
    void variableTouched(const QString& physicalName);

protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override;
    void startDrag(Qt::DropActions actions) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    struct Kept;
    Kept keep() const;
    void restore(const Kept& kept);
    void fill();
    void applyFilter();
    void activate(QTreeWidgetItem* item);
    void touch(QTreeWidgetItem* item);
    QString identityOf(const QTreeWidgetItem* item) const;
    QPixmap dragPicture(const QTreeWidgetItem* item) const;

    std::vector<TreeLine> m_lines;
    std::vector<QString> m_variables; ///< the PhysicalName of each line's variable
    std::vector<QTreeWidgetItem*> m_items;
    QString m_filter;
    QSet<QString> m_openGroups; ///< before the filter opened others
};

} // namespace vistor
