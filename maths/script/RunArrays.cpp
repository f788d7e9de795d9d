// Variables and arrays: where a value is kept, ReDim, Erase.
#include "maths/script/Conversions.h"
#include "maths/script/Machine.h"

#include <algorithm>
#include <unordered_map>

namespace vistor::script {
namespace {

constexpr std::size_t kMostDimensions = 60;

/// Evaluated indexes of one access.
struct Indexes {
    std::int32_t at[kMostDimensions];
    std::size_t count = 0;
};

/// The element's number among all; "Subscript out of range" where there is none.
std::size_t offsetOf(const ArrayBody& array, const Indexes& indexes) {
    if (array.sizes.empty() || indexes.count != array.sizes.size()) raise(kSubscript);
    std::size_t offset = 0;
    for (std::size_t i = indexes.count; i-- > 0;) {
        if (indexes.at[i] < 0 || indexes.at[i] >= array.sizes[i]) raise(kSubscript);
        offset = offset * static_cast<std::size_t>(array.sizes[i]) + static_cast<std::size_t>(indexes.at[i]);
    }
    return offset;
}

template <typename Evaluate>
void evaluateIndexes(const std::vector<ExprPtr>& arguments, Indexes& indexes, Evaluate evaluate) {
    if (arguments.size() > kMostDimensions) raise(kSubscript);
    for (const ExprPtr& argument : arguments) indexes.at[indexes.count++] = toLong(evaluate(*argument));
}

/// The sizes may differ in the last dimension only, so that the old elements keep their numbers.
void checkPreserved(const ArrayBody& old, const std::vector<std::int32_t>& sizes) {
    if (old.sizes.empty()) return;
    const bool same =
        old.sizes.size() == sizes.size() && std::equal(sizes.begin(), sizes.end() - 1, old.sizes.begin());
    if (!same) raise(kSubscript);
}

/// Copies what leads to an array of which an element is lent out. The element is written to without asking
/// who else holds its array: unless a stored value is cut off from it, an array could come to hold itself.
class Detacher {
public:
    explicit Detacher(Budget& budget) : m_budget(budget) {}

    Value detached(const Value& value) {
        if (!value.is(Kind::Array)) return value;
        const ArrayBody& body = value.asArray();
        const auto known = m_known.find(&body);
        if (known != m_known.end()) return known->second;
        if (++m_depth > kDeepest) raise(kOutOfStack);
        const Value result = copiedWhereNeeded(value);
        --m_depth;
        if (body.references > 1) m_known.emplace(&body, result);
        return result;
    }

private:
    static constexpr int kDeepest = 1000;

    Value copiedWhereNeeded(const Value& value) {
        const ArrayBody& body = value.asArray();
        Value result = body.locks > 0 ? copied(body) : value;
        m_budget.work(1 + (body.items.size() >> 4));
        for (std::size_t i = 0; i < body.items.size(); ++i) {
            if (!body.items[i].is(Kind::Array)) continue;
            Value inner = detached(body.items[i]);
            if (&inner.asArray() == &body.items[i].asArray()) continue;
            if (&result.asArray() == &body) result = copied(body);
            result.asArray().items[i] = std::move(inner);
        }
        return result;
    }

    Value copied(const ArrayBody& body) {
        Value copy = Value::array(body.sizes, m_budget, body.fixed);
        copy.asArray().items = body.items;
        return copy;
    }

