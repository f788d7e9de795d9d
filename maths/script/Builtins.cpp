#include "maths/script/Builtins.h"

#include "maths/script/Conversions.h"
#include "maths/script/Fault.h"

#include <unordered_map>

namespace vistor::script {
namespace {

Value refuseWindow(const Call&) {
    raise(kPermissionDenied); // a script runs in the sample's path, where nothing may ask
}

Value refuseObject(const Call&) {
    raise(kCannotCreate);
}

constexpr Builtin kRefused[] = {
    {u"msgbox", 1, 5, refuseWindow},
    {u"inputbox", 1, 7, refuseWindow},
    {u"createobject", 1, 2, refuseObject},
    {u"getobject", 0, 2, refuseObject},
};

using Table = std::unordered_map<std::u16string_view, const Builtin*>;

Table makeTable() {
    Table table;
    for (const std::span<const Builtin> rows :
         {mathBuiltins(), textBuiltins(), searchBuiltins(), arrayBuiltins(), conversionBuiltins(),
          formatBuiltins(), std::span<const Builtin>(kRefused)})
        for (const Builtin& row : rows) table.emplace(row.name, &row);
    return table;
}

} // namespace

std::int32_t Call::whole(std::size_t i, std::int32_t otherwise) const {
    return has(i) ? toLong(arguments[i]) : otherwise;
}

const Builtin* findBuiltin(std::u16string_view name) {
    static const Table table = makeTable();
    const auto found = table.find(name);
    return found == table.end() ? nullptr : found->second;
}

} // namespace vistor::script
