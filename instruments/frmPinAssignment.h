// The window that asks on which pin a dropped variable is to go. In: the question. Out: the pin bound on the
// instrument, or nothing.
#pragma once

#include "instruments/PinChoice.h"

#include <QDialog>
#include <QPointer>

class QComboBox;
class QGridLayout;
class QTableWidget;

namespace vistor {

/// Modal. The pins in use are listed; a click on one of them chooses it.
class frmPinAssignment : public QDialog {
    Q_OBJECT

public:
    frmPinAssignment(const PinQuestion& question, QWidget* parent);

protected:
    /// The same with other rows, for graphs.
    frmPinAssignment(const PinQuestion& question, QWidget* parent, std::vector<PinRow> rows,
                     const QString& axisHeader);

    virtual void choose(const PinRow& row);
    virtual void assign(Instrument& instrument, int pin, const QString& name);
    /// The pin that is chosen, 0 for none.
    int chosenPin() const;
    /// Adds a labelled field below the others.
    void addField(const QString& label, QWidget* field);

    QTableWidget* grd;
    QComboBox* cmbPin;

private:
    void fillGrid(const QString& axisHeader);
    void cmdApply_Click();

    std::vector<PinRow> m_rows;
    QPointer<Instrument> VXControl;
    QString m_pinLabel;
    QString m_name;
    QGridLayout* m_fields;
};

} // namespace vistor
