#include "maths/script/SlotStack.h"

#include <algorithm>

namespace vistor::script {

/// Goes on behind what was taken last, or in the next piece where that one has no room.
Value* SlotStack::take(std::size_t count) {
    std::size_t piece = 0;
    std::size_t offset = 0;
    if (!m_taken.empty()) {
        const Taken& last = m_taken.back();
        piece = last.piece;
        Value* start = piece == 0 ? m_first.data() : m_pieces[piece - 1].slots.get();
        offset = static_cast<std::size_t>(last.slots - start) + last.count;
    }
    m_budget.take(count * sizeof(Value) + sizeof(Taken));
    m_taken.push_back({nullptr, count, 0});
    Value* slots = takeFrom(piece, offset, count);
    m_taken.back().slots = slots;
    return slots;
}

Value* SlotStack::takeFrom(std::size_t piece, std::size_t offset, std::size_t count) {
    for (;; ++piece, offset = 0) {
        if (piece > m_pieces.size()) {
            const std::size_t size = std::max(count, kFirst << std::min<std::size_t>(piece, 10));
            m_pieces.push_back({std::make_unique<Value[]>(size), size});
        }
        const std::size_t size = piece == 0 ? kFirst : m_pieces[piece - 1].size;
        if (offset + count > size) continue;
        m_taken.back().piece = piece;
        return (piece == 0 ? m_first.data() : m_pieces[piece - 1].slots.get()) + offset;
    }
}

void SlotStack::release(std::size_t mark) noexcept {
    while (m_taken.size() > mark) {
        const Taken& last = m_taken.back();
        if (last.slots) std::fill(last.slots, last.slots + last.count, Value());
        m_budget.give(last.count * sizeof(Value) + sizeof(Taken));
        m_taken.pop_back();
    }
}

} // namespace vistor::script
