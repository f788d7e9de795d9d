// Errors of the script language: numbers and words. Inside this library they travel as the exception Fault;
// none leaves it.
#pragma once

#include <string>
#include <string_view>

namespace vistor::script {

enum ErrorNumber : int {
    kInvalidCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscript = 9,
    kArrayLocked = 10,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kOutOfStringSpace = 14,
    kOutOfStack = 28,
    kPermissionDenied = 70,
    kObjectNotSet = 91,
    kLoopNotInitialised = 92,
    kInvalidNull = 94,
    kObjectRequired = 424,
    kCannotCreate = 429,
    kNoSuchMember = 438,
    kNotOptional = 449,
    kWrongArguments = 450,
    kNotACollection = 451,
    kUndefined = 500,
    kIllegalAssignment = 501,
    kClassNotDefined = 506,

    kParserMemory = 1001,
    kSyntax = 1002,
    kExpectedOpen = 1005,
    kExpectedClose = 1006,
    kExpectedBracket = 1007,
    kExpectedIdentifier = 1010,
    kExpectedEqual = 1011,
    kExpectedIf = 1012,
    kExpectedTo = 1013,
    kExpectedEnd = 1014,
    kExpectedFunction = 1015,
    kExpectedSub = 1016,
    kExpectedThen = 1017,
    kExpectedWend = 1018,
    kExpectedLoop = 1019,
    kExpectedNext = 1020,
    kExpectedCase = 1021,
    kExpectedSelect = 1022,
    kExpectedExpression = 1023,
    kExpectedStatement = 1024,
    kExpectedEndOfStatement = 1025,
    kExpectedInteger = 1026,
    kExpectedWhileOrUntil = 1027,
    kIdentifierTooLong = 1030,
    kInvalidNumber = 1031,
    kInvalidCharacter = 1032,
    kUnterminatedText = 1033,
    kLoopWithoutDo = 1038,
    kInvalidExit = 1039,
    kInvalidForVariable = 1040,
    kNameRedefined = 1041,
    kMustBeFirst = 1042,
    kParenthesesOnSub = 1044,
    kExpectedLiteral = 1045,
    kExpectedIn = 1046,
    kUnexpectedNext = 1055,

    kTimedOut = 32001, ///< no number of the language: its host ends the run
};

/// The language's words for an error number; "Unknown runtime error" for any other.
std::u16string errorWords(int number);

/// One error on its way to whoever handles it.
struct Fault {
    int number = 0;
    std::u16string description;
    std::u16string source;
    int line = 0;       ///< set by the parser; while running the machine knows the line
    bool fatal = false; ///< no handler of the script may go on after it
};

/// Throws the error with its own words, followed by ": 'detail'" where a name helps to find it.
[[noreturn]] void raise(int number, std::u16string_view detail = {});

} // namespace vistor::script
