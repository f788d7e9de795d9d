#include "maths/script/Lexer.h"

#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vistor::script {
namespace {

constexpr std::size_t kLongestName = 255;

struct Keyword {
    std::u16string_view text;
    Word word;
};

constexpr Keyword kKeywords[] = {
    {u"and", Word::And},
    {u"byref", Word::ByRef},
    {u"byval", Word::ByVal},
    {u"call", Word::Call},
    {u"case", Word::Case},
    {u"class", Word::Class},
    {u"const", Word::Const},
    {u"dim", Word::Dim},
    {u"do", Word::Do},
    {u"each", Word::Each},
    {u"else", Word::Else},
    {u"elseif", Word::ElseIf},
    {u"empty", Word::Empty},
    {u"end", Word::End},
    {u"eqv", Word::Eqv},
    {u"exit", Word::Exit},
    {u"false", Word::False},
    {u"for", Word::For},
    {u"function", Word::Function},
    {u"goto", Word::GoTo},
    {u"if", Word::If},
    {u"imp", Word::Imp},
    {u"in", Word::In},
    {u"is", Word::Is},
    {u"let", Word::Let},
    {u"loop", Word::Loop},
    {u"mod", Word::Mod},
    {u"new", Word::New},
    {u"next", Word::Next},
    {u"not", Word::Not},
    {u"nothing", Word::Nothing},
    {u"null", Word::Null},
    {u"on", Word::On},
    {u"option", Word::Option},
    {u"or", Word::Or},
    {u"private", Word::Private},
    {u"public", Word::Public},
    {u"redim", Word::ReDim},
    {u"rem", Word::Rem},
    {u"resume", Word::Resume},
    {u"select", Word::Select},
    {u"set", Word::Set},
    {u"stop", Word::Stop},
    {u"sub", Word::Sub},
    {u"then", Word::Then},
    {u"to", Word::To},
    {u"true", Word::True},
    {u"until", Word::Until},
    {u"wend", Word::Wend},
    {u"while", Word::While},
    {u"with", Word::With},
    {u"xor", Word::Xor},
};

Word wordOf(std::u16string_view spelling) {
    if (spelling.size() > 8) return Word::None;
    const std::u16string lower = lowered(spelling);
    const auto* found =
        std::lower_bound(std::begin(kKeywords), std::end(kKeywords), lower,
                         [](const Keyword& row, const auto& name) { return row.text < name; });
    return found != std::end(kKeywords) && found->text == lower ? found->word : Word::None;
}

bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool isNamePart(char16_t c) {
    return isLetter(c) || isDigit(c) || c == u'_';
}

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f' || c == 0xA0;
}

bool isLineEnd(char16_t c) {
    return c == u'\n' || c == u'\r';
}

int digitOf(char16_t c) {
    if (isDigit(c)) return c - u'0';
    const char16_t lower = lowerOf(c);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 99;
}

class Lexer {
public:
    explicit Lexer(std::u16string_view text) : m_text(text) {}

    std::vector<Token> run() {
        while (readToken()) {
        }
        add(TokenKind::End);
        return std::move(m_tokens);
    }

private:
    char16_t at(std::size_t ahead = 0) const {
        return m_pos + ahead < m_text.size() ? m_text[m_pos + ahead] : u'\0';
    }
    bool done() const { return m_pos >= m_text.size(); }

    [[noreturn]] void fail(int number) const { throw Fault{number, errorWords(number), {}, m_line, false}; }

    Token& add(TokenKind kind) {
        m_tokens.emplace_back();
        m_tokens.back().kind = kind;
        m_tokens.back().line = m_line;
        return m_tokens.back();
    }

    bool readToken() {
        skipBlanks();
        if (done()) return false;
        const char16_t c = at();
        if (isLineEnd(c))
            readLineEnd();
        else if (c == u'\'')
            skipComment();
        else if (isLetter(c))
            readName();
        else if (isDigit(c) || (c == u'.' && isDigit(at(1))))
            readNumber();
        else if (c == u'"')
            readText();
        else if (c == u'[')
            readBracketedName();
        else if (!readRadixNumber())
            readSymbol();
        return true;
    }

    void skipBlanks() {
        while (!done()) {
            if (isBlank(at()))
                ++m_pos;
            else if (!skipContinuation())
                return;
        }
    }

    /// "_" after a blank and before the end of the line joins the next line to this one.
    bool skipContinuation() {
        if (at() != u'_') return false;
        std::size_t ahead = 1;
        while (isBlank(at(ahead))) ++ahead;
        if (m_pos + ahead < m_text.size() && !isLineEnd(at(ahead))) return false;
        m_pos = std::min(m_pos + ahead, m_text.size());
        if (!done()) passLineEnd();
        return true;
    }

    void passLineEnd() {
        m_pos += at() == u'\r' && at(1) == u'\n' ? 2 : 1;
        ++m_line;
    }

    void readLineEnd() {
        add(TokenKind::Newline);
        passLineEnd();
    }

    void skipComment() {
        while (!done() && !isLineEnd(at())) ++m_pos;
    }

