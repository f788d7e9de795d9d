#include "instruments/PropertyModel.h"

#include "instruments/Colours.h"

#include <QFont>

#include <algorithm>
#include <string_view>

namespace vistor {
namespace {

QString listLabel(const SectionInfo& section, int count) {
    return QStringLiteral("%1s (%2)").arg(QLatin1String(section.name)).arg(count);
}

QString colourWords(std::int32_t number) {
    return number < 0 ? QStringLiteral("System colour") : colourOf(number).name().toUpper();
}

/// Where a number names no word or section, the one that stands in for it.
int chosenValue(const PropertyInfo& property, const PropertyStore& store, int index) {
    return property.editor == Editor::Section ? store.sectionNamed(property.number, index)
                                              : store.choice(property.number, index);
}

bool isCheckable(const PropertyInfo& property) {
    return property.type == PropertyType::Boolean || property.type == PropertyType::Flag;
}

} // namespace

QString propertyLabel(const PropertyInfo& property) {
    if (property.label != nullptr) return QLatin1String(property.label);
    return QStringLiteral("Property %1").arg(property.number);
}

QStringList choiceWords(const PropertyInfo& property, const PropertyStore& store) {
    QStringList words;
    for (const char* word : property.choices.words) words << QLatin1String(word);
    if (property.editor != Editor::Section) return words;
    const PropertyAddress& list = store.table().find(property.sectionsOf);
    if (list.role != PropertyAddress::Role::Count) return words;
    const char* name = store.table().sections()[list.counts - 1U].name;
    for (int row = 1; row <= store.sections(list.counts); ++row)
        words << QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(row);
    return words;
}

QString propertyWords(const PropertyInfo& property, const PropertyStore& store, int index) {
    if (property.editor == Editor::Colour) return colourWords(store.integer(property.number, index));
    if (property.editor == Editor::Choice || property.editor == Editor::Section) {
        const int value = chosenValue(property, store, index);
        return choiceWords(property, store).value(value, QString::number(value));
    }
    if (isCheckable(property)) return {};
    const bool sample =
        property.type == PropertyType::Double && property.number == store.table().parts().values.value;
    if (sample) return textOfNumber(store.number(property.number, index), true); // it came with 32 bits
    if (property.type == PropertyType::Double) return numberShown(store.number(property.number, index));
    return store.item(property.number, index);
}

PropertyModel::PropertyModel(const PropertyStore& start, QObject* parent)
    : QAbstractItemModel(parent), m_draft(start) {
    rebuild();
}

void PropertyModel::setDraft(const PropertyStore& draft) {
    beginResetModel();
    m_draft = draft;
    rebuild();
    endResetModel();
    Q_EMIT edited();
}

void PropertyModel::rebuild() {
    m_nodes.assign(1, Node());
    addFixed();
    for (std::size_t block = 1; block < m_draft.table().blockCount(); ++block) addSections(block);
}

int PropertyModel::addNode(int parent, const QString& label) {
    const int id = static_cast<int>(m_nodes.size());
    auto& siblings = m_nodes[static_cast<std::size_t>(parent)].children;
    Node node;
    node.parent = parent;
    node.row = static_cast<int>(siblings.size());
    node.label = label;
    siblings.push_back(id);
    m_nodes.push_back(node);
    return id;
}

bool PropertyModel::isHidden(const PropertyInfo& property) const {
    return property.type == PropertyType::Empty ||
           m_draft.table().find(property.number).role != PropertyAddress::Role::Field;
}

void PropertyModel::addFixed() {
    for (const char* group : m_draft.table().parts().groups) addGroup(group);
    addGroup(nullptr);
}

/// A branch with the properties of a group; null is what has none.
void PropertyModel::addGroup(const char* group) {
    const auto belongs = [this, group](const PropertyInfo& property) {
        const bool same =
            group && property.group ? std::string_view(group) == property.group : group == property.group;
        return same && !isHidden(property);
    };
    const auto fixed = m_draft.table().fixed();
    if (std::none_of(fixed.begin(), fixed.end(), belongs)) return;
    const int branch = addNode(0, group ? QLatin1String(group) : QLatin1String("Other"));
    for (const PropertyInfo& property : fixed)
        if (belongs(property)) addProperties(branch, {&property, 1}, 0, -1);
}

void PropertyModel::addSections(std::size_t block) {
    const SectionInfo& section = m_draft.table().sections()[block - 1];
    const int count = m_draft.sections(block);
    const int list = addNode(0, listLabel(section, count));
    m_nodes[static_cast<std::size_t>(list)].block = block;
    for (int row = 0; row < count; ++row) {
        const int one = addNode(list, QStringLiteral("%1 %2").arg(QLatin1String(section.name)).arg(row + 1));
        m_nodes[static_cast<std::size_t>(one)].block = block;
        m_nodes[static_cast<std::size_t>(one)].shownRow = row;
        addProperties(one, section.fields, block, row);
    }
}

void PropertyModel::addProperties(int parent, std::span<const PropertyInfo> fields, std::size_t block,
                                  int shownRow) {
    for (const PropertyInfo& property : fields) {
        if (isHidden(property)) continue;
        Node& added = m_nodes[static_cast<std::size_t>(addNode(parent, propertyLabel(property)))];
        added.property = &property;
        added.block = block;
        added.shownRow = shownRow;
    }
}

const PropertyModel::Node& PropertyModel::node(const QModelIndex& index) const {
    return m_nodes[index.isValid() ? static_cast<std::size_t>(index.internalId()) : 0];
}

int PropertyModel::storeIndex(const Node& node) const {
    if (node.block == 0) return 0;
    const bool fromPins = m_draft.table().sections()[node.block - 1].countsFromPins;
    return sectionShownAt(node.shownRow, m_draft.sections(node.block), fromPins);
}

const PropertyInfo* PropertyModel::property(const QModelIndex& index) const {
    return node(index).property;
}

SectionPlace PropertyModel::sectionPlace(const QModelIndex& index) const {
    return {node(index).block, node(index).shownRow};
}

QModelIndex PropertyModel::sectionIndex(const SectionPlace& place) const {
    for (std::size_t id = 1; id < m_nodes.size(); ++id) {
        const Node& n = m_nodes[id];
        if (n.property == nullptr && n.block == place.block && n.block != 0 && n.shownRow == place.row)
            return createIndex(n.row, LabelColumn, static_cast<quintptr>(id));
    }
    return {};
}

void PropertyModel::rearrange(std::size_t block, const std::vector<int>& shown) {
    const bool fromPins = m_draft.table().sections()[block - 1].countsFromPins;
    const int count = static_cast<int>(shown.size());
    std::vector<int> order(shown.size());
    for (int row = 0; row < count; ++row)
        order[static_cast<std::size_t>(sectionShownAt(row, count, fromPins))] =
            shown[static_cast<std::size_t>(row)];
    PropertyStore draft = m_draft;
    draft.rearrange(block, order);
    setDraft(draft);
}

void PropertyModel::addSection(const SectionPlace& behind) {
    if (behind.block == 0 || m_draft.sections(behind.block) >= PropertyStore::kMaximumSections) return;
    const int count = m_draft.sections(behind.block);
    const bool fromPins = m_draft.table().sections()[behind.block - 1].countsFromPins;
    std::vector<int> shown;
    for (int row = 0; row < count; ++row) shown.push_back(sectionShownAt(row, count, fromPins));
    shown.insert(behind.row < 0 ? shown.end() : shown.begin() + behind.row + 1, -1);
    rearrange(behind.block, shown);
}

void PropertyModel::removeSection(const SectionPlace& place) {
    if (place.block == 0 || place.row < 0 || place.row >= m_draft.sections(place.block)) return;
    const int count = m_draft.sections(place.block);
    const bool fromPins = m_draft.table().sections()[place.block - 1].countsFromPins;
    std::vector<int> shown;
    for (int row = 0; row < count; ++row)
        if (row != place.row) shown.push_back(sectionShownAt(row, count, fromPins));
    rearrange(place.block, shown);
}

QModelIndex PropertyModel::index(int row, int column, const QModelIndex& parent) const {
    const auto& children = node(parent).children;
    if (row < 0 || static_cast<std::size_t>(row) >= children.size() || column < 0 || column >= ColumnCount)
        return {};
    return createIndex(row, column, static_cast<quintptr>(children[static_cast<std::size_t>(row)]));
}

QModelIndex PropertyModel::parent(const QModelIndex& index) const {
    const int id = node(index).parent;
    if (id <= 0) return {};
    return createIndex(m_nodes[static_cast<std::size_t>(id)].row, LabelColumn, static_cast<quintptr>(id));
}

int PropertyModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(node(parent).children.size());
}

