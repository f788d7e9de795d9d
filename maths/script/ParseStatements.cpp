// Single statements: assignment, calls, arrays, leaving, error handling.
#include "maths/script/Fault.h"
#include "maths/script/ParserCore.h"

namespace vistor::script {
namespace {

/// `f (x)` hands over the value of x, not x itself.
void passByValue(Expr& call) {
    for (ExprPtr& argument : call.arguments) {
        auto wrapped = std::make_unique<Expr>(ExprKind::Parenthesised);
        wrapped->left = std::move(argument);
        argument = std::move(wrapped);
    }
}

bool isCallable(const Expr& expr) {
    return expr.kind == ExprKind::Name || expr.kind == ExprKind::Member || expr.kind == ExprKind::Index;
}

} // namespace

/// A statement that begins with a name: assignment or call. `f (a), b` and `f (a) + b` look like a call with
/// parentheses at first; then the parser goes back and reads the arguments without them.
std::unique_ptr<Statement> Parser::parseNameStatement() {
    if (isSoftWord(u"erase") && peek(1).kind == TokenKind::Name) return parseErase();
    const std::size_t start = m_pos;
    const std::size_t uses = m_binder.uses();
    auto statement = make(StatementKind::Assign);
    ExprPtr expr = parseSuffixes(parseName(Use::Target));
    if (acceptSymbol(u'=')) {
        statement->target = std::move(expr);
        statement->value = parseExpression();
        return statement;
    }
    if (atStatementEnd() && expr->hasArguments) {
        if (expr->arguments.size() > 1) failAt(kParenthesesOnSub, statement->line);
        passByValue(*expr);
        statement->kind = StatementKind::Call;
        statement->value = std::move(expr);
        return statement;
    }
    m_pos = start;
    m_binder.forgetUses(uses);
    return parseBareCall();
}

/// A name before "." is an object whose member is called.
Use Parser::calleeUse() const {
    return peek(1).symbol == u'.' ? Use::Read : Use::Statement;
}

std::unique_ptr<Statement> Parser::parseBareCall() {
    auto statement = make(StatementKind::Call);
    ExprPtr callee = parseName(calleeUse());
    while (acceptSymbol(u'.')) callee = parseMember(std::move(callee));
    callee->hasArguments = true;
    if (!atStatementEnd()) parseArgumentList(callee->arguments);
    statement->value = std::move(callee);
    return statement;
}

std::unique_ptr<Statement> Parser::parseAssignment(StatementKind kind) {
    auto statement = make(kind);
    next();
    statement->target = parseSuffixes(parseName(Use::Target));
    expectSymbol(u'=', kExpectedEqual);
    statement->value = parseExpression();
    return statement;
}

std::unique_ptr<Statement> Parser::parseCall() {
    auto statement = make(StatementKind::Call);
    next();
    statement->value = parseSuffixes(parseName(calleeUse()));
    if (isCallable(*statement->value)) statement->value->hasArguments = true;
    return statement;
}

std::unique_ptr<Statement> Parser::parseReDim() {
    auto statement = make(StatementKind::ReDim);
    next();
    statement->preserve = acceptSoftWord(u"preserve");
    Statement* current = statement.get();
    for (;;) {
        current->target = parseName(Use::Resize);
        expectSymbol(u'(', kExpectedOpen);
        parseArgumentList(current->list);
        expectSymbol(u')', kExpectedClose);
        if (!acceptSymbol(u',')) return statement;
        statement->body.push_back(make(StatementKind::ReDim));
        current = statement->body.back().get();
        current->preserve = statement->preserve;
    }
}

std::unique_ptr<Statement> Parser::parseErase() {
    auto statement = make(StatementKind::Erase);
    next();
    do {
        statement->list.push_back(parseSuffixes(parseName(Use::Target)));
    } while (acceptSymbol(u','));
    return statement;
}

std::unique_ptr<Statement> Parser::parseExit() {
    auto statement = make(StatementKind::ExitProcedure);
    next();
    const Word what = peek().word;
    if (what == Word::Do)
        statement->kind = StatementKind::ExitDo;
    else if (what == Word::For)
        statement->kind = StatementKind::ExitFor;
    else if (what != Word::Function && what != Word::Sub)
        fail(kSyntax);
    const bool inside = what == Word::Do ? m_loops.doLoops > 0
                        : what == Word::For
                            ? m_loops.forLoops > 0
                            : m_inProcedure && m_procedure->isFunction == (what == Word::Function);
    if (!inside) fail(kInvalidExit);
    next();
    return statement;
}

std::unique_ptr<Statement> Parser::parseOnError() {
    auto statement = make(StatementKind::OnErrorResume);
    next();
    if (!acceptSoftWord(u"error")) fail(kSyntax);
    if (accept(Word::Resume)) {
        if (!accept(Word::Next)) fail(kSyntax);
        return statement;
    }
    statement->kind = StatementKind::OnErrorStop;
    if (!accept(Word::GoTo)) fail(kSyntax);
    const Token& zero = next();
    if (zero.kind != TokenKind::Number || !zero.value.is(Kind::Integer) || zero.value.asLong() != 0)
        fail(kSyntax);
    return statement;
}

} // namespace vistor::script
