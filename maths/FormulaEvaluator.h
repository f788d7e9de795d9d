// One arithmetic expression with its variables. In: a text and named values. Out: a number. Wraps the parser
// library.
#pragma once

#include <QString>

#include <memory>

namespace vistor {

/// An evaluator of arithmetic texts. Names are found without regard to case; "." is the decimal mark and ","
/// parts arguments. What the formula editor inserts works as it stands: "{SIN}" reads as SIN and "{/}" as
/// "/". A lone "=" compares, as "<>" does; signs may stand one behind the other. A parser is made only when
/// it is first needed, and a text compiled only when it differs from the one before.
class FormulaEvaluator {
public:
    FormulaEvaluator();
    ~FormulaEvaluator();
    FormulaEvaluator(const FormulaEvaluator&) = delete;
    FormulaEvaluator& operator=(const FormulaEvaluator&) = delete;

    /// Sets the text to evaluate.
    void Expression(const QString& text);
    /// Whether the text is an expression of known names with one result, be that finite or not.
    bool compiles();
    /// Evaluates into `value`. False on a bad text or a result that is not finite; `value` then stands as it
    /// was.
    bool Value(double& value);
    /// Sets a variable, and defines one that is not known yet. A name that cannot be one is passed over.
    void SetVariable(const QString& name, double value);
    /// Tells whether the current text refers to that name.
    void VariableUsed(const QString& name, bool& used);
    /// Releases all that the object holds: text, variables, parser.
    void Reset();

    /// Where a variable's value lies, for one who sets it at every sample; defined where it is not known yet.
    /// Null for a name that cannot be one. Valid until Reset() or the end of the evaluator.
    double* variable(const QString& name);

private:
    struct Parser;
    Parser& parser();
    bool compile();

    QString m_text;
    std::unique_ptr<Parser> m_parser;
};

} // namespace vistor
