// The question what happens to the layout that stands before another is loaded. In: the person's click. Out:
// the option chosen.
#pragma once

#include "dashboard/LoadChoice.h"

#include <QDialog>

class QPushButton;
class QRadioButton;

namespace vistor {

class frmLoadOptions final : public QDialog {
    Q_OBJECT

public:
    explicit frmLoadOptions(QWidget* parent = nullptr);

    /// The option that is chosen, the last one (which does nothing) for none.
    const LoadChoice& choice() const;

private:
    std::array<QRadioButton*, kLoadChoices.size()> optLoadProfile{};
    QPushButton* cmdOk;
    QPushButton* cmdCancel;
};

} // namespace vistor
