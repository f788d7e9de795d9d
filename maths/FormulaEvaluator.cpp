#include "maths/FormulaEvaluator.h"

#include <cctype>
#include <cmath>
#include <cstring>
#include <deque>
#include <map>
#include <muParser.h>
#include <random>
#include <string>

namespace vistor {
namespace {

double sum(const double* values, int count) {
    double total = 0;
    for (int i = 0; i < count; ++i) total += values[i];
    return total;
}

double smallest(const double* values, int count) {
    double least = values[0];
    for (int i = 1; i < count; ++i) least = std::fmin(least, values[i]);
    return least;
}

double greatest(const double* values, int count) {
    double most = values[0];
    for (int i = 1; i < count; ++i) most = std::fmax(most, values[i]);
    return most;
}

double sign(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}
double square(double x) {
    return x * x;
}
double cotangent(double x) {
    return 1 / std::tan(x);
}
double logToBase(double base, double x) {
    return std::log(x) / std::log(base);
}
double integralPower(double base, double power) {
    return std::pow(base, std::trunc(power));
}
double power(double base, double exponent) {
    return std::pow(base, exponent);
}
double choose(double condition, double first, double second) {
    return condition != 0 ? first : second;
}

double randomNumber() {
    static std::mt19937_64 engine{std::random_device{}()};
    return std::uniform_real_distribution<double>(0, 1)(engine);
}

struct OneArgument {
    const char* name;
    double (*function)(double);
};

constexpr OneArgument kOneArgument[] = {{"SQR", square},
                                        {"SIN", [](double x) { return std::sin(x); }},
                                        {"COS", [](double x) { return std::cos(x); }},
                                        {"TAN", [](double x) { return std::tan(x); }},
                                        {"ATAN", [](double x) { return std::atan(x); }},
                                        {"SINH", [](double x) { return std::sinh(x); }},
                                        {"COSH", [](double x) { return std::cosh(x); }},
                                        {"COTAN", cotangent},
                                        {"EXP", [](double x) { return std::exp(x); }},
                                        {"LN", [](double x) { return std::log(x); }},
                                        {"LOG", [](double x) { return std::log10(x); }},
                                        {"SQRT", [](double x) { return std::sqrt(x); }},
                                        {"ABS", [](double x) { return std::fabs(x); }},
                                        {"SIGN", sign},
                                        {"TRUNC", [](double x) { return std::trunc(x); }},
                                        {"CEIL", [](double x) { return std::ceil(x); }},
                                        {"FLOOR", [](double x) { return std::floor(x); }}};

struct TwoArguments {
    const char* name;
    double (*function)(double, double);
};

constexpr TwoArguments kTwoArguments[] = {{"INTPOW", integralPower}, {"POW", power}, {"LOGN", logToBase}};

struct ManyArguments {
    const char* name;
    double (*function)(const double*, int);
};

constexpr ManyArguments kManyArguments[] = {{"MIN", smallest}, {"MAX", greatest}, {"SUM", sum}};

constexpr const char* kBlanks = " \t\r\n";

bool isPartOfName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

/// The parser wants a function's bracket right behind its name.
std::string withoutGapBeforeBrackets(const std::string& text) {
    std::string result;
    for (const char character : text) {
        if (character == '(') {
            const std::size_t last = result.find_last_not_of(kBlanks);
            if (last != std::string::npos && isPartOfName(result[last])) result.resize(last + 1);
        }
        result += character;
    }
    return result;
}

/// The parser takes one sign before an operand: of several ("x - - -1", "--x") a minus is left where minuses
/// are odd in number, else a blank. Behind an operand a sign is an operator and stands.
std::string withOneSign(std::string text) {
    bool behindOperand = false;
    char* sign = nullptr; // before the operand to come
    for (char& character : text) {
        if (std::strchr(kBlanks, character)) continue;
        if (behindOperand || (character != '+' && character != '-')) {
            behindOperand = isPartOfName(character) || character == '.' || character == ')';
            sign = nullptr;
            continue;
        }
        const bool minus = (character == '-') != (sign && *sign == '-');
        if (sign)
            character = ' ';
        else
            sign = &character;
        *sign = minus ? '-' : ' ';
    }
    return text;
}

/// The text in the parser's own terms.
std::string normalised(const QString& text) {
    std::string result;
    const QByteArray upper = text.toUpper().toUtf8();
    for (qsizetype i = 0; i < upper.size(); ++i) {
        const char character = upper[i];
        const char next = i + 1 < upper.size() ? upper[i + 1] : '\0';
        if (character == '{' || (character == '}' && next != '('))
            result += ' '; // parts what stands beside it
        if (character == '{' || character == '}') continue;
        if (character == '<' && next == '>') {
            result += "!=";
            ++i;
        } else if ((character == '<' || character == '>' || character == '!' || character == '=') &&
                   next == '=') {
            result += character;
            result += '=';
            ++i;
        } else {
            result += character == '=' ? std::string("==") : std::string(1, character);
        }
    }
    return withOneSign(withoutGapBeforeBrackets(result));
}

} // namespace

/// Variables lie in a deque so that their addresses, which the compiled code holds, never change.
struct FormulaEvaluator::Parser {
    bool compiled = false; ///< the text was compiled, well or not, and nothing was defined since
    bool good = false;     ///< and gives one result
    mu::Parser engine;
    std::deque<double> values;
    std::map<std::string, double*> names;
    mu::varmap_type used;

