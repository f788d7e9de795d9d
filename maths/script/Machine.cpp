#include "maths/script/Machine.h"

#include "maths/script/Conversions.h"

#include <algorithm>
#include <new>
#include <sys/resource.h>

namespace vistor::script {
namespace {

constexpr int kDeepestCalls = 3000;
/// What a run may use of the machine's own stack: half of what there is.
std::ptrdiff_t stackBytes() {
    constexpr rlim_t kMost = rlim_t{4} << 20;
    rlimit limit{};
    if (getrlimit(RLIMIT_STACK, &limit) != 0) return kMost / 4;
    return static_cast<std::ptrdiff_t>(
        std::min(limit.rlim_cur / 2, kMost)); // unlimited is the largest number
}

const char* stackPosition() {
    return static_cast<const char*>(__builtin_frame_address(0));
}

} // namespace

Machine::Machine(std::shared_ptr<const Program> program, const Setup& setup)
    : m_program(std::move(program)),
      m_hosts(setup.hosts),
      m_timer(setup.timer),
      m_timeout(setup.timeout),
      m_budget(setup.memory),
      m_err(m_budget),
      m_stack(m_budget) {}

Machine::~Machine() = default;

void Machine::report(const Fault& fault) {
    m_error = {fault.number, fault.description, fault.line ? fault.line : m_line};
}

/// The one place where the library's exceptions end.
template <typename Work>
bool Machine::guarded(Work work) {
    m_error = {};
    m_frame = nullptr;
    m_calls = 0;
    m_line = 0;
    m_stackBase = stackPosition();
    m_budget.start(m_timeout);
    try {
        work();
        return true;
    } catch (const Fault& fault) {
        report(fault);
    } catch (const std::bad_alloc&) {
        report({kOutOfMemory, errorWords(kOutOfMemory), {}, 0, true});
    }
    return false;
}

bool Machine::runMain() {
    return guarded([this] {
        const Procedure& main = m_program->main;
        m_globals = m_stack.take(static_cast<std::size_t>(main.slots));
        declareArrays(main, m_globals);
        Frame frame{m_globals, &main, false};
        m_frame = &frame;
        execute(main.body);
    });
}

bool Machine::run(std::u16string_view name, std::span<const Value> arguments, Value& result) {
    return guarded([&] {
        const int number = m_program->findProcedure(name);
        if (number < 0 || !m_globals) raise(kInvalidCall);
        const Procedure& procedure = *m_program->procedures[static_cast<std::size_t>(number)];
        if (arguments.size() != procedure.parameters.size()) raise(kWrongArguments);
        Activation activation(*this, procedure);
        for (std::size_t i = 0; i < arguments.size(); ++i) activation.bind(i, arguments[i]);
        result = activation.run();
    });
}

void Machine::declareArrays(const Procedure& procedure, Value* slots) {
    for (const DeclaredArray& array : procedure.arrays) {
        m_line = array.line;
        slots[array.slot] = Value::array(array.sizes, m_budget, !array.sizes.empty());
    }
}

Machine::Activation::Activation(Machine& machine, const Procedure& procedure)
    : m_machine(machine), m_caller(machine.m_frame), m_mark(machine.m_stack.mark()) {
    static const std::ptrdiff_t kStackBytes = stackBytes();
    const bool deep = machine.m_stackBase - stackPosition() > kStackBytes;
    if (deep || machine.m_calls >= kDeepestCalls) raise(kOutOfStack);
    machine.m_budget.work();
    m_frame = {machine.m_stack.take(static_cast<std::size_t>(procedure.slots)), &procedure, false};
    ++machine.m_calls;
}

Machine::Activation::~Activation() {
    for (Value& array : m_locked) --array.asArray().locks;
    m_machine.m_locks -= m_locked.size();
    m_machine.m_frame = m_caller;
    m_machine.m_stack.release(m_mark);
    --m_machine.m_calls;
}

void Machine::Activation::bind(std::size_t parameter, const Value& argument) {
    m_frame.slots[parameter + 1] = argument;
}

void Machine::Activation::bind(std::size_t parameter, const Expr& argument) {
    const bool byValue = m_frame.procedure->parameters[parameter].byValue;
    Value& slot = m_frame.slots[parameter + 1];
    if (byValue || !m_machine.isPlace(argument)) {
        slot = m_machine.evaluate(argument);
        return;
    }
    Value array;
    Value& variable = m_machine.place(argument, &array);
    if (array.is(Kind::Array)) {
        m_locked.push_back(array);
        ++array.asArray().locks;
        ++m_machine.m_locks;
    }
    slot = Value::reference(&variable);
}

Value Machine::Activation::run() {
    const int line = m_machine.m_line;
    m_machine.declareArrays(*m_frame.procedure, m_frame.slots);
    m_machine.m_frame = &m_frame;
    m_machine.execute(m_frame.procedure->body);
    m_machine.m_line = line;
    return m_frame.slots[0];
}

} // namespace vistor::script
