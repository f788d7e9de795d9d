// Functions that look for one text in another.
#include "maths/script/Builtins.h"
#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"
#include "maths/script/Operators.h"

#include <algorithm>

namespace vistor::script {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;
constexpr std::size_t kWorkShift = 5; ///< characters looked at for one unit of work

/// How many characters agree at a place.
std::size_t agreeing(std::u16string_view text, std::u16string_view what, std::size_t at, bool fold) {
    std::size_t i = 0;
    if (fold)
        while (i < what.size() && lowerOf(text[at + i]) == lowerOf(what[i])) ++i;
    else
        while (i < what.size() && text[at + i] == what[i]) ++i;
    return i;
}

/// Looks at places one after the other and now and then counts the work done.
class Search {
public:
    Search(std::u16string_view text, std::u16string_view what, bool fold, Budget& budget)
        : m_text(text), m_what(what), m_fold(fold), m_budget(budget) {}

    bool matches(std::size_t at) {
        const std::size_t same = agreeing(m_text, m_what, at, m_fold);
        m_seen += same + 1;
        if (m_seen >= 1024) {
            m_budget.work(m_seen >> kWorkShift);
            m_seen = 0;
        }
        return same == m_what.size();
    }

private:
    std::u16string_view m_text;
    std::u16string_view m_what;
    bool m_fold;
    Budget& m_budget;
    std::size_t m_seen = 0;
};

Value position(std::size_t found) {
    return Value::longer(found == kNone ? 0 : static_cast<std::int32_t>(found) + 1);
}

/// InStr([start,] text, what [, compare]): the start may be left out only together with the comparison.
Value inStr(const Call& call) {
    const std::size_t first = call.arguments.size() > 2 ? 1 : 0;
    const std::int32_t start = first == 1 ? toLong(call[0]) : 1;
    if (start < 1) raise(kInvalidCall);
    if (call.isNull(first) || call.isNull(first + 1)) return Value::null();
    const TextView text(call[first]);
    const TextView what(call[first + 1]);
    const auto from = static_cast<std::size_t>(start - 1);
    const bool fold = foldsCase(call, 3);
    if (text->empty() || from >= text->size()) return Value::longer(0);
    return position(findText(*text, *what, from, fold, call.budget));
}

std::size_t findLast(std::u16string_view text, std::u16string_view what, std::size_t end, bool fold,
                     Budget& budget) {
    if (what.size() > end) return kNone;
    Search search(text, what, fold, budget);
    for (std::size_t at = end - what.size() + 1; at-- > 0;)
        if (search.matches(at)) return at;
    return kNone;
}

Value inStrRev(const Call& call) {
    const std::int32_t start = call.whole(2, -1);
    if (start == 0 || start < -1) raise(kInvalidCall);
    if (call.isNull(0) || call.isNull(1)) return Value::null();
    const TextView text(call[0]);
    const TextView what(call[1]);
    const std::size_t end = start == -1 ? text->size() : static_cast<std::size_t>(start);
    if (text->empty() || end > text->size()) return Value::longer(0);
    if (what->empty()) return Value::longer(static_cast<std::int32_t>(end));
    return position(findLast(*text, *what, end, foldsCase(call, 3), call.budget));
}

/// At how many places, at most `most` of them unless it is negative, one text stands in another.
std::size_t countPlaces(std::u16string_view text, std::u16string_view what, std::int32_t most, bool fold,
                        Budget& budget) {
    std::size_t count = 0;
    std::size_t from = 0;
    for (; most != 0 && !what.empty(); --most) {
        const std::size_t found = findText(text, what, from, fold, budget);
        if (found == kNone) break;
        from = found + what.size();
        ++count;
        budget.work();
    }
    return count;
}

std::u16string replaced(std::u16string_view text, std::u16string_view what, std::u16string_view by,
                        std::int32_t count, bool fold, Budget& budget) {
    const std::size_t places = countPlaces(text, what, count, fold, budget);
    const std::size_t size = text.size() - places * what.size() + places * by.size();
    budget.checkText(size);
    std::u16string result;
    result.reserve(size);
    std::size_t from = 0;
    for (std::size_t place = 0; place < places; ++place) {
        const std::size_t found = findText(text, what, from, fold, budget);
        result.append(text.substr(from, found - from)).append(by);
        from = found + what.size();
        budget.work();
    }
    return result.append(text.substr(from));
}

/// Replace(text, what, by [, start [, count [, compare]]]): what stands before the start is not in the
/// result.
Value replace(const Call& call) {
    const TextView text(call[0]);
    const TextView what(call[1]);
    const TextView by(call[2]);
    const std::int32_t start = call.whole(3, 1);
    const std::int32_t count = call.whole(4, -1);
    if (start < 1 || count < -1) raise(kInvalidCall);
    const std::u16string_view rest =
        text->substr(std::min(static_cast<std::size_t>(start - 1), text->size()));
    return call.text(replaced(rest, *what, *by, count, foldsCase(call, 5), call.budget));
}

Value strComp(const Call& call) {
    if (call.isNull(0) || call.isNull(1)) return Value::null();
    const TextView left(call[0]);
    const TextView right(call[1]);
    const int order = compareTexts(*left, *right, foldsCase(call, 2), call.budget);
    return Value::integer(order < 0 ? -1 : order > 0 ? 1 : 0);
}

constexpr Builtin kTable[] = {
    {u"instr", 2, 4, inStr},
    {u"instrrev", 2, 4, inStrRev},
    {u"replace", 3, 6, replace},
    {u"strcomp", 2, 3, strComp},
};

} // namespace

std::size_t findText(std::u16string_view text, std::u16string_view what, std::size_t from, bool fold,
                     Budget& budget) {
    if (what.size() > text.size()) return kNone;
    Search search(text, what, fold, budget);
    for (std::size_t at = from; at <= text.size() - what.size(); ++at)
        if (search.matches(at)) return at;
    return kNone;
}

bool foldsCase(const Call& call, std::size_t argument) {
    const std::int32_t mode = call.whole(argument, 0);
    if (mode != 0 && mode != 1) raise(kInvalidCall);
    return mode == 1;
}

std::span<const Builtin> searchBuiltins() {
    return kTable;
}

} // namespace vistor::script
