// Cuts a script's text into tokens. In: text. Out: tokens, the last of which is End; or a Fault with its
// line.
#pragma once

#include "maths/script/Value.h"

#include <string_view>
#include <vector>

namespace vistor::script {

enum class TokenKind : std::uint8_t { End, Newline, Colon, Name, Number, Text, Symbol, Keyword };

enum class Word : std::uint8_t {
    None,
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    End,
    Eqv,
    Exit,
    False,
    For,
    Function,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Private,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    Wend,
    While,
    With,
    Xor,
};

/// Symbols of two characters.
inline constexpr char16_t kLessOrEqualSign = 0x2264;
inline constexpr char16_t kGreaterOrEqualSign = 0x2265;
inline constexpr char16_t kNotEqualSign = 0x2260;

struct Token {
    TokenKind kind = TokenKind::End;
    Word word = Word::None;
    char16_t symbol = 0;
    int line = 1;
    std::u16string_view spelling; ///< of a name, in the script's text
    Value value;                  ///< of a number or text
};

/// The text must stay where it is as long as the tokens are in use.
std::vector<Token> tokenise(std::u16string_view text);

} // namespace vistor::script