    Budget& m_budget;
    int m_depth = 0;
    std::unordered_map<const ArrayBody*, Value> m_known; ///< so that what was shared stays so
};

} // namespace

bool Machine::isVariable(const Expr& expr) const {
    return expr.kind == ExprKind::Local || expr.kind == ExprKind::Global;
}

bool Machine::isPlace(const Expr& expr) const {
    if (expr.kind != ExprKind::Index) return isVariable(expr);
    const Expr* base = &expr;
    while (base->kind == ExprKind::Index) base = base->left.get();
    return isVariable(*base);
}

Value& Machine::variable(const Expr& expr) {
    Value& slot = (expr.kind == ExprKind::Global ? m_globals : m_frame->slots)[expr.slot];
    return slot.is(Kind::Reference) ? *slot.asReference() : slot;
}

/// The indexes are evaluated before the array is looked at: they may call what changes it.
Value& Machine::place(const Expr& expr, Value* array) {
    if (expr.kind != ExprKind::Index) return variable(expr);
    Indexes indexes;
    evaluateIndexes(expr.arguments, indexes, [this](const Expr& index) { return evaluate(index); });
    Value& base = place(*expr.left);
    if (!base.is(Kind::Array)) raise(kTypeMismatch);
    const std::size_t offset = offsetOf(base.asArray(), indexes);
    ArrayBody& body = base.ownArray();
    if (array) *array = base;
    return body.items[offset];
}

Value Machine::evaluateIndex(const Expr& expr) {
    Indexes indexes;
    evaluateIndexes(expr.arguments, indexes, [this](const Expr& index) { return evaluate(index); });
    Value scratch;
    const Value& base = operand(*expr.left, scratch);
    if (!base.is(Kind::Array)) raise(base.is(Kind::Object) ? kNoSuchMember : kTypeMismatch);
    return base.asArray().items[offsetOf(base.asArray(), indexes)];
}

void Machine::store(const Expr& target, Value value) {
    if (isPlace(target)) {
        if (m_locks > 0) value = Detacher(m_budget).detached(value);
        place(target) = std::move(value);
        return;
    }
    if (target.kind == ExprKind::HostMember || target.kind == ExprKind::Member) {
        if (!target.arguments.empty()) raise(kWrongArguments);
        const bool own = target.kind == ExprKind::HostMember;
        HostObject& object =
            own ? *m_hosts[static_cast<std::size_t>(target.host)].object : objectOf(*target.left);
        const int member = own ? target.slot : memberOf(object, target);
        return putMember(object, member, plain(value));
    }
    if (target.kind == ExprKind::Undefined) raise(kUndefined, target.spelling);
    if (target.kind == ExprKind::NoProcedure || target.kind == ExprKind::Index) raise(kTypeMismatch);
    raise(kIllegalAssignment, target.spelling);
}

void Machine::resize(const Statement& statement) {
    std::vector<std::int32_t> sizes;
    for (const ExprPtr& bound : statement.list) {
        const std::int32_t upper = toLong(evaluate(*bound));
        if (upper < -1 || upper == 0x7FFFFFFF) raise(upper < 0 ? kSubscript : kOutOfMemory);
        sizes.push_back(upper + 1);
    }
    if (sizes.size() > kMostDimensions) raise(kSubscript);
    if (!isVariable(*statement.target)) raise(kTypeMismatch);
    Value& slot = variable(*statement.target);
    const bool array = slot.is(Kind::Array);
    if (array && (slot.asArray().fixed || slot.asArray().locks > 0)) raise(kArrayLocked);
    if (statement.preserve && array) checkPreserved(slot.asArray(), sizes);
    Value fresh = Value::array(std::move(sizes), m_budget);
    if (statement.preserve && array) {
        const std::vector<Value>& old = slot.asArray().items;
        std::vector<Value>& items = fresh.asArray().items;
        std::copy_n(old.begin(), std::min(old.size(), items.size()), items.begin());
    }
    slot = std::move(fresh);
    for (const auto& more : statement.body) resize(*more);
}

void Machine::erase(const Expr& target) {
    if (!isPlace(target)) raise(kTypeMismatch);
    Value& slot = place(target);
    if (!slot.is(Kind::Array)) raise(kTypeMismatch);
    const ArrayBody& old = slot.asArray();
    if (old.locks > 0) raise(kArrayLocked);
    slot = Value::array(old.fixed ? old.sizes : std::vector<std::int32_t>(), m_budget, old.fixed);
}

} // namespace vistor::script