    bool atStatementStart() const {
        if (m_tokens.empty()) return true;
        const Token& last = m_tokens.back();
        return last.kind == TokenKind::Newline || last.kind == TokenKind::Colon || last.word == Word::Then ||
               last.word == Word::Else;
    }

    bool afterDot() const { return !m_tokens.empty() && m_tokens.back().symbol == u'.'; }

    void readName() {
        const std::size_t start = m_pos;
        while (isNamePart(at())) ++m_pos;
        const std::u16string_view spelling = m_text.substr(start, m_pos - start);
        if (spelling.size() > kLongestName) fail(kIdentifierTooLong);
        const Word word = afterDot() ? Word::None : wordOf(spelling);
        if (word == Word::Rem && atStatementStart()) return skipComment();
        Token& token = add(word == Word::None ? TokenKind::Name : TokenKind::Keyword);
        token.word = word;
        token.spelling = spelling;
    }

    void readBracketedName() {
        const std::size_t end = m_text.find_first_of(u"]\r\n", m_pos);
        if (end == std::u16string_view::npos || m_text[end] != u']') fail(kExpectedBracket);
        if (end - m_pos > kLongestName) fail(kIdentifierTooLong);
        add(TokenKind::Name).spelling = m_text.substr(m_pos + 1, end - m_pos - 1);
        m_pos = end + 1;
    }

    void skipDigits() {
        while (isDigit(at())) ++m_pos;
    }

    void readNumber() {
        const std::size_t start = m_pos;
        skipDigits();
        const bool whole = at() != u'.' && lowerOf(at()) != u'e';
        if (at() == u'.') ++m_pos;
        skipDigits();
        if (lowerOf(at()) == u'e') {
            ++m_pos;
            if (at() == u'+' || at() == u'-') ++m_pos;
            if (!isDigit(at())) fail(kInvalidNumber);
            skipDigits();
        }
        const std::optional<double> number = parseNumber(m_text.substr(start, m_pos - start));
        if (!number || std::isinf(*number)) fail(kInvalidNumber);
        add(TokenKind::Number).value = literalOf(*number, whole);
    }

    static Value literalOf(double number, bool whole) {
        if (whole && number <= 32767) return Value::integer(static_cast<std::int32_t>(number));
        if (whole && number <= std::numeric_limits<std::int32_t>::max())
            return Value::longer(static_cast<std::int32_t>(number));
        return Value::number(number);
    }

    /// "&H" or "&O" and digits: 16 bits where they suffice and no "&" follows, else 32.
    bool readRadixNumber() {
        const char16_t letter = lowerOf(at(1));
        const int radix = letter == u'h' ? 16 : letter == u'o' ? 8 : 0;
        if (at() != u'&' || radix == 0 || digitOf(at(2)) >= radix) return false;
        m_pos += 2;
        std::uint64_t bits = 0;
        for (; digitOf(at()) < radix; ++m_pos) {
            bits = bits * static_cast<unsigned>(radix) + static_cast<unsigned>(digitOf(at()));
            if (bits > 0xFFFFFFFF) fail(kInvalidNumber);
        }
        const bool wide = at() == u'&' || bits > 0xFFFF;
        if (at() == u'&') ++m_pos;
        add(TokenKind::Number).value = wide ? Value::longer(static_cast<std::int32_t>(bits))
                                            : Value::integer(static_cast<std::int16_t>(bits));
        return true;
    }

    void readText() {
        std::u16string characters;
        for (++m_pos;; ++m_pos) {
            if (done() || isLineEnd(at())) fail(kUnterminatedText);
            if (at() == u'"' && at(1) != u'"') break;
            if (at() == u'"') ++m_pos;
            characters += at();
        }
        ++m_pos;
        add(TokenKind::Text).value = Value::literal(std::move(characters));
    }

    void readSymbol() {
        const char16_t c = at();
        if (c == u':') {
            add(TokenKind::Colon);
        } else {
            static constexpr std::u16string_view kSymbols = u"()=<>+-*/\\^&,.";
            if (c == 0 || kSymbols.find(c) == std::u16string_view::npos) fail(kInvalidCharacter);
            add(TokenKind::Symbol).symbol = comparisonSign(c);
        }
        ++m_pos;
    }

    /// "<=", "=<", "<>" and their like become one sign; stands on its last character afterwards.
    char16_t comparisonSign(char16_t first) {
        const char16_t second = at(1);
        char16_t both = 0;
        if ((first == u'<' && second == u'=') || (first == u'=' && second == u'<')) both = kLessOrEqualSign;
        if ((first == u'>' && second == u'=') || (first == u'=' && second == u'>'))
            both = kGreaterOrEqualSign;
        if ((first == u'<' && second == u'>') || (first == u'>' && second == u'<')) both = kNotEqualSign;
        if (both == 0) return first;
        ++m_pos;
        return both;
    }

    std::u16string_view m_text;
    std::size_t m_pos = 0;
    int m_line = 1;
    std::vector<Token> m_tokens;
};

} // namespace

std::vector<Token> tokenise(std::u16string_view text) {
    return Lexer(text).run();
}

} // namespace vistor::script
