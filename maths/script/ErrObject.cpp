#include "maths/script/ErrObject.h"

#include "maths/script/Conversions.h"

#include <algorithm>
#include <iterator>

namespace vistor::script {
namespace {

enum Member { kNumber, kDescription, kSource, kHelpFile, kHelpContext, kClear, kRaise };

constexpr std::u16string_view kMembers[] = {u"number",      u"description", u"source", u"helpfile",
                                            u"helpcontext", u"clear",       u"raise"};
constexpr std::size_t kLongestText = 4096; ///< of what a script writes here; it is not charged to the run

std::u16string startOf(const Value& value) {
    return std::u16string(TextView(value)->substr(0, kLongestText));
}

} // namespace

void ErrObject::set(const Fault& fault) {
    m_number = fault.number;
    m_description = fault.description;
    m_source = fault.source.empty() ? u"VBScript runtime error" : fault.source;
}

void ErrObject::clear() {
    m_number = 0;
    m_helpContext = 0;
    m_description.clear();
    m_source.clear();
    m_helpFile.clear();
}

int ErrObject::findMember(std::u16string_view name) const {
    const auto* found = std::find(std::begin(kMembers), std::end(kMembers), name);
    return found == std::end(kMembers) ? -1 : static_cast<int>(found - std::begin(kMembers));
}

int ErrObject::callMember(int member, std::span<const Value> arguments, Value& result) {
    if (member == kRaise) raiseAs(arguments);
    if (!arguments.empty()) return kWrongArguments;
    switch (member) {
    case kNumber:
        result = Value::longer(m_number);
        break;
    case kDescription:
        result = Value::text(m_description, m_budget);
        break;
    case kSource:
        result = Value::text(m_source, m_budget);
        break;
    case kHelpFile:
        result = Value::text(m_helpFile, m_budget);
        break;
    case kHelpContext:
        result = Value::longer(m_helpContext);
        break;
    default:
        clear();
    }
    return 0;
}

int ErrObject::setMember(int member, const Value& value) {
    switch (member) {
    case kNumber:
        m_number = toLong(value);
        return 0;
    case kDescription:
        m_description = startOf(value);
        return 0;
    case kSource:
        m_source = startOf(value);
        return 0;
    case kHelpFile:
        m_helpFile = startOf(value);
        return 0;
    case kHelpContext:
        m_helpContext = toLong(value);
        return 0;
    default:
        return kNoSuchMember;
    }
}

std::u16string ErrObject::textOf(std::span<const Value> arguments, std::size_t i) const {
    if (i >= arguments.size() || arguments[i].is(Kind::Missing)) return {};
    return startOf(arguments[i]);
}

/// Err.Raise number [, source [, description]]
void ErrObject::raiseAs(std::span<const Value> arguments) const {
    if (arguments.empty() || arguments.size() > 5) raise(kWrongArguments);
    Fault fault;
    fault.number = toLong(arguments[0]);
    if (fault.number == 0) raise(kInvalidCall);
    fault.source = textOf(arguments, 1);
    fault.description = textOf(arguments, 2);
    if (fault.description.empty()) fault.description = errorWords(fault.number);
    throw fault;
}

} // namespace vistor::script