int PropertyModel::columnCount(const QModelIndex&) const {
    return ColumnCount;
}

QVariant PropertyModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Node& n = node(index);
    if (index.column() == ValueColumn) return n.property ? valueData(n, role) : QVariant();
    if (role == Qt::DisplayRole) return n.label;
    if (role == Qt::ToolTipRole && n.property) return QStringLiteral("Property %1").arg(n.property->number);
    if (role == Qt::FontRole && !n.property) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return {};
}

QVariant PropertyModel::valueData(const Node& node, int role) const {
    const PropertyInfo& property = *node.property;
    const int index = storeIndex(node);
    if (role == Qt::DisplayRole) return propertyWords(property, m_draft, index);
    if (role == Qt::DecorationRole && property.editor == Editor::Colour)
        return colourOf(m_draft.integer(property.number, index));
    if (role == Qt::CheckStateRole && isCheckable(property))
        return m_draft.flag(property.number, index) ? Qt::Checked : Qt::Unchecked;
    if (role == WordsRole) return choiceWords(property, m_draft);
    if (role != Qt::EditRole) return {};
    if (property.editor == Editor::Section) return double(chosenValue(property, m_draft, index));
    if (isText(property.type)) return m_draft.text(property.number, index);
    return m_draft.number(property.number, index);
}

bool PropertyModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !node(index).property) return false;
    const PropertyInfo& property = *node(index).property;
    const int section = storeIndex(node(index));
    const std::uint64_t before = m_draft.revision();
    if (role == Qt::CheckStateRole)
        m_draft.setNumber(property.number, section, value.toInt() == Qt::Checked ? -1 : 0);
    else if (value.typeId() == QMetaType::QString)
        m_draft.setText(property.number, section, value.toString());
    else
        m_draft.setNumber(property.number, section, value.toDouble());
    if (before == m_draft.revision()) return true;
    Q_EMIT dataChanged(index, index);
    Q_EMIT edited();
    return true;
}

Qt::ItemFlags PropertyModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const PropertyInfo* info = property(index);
    if (!info || index.column() != ValueColumn || info->readOnly) return flags;
    return flags | (isCheckable(*info) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == LabelColumn ? QStringLiteral("Property") : QStringLiteral("Value");
}

} // namespace vistor
