// The parser's inside, shared by its sources: where it stands in the tokens, expressions, statements.
#pragma once

#include "maths/script/Binder.h"
#include "maths/script/Lexer.h"
#include "maths/script/Program.h"

namespace vistor::script {

class Parser {
public:
    Parser(std::u16string_view text, Program& program);

    void parseProgram();
    void bind(std::span<const HostEntry> hosts) { m_binder.bind(hosts); }

private:
    /// Counts how deep blocks and expressions stand in one another.
    class Level {
    public:
        explicit Level(Parser& parser);
        ~Level() { --m_parser.m_depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Parser& m_parser;
    };

    struct Loops {
        int doLoops = 0;
        int forLoops = 0;
    };

    // Where it stands.
    const Token& peek(std::size_t ahead = 0) const;
    const Token& next();
    bool isWord(Word word, std::size_t ahead = 0) const { return peek(ahead).word == word; }
    bool isSymbol(char16_t symbol) const { return peek().symbol == symbol; }
    /// A word that is one only in its place and otherwise an ordinary name.
    bool isSoftWord(std::u16string_view lower, std::size_t ahead = 0) const;
    bool accept(Word word);
    bool acceptSymbol(char16_t symbol);
    bool acceptSoftWord(std::u16string_view lower);
    void expect(Word word, int error);
    void expectSymbol(char16_t symbol, int error);
    bool atStatementEnd() const;
    void expectStatementEnd();
    [[noreturn]] void fail(int number) const;
    [[noreturn]] static void failAt(int number, int line);

    // Expressions.
    ExprPtr parseExpression(int least = 0);
    ExprPtr parseOperand();
    ExprPtr parsePrefixed(Operator op, int least);
    ExprPtr parsePrimary();
    ExprPtr parseWordValue();
    ExprPtr parseParenthesised();
    ExprPtr parseNew();
    ExprPtr parseSuffixes(ExprPtr expr);
    ExprPtr parseMember(ExprPtr object);
    ExprPtr parseName(Use how);
    void parseArguments(Expr& call);
    void parseArgumentList(std::vector<ExprPtr>& list);
    std::u16string expectName();
    static ExprPtr makeBinary(Operator op, ExprPtr left, ExprPtr right);
    static void limitDepth(Expr& expr, const Expr* left, const Expr* right);

    // Statements.
    void parseBlock(Block& block);
    bool atBlockEnd() const;
    void parseStatement(Block& block);
    bool parseDeclaration(Block& block);
    void parseOptionExplicit();
    std::unique_ptr<Statement> parseKeywordStatement();
    std::unique_ptr<Statement> parseNameStatement();
    Use calleeUse() const;
    std::unique_ptr<Statement> parseBareCall();
    std::unique_ptr<Statement> parseAssignment(StatementKind kind);
    std::unique_ptr<Statement> parseCall();
    std::unique_ptr<Statement> parseReDim();
    std::unique_ptr<Statement> parseErase();
    std::unique_ptr<Statement> parseExit();
    std::unique_ptr<Statement> parseOnError();
    std::unique_ptr<Statement> parseIf();
    void parseBlockIf(Statement& statement);
    void parseLineIf(Statement& statement);
    void parseLine(Block& block);
    std::unique_ptr<Statement> parseSelect();
    void parseCase(Statement& statement);
    std::unique_ptr<Statement> parseFor();
    std::unique_ptr<Statement> parseForEach();
    void parseLoopBody(Statement& statement, int& counter);
    std::unique_ptr<Statement> parseDo();
    std::unique_ptr<Statement> parseWhile();
    bool parseDoTest(Statement& statement);
    std::unique_ptr<Statement> make(StatementKind kind) const;
    Branch& addBranch(Statement& statement) const;

    // Declarations.
    void parseDim();
    void parseConst();
    Value parseConstant();
    std::vector<std::int32_t> parseBounds();
    void parseProcedure();
    void parseParameters(Procedure& procedure);

    std::vector<Token> m_tokens;
    std::size_t m_pos = 0;
    int m_depth = 0;
    Loops m_loops;
    Program& m_program;
    Binder m_binder;
    Procedure* m_procedure; ///< in which the parser stands
    bool m_inProcedure = false;
    bool m_started = false; ///< a statement was seen: too late for Option Explicit
    int m_blockDepth = 0;
};

} // namespace vistor::script
