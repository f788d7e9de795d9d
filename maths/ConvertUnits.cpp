#include "maths/ConvertUnits.h"

#include "maths/ExternalFormula.h"
#include "maths/FormulaEvaluator.h"
#include "maths/ScriptFormula.h"
#include "maths/ScriptFunctions.h"
#include "platform/IniFile.h"
#include "platform/Prompts.h"
#include "variables/GlobalVarsAndTypes.h"
#include "variables/SetupVariables.h"

#include <QVarLengthArray>

#include <cmath>
#include <optional>
#include <utility>

namespace vistor {
namespace {

struct NamedConstant {
    const char* name;
    std::size_t item; ///< of CarConstants
};

constexpr NamedConstant kConstants[] = {{"CAR_1", 6},  {"CAR_2", 7},   {"CAR_3", 8},  {"CAR_4", 9},
                                        {"CAR_5", 10}, {"CAR_6", 11},  {"CAR_7", 12}, {"CAR_8", 13},
                                        {"CAR_9", 14}, {"CAR_10", 15}, {"CdA", 0},    {"Roll", 1},
                                        {"Mass", 2},   {"Temp", 3},    {"Press", 4},  {"Humid", 5}};

const QString kVariablePrefix = QStringLiteral("VAR_");

/// What is known of a row's formula from its last sample, so that the next one costs no look at the text. It
/// holds the text itself: as long as it does, the same address means the same text.
struct alignas(64) PreparedFormula {
    struct Feed {
        std::int32_t number;
        double* place;
    };

    QString text;
    std::uint64_t revision = 0;
    FormulaForm form = FormulaForm::Identity;
    std::shared_ptr<FormulaEvaluator> evaluator; ///< of an expression that has been run
    double* own = nullptr;                       ///< the row's own name, "U" and "x"
    double* u = nullptr;
    double* x = nullptr;
    QVarLengthArray<Feed, 4> feeds; ///< other variables it reads, in the order of the text; seldom many
    GainAndOffset line;

    bool isFor(const QString& formula) const {
        return revision == tableRevision && formula.constData() == text.constData() &&
               formula.size() == text.size();
    }
};

std::vector<PreparedFormula> prepared(kVariableCount);
PreparedFormula preparedElsewhere; // for an index that is no row

/// The car's constants as the evaluators were given them; they keep these when the car is changed.
std::optional<decltype(CarConstants)> constantsOfStart;

bool isRow(std::int32_t index) {
    return index >= 0 && index < kVariableCount;
}

PreparedFormula prepare(const QString& formula) {
    PreparedFormula result;
    result.text = formula;
    result.revision = tableRevision;
    result.form = formOf(formula);
    result.line = gainAndOffsetOf(formula).value_or(GainAndOffset{});
    return result;
}

PreparedFormula& preparedFor(const QString& formula, std::int32_t index) {
    if (!isRow(index)) return preparedElsewhere = prepare(formula);
    PreparedFormula& row = prepared[static_cast<std::size_t>(index)];
    if (!row.isFor(formula)) row = prepare(formula);
    return row;
}

std::shared_ptr<FormulaEvaluator> makeEvaluator(const QString& formula) {
    auto evaluator = std::make_shared<FormulaEvaluator>();
    evaluator->Expression(formula);
    return evaluator;
}

std::shared_ptr<FormulaEvaluator>& evaluatorOf(std::int32_t index) {
    if (FormulaEvaluators.empty()) {
        FormulaEvaluators.resize(kVariableCount);
        constantsOfStart.reset(); // nothing was prepared: the car's constants of now
    }
    auto& evaluator = FormulaEvaluators[static_cast<std::size_t>(index)];
    if (!evaluator) evaluator = makeEvaluator({});
    return evaluator;
}

/// Defines in a row's evaluator what its formula may refer to, and notes where those values lie.
void link(PreparedFormula& formula, std::int32_t index, std::shared_ptr<FormulaEvaluator> evaluator) {
    evaluator->Expression(formula.text);
    // What changes at every sample is defined first, so that it lies together.
    formula.own = evaluator->variable(variableName(index));
    formula.u = evaluator->variable(QStringLiteral("U"));
    formula.x = evaluator->variable(QStringLiteral("x"));
    formula.feeds.clear();
    const QStringList parts = formula.text.split(kVariablePrefix); // the case is exact
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const double number = std::nearbyint(leadingNumber(parts[i].left(4)));
        if (number < 0 || number >= kVariableCount) continue; // no such element: the name stays unknown
        const auto known = static_cast<std::int32_t>(number);
        formula.feeds.push_back({known, evaluator->variable(variableName(known))});
    }
    const auto& constants = constantsOfStart ? *constantsOfStart : CarConstants;
    for (const NamedConstant& constant : kConstants)
        evaluator->SetVariable(QString::fromLatin1(constant.name),
                               static_cast<double>(constants[constant.item]));
    formula.evaluator = std::move(evaluator);
}

float evaluate(PreparedFormula& formula, float value, std::int32_t index) {
    // A new set of evaluators is a change of the tables, so one that is linked is the row's own and has this
    // text.
    if (!formula.evaluator) link(formula, index, evaluatorOf(index));
    for (const auto& feed : formula.feeds)
        *feed.place = static_cast<double>(LastValue[static_cast<std::size_t>(feed.number)]);
    *formula.own = *formula.u = *formula.x = static_cast<double>(value);
    double result = 0;
    if (!formula.evaluator->Value(result)) return 0;
    const auto rounded = static_cast<float>(result);
    return std::isfinite(rounded) ? rounded : 0;
}

bool isValidExpression(const QString& formula) {
    std::vector<std::int32_t> variables;
    std::vector<bool> carItems;
    if (CheckExpression(formula, variables, carItems)) return true;
    MsgBox(QStringLiteral("There is an error in the formula: ") + formula, Icon::Stop);
    return false;
}

} // namespace

