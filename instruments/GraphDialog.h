// What the windows of both graphs are made of: fields, the three colour boxes, the buttons. In: widgets. Out:
// a laid-out window.
#pragma once

#include "instruments/GraphConfig.h"

#include <QDialog>

#include <span>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QHBoxLayout;
class QLabel;

namespace vistor {

class ColourBox;
class NumberBox;

class GraphDialog : public QDialog {
    Q_OBJECT

public:
    /// A person wants to edit all properties instead; what stands in the fields is applied.
    static constexpr int kAllProperties = 2;

protected:
    GraphDialog(const QString& title, QWidget* parent);

    /// What follows stands in another column.
    void addColumn();
    /// A group of fields below the others of its column.
    QFormLayout* addGroup(const QString& title);
    NumberBox* addNumber(QFormLayout* group, const char* name, const QString& label, double value);
    /// Shows no word where there is none for the value.
    QComboBox* addWords(QFormLayout* group, const char* name, const QString& label,
                        std::span<const char* const> words, int value);
    QCheckBox* addCheck(QFormLayout* group, const char* name, const QString& label, bool value);
    /// The colours, then the buttons.
    void finish(const GraphColours& colours);
    GraphColours colours() const;
    /// Boxes that can be edited only while the axis does not scale itself.
    static void lockWhileChecked(QCheckBox* check, std::span<NumberBox* const> boxes);

    virtual void cmdApply_Click() = 0;

private:
    /// Applies and closes with `result`, unless a box is wrong: then the window stays and says so.
    void apply(int result);
    ColourBox* addColour(QFormLayout* group, const char* name, const QString& label, std::int32_t value);

    QHBoxLayout* m_columns;
    QLabel* m_problem;
    ColourBox* picBackCol = nullptr;
    ColourBox* picForeCol = nullptr;
    ColourBox* picTraceCol = nullptr;
};

/// The word's number in a list; `before` where none was chosen.
int wordIn(const QComboBox* list, int before);
/// The number in a box; `before` where none was entered, as in a locked one.
double numberIn(const NumberBox* box, double before);

} // namespace vistor
