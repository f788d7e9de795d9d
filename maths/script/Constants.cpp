// The named constants of the language.
#include "maths/script/Builtins.h"

#include <unordered_map>

namespace vistor::script {
namespace {

struct NumberConstant {
    std::u16string_view name;
    std::int32_t number;
};

constexpr NumberConstant kNumbers[] = {
    {u"vbbinarycompare", 0},
    {u"vbtextcompare", 1},
    {u"vbtrue", -1},
    {u"vbfalse", 0},
    {u"vbusedefault", -2},
    {u"vbempty", 0},
    {u"vbnull", 1},
    {u"vbinteger", 2},
    {u"vblong", 3},
    {u"vbsingle", 4},
    {u"vbdouble", 5},
    {u"vbcurrency", 6},
    {u"vbdate", 7},
    {u"vbstring", 8},
    {u"vbobject", 9},
    {u"vberror", 10},
    {u"vbboolean", 11},
    {u"vbvariant", 12},
    {u"vbdataobject", 13},
    {u"vbdecimal", 14},
    {u"vbbyte", 17},
    {u"vbarray", 8192},
    {u"vbblack", 0},
    {u"vbred", 0xFF},
    {u"vbgreen", 0xFF00},
    {u"vbyellow", 0xFFFF},
    {u"vbblue", 0xFF0000},
    {u"vbmagenta", 0xFF00FF},
    {u"vbcyan", 0xFFFF00},
    {u"vbwhite", 0xFFFFFF},
    {u"vbokonly", 0},
    {u"vbokcancel", 1},
    {u"vbabortretryignore", 2},
    {u"vbyesnocancel", 3},
    {u"vbyesno", 4},
    {u"vbretrycancel", 5},
    {u"vbcritical", 16},
    {u"vbquestion", 32},
    {u"vbexclamation", 48},
    {u"vbinformation", 64},
    {u"vbdefaultbutton1", 0},
    {u"vbdefaultbutton2", 256},
    {u"vbdefaultbutton3", 512},
    {u"vbdefaultbutton4", 768},
    {u"vbapplicationmodal", 0},
    {u"vbsystemmodal", 4096},
    {u"vbok", 1},
    {u"vbcancel", 2},
    {u"vbabort", 3},
    {u"vbretry", 4},
    {u"vbignore", 5},
    {u"vbyes", 6},
    {u"vbno", 7},
    {u"vbsunday", 1},
    {u"vbmonday", 2},
    {u"vbtuesday", 3},
    {u"vbwednesday", 4},
    {u"vbthursday", 5},
    {u"vbfriday", 6},
    {u"vbsaturday", 7},
    {u"vbusesystem", 0},
    {u"vbusesystemdayofweek", 0},
    {u"vbfirstjan1", 1},
    {u"vbfirstfourdays", 2},
    {u"vbfirstfullweek", 3},
    {u"vbgeneraldate", 0},
    {u"vblongdate", 1},
    {u"vbshortdate", 2},
    {u"vblongtime", 3},
    {u"vbshorttime", 4},
};

struct TextConstant {
    std::u16string_view name;
    std::u16string_view text;
};

constexpr TextConstant kTexts[] = {
    {u"vbcr", u"\r"},          {u"vblf", u"\n"},
    {u"vbcrlf", u"\r\n"},      {u"vbnewline", u"\r\n"},
    {u"vbtab", u"\t"},         {u"vbformfeed", u"\f"},
    {u"vbverticaltab", u"\v"}, {u"vbnullchar", std::u16string_view(u"\0", 1)},
    {u"vbnullstring", u""},
};

constexpr std::int32_t kObjectError = static_cast<std::int32_t>(0x80040000U);

using Table = std::unordered_map<std::u16string_view, Value>;

Table makeTable() {
    Table table;
    for (const NumberConstant& row : kNumbers)
        table.emplace(row.name, row.number == static_cast<std::int16_t>(row.number)
                                    ? Value::integer(row.number)
                                    : Value::longer(row.number));
    for (const TextConstant& row : kTexts) table.emplace(row.name, Value::literal(std::u16string(row.text)));
    table.emplace(u"vbobjecterror", Value::longer(kObjectError));
    return table;
}

} // namespace

const Value* findConstant(std::u16string_view name) {
    static const Table table = makeTable();
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

} // namespace vistor::script
