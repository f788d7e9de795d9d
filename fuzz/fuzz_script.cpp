// Any text as a script ends in a value or in an error with words and a line, in bounded time and memory.
#include "maths/RewriteScript.h"
#include "maths/ScriptFunctions.h"
#include "maths/script/Machine.h"
#include "maths/script/Parser.h"

#include <QString>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace vistor::script;

constexpr std::size_t kMostCalls = 20; ///< so that a text of many endless procedures ends in a second

double noon() {
    return 43200;
}

void check(const RunError& error) {
    if (error.number == 0 || error.description.empty()) std::abort();
}

void run(std::u16string_view text, std::span<const HostEntry> hosts) {
    const std::shared_ptr<const Program> program = parse(text, hosts);
    Setup setup;
    setup.hosts = hosts;
    setup.timer = noon;
    setup.timeout = std::chrono::milliseconds(50);
    setup.memory = std::size_t{4} << 20;
    Machine machine(program, setup);
    if (!machine.runMain()) return check(machine.error());
    for (std::size_t i = 0; i < std::min(program->procedures.size(), kMostCalls); ++i) {
        const auto& procedure = program->procedures[i];
        const std::vector<Value> arguments(procedure->parameters.size(), Value::integer(3));
        Value result;
        if (!machine.run(procedure->name, arguments, result)) check(machine.error());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (size > 0 && data[0] == '\'')
        vistor::RewriteScript(text); // what begins as a comment goes the whole road
    vistor::ScriptFunctions functions;
    const HostEntry hosts[] = {{u"math", &functions, true}};
    try {
        run(text.toStdU16String(), hosts);
    } catch (const Fault& fault) {
        if (fault.number == 0 || fault.description.empty() || fault.line < 1) std::abort();
    }
    return 0;
}
