// The window in which the data source is chosen. In and out: DataSourceDescriptor.
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace vistor {

struct SourceChoice;

/// Modal; detects the ports when it is first shown, so each opening makes a new window.
class FrmSelectInput final : public QDialog {
    Q_OBJECT

public:
    explicit FrmSelectInput(QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildSerialFields(class QGridLayout& grid);
    void buildFileFields(class QGridLayout& grid);
    void activated();
    void listPorts();
    void showChoice(const SourceChoice& choice);
    SourceChoice choice() const;
    void selectOption(int option);
    void enableFields();
    void SetNewFileCmd_Click();
    void OkCmd_Click();

    QRadioButton* InputSelectorOption[2] = {}; ///< 0 serial, 1 file
    QComboBox* PortNumberCombo = nullptr;
    QComboBox* SerialSpeedCmbo = nullptr;
    QCheckBox* UseGsmCheck = nullptr;
    QLineEdit* GsmTelephoneNumber = nullptr;
    QLineEdit* FileNameTxt = nullptr;
    QPushButton* SetNewFileCmd = nullptr;
    QPushButton* OkCmd = nullptr;
    bool m_shown = false;
};

} // namespace vistor
