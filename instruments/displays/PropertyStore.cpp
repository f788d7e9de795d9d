#include "instruments/displays/PropertyStore.h"

#include "variables/SetupVariables.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vistor {
namespace {

using Role = PropertyAddress::Role;

const QString kNoText;

template <class Whole>
double wholeNumber(double value) {
    constexpr double kLow = std::numeric_limits<Whole>::min();
    constexpr double kHigh = std::numeric_limits<Whole>::max();
    return std::clamp(std::nearbyint(value), kLow, kHigh);
}

double singleNumber(double value) {
    constexpr double kHigh = std::numeric_limits<float>::max();
    return std::isinf(value) ? value : static_cast<float>(std::clamp(value, -kHigh, kHigh));
}

std::size_t place(int index, int width, int slot) {
    return static_cast<std::size_t>(index) * static_cast<std::size_t>(width) + static_cast<std::size_t>(slot);
}

/// The number of a text that is one in the form of files.
std::optional<double> exactNumber(const QString& text) {
    return text.contains(u',') ? std::nullopt : numberEntered(text);
}

double initialOf(const PropertyInfo& field, int index) {
    if (field.initials.empty()) return field.initial;
    return field.initials[static_cast<std::size_t>(index) % field.initials.size()];
}

} // namespace

double coerced(PropertyType type, double value, double before) {
    if (std::isnan(value))
        return type == PropertyType::Single || type == PropertyType::Double ? value : before;
    switch (type) {
    case PropertyType::Integer:
        return wholeNumber<std::int16_t>(value);
    case PropertyType::Long:
        return wholeNumber<std::int32_t>(value);
    case PropertyType::Single:
        return singleNumber(value);
    case PropertyType::Boolean:
    case PropertyType::Flag:
        return value != 0 ? -1 : 0;
    default:
        return value;
    }
}

double numberOfText(const QString& text) {
    if (const auto exact = exactNumber(text)) return *exact;
    if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return -1;
    const double read = ParseNumber(QString(text));
    return std::isfinite(read) ? read : 0;
}

PropertyStore::PropertyStore(const KindTable& table) : m_table(&table), m_blocks(table.blockCount()) {
    resizeBlock(0, 1);
    for (const SectionInfo& section : table.sections()) {
        const PropertyAddress& count = table.find(section.countProperty);
        resizeBlock(count.counts, static_cast<int>(readNumber(count, 0)));
    }
}

void PropertyStore::changed(bool live) {
    ++m_revision;
    if (!live) ++m_staticRevision;
}

void PropertyStore::resizeBlock(std::size_t block, int count) {
    Block& b = m_blocks[block];
    const int before = b.count;
    b.count = std::clamp(count, 0, kMaximumSections);
    b.numbers.resize(place(b.count, m_table->numbersIn(block), 0));
    b.texts.resize(place(b.count, m_table->textsIn(block), 0));
    for (int i = before; i < b.count; ++i) fillDefaults(block, i);
    countChanged(block);
}

void PropertyStore::fillDefaults(std::size_t block, int index) {
    for (const PropertyInfo& field : m_table->fields(block)) {
        if (field.type == PropertyType::Empty) continue;
        const PropertyAddress& address = m_table->find(field.number);
        Block& b = m_blocks[block];
        if (isText(field.type))
            b.texts[place(index, m_table->textsIn(block), address.slot)] =
                QString::fromLatin1(field.initialText);
        else
            b.numbers[place(index, m_table->numbersIn(block), address.slot)] = initialOf(field, index);
    }
}

void PropertyStore::countChanged(std::size_t block) {
    Block& b = m_blocks[block];
    b.current = b.count > 0 ? b.selector % b.count : -1;
    changed(false);
    if (block == 0) return;
    const PropertyAddress& count = m_table->find(m_table->sections()[block - 1].countProperty);
    m_blocks[0].numbers[count.slot] = b.count;
}

void PropertyStore::select(Block& block, double value) {
    if (std::isnan(value) || value < 0) return;
    block.selector = static_cast<int>(wholeNumber<std::int16_t>(value));
    block.current = block.count > 0 ? block.selector % block.count : -1;
}

void PropertyStore::writeNumber(const PropertyAddress& address, int index, double value) {
    Block& b = m_blocks[address.block];
    if (index < 0 || index >= b.count) return;
    double& stored = b.numbers[place(index, m_table->numbersIn(address.block), address.slot)];
    const double wanted = coerced(address.type, value, stored);
    if (wanted == stored) return;
    if (address.role == Role::Count) return resizeBlock(address.counts, static_cast<int>(wanted));
    stored = wanted;
    changed(address.live);
}

void PropertyStore::writeText(const PropertyAddress& address, int index, QStringView text) {
    Block& b = m_blocks[address.block];
    if (index < 0 || index >= b.count) return;
    QString& stored = b.texts[place(index, m_table->textsIn(address.block), address.slot)];
    if (text == stored) return;
    stored.resize(text.size()); // keeps its memory, other than an assignment
    std::copy(text.begin(), text.end(), stored.begin());
    changed(address.live);
}

double PropertyStore::readNumber(const PropertyAddress& address, int index) const {
    const Block& b = m_blocks[address.block];
    if (index < 0 || index >= b.count) return 0;
    return b.numbers[place(index, m_table->numbersIn(address.block), address.slot)];
}

