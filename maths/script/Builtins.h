// The functions and named constants that every script has. In: evaluated arguments. Out: a value or a Fault.
#pragma once

#include "maths/script/Random.h"
#include "maths/script/Value.h"

#include <span>
#include <string_view>

namespace vistor::script {

/// One call: the arguments and what of the run a function may need.
struct Call {
    std::span<const Value> arguments;
    Budget& budget;
    Random& random;
    double (*timer)(); ///< seconds since midnight

    /// False for an argument that was left out.
    bool has(std::size_t i) const { return i < arguments.size() && !arguments[i].is(Kind::Missing); }
    const Value& operator[](std::size_t i) const { return arguments[i]; }
    /// A whole number, or what stands for one that was left out.
    std::int32_t whole(std::size_t i, std::int32_t otherwise) const;
    bool isNull(std::size_t i) const { return i < arguments.size() && arguments[i].is(Kind::Null); }
    Value copyOf(std::u16string_view characters) const {
        budget.checkText(characters.size());
        return text(std::u16string(characters));
    }
    Value text(std::u16string characters) const { return Value::text(std::move(characters), budget); }
};

struct Builtin {
    std::u16string_view name; ///< in lower case
    std::uint8_t least;       ///< number of arguments
    std::uint8_t most;
    Value (*function)(const Call& call);
};

inline constexpr std::uint8_t kAnyNumber = 255;

/// Null where there is none of that name, which is in lower case.
const Builtin* findBuiltin(std::u16string_view name);
const Value* findConstant(std::u16string_view name);

std::span<const Builtin> mathBuiltins();
std::span<const Builtin> textBuiltins();
std::span<const Builtin> searchBuiltins();
std::span<const Builtin> arrayBuiltins();
std::span<const Builtin> conversionBuiltins();
std::span<const Builtin> formatBuiltins();

/// Where `what` stands in `text` from a place on, or npos. Counts the work, so that no search outlasts the
/// run's time.
std::size_t findText(std::u16string_view text, std::u16string_view what, std::size_t from, bool fold,
                     Budget& budget);

/// The comparison argument of text functions: false binary, true without regard to case.
bool foldsCase(const Call& call, std::size_t argument);

} // namespace vistor::script
