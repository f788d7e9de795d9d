// Expressions and calls.
#include "maths/script/Conversions.h"
#include "maths/script/Machine.h"

#include <array>

namespace vistor::script {
namespace {

/// Evaluated arguments of one call, a few of them without asking for memory.
class Arguments {
public:
    template <typename Evaluate>
    Arguments(const std::vector<ExprPtr>& list, Evaluate evaluate) {
        if (list.size() > m_few.size()) m_many.resize(list.size());
        Value* values = m_many.empty() ? m_few.data() : m_many.data();
        for (std::size_t i = 0; i < list.size(); ++i) values[i] = evaluate(*list[i]);
        m_all = {values, list.size()};
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    std::span<const Value> all() const { return m_all; }

private:
    std::array<Value, 4> m_few;
    std::vector<Value> m_many;
    std::span<const Value> m_all;
};

/// What a member of the host with types of its own gets.
Value inKind(Kind kind, const Value& value) {
    if (value.kind() == kind) return value;
    if (kind == Kind::Long) return Value::longer(toLong(value));
    if (kind == Kind::Single) return Value::single(static_cast<double>(toSingle(value)));
    return Value::number(toDouble(value));
}

/// True for what evaluates to a value that stands somewhere, without running anything.
bool isSimple(const Expr& expr) {
    return expr.kind <= ExprKind::Global;
}

} // namespace

Value Machine::evaluate(const Expr& expr) {
    m_budget.work();
    switch (expr.kind) {
    case ExprKind::Literal:
        return expr.value;
    case ExprKind::Local:
    case ExprKind::Global:
        return variable(expr);
    case ExprKind::Binary:
        return evaluateBinary(expr);
    case ExprKind::Unary: {
        Value scratch;
        return applyUnary(expr.op, operand(*expr.left, scratch));
    }
    case ExprKind::Parenthesised:
        return evaluate(*expr.left);
    case ExprKind::Call:
        return callProcedure(expr);
    case ExprKind::HostMember:
        return callHost(expr);
    case ExprKind::Builtin:
        return callBuiltin(expr);
    case ExprKind::Index:
        return evaluateIndex(expr);
    case ExprKind::Member:
        return callMember(expr);
    case ExprKind::Host:
        return Value::object(m_hosts[static_cast<std::size_t>(expr.host)].object);
    case ExprKind::ErrObject:
        return Value::object(&m_err);
    case ExprKind::Missing:
        return Value::missing();
    case ExprKind::Undefined:
        raise(kUndefined, expr.spelling);
    case ExprKind::New:
        raise(kClassNotDefined, expr.spelling);
    case ExprKind::Name:
    case ExprKind::NoProcedure:
        break;
    }
    raise(kTypeMismatch, expr.spelling);
}

/// The value where it stands, or in `scratch` what had to be evaluated.
const Value& Machine::operand(const Expr& expr, Value& scratch) {
    if (expr.kind == ExprKind::Literal) return expr.value;
    if (isVariable(expr)) return variable(expr);
    scratch = evaluate(expr);
    return scratch;
}

Value Machine::evaluateBinary(const Expr& expr) {
    Value leftScratch;
    Value rightScratch;
    if (isSimple(*expr.right)) {
        const Value& left = operand(*expr.left, leftScratch);
        return applyBinary(expr.op, left, operand(*expr.right, rightScratch), expr.literals, m_budget);
    }
    leftScratch = evaluate(*expr.left); // a copy: the right side may change what the left side read
    return applyBinary(expr.op, leftScratch, operand(*expr.right, rightScratch), expr.literals, m_budget);
}

Value Machine::callProcedure(const Expr& expr) {
    const Procedure& procedure = *m_program->procedures[static_cast<std::size_t>(expr.slot)];
    if (expr.arguments.size() != procedure.parameters.size()) raise(kWrongArguments, expr.spelling);
    Activation activation(*this, procedure);
    for (std::size_t i = 0; i < expr.arguments.size(); ++i) activation.bind(i, *expr.arguments[i]);
    return activation.run();
}

Value Machine::callBuiltin(const Expr& expr) {
    const Builtin& builtin = *expr.builtin;
    const std::size_t count = expr.arguments.size();
    if (count < builtin.least || (count > builtin.most && builtin.most != kAnyNumber))
        raise(kWrongArguments, expr.spelling);
    const Arguments arguments(expr.arguments, [this](const Expr& argument) { return evaluate(argument); });
    for (std::size_t i = 0; i < builtin.least; ++i)
        if (arguments.all()[i].is(Kind::Missing)) raise(kNotOptional);
    return builtin.function({arguments.all(), m_budget, m_random, m_timer});
}

Value Machine::callHost(const Expr& expr) {
    return callMember(*m_hosts[static_cast<std::size_t>(expr.host)].object, expr.slot, expr);
}

Value Machine::callMember(const Expr& expr) {
    HostObject& object = objectOf(*expr.left);
    return callMember(object, memberOf(object, expr), expr);
}

Value Machine::callMember(HostObject& object, int member, const Expr& expr) {
    const Signature* signature = object.signatureOf(member);
    if (signature && signature->parameters.size() != expr.arguments.size())
        raise(kWrongArguments, expr.spelling);
    std::size_t next = 0;
    const Arguments arguments(expr.arguments, [&](const Expr& argument) {
        const Value value = evaluate(argument);
        return signature ? inKind(signature->parameters[next++], value) : value;
    });
    Value result;
    if (const int error = object.callMember(member, arguments.all(), result)) raise(error);
    return result;
}

void Machine::putMember(HostObject& object, int member, const Value& value) {
    const Signature* signature = object.signatureOf(member);
    if (signature && !signature->isField) raise(kNoSuchMember);
    if (const int error = object.setMember(member, signature ? inKind(signature->fieldKind, value) : value))
        raise(error);
}

HostObject& Machine::objectOf(const Expr& expr) {
    const Value value = evaluate(expr);
    if (!value.is(Kind::Object)) raise(kObjectRequired);
    if (!value.asObject()) raise(kObjectNotSet);
    return *value.asObject();
}

int Machine::memberOf(HostObject& object, const Expr& expr) const {
    const int member = object.findMember(expr.name);
    if (member < 0) raise(kNoSuchMember, expr.spelling);
    return member;
}

} // namespace vistor::script