QString variableName(std::int32_t number) {
    return kVariablePrefix + QString::number(number).rightJustified(4, u'0');
}

FormulaForm formOf(const QString& formula) {
    if (formula.isEmpty() || formula == QStringLiteral("$1$0") || formula == QStringLiteral("0"))
        return FormulaForm::Identity;
    if (formula.contains(u'$')) return FormulaForm::GainAndOffset;
    const QString upper = formula.toUpper();
    if (upper.contains(QStringLiteral("FUNCTION OUTPUT"))) return FormulaForm::Script;
    if (upper.contains(QStringLiteral("EXTERNAL DLL"))) return FormulaForm::External;
    return FormulaForm::Expression;
}

std::optional<GainAndOffset> gainAndOffsetOf(const QString& formula) {
    const FormulaForm form = formOf(formula);
    if (form == FormulaForm::Identity) return GainAndOffset{};
    if (form != FormulaForm::GainAndOffset) return std::nullopt;
    const QStringList parts = formula.split(u'$'); // two at least; a part that is missing reads as 0
    return GainAndOffset{ParseNumber(QString(parts.at(1))), ParseNumber(QString(parts.value(2)))};
}

void createFormulaEvaluators() {
    createScriptObject();
    constantsOfStart = CarConstants;
    FormulaEvaluators.assign(kVariableCount, nullptr);
    for (std::size_t row = 0; row < FormulaEvaluators.size(); ++row) {
        const bool known = row < VariableTable.size();
        FormulaEvaluators[row] = makeEvaluator(known ? VariableTable[row].CustomTransformation : QString());
        IndexNumbers[row] = known ? VariableTable[row].IndexNumber : 0;
    }
    tableChanged();
}

bool ConvertValue(const QString& formula, std::int32_t index, float& value, bool checkMode) {
    PreparedFormula& known = preparedFor(formula, index);
    switch (known.form) {
    case FormulaForm::Identity:
        return true;
    case FormulaForm::GainAndOffset: {
        const auto result =
            static_cast<float>(known.line.gain * static_cast<double>(value) + known.line.offset);
        if (std::isfinite(result)) value = result; // an overflow leaves the value alone
        return true;
    }
    case FormulaForm::Script:
        return runScriptFormula(QString(formula),
                                value); // a copy: its message box lets the tables be changed
    case FormulaForm::External:
        return runExternalFormula(QString(formula), value);
    case FormulaForm::Expression:
        break;
    }
    if (checkMode) return isValidExpression(formula);
    value = isRow(index) ? evaluate(known, value, index) : 0;
    return true;
}

float EvaluateExpression(const QString& formula, float value, std::int32_t index) {
    return isRow(index) ? evaluate(preparedFor(formula, index), value, index) : 0;
}

bool CheckExpression(const QString& formula, std::vector<std::int32_t>& usedVariables,
                     std::vector<bool>& usedCarItems) {
    FormulaEvaluator evaluator;
    evaluator.Expression(formula);
    for (const NamedConstant& constant : kConstants)
        evaluator.SetVariable(QString::fromLatin1(constant.name), 1);
    evaluator.SetVariable(QStringLiteral("U"), 1);
    evaluator.SetVariable(QStringLiteral("x"), 1);
    for (std::int32_t number = 1; number < kVariableCount; ++number)
        evaluator.SetVariable(variableName(number), 1);
    const bool valid = evaluator.compiles();

    bool used = false;
    usedVariables.assign(kVariableCount, 0); // and so it stays for a faulty text
    if (valid) {
        usedVariables.clear();
        for (std::int32_t number = 1; number < kVariableCount; ++number) {
            evaluator.VariableUsed(variableName(number), used);
            if (used) usedVariables.push_back(number);
        }
        if (usedVariables.empty()) usedVariables.push_back(0);
    }
    usedCarItems.assign(17, false);
    for (std::size_t item = 0; item < std::size(kConstants); ++item) {
        evaluator.VariableUsed(QString::fromLatin1(kConstants[item].name), used);
        usedCarItems[item + 1] = used;
    }
    evaluator.Reset();
    return valid;
}

void NumericKeyFilter(std::int16_t& key) {
    const bool digit = key >= '0' && key <= '9';
    if (!digit && key != 8 && key != 46 && key != 13 && key != 45) key = 0;
}

} // namespace vistor
