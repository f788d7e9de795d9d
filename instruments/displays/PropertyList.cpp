#include "instruments/displays/PropertyList.h"

#include <algorithm>

namespace vistor {
namespace {

constexpr double kHugeCount = 1e6;

void writeFields(const PropertyStore& store, std::size_t block, int index, QStringList& list) {
    for (const PropertyInfo& field : store.table().fields(block))
        list << (field.type == PropertyType::Empty ? QString() : store.item(field.number, index));
}

void readFields(PropertyStore& store, std::size_t block, int index, const QStringList& list,
                qsizetype first) {
    for (const PropertyInfo& field : store.table().fields(block)) {
        if (first >= list.size()) return;
        if (field.type != PropertyType::Empty) store.setItem(field.number, index, list.at(first));
        ++first;
    }
}

/// How many sections the list says a block has, which may be more than are made.
qsizetype declaredCount(const PropertyStore& store, std::size_t block, const QStringList& list) {
    const std::int16_t number = store.table().sections()[block - 1].countProperty;
    const auto fixed = store.table().fixed();
    const auto found = std::find_if(fixed.begin(), fixed.end(), [number](const PropertyInfo& property) {
        return property.number == number && property.type != PropertyType::Empty;
    });
    const qsizetype position = kFirstPropertyItem + (found - fixed.begin());
    if (position >= list.size()) return store.sections(block);
    const double count = coerced(PropertyType::Long, numberOfText(list.at(position)), 0);
    return static_cast<qsizetype>(std::clamp(count, 0.0, kHugeCount));
}

void readBlock(PropertyStore& store, std::size_t block, const QStringList& list, qsizetype first) {
    const auto width = static_cast<qsizetype>(store.table().fields(block).size());
    for (int index = 0; index < store.sections(block); ++index)
        readFields(store, block, index, list, first + index * width);
}

} // namespace

void writeProperties(const PropertyStore& store, QStringList& list) {
    for (std::size_t block = 0; block < store.table().blockCount(); ++block)
        for (int index = 0; index < store.sections(block); ++index) writeFields(store, block, index, list);
}

qsizetype readProperties(PropertyStore& store, const QStringList& list) {
    readFields(store, 0, 0, list, kFirstPropertyItem);
    const std::size_t blocks = store.table().blockCount();
    std::vector<qsizetype> firsts(blocks + 1);
    firsts[1] = kFirstPropertyItem + static_cast<qsizetype>(store.table().fixed().size());
    for (std::size_t block = 1; block < blocks; ++block) {
        const auto width = static_cast<qsizetype>(store.table().fields(block).size());
        firsts[block + 1] = firsts[block] + width * declaredCount(store, block, list);
    }
    for (std::size_t block = 1; block < blocks; ++block) readBlock(store, block, list, firsts[block]);
    store.resetSelectors();
    return firsts[blocks];
}

} // namespace vistor
