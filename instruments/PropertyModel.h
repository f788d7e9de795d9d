// A display's properties as a tree for a view: branches of fixed properties, branches of sections, one line a
// property. In: a store, edits. Out: the edited draft.
#pragma once

#include "instruments/displays/PropertyStore.h"

#include <QAbstractItemModel>
#include <QStringList>

#include <vector>

namespace vistor {

/// Which section list, and which section of it, a line belongs to. Block 0: none.
struct SectionPlace {
    std::size_t block = 0;
    int row = -1; ///< in the order shown; -1 is the branch of the whole list
};

class PropertyModel final : public QAbstractItemModel {
    Q_OBJECT

public:
    enum Column { LabelColumn, ValueColumn, ColumnCount };
    /// The words that a person chooses from, by the values 0, 1 ...
    static constexpr int WordsRole = Qt::UserRole;

    explicit PropertyModel(const PropertyStore& start, QObject* parent = nullptr);

    const PropertyStore& draft() const { return m_draft; }
    void setDraft(const PropertyStore& draft);

    /// The declaration behind a line; null for a branch.
    const PropertyInfo* property(const QModelIndex& index) const;
    SectionPlace sectionPlace(const QModelIndex& index) const;
    QModelIndex sectionIndex(const SectionPlace& place) const;
    /// Adds a section with its defaults behind the one named, or at the end; drops one.
    void addSection(const SectionPlace& behind);
    void removeSection(const SectionPlace& place);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// The draft changed by an edit.
    void edited();

private:
    struct Node {
        int parent = -1;
        int row = 0;
        QString label;
        const PropertyInfo* property = nullptr;
        std::size_t block = 0;
        int shownRow = -1; ///< of the section in its list
        std::vector<int> children;
    };

    void rebuild();
    int addNode(int parent, const QString& label);
    void addFixed();
    void addGroup(const char* group);
    void addSections(std::size_t block);
    void addProperties(int parent, std::span<const PropertyInfo> fields, std::size_t block, int shownRow);
    const Node& node(const QModelIndex& index) const;
    /// The store's section behind a line.
    int storeIndex(const Node& node) const;
    bool isHidden(const PropertyInfo& property) const;
    QVariant valueData(const Node& node, int role) const;
    void rearrange(std::size_t block, const std::vector<int>& shown);

    PropertyStore m_draft;
    std::vector<Node> m_nodes; ///< the root is the first
};

/// A property's name for a person.
QString propertyLabel(const PropertyInfo& property);

/// The words of a choice, or the names of the sections that a property can name.
QStringList choiceWords(const PropertyInfo& property, const PropertyStore& store);

/// A property's value in words.
QString propertyWords(const PropertyInfo& property, const PropertyStore& store, int index);

} // namespace vistor
