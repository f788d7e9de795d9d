#include "maths/script/Parser.h"

#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/ParserCore.h"

#include <algorithm>

namespace vistor::script {
namespace {

constexpr int kDeepest = 300; ///< blocks and parentheses in one another

} // namespace

std::shared_ptr<const Program> parse(std::u16string_view text, std::span<const HostEntry> hosts) {
    if (text.size() > kLongestScript) throw Fault{kParserMemory, errorWords(kParserMemory), {}, 1, false};
    auto program = std::make_shared<Program>();
    Parser parser(text, *program);
    parser.parseProgram();
    parser.bind(hosts);
    return program;
}

Parser::Parser(std::u16string_view text, Program& program)
    : m_tokens(tokenise(text)), m_program(program), m_binder(program), m_procedure(&program.main) {}

Parser::Level::Level(Parser& parser) : m_parser(parser) {
    if (parser.m_depth >= kDeepest) parser.fail(kOutOfStack);
    ++parser.m_depth;
}

const Token& Parser::peek(std::size_t ahead) const {
    return m_tokens[std::min(m_pos + ahead, m_tokens.size() - 1)];
}

const Token& Parser::next() {
    const Token& token = peek();
    if (m_pos + 1 < m_tokens.size()) ++m_pos;
    return token;
}

bool Parser::isSoftWord(std::u16string_view lower, std::size_t ahead) const {
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Name && token.spelling.size() == lower.size() &&
           lowered(token.spelling) == lower;
}

bool Parser::accept(Word word) {
    if (!isWord(word)) return false;
    next();
    return true;
}

bool Parser::acceptSymbol(char16_t symbol) {
    if (!isSymbol(symbol)) return false;
    next();
    return true;
}

bool Parser::acceptSoftWord(std::u16string_view lower) {
    if (!isSoftWord(lower)) return false;
    next();
    return true;
}

void Parser::expect(Word word, int error) {
    if (!accept(word)) fail(error);
}

void Parser::expectSymbol(char16_t symbol, int error) {
    if (!acceptSymbol(symbol)) fail(error);
}

bool Parser::atStatementEnd() const {
    const TokenKind kind = peek().kind;
    return kind == TokenKind::End || kind == TokenKind::Newline || kind == TokenKind::Colon ||
           isWord(Word::Else) || isWord(Word::End);
}

void Parser::expectStatementEnd() {
    if (!atStatementEnd()) fail(kExpectedEndOfStatement);
}

void Parser::fail(int number) const {
    failAt(number, peek().line);
}

void Parser::failAt(int number, int line) {
    throw Fault{number, errorWords(number), {}, line, false};
}

std::unique_ptr<Statement> Parser::make(StatementKind kind) const {
    auto statement = std::make_unique<Statement>();
    statement->kind = kind;
    statement->line = peek().line;
    return statement;
}

void Parser::parseProgram() {
    try {
        parseBlock(m_program.main.body);
    } catch (Fault& fault) {
        if (fault.line == 0) fault.line = peek().line; // from the binder, which knows no lines
        throw;
    }
    if (isWord(Word::Loop)) fail(kLoopWithoutDo);
    if (isWord(Word::Next)) fail(kUnexpectedNext);
    if (peek().kind != TokenKind::End) fail(kExpectedStatement);
}

bool Parser::atBlockEnd() const {
    switch (peek().word) {
    case Word::End:
    case Word::Else:
    case Word::ElseIf:
    case Word::Case:
    case Word::Next:
    case Word::Loop:
    case Word::Wend:
        return true;
    default:
        return peek().kind == TokenKind::End;
    }
}

void Parser::parseBlock(Block& block) {
    const Level level(*this);
    ++m_blockDepth;
    for (;;) {
        while (peek().kind == TokenKind::Newline || peek().kind == TokenKind::Colon) next();
        if (atBlockEnd()) break;
        parseStatement(block);
        if (!atStatementEnd() && !atBlockEnd()) fail(kExpectedEndOfStatement);
    }
    --m_blockDepth;
}

/// The statements of one line, as they follow Then and Else.
void Parser::parseLine(Block& block) {
    const Level level(*this);
    ++m_blockDepth;
    while (peek().kind != TokenKind::Newline && !atBlockEnd()) {
        if (peek().kind == TokenKind::Colon) {
            next();
            continue;
        }
        parseStatement(block);
        expectStatementEnd();
    }
    --m_blockDepth;
}

void Parser::parseStatement(Block& block) {
    if (isWord(Word::Option)) return parseOptionExplicit();
    m_started = true;
    if (parseDeclaration(block)) return;
    const TokenKind kind = peek().kind;
    if (kind == TokenKind::Name)
        block.push_back(parseNameStatement());
    else if (kind != TokenKind::Keyword)
        fail(kind == TokenKind::Symbol || kind == TokenKind::Colon ? kSyntax : kExpectedStatement);
    else if (!accept(Word::Stop)) // stops a debugger, and there is none
        block.push_back(parseKeywordStatement());
}

bool Parser::parseDeclaration(Block&) {
    const bool visibility = isWord(Word::Public) || isWord(Word::Private);
    if (visibility) next();
    if (visibility && isSoftWord(u"default")) next();
    if (isWord(Word::Function) || isWord(Word::Sub))
        parseProcedure();
    else if (isWord(Word::Const))
        parseConst();
    else if (isWord(Word::Dim) || visibility)
        parseDim();
    else
        return false;
    return true;
}

void Parser::parseOptionExplicit() {
    if (m_started) fail(kExpectedStatement);
    next();
    if (!acceptSoftWord(u"explicit")) fail(kSyntax);
    m_binder.requireDeclarations();
}

std::unique_ptr<Statement> Parser::parseKeywordStatement() {
    switch (peek().word) {
    case Word::If:
        return parseIf();
    case Word::Select:
        return parseSelect();
    case Word::For:
        return isWord(Word::Each, 1) ? parseForEach() : parseFor();
    case Word::Do:
        return parseDo();
    case Word::While:
        return parseWhile();
    case Word::Exit:
        return parseExit();
    case Word::On:
        return parseOnError();
    case Word::ReDim:
        return parseReDim();
    case Word::Call:
        return parseCall();
    case Word::Set:
        return parseAssignment(StatementKind::Set);
    case Word::Let:
        return parseAssignment(StatementKind::Assign);
    case Word::Class:
    case Word::With:
    case Word::Resume:
    case Word::GoTo:
        fail(kSyntax);
    default:
        fail(kExpectedStatement);
    }
}

} // namespace vistor::script
