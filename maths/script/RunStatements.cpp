// Statements.
#include "maths/script/Conversions.h"
#include "maths/script/Machine.h"

#include <algorithm>

namespace vistor::script {

Machine::Flow Machine::execute(const Block& block) {
    for (const auto& statement : block) {
        m_budget.work();
        const Flow flow = m_frame->resumeNext ? executeResuming(*statement) : execute(*statement);
        if (flow != Flow::Next) return flow;
    }
    return Flow::Next;
}

/// A statement that fails is passed over; Err tells what it was.
Machine::Flow Machine::executeResuming(const Statement& statement) {
    try {
        return execute(statement);
    } catch (const Fault& fault) {
        if (fault.fatal || !m_frame->resumeNext) throw;
        m_err.set(fault);
        return Flow::Next;
    }
}

Machine::Flow Machine::execute(const Statement& statement) {
    m_line = statement.line;
    switch (statement.kind) {
    case StatementKind::Assign:
        assign(statement);
        break;
    case StatementKind::Set:
        assignObject(statement);
        break;
    case StatementKind::Call:
        callStatement(*statement.value);
        break;
    case StatementKind::If:
        return executeIf(statement);
    case StatementKind::Select:
        return executeSelect(statement);
    case StatementKind::For:
        return executeFor(statement);
    case StatementKind::ForEach:
        return executeForEach(statement);
    case StatementKind::Do:
        return executeDo(statement);
    case StatementKind::ReDim:
        resize(statement);
        break;
    case StatementKind::Erase:
        for (const ExprPtr& target : statement.list) erase(*target);
        break;
    case StatementKind::ExitDo:
        return Flow::ExitDo;
    case StatementKind::ExitFor:
        return Flow::ExitFor;
    case StatementKind::ExitProcedure:
        return leaveProcedure();
    case StatementKind::OnErrorResume:
        setErrorHandling(true);
        break;
    case StatementKind::OnErrorStop:
        setErrorHandling(false);
        break;
    }
    return Flow::Next;
}

Machine::Flow Machine::leaveProcedure() {
    m_err.clear();
    return Flow::ExitProcedure;
}

void Machine::setErrorHandling(bool resume) {
    m_frame->resumeNext = resume;
    m_err.clear();
}

/// Null counts as False. Nothing where the condition failed and errors are passed over: the next statement
/// runs then.
std::optional<bool> Machine::test(const Expr& condition) {
    const auto holds = [&]() -> bool {
        Value scratch;
        const Value& value = operand(condition, scratch);
        return !value.is(Kind::Null) && toBoolean(value);
    };
    if (!m_frame->resumeNext) return holds();
    try {
        return holds();
    } catch (const Fault& fault) {
        if (fault.fatal) throw;
        m_err.set(fault);
        return std::nullopt;
    }
}

Machine::Flow Machine::executeIf(const Statement& statement) {
    for (const Branch& branch : statement.branches) {
        m_line = branch.line;
        if (branch.tests.empty() || test(*branch.tests[0]).value_or(true)) return execute(branch.body);
    }
    return Flow::Next;
}

bool Machine::selects(const Branch& branch, const Value& value, const Expr& selector) {
    if (branch.tests.empty()) return true;
    return std::any_of(branch.tests.begin(), branch.tests.end(), [&](const ExprPtr& testExpr) {
        m_budget.work();
        Value scratch;
        const Value& candidate = operand(*testExpr, scratch);
        const bool literal = testExpr->kind == ExprKind::Literal && selector.kind != ExprKind::Literal;
        const std::uint8_t which = !literal                   ? kNoLiteral
                                   : candidate.is(Kind::Text) ? kRightText
                                                              : kRightNumber;
        const Value equal = applyBinary(Operator::Equal, value, candidate, which, m_budget);
        return !equal.is(Kind::Null) && toBoolean(equal);
    });
}

Machine::Flow Machine::executeSelect(const Statement& statement) {
    const Value value = plain(evaluate(*statement.value));
    for (const Branch& branch : statement.branches) {
        m_line = branch.line;
        if (selects(branch, value, *statement.value)) return execute(branch.body);
    }
    return Flow::Next;
}

/// A condition that failed goes on with what stands behind it: the body, or what follows the loop.
bool Machine::leaves(const Statement& loop) {
    const std::optional<bool> holds = test(*loop.value);
    return holds ? *holds == loop.until : loop.atEnd;
}

Machine::Flow Machine::executeDo(const Statement& statement) {
    const bool atStart = statement.value && !statement.atEnd;
    for (bool first = true;; first = false) {
        m_budget.work();
        m_line = statement.testLine;
        const bool asks = statement.value && (atStart || !first);
        if (asks && leaves(statement)) return Flow::Next;
        const Flow flow = execute(statement.body);
        if (flow == Flow::ExitDo && !statement.isWhile) return Flow::Next;
        if (flow != Flow::Next) return flow;
    }
}

bool Machine::forGoesOn(const Value& counter, const Value& limit, const Value& step) {
    const Operator op = toDouble(step) >= 0 ? Operator::LessOrEqual : Operator::GreaterOrEqual;
    return toBoolean(compare(op, counter, limit, kNoLiteral, m_budget));
}

/// Evaluates start, end and step once; false when that failed and errors are passed over.
bool Machine::startFor(const Statement& statement, Value& counter, Value& limit, Value& step) {
    const auto number = [this](const Expr& expr) {
        const Value value = plain(evaluate(expr));
        if (value.is(Kind::Null)) raise(kInvalidNull);
        return applyUnary(Operator::Plus, value);
    };
    try {
        counter = number(*statement.value);
        limit = number(*statement.limit);
        step = statement.step ? number(*statement.step) : Value::integer(1);
        store(*statement.target, counter);
        return true;
    } catch (const Fault& fault) {
        if (fault.fatal || !m_frame->resumeNext) throw;
        m_err.set(fault);
        return false;
    }
}

Machine::Flow Machine::executeFor(const Statement& statement) {
    Value counter;
    Value limit;
    Value step;
    if (!startFor(statement, counter, limit, step)) return executeLoopOnce(statement);
    while (forGoesOn(counter, limit, step)) {
        m_budget.work();
        const Flow flow = execute(statement.body);
        if (flow == Flow::ExitFor) break;
        if (flow != Flow::Next) return flow;
        m_line = statement.line;
        counter = applyBinary(Operator::Add, evaluate(*statement.target), step, kNoLiteral, m_budget);
        store(*statement.target, counter);
    }
    return Flow::Next;
}

/// What becomes of a loop whose head failed and was passed over: its body runs, then Next has no loop to go
/// on with.
Machine::Flow Machine::executeLoopOnce(const Statement& statement) {
    const Flow flow = execute(statement.body);
    if (flow == Flow::ExitFor) return Flow::Next;
    if (flow == Flow::Next) raise(kLoopNotInitialised);
    return flow;
}

/// Goes over the elements as they were when the loop began.
Machine::Flow Machine::executeForEach(const Statement& statement) {
    const Value array = evaluate(*statement.value);
    if (!array.is(Kind::Array)) raise(kNotACollection);
    for (const Value& item : array.asArray().items) {
        m_budget.work();
        m_line = statement.line;
        store(*statement.target, item);
        const Flow flow = execute(statement.body);
        if (flow == Flow::ExitFor) break;
        if (flow != Flow::Next) return flow;
    }
    return Flow::Next;
}

void Machine::assign(const Statement& statement) {
    Value value = evaluate(*statement.value);
    store(*statement.target, value.is(Kind::Object) ? plain(value) : std::move(value));
}

void Machine::assignObject(const Statement& statement) {
    Value value = evaluate(*statement.value);
    if (!value.is(Kind::Object)) raise(kObjectRequired);
    store(*statement.target, std::move(value));
}

void Machine::callStatement(const Expr& call) {
    switch (call.kind) {
    case ExprKind::Index:
        raise(kTypeMismatch); // parentheses behind a variable, and nothing done with it
    case ExprKind::Literal:
    case ExprKind::Local:
    case ExprKind::Global:
        raise(kTypeMismatch);
    default:
        evaluate(call);
    }
}

} // namespace vistor::script
