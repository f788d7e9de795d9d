// The checked tree of a script: what the parser makes, the binder completes and the machine runs. It is not
// changed by a run, so one tree serves any number of them.
#pragma once

#include "maths/script/Operators.h"
#include "maths/script/Value.h"

#include <memory>
#include <string>
#include <typeindex>
#include <vector>

namespace vistor::script {

struct Builtin;
class HostObject;

enum class ExprKind : std::uint8_t {
    Literal,
    Local,         ///< slot
    Global,        ///< slot
    Binary,        ///< op, left, right
    Unary,         ///< op, left
    Parenthesised, ///< left: never passed by reference
    Call,          ///< slot: number of the procedure
    HostMember,    ///< host, slot: number of the member
    Builtin,       ///< builtin
    Index,         ///< left, arguments
    Member,        ///< left, name, arguments
    Host,          ///< host: the object itself
    ErrObject,
    Name,        ///< not bound yet
    Undefined,   ///< a name that Option Explicit does not let pass
    NoProcedure, ///< called, but there is no procedure of that name
    New,
    Missing, ///< an argument left out
};

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
    explicit Expr(ExprKind k) : kind(k) {}

    ExprKind kind;
    Operator op = Operator::None;
    std::uint8_t literals = 0;
    bool hasArguments = false; ///< parentheses stood behind the name, or it is called as a statement
    std::uint16_t depth = 1;   ///< of the tree below
    int slot = 0;
    int host = 0;
    const Builtin* builtin = nullptr;
    Value value;
    ExprPtr left;
    ExprPtr right;
    std::vector<ExprPtr> arguments;
    std::u16string name; ///< in lower case
    std::u16string spelling;
};

struct Statement;
using Block = std::vector<std::unique_ptr<Statement>>;

enum class StatementKind : std::uint8_t {
    Assign, ///< target, value
    Set,    ///< target, value
    Call,   ///< value
    If,     ///< branches
    Select, ///< value, branches
    For,    ///< target, value, limit, step, body
    ForEach,
    Do, ///< value, body, atEnd, until; value may be null
    ReDim,
    Erase,
    ExitDo,
    ExitFor,
    ExitProcedure,
    OnErrorResume,
    OnErrorStop,
};

/// One arm of If or Select. Without tests: Else.
struct Branch {
    int line = 0;
    std::vector<ExprPtr> tests;
    Block body;
};

struct Statement {
    StatementKind kind = StatementKind::Call;
    bool atEnd = false;    ///< of Do: the test stands behind Loop
    bool until = false;    ///< of Do: the test ends the loop when it is true
    bool isWhile = false;  ///< of Do: a While, which Exit Do passes through
    bool preserve = false; ///< of ReDim
    int line = 0;
    int testLine = 0; ///< of Do
    ExprPtr target;
    ExprPtr value;
    ExprPtr limit;
    ExprPtr step;
    std::vector<ExprPtr> list; ///< of ReDim: upper bounds
    std::vector<Branch> branches;
    Block body;
};

struct Parameter {
    std::u16string name;
    bool byValue = false;
};

/// An array that stands from the entry on; no sizes: one that waits for its first ReDim.
struct DeclaredArray {
    int slot = 0;
    std::vector<std::int32_t> sizes;
    int line = 0;
};

/// Slot 0 of a procedure is its result, the parameters follow. The main program's slots are the globals.
struct Procedure {
    std::u16string name;
    bool isFunction = false;
    int slots = 1;
    int line = 0;
    std::vector<Parameter> parameters;
    std::vector<DeclaredArray> arrays;
    Block body;
};

/// An object under a name that scripts see.
struct HostEntry {
    std::u16string name; ///< in lower case
    HostObject* object = nullptr;
    bool addMembers = false; ///< its members are visible without a prefix
};

struct Program {
    Procedure main;
    std::vector<std::unique_ptr<Procedure>> procedures;

    /// The procedure's number, or -1. `name` is in lower case.
    int findProcedure(std::u16string_view name) const;
};

} // namespace vistor::script
