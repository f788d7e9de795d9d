// Expressions, by the strength of their operators.
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/ParserCore.h"

#include <algorithm>

namespace vistor::script {
namespace {

constexpr int kNotStrength = 6;
constexpr int kSignStrength = 15;           ///< above the power: -2 ^ 2 is 4
constexpr std::uint16_t kDeepestTree = 500; ///< also of a long chain, which leans to the left

struct OperatorRow {
    char16_t symbol;
    Word word;
    Operator op;
    int strength;
};

constexpr OperatorRow kOperators[] = {
    {0, Word::Imp, Operator::Imp, 1},
    {0, Word::Eqv, Operator::Eqv, 2},
    {0, Word::Xor, Operator::Xor, 3},
    {0, Word::Or, Operator::Or, 4},
    {0, Word::And, Operator::And, 5},
    {u'=', Word::None, Operator::Equal, 7},
    {kNotEqualSign, Word::None, Operator::NotEqual, 7},
    {u'<', Word::None, Operator::Less, 7},
    {u'>', Word::None, Operator::Greater, 7},
    {kLessOrEqualSign, Word::None, Operator::LessOrEqual, 7},
    {kGreaterOrEqualSign, Word::None, Operator::GreaterOrEqual, 7},
    {0, Word::Is, Operator::Is, 7},
    {u'&', Word::None, Operator::Concatenate, 8},
    {u'+', Word::None, Operator::Add, 9},
    {u'-', Word::None, Operator::Subtract, 9},
    {0, Word::Mod, Operator::Modulo, 10},
    {u'\\', Word::None, Operator::IntegerDivide, 11},
    {u'*', Word::None, Operator::Multiply, 12},
    {u'/', Word::None, Operator::Divide, 12},
    {u'^', Word::None, Operator::Power, 14},
};

const OperatorRow* operatorOf(const Token& token) {
    if (token.kind != TokenKind::Symbol && token.kind != TokenKind::Keyword) return nullptr;
    const auto* found =
        std::find_if(std::begin(kOperators), std::end(kOperators), [&](const OperatorRow& row) {
            return row.symbol == token.symbol && row.word == token.word;
        });
    return found == std::end(kOperators) ? nullptr : found;
}

ExprPtr makeLiteral(Value value) {
    auto expr = std::make_unique<Expr>(ExprKind::Literal);
    expr->value = std::move(value);
    return expr;
}

bool isLiteral(const Expr& expr, bool text) {
    return expr.kind == ExprKind::Literal && expr.value.is(Kind::Text) == text &&
           (text || (expr.value.kind() >= Kind::Byte && expr.value.kind() <= Kind::Currency));
}

} // namespace

void Parser::limitDepth(Expr& expr, const Expr* left, const Expr* right) {
    const int deepest = std::max<int>(left ? left->depth : 0, right ? right->depth : 0);
    if (deepest >= kDeepestTree) raise(kOutOfStack);
    expr.depth = std::max(expr.depth, static_cast<std::uint16_t>(deepest + 1));
}

ExprPtr Parser::makeBinary(Operator op, ExprPtr left, ExprPtr right) {
    auto expr = std::make_unique<Expr>(ExprKind::Binary);
    limitDepth(*expr, left.get(), right.get());
    expr->op = op;
    expr->literals = static_cast<std::uint8_t>(
        (isLiteral(*left, false) ? kLeftNumber : 0) | (isLiteral(*right, false) ? kRightNumber : 0) |
        (isLiteral(*left, true) ? kLeftText : 0) | (isLiteral(*right, true) ? kRightText : 0));
    expr->left = std::move(left);
    expr->right = std::move(right);
    return expr;
}

ExprPtr Parser::parseExpression(int least) {
    const Level level(*this);
    ExprPtr left = parseOperand();
    for (;;) {
        const OperatorRow* row = operatorOf(peek());
        if (!row || row->strength < least) return left;
        next();
        left = makeBinary(row->op, std::move(left), parseExpression(row->strength + 1));
    }
}

ExprPtr Parser::parseOperand() {
    if (isWord(Word::Not)) return parsePrefixed(Operator::Not, kNotStrength);
    if (isSymbol(u'-')) return parsePrefixed(Operator::Negate, kSignStrength);
    if (isSymbol(u'+')) return parsePrefixed(Operator::Plus, kSignStrength);
    return parseSuffixes(parsePrimary());
}

ExprPtr Parser::parsePrefixed(Operator op, int least) {
    next();
    ExprPtr operand = parseExpression(least);
    if (op != Operator::Not && isLiteral(*operand, false)) {
        operand->value = applyUnary(op, operand->value);
        return operand;
    }
    auto expr = std::make_unique<Expr>(ExprKind::Unary);
    limitDepth(*expr, operand.get(), nullptr);
    expr->op = op;
    expr->left = std::move(operand);
    return expr;
}

ExprPtr Parser::parsePrimary() {
    switch (peek().kind) {
    case TokenKind::Number:
    case TokenKind::Text:
        return makeLiteral(next().value);
    case TokenKind::Name:
        return parseName(Use::Read);
    case TokenKind::Keyword:
        return parseWordValue();
    default:
        if (isSymbol(u'(')) return parseParenthesised();
        fail(kExpectedExpression);
    }
}

ExprPtr Parser::parseWordValue() {
    if (accept(Word::True)) return makeLiteral(Value::boolean(true));
    if (accept(Word::False)) return makeLiteral(Value::boolean(false));
    if (accept(Word::Empty)) return makeLiteral(Value());
    if (accept(Word::Null)) return makeLiteral(Value::null());
    if (accept(Word::Nothing)) return makeLiteral(Value::object(nullptr));
    if (isWord(Word::New)) return parseNew();
    fail(atBlockEnd() ? kExpectedExpression : kSyntax);
}

ExprPtr Parser::parseParenthesised() {
    next();
    auto expr = std::make_unique<Expr>(ExprKind::Parenthesised);
    expr->left = parseExpression();
    limitDepth(*expr, expr->left.get(), nullptr);
    expectSymbol(u')', kExpectedClose);
    return expr;
}

ExprPtr Parser::parseNew() {
    next();
    auto expr = std::make_unique<Expr>(ExprKind::New);
    expr->spelling = std::u16string(peek().spelling);
    expectName();
    return expr;
}

std::u16string Parser::expectName() {
    if (peek().kind != TokenKind::Name) fail(kExpectedIdentifier);
    return lowered(next().spelling);
}

ExprPtr Parser::parseName(Use how) {
    auto expr = std::make_unique<Expr>(ExprKind::Name);
    expr->spelling = std::u16string(peek().spelling);
    expr->name = expectName();
    m_binder.use(expr.get(), how);
    return expr;
}

ExprPtr Parser::parseSuffixes(ExprPtr expr) {
    for (;;) {
        if (acceptSymbol(u'.')) {
            expr = parseMember(std::move(expr));
        } else if (isSymbol(u'(')) {
            const bool takesThem = expr->kind == ExprKind::Name || expr->kind == ExprKind::Member;
            if (!takesThem || expr->hasArguments) {
                auto index = std::make_unique<Expr>(ExprKind::Index);
                limitDepth(*index, expr.get(), nullptr);
                index->left = std::move(expr);
                expr = std::move(index);
            }
            parseArguments(*expr);
        } else {
            return expr;
        }
    }
}

ExprPtr Parser::parseMember(ExprPtr object) {
    auto expr = std::make_unique<Expr>(ExprKind::Member);
    limitDepth(*expr, object.get(), nullptr);
    expr->left = std::move(object);
    expr->spelling = std::u16string(peek().spelling);
    expr->name = expectName();
    return expr;
}

void Parser::parseArguments(Expr& call) {
    next();
    call.hasArguments = true;
    if (acceptSymbol(u')')) return;
    parseArgumentList(call.arguments);
    for (const ExprPtr& argument : call.arguments) limitDepth(call, argument.get(), call.left.get());
    expectSymbol(u')', kExpectedClose);
}

void Parser::parseArgumentList(std::vector<ExprPtr>& list) {
    do {
        const bool leftOut = isSymbol(u',') || (isSymbol(u')') && !list.empty());
        list.push_back(leftOut ? std::make_unique<Expr>(ExprKind::Missing) : parseExpression());
    } while (acceptSymbol(u','));
}

} // namespace vistor::script
