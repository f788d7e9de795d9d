// The variables of the procedures that are being called: a stack in pieces, so that a variable stays where it
// is while others refer to it.
#pragma once

#include "maths/script/Value.h"

#include <array>
#include <memory>
#include <vector>

namespace vistor::script {

class SlotStack {
public:
    explicit SlotStack(Budget& budget) : m_budget(budget) {}
    ~SlotStack() { release(0); }
    SlotStack(const SlotStack&) = delete;
    SlotStack& operator=(const SlotStack&) = delete;

    /// So many empty variables.
    Value* take(std::size_t count);
    /// What to release to, to give back all that is taken from now on.
    std::size_t mark() const { return m_taken.size(); }
    void release(std::size_t mark) noexcept;

private:
    static constexpr std::size_t kFirst = 64;

    struct Piece {
        std::unique_ptr<Value[]> slots;
        std::size_t size = 0;
    };
    struct Taken {
        Value* slots;
        std::size_t count;
        std::size_t piece; ///< 0 is m_first
    };

    Value* takeFrom(std::size_t piece, std::size_t offset, std::size_t count);

    Budget& m_budget;
    std::array<Value, kFirst> m_first;
    std::vector<Piece> m_pieces; ///< each larger than the one before
    std::vector<Taken> m_taken;
};

} // namespace vistor::script
