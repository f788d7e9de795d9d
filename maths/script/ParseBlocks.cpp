// Statements that hold others: If, Select Case, For, Do, While.
#include "maths/script/Fault.h"
#include "maths/script/ParserCore.h"

namespace vistor::script {

Branch& Parser::addBranch(Statement& statement) const {
    statement.branches.emplace_back();
    statement.branches.back().line = peek().line;
    return statement.branches.back();
}

std::unique_ptr<Statement> Parser::parseIf() {
    auto statement = make(StatementKind::If);
    next();
    addBranch(*statement).tests.push_back(parseExpression());
    expect(Word::Then, kExpectedThen);
    if (peek().kind == TokenKind::Newline)
        parseBlockIf(*statement);
    else
        parseLineIf(*statement);
    return statement;
}

void Parser::parseBlockIf(Statement& statement) {
    parseBlock(statement.branches.back().body);
    while (isWord(Word::ElseIf)) {
        Branch& branch = addBranch(statement);
        next();
        branch.tests.push_back(parseExpression());
        expect(Word::Then, kExpectedThen);
        parseBlock(branch.body);
    }
    if (isWord(Word::Else)) {
        Branch& branch = addBranch(statement);
        next();
        parseBlock(branch.body);
    }
    expect(Word::End, kExpectedEnd);
    expect(Word::If, kExpectedIf);
}

void Parser::parseLineIf(Statement& statement) {
    if (atStatementEnd() && peek().kind != TokenKind::Colon) fail(kExpectedStatement);
    parseLine(statement.branches.back().body);
    if (isWord(Word::Else)) {
        Branch& branch = addBranch(statement);
        next();
        parseLine(branch.body);
    }
    if (isWord(Word::End) && isWord(Word::If, 1)) {
        next();
        next();
    }
}

std::unique_ptr<Statement> Parser::parseSelect() {
    auto statement = make(StatementKind::Select);
    next();
    expect(Word::Case, kExpectedCase);
    statement->value = parseExpression();
    expectStatementEnd();
    while (peek().kind == TokenKind::Newline || peek().kind == TokenKind::Colon) next();
    while (isWord(Word::Case)) parseCase(*statement);
    if (!isWord(Word::End)) fail(statement->branches.empty() ? kExpectedCase : kExpectedEnd);
    next();
    expect(Word::Select, kExpectedSelect);
    return statement;
}

void Parser::parseCase(Statement& statement) {
    const bool afterElse = !statement.branches.empty() && statement.branches.back().tests.empty();
    if (afterElse) fail(kSyntax);
    Branch& branch = addBranch(statement);
    next();
    if (!accept(Word::Else)) parseArgumentList(branch.tests);
    for (const ExprPtr& test : branch.tests)
        if (test->kind == ExprKind::Missing) fail(kExpectedExpression);
    parseBlock(branch.body);
}

void Parser::parseLoopBody(Statement& statement, int& counter) {
    expectStatementEnd();
    ++counter;
    parseBlock(statement.body);
    --counter;
}

std::unique_ptr<Statement> Parser::parseFor() {
    auto statement = make(StatementKind::For);
    next();
    statement->target = parseName(Use::Target);
    if (isSymbol(u'(') || isSymbol(u'.')) fail(kInvalidForVariable);
    expectSymbol(u'=', kExpectedEqual);
    statement->value = parseExpression();
    expect(Word::To, kExpectedTo);
    statement->limit = parseExpression();
    if (acceptSoftWord(u"step")) statement->step = parseExpression();
    parseLoopBody(*statement, m_loops.forLoops);
    expect(Word::Next, kExpectedNext);
    return statement;
}

std::unique_ptr<Statement> Parser::parseForEach() {
    auto statement = make(StatementKind::ForEach);
    next();
    next();
    statement->target = parseName(Use::Target);
    if (isSymbol(u'(') || isSymbol(u'.')) fail(kInvalidForVariable);
    expect(Word::In, kExpectedIn);
    statement->value = parseExpression();
    parseLoopBody(*statement, m_loops.forLoops);
    expect(Word::Next, kExpectedNext);
    return statement;
}

bool Parser::parseDoTest(Statement& statement) {
    if (!isWord(Word::While) && !isWord(Word::Until)) return false;
    statement.testLine = peek().line;
    statement.until = next().word == Word::Until;
    statement.value = parseExpression();
    return true;
}

std::unique_ptr<Statement> Parser::parseDo() {
    auto statement = make(StatementKind::Do);
    statement->testLine = statement->line;
    next();
    const bool tested = parseDoTest(*statement);
    if (!tested && !atStatementEnd()) fail(kExpectedWhileOrUntil);
    parseLoopBody(*statement, m_loops.doLoops);
    expect(Word::Loop, kExpectedLoop);
    if (!tested) statement->atEnd = parseDoTest(*statement);
    return statement;
}

std::unique_ptr<Statement> Parser::parseWhile() {
    auto statement = make(StatementKind::Do);
    statement->testLine = statement->line;
    next();
    statement->isWhile = true;
    statement->value = parseExpression();
    expectStatementEnd();
    parseBlock(statement->body);
    expect(Word::Wend, kExpectedWend);
    return statement;
}

} // namespace vistor::script
