// The window of the car's numbers. In: the car file. Out: the same with what was entered, at work at once.
#pragma once

#include "shell/CarSettings.h"

#include <QDialog>

class QGridLayout;
class QLabel;

namespace vistor {

class NumberBox;

class CarDialog final : public QDialog {
    Q_OBJECT

public:
    explicit CarDialog(QWidget* parent);

private:
    QWidget* makeEngine();
    QWidget* makeCar();
    QWidget* makeConstants();
    /// A labelled box with its unit in three cells from `column` on.
    void addBox(QGridLayout& grid, std::size_t setting, int row, int column = 0);
    void takeEntries();

    std::array<NumberBox*, kCarSettings> m_boxes{};
    QLabel* m_problem;
};

} // namespace vistor
