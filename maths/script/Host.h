// What a host shows to a script: an object with named members. In: the script's arguments. Out: values, or
// the number of an error.
#pragma once

#include "maths/script/Value.h"

#include <span>
#include <string_view>

namespace vistor::script {

/// What a member takes: the machine converts arguments before it calls, and raises the errors of a wrong
/// number or kind.
struct Signature {
    bool isField = false;
    Kind fieldKind = Kind::Empty; ///< Long, Single or Double
    std::span<const Kind> parameters;
};

/// An object that scripts can reach. It must outlive the run. The members of two objects of one C++ type are
/// the same, for parsed texts are kept with the members' numbers in them.
class HostObject {
public:
    virtual ~HostObject() = default;

    /// What the script's TypeName tells.
    virtual std::u16string_view typeName() const = 0;
    /// The number of a member, or -1. `name` is in lower case.
    virtual int findMember(std::u16string_view name) const = 0;
    /// Null for a member that takes its arguments as they come.
    virtual const Signature* signatureOf(int) const { return nullptr; }
    /// Calls a function or reads a field; 0, or the number of the error that the script gets.
    virtual int callMember(int member, std::span<const Value> arguments, Value& result) = 0;
    /// Writes a field; 0, or the number of the error that the script gets.
    virtual int setMember(int member, const Value& value) = 0;
    /// The member that stands for the object where a plain value is wanted, or -1.
    virtual int defaultMember() const { return -1; }
};

} // namespace vistor::script
