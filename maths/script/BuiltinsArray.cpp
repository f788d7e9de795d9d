// Functions on arrays.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <algorithm>

namespace vistor::script {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

const ArrayBody& arrayAt(const Call& call, std::size_t argument) {
    if (!call[argument].is(Kind::Array)) raise(kTypeMismatch);
    return call[argument].asArray();
}

/// The one row of an array; other numbers of dimensions have no row to go along.
const ArrayBody& rowAt(const Call& call, std::size_t argument) {
    const ArrayBody& array = arrayAt(call, argument);
    if (array.sizes.size() != 1) raise(array.sizes.empty() ? kSubscript : kTypeMismatch);
    return array;
}

Value arrayOf(std::size_t count, const Call& call) {
    return Value::array({static_cast<std::int32_t>(count)}, call.budget);
}

Value makeArray(const Call& call) {
    Value result = arrayOf(call.arguments.size(), call);
    std::copy(call.arguments.begin(), call.arguments.end(), result.asArray().items.begin());
    return result;
}

std::int32_t sizeOf(const Call& call) {
    const ArrayBody& array = arrayAt(call, 0);
    const std::int32_t dimension = call.whole(1, 1);
    if (dimension < 1 || static_cast<std::size_t>(dimension) > array.sizes.size()) raise(kSubscript);
    return array.sizes[static_cast<std::size_t>(dimension - 1)];
}

Value lowerBound(const Call& call) {
    sizeOf(call);
    return Value::longer(0);
}

Value upperBound(const Call& call) {
    return Value::longer(sizeOf(call) - 1);
}

std::size_t joinedSize(const ArrayBody& array, std::size_t delimiter, Budget& budget) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < array.items.size(); ++i) {
        size += (i > 0 ? delimiter : 0) + TextView(array.items[i])->size();
        budget.work();
    }
    return size;
}

Value join(const Call& call) {
    const ArrayBody& array = rowAt(call, 0);
    const Value blank = Value::literal(u" ");
    const TextView delimiter(call.has(1) ? call[1] : blank);
    const std::size_t size = joinedSize(array, delimiter->size(), call.budget);
    call.budget.checkText(size);
    std::u16string result;
    result.reserve(size);
    for (std::size_t i = 0; i < array.items.size(); ++i) {
        if (i > 0) result += *delimiter;
        result += *TextView(array.items[i]);
        call.budget.work();
    }
    return call.text(std::move(result));
}

/// The number of pieces of a text, at most `most`; "Out of memory" as soon as there are more than fit.
std::size_t countPieces(std::u16string_view text, std::u16string_view delimiter, std::size_t most, bool fold,
                        Budget& budget) {
    std::size_t count = 1;
    std::size_t from = 0;
    while (count < most) {
        const std::size_t found = findText(text, delimiter, from, fold, budget);
        if (found == kNone) break;
        from = found + delimiter.size();
        if (++count > budget.left() / sizeof(Value)) raise(kOutOfMemory);
        budget.work();
    }
    return count;
}

/// Split(text [, delimiter [, count [, compare]]]). The pieces are counted first, so that the array is asked
/// for before it is filled.
Value split(const Call& call) {
    const TextView text(call[0]);
    const Value blank = Value::literal(u" ");
    const TextView delimiter(call.has(1) ? call[1] : blank);
    const std::int32_t limit = call.whole(2, -1);
    const bool fold = foldsCase(call, 3);
    if (limit < -1) raise(kInvalidCall);
    if (text->empty() || limit == 0) return arrayOf(0, call);
    const std::size_t most = delimiter->empty() ? 1 : limit < 0 ? kNone : static_cast<std::size_t>(limit);
    Value result = arrayOf(countPieces(*text, *delimiter, most, fold, call.budget), call);
    std::vector<Value>& pieces = result.asArray().items;
    std::size_t from = 0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool last = i + 1 == pieces.size();
        const std::size_t end = last ? text->size() : findText(*text, *delimiter, from, fold, call.budget);
        pieces[i] = call.copyOf(text->substr(from, end - from));
        from = end + delimiter->size();
    }
    return result;
}

/// Filter(array, text [, include [, compare]]): the elements that hold the text, or those that do not.
Value filter(const Call& call) {
    const ArrayBody& array = rowAt(call, 0);
    const TextView what(call[1]);
    const bool include = !call.has(2) || toBoolean(call[2]);
    const bool fold = foldsCase(call, 3);
    std::vector<std::size_t> kept;
    for (std::size_t i = 0; i < array.items.size(); ++i) {
        const TextView item(array.items[i]);
        const bool holds = findText(*item, *what, 0, fold, call.budget) != kNone;
        if (holds == include) kept.push_back(i);
        call.budget.work();
    }
    Value result = arrayOf(kept.size(), call);
    for (std::size_t i = 0; i < kept.size(); ++i)
        result.asArray().items[i] = call.copyOf(*TextView(array.items[kept[i]]));
    return result;
}

constexpr Builtin kTable[] = {
    {u"array", 0, kAnyNumber, makeArray}, {u"filter", 2, 4, filter}, {u"join", 1, 2, join},
    {u"lbound", 1, 2, lowerBound},        {u"split", 1, 4, split},   {u"ubound", 1, 2, upperBound},
};

} // namespace

std::span<const Builtin> arrayBuiltins() {
    return kTable;
}

} // namespace vistor::script
