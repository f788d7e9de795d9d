#include "maths/ScriptEngine.h"

#include "maths/RecentTexts.h"
#include "maths/script/Conversions.h"
#include "maths/script/Parser.h"
#include "platform/Clock.h"

#include <new>
#include <typeindex>

namespace vistor {
namespace {

using script::HostEntry;
using script::Program;

/// The objects a text was parsed with, so far as the tree depends on them.
struct HostKey {
    std::u16string name;
    std::type_index type;
    bool addMembers;

    bool operator==(const HostKey&) const = default;
};

bool sameHosts(const std::vector<HostKey>& keys, const std::vector<HostEntry>& hosts) {
    return std::equal(keys.begin(), keys.end(), hosts.begin(), hosts.end(),
                      [](const HostKey& key, const HostEntry& host) {
                          return key.addMembers == host.addMembers && key.type == typeid(*host.object) &&
                                 key.name == host.name;
                      });
}

/// Parsed texts: a program has a few dozen scripts, and they come again with every sample.
class ParsedScripts {
public:
    /// Throws script::Fault.
    std::shared_ptr<const Program> get(const QString& text, const std::vector<HostEntry>& hosts) {
        const Entry* found = m_entries.find(text);
        if (found && sameHosts(found->hosts, hosts)) return found->program;
        auto program = script::parse(text.toStdU16String(), hosts);
        m_entries.keep(text, {keysOf(hosts), program});
        return program;
    }

private:
    struct Entry {
        std::vector<HostKey> hosts;
        std::shared_ptr<const Program> program;
    };

    static std::vector<HostKey> keysOf(const std::vector<HostEntry>& hosts) {
        std::vector<HostKey> keys;
        for (const HostEntry& host : hosts)
            keys.push_back({host.name, typeid(*host.object), host.addMembers});
        return keys;
    }

    RecentTexts<Entry> m_entries;
};

ParsedScripts& parsedScripts() {
    static ParsedScripts scripts;
    return scripts;
}

} // namespace

void ScriptEngine::Language(const QString& name) {
    m_knownLanguage = name.compare(QLatin1String("VBScript"), Qt::CaseInsensitive) == 0;
}

void ScriptEngine::AddObject(const QString& name, std::shared_ptr<script::HostObject> object,
                             bool addMembers) {
    if (!object) return;
    m_machine.reset(); // it knows the objects by their places
    m_hosts.push_back({script::lowered(name.toStdU16String()), object.get(), addMembers});
    m_objects.push_back(std::move(object));
}

bool ScriptEngine::fail(int number, const QString& description, int line) {
    m_error = {number, description, line};
    return false;
}

bool ScriptEngine::failAsMachine() {
    const script::RunError& error = m_machine->error();
    return fail(error.number, QString::fromStdU16String(error.description), error.line);
}

bool ScriptEngine::AddCode(const QString& text) {
    m_error = {};
    m_machine.reset();
    if (!m_knownLanguage) return fail(script::kCannotCreate, QStringLiteral("Unknown script language"), 0);
    try {
        script::Setup setup;
        setup.hosts = m_hosts;
        setup.timer = Timer;
        setup.timeout = std::chrono::seconds(m_timeout);
        m_machine.emplace(parsedScripts().get(text, m_hosts), setup);
    } catch (const script::Fault& fault) {
        return fail(fault.number, QString::fromStdU16String(fault.description), fault.line);
    } catch (const std::bad_alloc&) {
        const int number = script::kOutOfMemory;
        return fail(number, QString::fromStdU16String(script::errorWords(number)), 0);
    }
    return m_machine->runMain() || failAsMachine();
}

bool ScriptEngine::Run(const QString& name, std::span<const script::Value> arguments, script::Value& result) {
    m_error = {};
    if (!m_machine) {
        const int number = script::kInvalidCall;
        return fail(number, QString::fromStdU16String(script::errorWords(number)), 0);
    }
    return m_machine->run(script::lowered(name.toStdU16String()), arguments, result) || failAsMachine();
}

} // namespace vistor
