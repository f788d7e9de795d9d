// Runs a checked tree. In: the tree, the host's objects, arguments. Out: values of the tree's procedures, or
// an error with its line. A machine is for one run: variables, errors and random numbers start from nothing.
#pragma once

#include "maths/script/Builtins.h"
#include "maths/script/ErrObject.h"
#include "maths/script/Program.h"
#include "maths/script/SlotStack.h"

#include <chrono>
#include <memory>
#include <optional>
#include <span>

namespace vistor::script {

struct Setup {
    std::span<const HostEntry> hosts; ///< those the tree was parsed with
    double (*timer)() = nullptr;      ///< seconds since midnight
    std::chrono::nanoseconds timeout = std::chrono::seconds(2);
    std::size_t memory = std::size_t{64} << 20;
};

struct RunError {
    int number = 0; ///< 0: none
    std::u16string description;
    int line = 0; ///< from 1; 0 where no line is to blame
};

class Machine {
public:
    Machine(std::shared_ptr<const Program> program, const Setup& setup);
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Runs what stands outside procedures; false when it failed.
    bool runMain();
    /// Calls a procedure, whose name is in lower case; false when it failed. The result is good as long as
    /// the machine.
    bool run(std::u16string_view name, std::span<const Value> arguments, Value& result);

    const RunError& error() const { return m_error; }

private:
    enum class Flow : std::uint8_t { Next, ExitDo, ExitFor, ExitProcedure };

    struct Frame {
        Value* slots = nullptr;
        const Procedure* procedure = nullptr;
        bool resumeNext = false;
    };

    /// A procedure's variables while it is called: made before its arguments are evaluated.
    class Activation {
    public:
        Activation(Machine& machine, const Procedure& procedure);
        ~Activation();
        Activation(const Activation&) = delete;
        Activation& operator=(const Activation&) = delete;

        void bind(std::size_t parameter, const Expr& argument);
        void bind(std::size_t parameter, const Value& argument);
        Value run();

    private:
        Machine& m_machine;
        Frame m_frame;
        Frame* m_caller;
        std::size_t m_mark;
        std::vector<Value> m_locked; ///< arrays of which an element is passed by reference
    };

    template <typename Work>
    bool guarded(Work work);
    void report(const Fault& fault);
    void declareArrays(const Procedure& procedure, Value* slots);

    // Statements.
    Flow execute(const Block& block);
    Flow executeResuming(const Statement& statement);
    Flow execute(const Statement& statement);
    Flow executeIf(const Statement& statement);
    Flow executeSelect(const Statement& statement);
    Flow executeFor(const Statement& statement);
    Flow executeForEach(const Statement& statement);
    Flow executeLoopOnce(const Statement& statement);
    Flow executeDo(const Statement& statement);
    Flow leaveProcedure();
    bool startFor(const Statement& statement, Value& counter, Value& limit, Value& step);
    bool forGoesOn(const Value& counter, const Value& limit, const Value& step);
    std::optional<bool> test(const Expr& condition);
    bool leaves(const Statement& loop);
    bool selects(const Branch& branch, const Value& value, const Expr& selector);
    void assign(const Statement& statement);
    void assignObject(const Statement& statement);
    void callStatement(const Expr& call);
    void resize(const Statement& statement);
    void erase(const Expr& target);
    void setErrorHandling(bool resume);

    // Expressions.
    Value evaluate(const Expr& expr);
    const Value& operand(const Expr& expr, Value& scratch);
    Value evaluateBinary(const Expr& expr);
    Value evaluateIndex(const Expr& expr);
    Value callProcedure(const Expr& expr);
    Value callBuiltin(const Expr& expr);
    Value callHost(const Expr& expr);
    Value callMember(const Expr& expr);
    Value callMember(HostObject& object, int member, const Expr& expr);
    void putMember(HostObject& object, int member, const Value& value);
    HostObject& objectOf(const Expr& expr);
    int memberOf(HostObject& object, const Expr& expr) const;

    // Variables.
    Value& variable(const Expr& expr);
    bool isVariable(const Expr& expr) const;
    bool isPlace(const Expr& expr) const;
    /// Where a value is kept: a variable, or an element of an array that is then its only owner's.
    Value& place(const Expr& expr, Value* array = nullptr);
    void store(const Expr& target, Value value);

    std::shared_ptr<const Program> m_program;
    std::span<const HostEntry> m_hosts;
    double (*m_timer)();
    std::chrono::nanoseconds m_timeout;
    Budget m_budget; ///< before all that holds values
    Random m_random;
    ErrObject m_err;
    SlotStack m_stack;
    Value* m_globals = nullptr;
    Frame* m_frame = nullptr;
    int m_line = 0;
    int m_calls = 0;
    std::size_t m_locks = 0; ///< array elements passed by reference at the moment
    const char* m_stackBase = nullptr;
    RunError m_error;
};

} // namespace vistor::script
