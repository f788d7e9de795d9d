#include "maths/script/Value.h"

#include "maths/script/Fault.h"

namespace vistor::script {
namespace {

std::size_t bytesOf(const Text& text) {
    return sizeof(Text) + sizeof(char16_t) * text.characters.capacity();
}

std::size_t bytesOf(std::size_t items) {
    return sizeof(ArrayBody) + sizeof(Value) * items;
}

/// The number of elements; raises an error before a product could overflow.
std::size_t countOf(const std::vector<std::int32_t>& sizes) {
    constexpr std::size_t kMost = std::size_t{1} << 31;
    std::size_t count = sizes.empty() ? 0 : 1;
    for (const std::int32_t size : sizes) {
        count *= static_cast<std::size_t>(size);
        if (count > kMost) raise(kOutOfMemory);
    }
    return count;
}

} // namespace

Value Value::text(std::u16string characters, Budget& budget) {
    Value value = literal(std::move(characters));
    budget.take(bytesOf(*value.m_text));
    value.m_text->budget = &budget;
    return value;
}

Value Value::literal(std::u16string characters) {
    Value value(Kind::Empty);
    value.m_text = new Text{1, nullptr, std::move(characters)};
    value.m_kind = Kind::Text;
    return value;
}

Value Value::array(std::vector<std::int32_t> sizes, Budget& budget, bool fixed) {
    const std::size_t count = countOf(sizes);
    budget.take(bytesOf(count));
    Value value(Kind::Empty);
    value.m_array = new ArrayBody;
    value.m_kind = Kind::Array;
    value.m_array->budget = &budget;
    value.m_array->fixed = fixed;
    value.m_array->sizes = std::move(sizes);
    value.m_array->items.resize(count);
    return value;
}

ArrayBody& Value::ownArray() {
    if (m_array->shared()) {
        Value copy = array(m_array->sizes, *m_array->budget, m_array->fixed);
        copy.m_array->items = m_array->items;
        *this = std::move(copy);
    }
    return *m_array;
}

void Value::addReference() noexcept {
    if (m_kind == Kind::Text)
        ++m_text->references;
    else
        ++m_array->references;
}

void Value::release() noexcept {
    if (m_kind == Kind::Array) {
        if (--m_array->references == 0) destroy(m_array);
    } else if (--m_text->references == 0) {
        if (m_text->budget) m_text->budget->give(bytesOf(*m_text));
        delete m_text;
    }
}

/// Takes nested arrays apart one after the other: a script can nest them deeper than the stack could follow.
void Value::destroy(ArrayBody* body) noexcept {
    ArrayBody* dead = body;
    while (dead) {
        ArrayBody* current = dead;
        dead = current->nextDead;
        for (Value& item : current->items) {
            if (!item.is(Kind::Array)) continue;
            ArrayBody* inner = item.m_array;
            item.m_kind = Kind::Empty;
            if (--inner->references > 0) continue;
            inner->nextDead = dead;
            dead = inner;
        }
        if (current->budget) current->budget->give(bytesOf(current->items.size()));
        delete current;
    }
}

} // namespace vistor::script
