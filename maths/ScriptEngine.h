// The host of the script language. In: a script's text and the objects it may see. Out: the results of its
// procedures, or an error with its line.
#pragma once

#include "maths/script/Machine.h"

#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vistor {

struct ScriptError {
    int Number = 0; ///< 0: none
    QString Description;
    int Line = 0; ///< from 1; 0 where no line is to blame
};

/// One engine is for one script: each starts from nothing. Parsed texts are kept behind the scenes, so making
/// an engine anew for every sample is cheap.
class ScriptEngine {
public:
    /// Seconds that AddCode and Run may take each, by the clock.
    void Timeout(int seconds) { m_timeout = seconds; }
    /// The one language there is, "VBScript", without regard to case; with another one AddCode fails.
    void Language(const QString& name);
    /// Shows an object to the script under a name, and with `addMembers` its members without a prefix.
    /// Objects come before the code.
    void AddObject(const QString& name, std::shared_ptr<script::HostObject> object, bool addMembers);
    /// Parses the script and runs what stands outside its procedures. False: see Error. A second call puts
    /// the first script away.
    bool AddCode(const QString& text);
    /// Whether the script may show windows. There are none it could show: MsgBox and InputBox are refused
    /// with "Permission denied" either way, and this keeps the setting only.
    void AllowUI(bool allow) { m_allowUI = allow; }
    bool allowsUI() const { return m_allowUI; }
    /// Calls a procedure of the script. The result is good as long as the engine. False: see Error.
    bool Run(const QString& name, std::span<const script::Value> arguments, script::Value& result);

    const ScriptError& Error() const { return m_error; }

private:
    bool fail(int number, const QString& description, int line);
    bool failAsMachine();

    int m_timeout = 10;
    bool m_allowUI = true;
    bool m_knownLanguage = true;
    std::vector<script::HostEntry> m_hosts;
    std::vector<std::shared_ptr<script::HostObject>> m_objects; ///< keeps those of m_hosts alive
    std::optional<script::Machine> m_machine;
    ScriptError m_error;
};

} // namespace vistor
