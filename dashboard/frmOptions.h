// The window for the grid and the dashboard's two colours. In: the settings file. Out: the dashboard and the
// settings file.
#pragma once

#include "dashboard/OptionsDraft.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace vistor {

class ColourBox;
class frmInterface;

/// Modal.
class frmOptions final : public QDialog {
    Q_OBJECT

public:
    frmOptions(frmInterface& dashboard, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildGridFields(class QVBoxLayout& column);
    void buildColourFields(class QVBoxLayout& column);
    void Form_Load();
    OptionsDraft draft() const;
    void cmdOk_Click();
    void cmdResetBackColour_Click();
    void cmdResetLabelColour_Click();

    frmInterface& m_dashboard;
    QLineEdit* txtGridSize;
    QCheckBox* chkShowGrid;
    QCheckBox* chkSnapToGrid;
    ColourBox* picBackColour;
    ColourBox* picLabelColour;
    QPushButton* cmdResetBackColour;
    QPushButton* cmdResetLabelColour;
};

} // namespace vistor
