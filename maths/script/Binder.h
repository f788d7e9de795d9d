// Finds out what each name in a script stands for: a variable, constant or procedure of the script, a member
// of the host, a built-in function or constant. In: declarations and uses from the parser. Out: the uses,
// bound.
#pragma once

#include "maths/script/Program.h"

#include <deque>
#include <span>
#include <unordered_map>

namespace vistor::script {

enum class Use : std::uint8_t { Read, Target, Statement, Resize };

class Binder {
public:
    explicit Binder(Program& program) { m_scopes.push_back({&program.main, {}}); }

    /// Enters the scope of a procedure, or with null goes back to the main program's.
    void enter(Procedure* procedure);

    /// These raise "Name redefined" where the scope has the name already.
    int declareVariable(const std::u16string& name);
    void declareConstant(const std::u16string& name, const Value& value);
    void declareProcedure(const std::u16string& name, int number);

    void requireDeclarations() { m_explicit = true; }

    void use(Expr* name, Use how) { m_uses.push_back({name, m_current, how}); }
    /// For a parser that goes back: uses from a number on are forgotten.
    std::size_t uses() const { return m_uses.size(); }
    void forgetUses(std::size_t from) { m_uses.resize(from); }

    /// Binds all uses. Once, at the end of the text.
    void bind(std::span<const HostEntry> hosts);

private:
    struct Symbol {
        enum What : std::uint8_t { Variable, Constant, Procedure } what = Variable;
        int number = 0;
        Value value;
    };
    struct Scope {
        Procedure* procedure;
        std::unordered_map<std::u16string, Symbol> symbols;
    };
    struct NameUse {
        Expr* expr = nullptr;
        std::size_t scope = 0;
        Use how = Use::Read;
    };

    void declare(const std::u16string& name, Symbol symbol);
    int newSlot(Scope& scope);
    void bindUse(const NameUse& use, std::span<const HostEntry> hosts);
    bool bindToOwnResult(const NameUse& use);
    bool bindToScope(const NameUse& use, std::size_t scope);
    static bool bindToHost(Expr& expr, std::span<const HostEntry> hosts);
    static bool bindToLanguage(const NameUse& use);
    void bindToNothing(const NameUse& use);
    void becomeVariable(Expr& expr, std::size_t scope, int slot, Use how);

    std::deque<Scope> m_scopes; ///< the main program's first
    std::size_t m_current = 0;
    bool m_explicit = false;
    std::vector<NameUse> m_uses;
};

} // namespace vistor::script
