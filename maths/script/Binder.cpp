#include "maths/script/Binder.h"

#include "maths/script/Builtins.h"
#include "maths/script/Fault.h"
#include "maths/script/Host.h"

namespace vistor::script {

int Program::findProcedure(std::u16string_view name) const {
    for (std::size_t i = 0; i < procedures.size(); ++i)
        if (procedures[i]->name == name) return static_cast<int>(i);
    return -1;
}

void Binder::enter(Procedure* procedure) {
    m_current = 0;
    if (!procedure) return;
    m_current = m_scopes.size();
    m_scopes.push_back({procedure, {}});
}

void Binder::declare(const std::u16string& name, Symbol symbol) {
    if (!m_scopes[m_current].symbols.emplace(name, std::move(symbol)).second) raise(kNameRedefined);
}

int Binder::newSlot(Scope& scope) {
    return scope.procedure->slots++;
}

int Binder::declareVariable(const std::u16string& name) {
    declare(name, {Symbol::Variable, m_scopes[m_current].procedure->slots, {}});
    return newSlot(m_scopes[m_current]);
}

void Binder::declareConstant(const std::u16string& name, const Value& value) {
    declare(name, {Symbol::Constant, 0, value});
}

void Binder::declareProcedure(const std::u16string& name, int number) {
    declare(name, {Symbol::Procedure, number, {}});
}

void Binder::bind(std::span<const HostEntry> hosts) {
    for (const NameUse& use : m_uses)
        if (use.scope == 0) bindUse(use, hosts); // may make globals, which the procedures then see
    for (const NameUse& use : m_uses)
        if (use.scope != 0) bindUse(use, hosts);
}

void Binder::bindUse(const NameUse& use, std::span<const HostEntry> hosts) {
    if (bindToOwnResult(use) || bindToScope(use, use.scope)) return;
    if (use.scope != 0 && bindToScope(use, 0)) return;
    if (bindToHost(*use.expr, hosts) || bindToLanguage(use)) return;
    bindToNothing(use);
}

bool Binder::bindToOwnResult(const NameUse& use) {
    const Procedure& procedure = *m_scopes[use.scope].procedure;
    if (!procedure.isFunction || procedure.name != use.expr->name || use.expr->hasArguments) return false;
    use.expr->kind = ExprKind::Local;
    use.expr->slot = 0;
    return true;
}

bool Binder::bindToScope(const NameUse& use, std::size_t scope) {
    const auto& symbols = m_scopes[scope].symbols;
    const auto found = symbols.find(use.expr->name);
    if (found == symbols.end()) return false;
    const Symbol& symbol = found->second;
    if (symbol.what == Symbol::Variable) {
        becomeVariable(*use.expr, scope, symbol.number, use.how);
    } else if (symbol.what == Symbol::Procedure) {
        use.expr->kind = ExprKind::Call;
        use.expr->slot = symbol.number;
    } else {
        use.expr->kind = use.expr->hasArguments ? ExprKind::NoProcedure : ExprKind::Literal;
        use.expr->value = symbol.value;
    }
    return true;
}

void Binder::becomeVariable(Expr& expr, std::size_t scope, int slot, Use how) {
    const ExprKind kind = scope == 0 ? ExprKind::Global : ExprKind::Local;
    if (how == Use::Statement) {
        expr.kind = ExprKind::NoProcedure;
    } else if (expr.hasArguments) {
        expr.kind = ExprKind::Index;
        expr.left = std::make_unique<Expr>(kind);
        expr.left->slot = slot;
    } else {
        expr.kind = kind;
        expr.slot = slot;
    }
}

bool Binder::bindToHost(Expr& expr, std::span<const HostEntry> hosts) {
    for (std::size_t i = 0; i < hosts.size(); ++i) {
        expr.host = static_cast<int>(i);
        if (hosts[i].name == expr.name && !expr.hasArguments) {
            expr.kind = ExprKind::Host;
            return true;
        }
        expr.slot = hosts[i].addMembers ? hosts[i].object->findMember(expr.name) : -1;
        if (expr.slot < 0) continue;
        expr.kind = ExprKind::HostMember;
        return true;
    }
    return false;
}

bool Binder::bindToLanguage(const NameUse& use) {
    Expr& expr = *use.expr;
    if (expr.name == u"err" && !expr.hasArguments) {
        expr.kind = ExprKind::ErrObject;
        return true;
    }
    if (const Builtin* builtin = findBuiltin(expr.name)) {
        expr.kind = ExprKind::Builtin;
        expr.builtin = builtin;
        return true;
    }
    const Value* constant = expr.hasArguments ? nullptr : findConstant(expr.name);
    if (!constant) return false;
    expr.kind = ExprKind::Literal;
    expr.value = *constant;
    return true;
}

void Binder::bindToNothing(const NameUse& use) {
    Expr& expr = *use.expr;
    if (m_explicit && use.how != Use::Resize) {
        expr.kind = ExprKind::Undefined;
    } else if (expr.hasArguments || use.how == Use::Statement) {
        expr.kind = ExprKind::NoProcedure;
    } else {
        Scope& scope = m_scopes[use.scope];
        const int slot = newSlot(scope);
        scope.symbols.emplace(expr.name, Symbol{Symbol::Variable, slot, {}});
        becomeVariable(expr, use.scope, slot, use.how);
    }
}

} // namespace vistor::script