const QString& PropertyStore::readText(const PropertyAddress& address, int index) const {
    const Block& b = m_blocks[address.block];
    if (index < 0 || index >= b.count) return kNoText;
    return b.texts[place(index, m_table->textsIn(address.block), address.slot)];
}

void PropertyStore::setNumber(int number, int index, double value) {
    const PropertyAddress& address = m_table->find(number);
    if (address.role == Role::None) return;
    if (address.role == Role::Selector) return select(m_blocks[address.block], value);
    if (isText(address.type)) return writeText(address, index, textOfNumber(value));
    writeNumber(address, index, value);
}

void PropertyStore::setNumber(int number, double value) {
    setNumber(number, m_blocks[m_table->find(number).block].current, value);
}

void PropertyStore::setText(int number, int index, QStringView text) {
    const PropertyAddress& address = m_table->find(number);
    if (address.role == Role::None) return;
    if (isText(address.type)) return writeText(address, index, text);
    setNumber(number, index, numberOfText(text.toString()));
}

void PropertyStore::setText(int number, QStringView text) {
    setText(number, m_blocks[m_table->find(number).block].current, text);
}

double PropertyStore::number(int number, int index) const {
    const PropertyAddress& address = m_table->find(number);
    if (address.role == Role::None) return 0;
    if (address.role == Role::Selector) return m_blocks[address.block].selector;
    return isText(address.type) ? numberOfText(readText(address, index)) : readNumber(address, index);
}

double PropertyStore::number(int number) const {
    return this->number(number, m_blocks[m_table->find(number).block].current);
}

const QString& PropertyStore::text(int number, int index) const {
    const PropertyAddress& address = m_table->find(number);
    return address.role == Role::Field && isText(address.type) ? readText(address, index) : kNoText;
}

const QString& PropertyStore::text(int number) const {
    return text(number, m_blocks[m_table->find(number).block].current);
}

int PropertyStore::choice(int number, int index) const {
    const PropertyInfo* info = m_table->info(number);
    if (info == nullptr) return 0;
    const int value = integer(number, index);
    const bool known = value >= 0 && static_cast<std::size_t>(value) < info->choices.words.size();
    return known ? value : info->choices.otherwise;
}

int PropertyStore::sectionNamed(int number, int index) const {
    const PropertyInfo* info = m_table->info(number);
    if (info == nullptr || info->sectionsOf == kNoNumber) return 0;
    return std::clamp(integer(number, index), 0, std::max(integer(info->sectionsOf) - 1, 0));
}

int PropertyStore::bounded(int number, int index) const {
    const PropertyInfo* info = m_table->info(number);
    const int value = integer(number, index);
    return info == nullptr ? value
                           : std::clamp(value, static_cast<int>(info->low), static_cast<int>(info->high));
}

QString PropertyStore::item(int number, int index) const {
    const PropertyAddress& address = m_table->find(number);
    if (address.role == Role::Selector) return QString::number(index);
    if (isText(address.type)) return readText(address, index);
    const double value = readNumber(address, index);
    if (address.type == PropertyType::Flag)
        return value != 0 ? QStringLiteral("True") : QStringLiteral("False");
    return textOfNumber(value, address.type == PropertyType::Single);
}

void PropertyStore::setItem(int number, int index, const QString& item) {
    if (m_table->find(number).role != Role::Selector) setText(number, index, item);
}

void PropertyStore::rearrange(std::size_t block, std::span<const int> order) {
    if (block == 0 || order.size() > kMaximumSections) return;
    const Block before = m_blocks[block];
    resizeBlock(block, static_cast<int>(order.size()));
    const int numbers = m_table->numbersIn(block);
    const int texts = m_table->textsIn(block);
    Block& b = m_blocks[block];
    for (int i = 0; i < b.count; ++i) {
        fillDefaults(block, i);
        const int from = order[static_cast<std::size_t>(i)];
        if (from < 0 || from >= before.count) continue;
        const auto at = [](auto& values, int index, int width) { return values.begin() + index * width; };
        std::copy_n(at(before.numbers, from, numbers), numbers, at(b.numbers, i, numbers));
        std::copy_n(at(before.texts, from, texts), texts, at(b.texts, i, texts));
    }
    renumber(m_table->sections()[block - 1].countProperty, before.count, order);
}

/// Brings along what names sections of a list of which there were `before`.
void PropertyStore::renumber(std::int16_t countProperty, int before, std::span<const int> order) {
    if (before == 0) return;
    const auto placeNow = [&](int named) {
        const auto kept = std::find(order.begin(), order.end(), named);
        if (kept != order.end()) return static_cast<int>(kept - order.begin());
        const auto next =
            std::find_if(order.begin(), order.end(), [named](int from) { return from > named; });
        return static_cast<int>(std::min(next - order.begin(), std::max(std::ssize(order) - 1, 0L)));
    };
    for (std::size_t block = 0; block < m_blocks.size(); ++block)
        for (const PropertyInfo& field : m_table->fields(block)) {
            if (field.sectionsOf != countProperty) continue;
            for (int i = 0; i < m_blocks[block].count; ++i)
                setNumber(field.number, i, placeNow(std::clamp(integer(field.number, i), 0, before - 1)));
        }
}

void PropertyStore::resetSelectors() {
    for (Block& block : m_blocks) select(block, 0);
}

} // namespace vistor
