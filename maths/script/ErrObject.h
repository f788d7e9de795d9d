// The script's Err: the last error that On Error Resume Next passed over.
#pragma once

#include "maths/script/Fault.h"
#include "maths/script/Host.h"
#include "maths/script/Value.h"

namespace vistor::script {

class ErrObject final : public HostObject {
public:
    explicit ErrObject(Budget& budget) : m_budget(budget) {}

    void set(const Fault& fault);
    void clear();

    std::u16string_view typeName() const override { return u"Object"; }
    int findMember(std::u16string_view name) const override;
    /// Raise throws the script's own Fault.
    int callMember(int member, std::span<const Value> arguments, Value& result) override;
    int setMember(int member, const Value& value) override;
    int defaultMember() const override { return 0; }

private:
    [[noreturn]] void raiseAs(std::span<const Value> arguments) const;
    std::u16string textOf(std::span<const Value> arguments, std::size_t i) const;

    Budget& m_budget;
    std::int32_t m_number = 0;
    std::int32_t m_helpContext = 0;
    std::u16string m_description;
    std::u16string m_source;
    std::u16string m_helpFile;
};

} // namespace vistor::script
