// Dim, Const, Function and Sub.
#include "maths/script/Fault.h"
#include "maths/script/ParserCore.h"

namespace vistor::script {

void Parser::parseDim() {
    if (isWord(Word::Dim)) next();
    do {
        const int line = peek().line;
        const int slot = m_binder.declareVariable(expectName());
        if (isSymbol(u'(')) m_procedure->arrays.push_back({slot, parseBounds(), line});
    } while (acceptSymbol(u','));
}

/// The sizes behind "(": whole numbers, for such an array stands before anything runs.
std::vector<std::int32_t> Parser::parseBounds() {
    next();
    std::vector<std::int32_t> sizes;
    if (acceptSymbol(u')')) return sizes;
    do {
        const Token& bound = next();
        const bool whole = bound.kind == TokenKind::Number && bound.value.kind() <= Kind::Long;
        if (!whole || bound.value.asLong() < 0) failAt(kExpectedInteger, bound.line);
        if (bound.value.asLong() > 0x7FFFFFFE) failAt(kParserMemory, bound.line);
        sizes.push_back(bound.value.asLong() + 1);
    } while (acceptSymbol(u','));
    if (sizes.size() > 60) fail(kSubscript);
    expectSymbol(u')', kExpectedClose);
    return sizes;
}

void Parser::parseConst() {
    next();
    do {
        const std::u16string name = expectName();
        expectSymbol(u'=', kExpectedEqual);
        m_binder.declareConstant(name, parseConstant());
    } while (acceptSymbol(u','));
}

Value Parser::parseConstant() {
    const ExprPtr expr = parseExpression();
    const Expr* inner = expr.get();
    while (inner->kind == ExprKind::Parenthesised) inner = inner->left.get();
    if (inner->kind != ExprKind::Literal || inner->value.is(Kind::Object)) fail(kExpectedLiteral);
    return inner->value;
}

void Parser::parseProcedure() {
    if (m_inProcedure || m_blockDepth > 1) fail(kSyntax);
    const Word word = next().word;
    m_program.procedures.push_back(std::make_unique<Procedure>());
    Procedure& procedure = *m_program.procedures.back();
    procedure.isFunction = word == Word::Function;
    procedure.line = peek().line;
    procedure.name = expectName();
    m_binder.declareProcedure(procedure.name, static_cast<int>(m_program.procedures.size()) - 1);

    m_binder.enter(&procedure);
    m_procedure = &procedure;
    m_inProcedure = true;
    if (acceptSymbol(u'('))
        parseParameters(procedure);
    else
        expectStatementEnd();
    parseBlock(procedure.body);
    expect(Word::End, kExpectedEnd);
    expect(word, procedure.isFunction ? kExpectedFunction : kExpectedSub);
    m_inProcedure = false;
    m_procedure = &m_program.main;
    m_binder.enter(nullptr);
}

void Parser::parseParameters(Procedure& procedure) {
    if (acceptSymbol(u')')) return;
    do {
        Parameter parameter;
        parameter.byValue = accept(Word::ByVal);
        if (!parameter.byValue) accept(Word::ByRef);
        parameter.name = expectName();
        m_binder.declareVariable(parameter.name);
        if (acceptSymbol(u'(')) expectSymbol(u')', kExpectedClose);
        procedure.parameters.push_back(std::move(parameter));
    } while (acceptSymbol(u','));
    expectSymbol(u')', kExpectedClose);
}

} // namespace vistor::script
