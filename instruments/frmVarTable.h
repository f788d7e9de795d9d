// The window that shows and edits all bindings of an instrument. In: the instrument and its pin table. Out:
// pins bound and unbound on the instrument, one by one.
#pragma once

#include "instruments/PinChoice.h"

#include <QDialog>
#include <QPointer>

#include <vector>

class QComboBox;
class QFormLayout;
class QPushButton;
class QTableWidget;

namespace vistor {

class frmVarTable : public QDialog {
    Q_OBJECT

public:
    explicit frmVarTable(QWidget* parent);

    /// What is edited: an instrument, how its pins are called, how many there are and what is bound. Comes
    /// before the window is shown.
    void VXVariable(const QString& pinLabel, int pins, Instrument& instrument, const PinTable& table);

protected:
    virtual std::vector<PinRow> rowsOf(const PinTable& table) const;
    virtual PinTable assign(Instrument& instrument, int pin, const QString& name);
    virtual PinTable remove(Instrument& instrument, int pin);
    /// The variable on a pin; empty where there is none to remove.
    virtual QString boundTo(const PinTable& table, int pin) const;
    /// Puts a row of the grid into the fields.
    virtual void choose(const PinRow& row);
    void addFieldBelowPin(const QString& label, const char* name, QComboBox* box);
    int pinCount() const { return m_pins; }
    /// Greys what cannot be done to the chosen pin.
    void renewButtons();

    bool m_showsAxis = false; ///< the grid has a column for it

private:
    void makeFields();
    void insertField(int row, const QString& label, const char* name, QComboBox* box);
    void makeGrid();
    void makeButtons();
    /// What is bound now, in grid and fields.
    void showTable(const PinTable& table);
    void fillPins();
    int chosenPin() const;
    void cmbGroup_Click();
    void cmdApply_Click();
    void cmdRemove_Click();
    void chooseRow();

    QPointer<Instrument> m_instrument;
    QString m_pinLabel;
    int m_pins = 0;
    PinTable m_table;
    std::vector<PinRow> m_rows;
    QTableWidget* grd;
    QComboBox* cmbPin;
    QComboBox* cmbGroup;
    QComboBox* cmbVariable;
    QPushButton* cmdApply = nullptr;
    QPushButton* cmdRemove = nullptr;
    QFormLayout* m_fields;
};

} // namespace vistor
