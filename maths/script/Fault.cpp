#include "maths/script/Fault.h"

#include <algorithm>
#include <iterator>

namespace vistor::script {
namespace {

struct Words {
    int number;
    std::u16string_view words;
};

constexpr Words kWords[] = {
    {kInvalidCall, u"Invalid procedure call or argument"},
    {kOverflow, u"Overflow"},
    {kOutOfMemory, u"Out of memory"},
    {kSubscript, u"Subscript out of range"},
    {kArrayLocked, u"This array is fixed or temporarily locked"},
    {kDivisionByZero, u"Division by zero"},
    {kTypeMismatch, u"Type mismatch"},
    {kOutOfStringSpace, u"Out of string space"},
    {17, u"Can't perform requested operation"},
    {kOutOfStack, u"Out of stack space"},
    {35, u"Sub or Function not defined"},
    {48, u"Error in loading DLL"},
    {51, u"Internal error"},
    {52, u"Bad file name or number"},
    {53, u"File not found"},
    {54, u"Bad file mode"},
    {55, u"File already open"},
    {57, u"Device I/O error"},
    {58, u"File already exists"},
    {61, u"Disk full"},
    {62, u"Input past end of file"},
    {67, u"Too many files"},
    {68, u"Device unavailable"},
    {kPermissionDenied, u"Permission denied"},
    {71, u"Disk not ready"},
    {74, u"Can't rename with different drive"},
    {75, u"Path/File access error"},
    {76, u"Path not found"},
    {kObjectNotSet, u"Object variable not set"},
    {kLoopNotInitialised, u"For loop not initialized"},
    {kInvalidNull, u"Invalid use of Null"},
    {322, u"Can't create necessary temporary file"},
    {kObjectRequired, u"Object required"},
    {kCannotCreate, u"ActiveX component can't create object"},
    {430, u"Class doesn't support Automation"},
    {432, u"File name or class name not found during Automation operation"},
    {kNoSuchMember, u"Object doesn't support this property or method"},
    {440, u"Automation error"},
    {445, u"Object doesn't support this action"},
    {446, u"Object doesn't support named arguments"},
    {447, u"Object doesn't support current locale setting"},
    {448, u"Named argument not found"},
    {kNotOptional, u"Argument not optional"},
    {kWrongArguments, u"Wrong number of arguments or invalid property assignment"},
    {kNotACollection, u"Object not a collection"},
    {453, u"Specified DLL function not found"},
    {455, u"Code resource lock error"},
    {457, u"This key is already associated with an element of this collection"},
    {458, u"Variable uses an Automation type not supported in VBScript"},
    {462, u"The remote server machine does not exist or is unavailable"},
    {481, u"Invalid picture"},
    {kUndefined, u"Variable is undefined"},
    {kIllegalAssignment, u"Illegal assignment"},
    {502, u"Object not safe for scripting"},
    {503, u"Object not safe for initializing"},
    {504, u"Object not safe for creating"},
    {505, u"Invalid or unqualified reference"},
    {kClassNotDefined, u"Class not defined"},
    {507, u"An exception occurred"},
    {kParserMemory, u"Out of memory"},
    {kSyntax, u"Syntax error"},
    {kExpectedOpen, u"Expected '('"},
    {kExpectedClose, u"Expected ')'"},
    {kExpectedBracket, u"Expected ']'"},
    {kExpectedIdentifier, u"Expected identifier"},
    {kExpectedEqual, u"Expected '='"},
    {kExpectedIf, u"Expected 'If'"},
    {kExpectedTo, u"Expected 'To'"},
    {kExpectedEnd, u"Expected 'End'"},
    {kExpectedFunction, u"Expected 'Function'"},
    {kExpectedSub, u"Expected 'Sub'"},
    {kExpectedThen, u"Expected 'Then'"},
    {kExpectedWend, u"Expected 'Wend'"},
    {kExpectedLoop, u"Expected 'Loop'"},
    {kExpectedNext, u"Expected 'Next'"},
    {kExpectedCase, u"Expected 'Case'"},
    {kExpectedSelect, u"Expected 'Select'"},
    {kExpectedExpression, u"Expected expression"},
    {kExpectedStatement, u"Expected statement"},
    {kExpectedEndOfStatement, u"Expected end of statement"},
    {kExpectedInteger, u"Expected integer constant"},
    {kExpectedWhileOrUntil, u"Expected 'While' or 'Until'"},
    {kIdentifierTooLong, u"Identifier too long"},
    {kInvalidNumber, u"Invalid number"},
    {kInvalidCharacter, u"Invalid character"},
    {kUnterminatedText, u"Unterminated string constant"},
    {kLoopWithoutDo, u"'loop' without 'do'"},
    {kInvalidExit, u"Invalid 'exit' statement"},
    {kInvalidForVariable, u"Invalid 'for' loop control variable"},
    {kNameRedefined, u"Name redefined"},
    {kMustBeFirst, u"Must be first statement on the line"},
    {kParenthesesOnSub, u"Cannot use parentheses when calling a Sub"},
    {kExpectedLiteral, u"Expected literal constant"},
    {kExpectedIn, u"Expected 'In'"},
    {kUnexpectedNext, u"Unexpected 'Next'"},
    {kTimedOut, u"Script execution timed out"},
};

} // namespace

std::u16string errorWords(int number) {
    const auto* found = std::find_if(std::begin(kWords), std::end(kWords),
                                     [number](const Words& row) { return row.number == number; });
    return std::u16string(found == std::end(kWords) ? u"Unknown runtime error" : found->words);
}

void raise(int number, std::u16string_view detail) {
    Fault fault;
    fault.number = number;
    fault.description = errorWords(number);
    if (!detail.empty()) fault.description.append(u": '").append(detail).append(u"'");
    throw fault;
}

} // namespace vistor::script