    Parser() {
        engine.ClearFun();
        engine.ClearConst();
        for (const auto& [name, function] : kOneArgument) engine.DefineFun(name, function);
        for (const auto& [name, function] : kTwoArguments) engine.DefineFun(name, function);
        for (const auto& [name, function] : kManyArguments) engine.DefineFun(name, function);
        engine.DefineFun("IF", choose);
        engine.DefineFun("RND", randomNumber, false);
    }

    double* define(const std::string& name) {
        const auto known = names.find(name);
        if (known != names.end()) return known->second;
        values.push_back(0);
        try {
            engine.DefineVar(name, &values.back());
        } catch (const mu::ParserError&) { // not a name, or a function's
            values.pop_back();
            return nullptr;
        }
        compiled = false;
        return names[name] = &values.back();
    }
};

FormulaEvaluator::FormulaEvaluator() = default;
FormulaEvaluator::~FormulaEvaluator() = default;

FormulaEvaluator::Parser& FormulaEvaluator::parser() {
    if (!m_parser) m_parser = std::make_unique<Parser>();
    return *m_parser;
}

void FormulaEvaluator::Expression(const QString& text) {
    if (text.constData() == m_text.constData() && text.size() == m_text.size()) return;
    if (text != m_text && m_parser) m_parser->compiled = false;
    m_text = text;
}

bool FormulaEvaluator::compile() {
    Parser& the = parser();
    if (the.compiled) return the.good;
    the.compiled = true;
    the.good = false;
    the.used.clear();
    try {
        the.engine.SetExpr(normalised(m_text));
        the.used = the.engine.GetUsedVar();
        the.engine.Eval(); // the first evaluation compiles; later ones run the code
        the.good = the.engine.GetNumResults() == 1;
    } catch (const mu::ParserError&) {
    }
    return the.good;
}

bool FormulaEvaluator::compiles() {
    return m_parser && m_parser->compiled ? m_parser->good : compile();
}

bool FormulaEvaluator::Value(double& value) {
    if (!compiles()) return false;
    try {
        const double result = m_parser->engine.Eval();
        if (!std::isfinite(result)) return false;
        value = result;
        return true;
    } catch (const mu::ParserError&) {
        return false;
    }
}

double* FormulaEvaluator::variable(const QString& name) {
    return parser().define(name.toUpper().toStdString());
}

void FormulaEvaluator::SetVariable(const QString& name, double value) {
    if (double* place = variable(name)) *place = value;
}

void FormulaEvaluator::VariableUsed(const QString& name, bool& used) {
    compile();
    used = m_parser->used.count(name.toUpper().toStdString()) > 0;
}

void FormulaEvaluator::Reset() {
    m_text.clear();
    m_parser.reset();
}

} // namespace vistor
