#include "dashboard/frmLoadOptions.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace vistor {

frmLoadOptions::frmLoadOptions(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmLoadOptions"));
    setWindowTitle(QStringLiteral("Load layout"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(QLatin1String(kLoadQuestion)));
    column->addSpacing(4);
    for (std::size_t i = 0; i < optLoadProfile.size(); ++i) {
        optLoadProfile[i] = new QRadioButton(QLatin1String(kLoadChoices[i].text));
        optLoadProfile[i]->setObjectName(QStringLiteral("optLoadProfile%1").arg(i));
        column->addWidget(optLoadProfile[i]);
    }
    optLoadProfile[kFirstLoadChoice]->setChecked(true);
    optLoadProfile[kFirstLoadChoice]->setFocus();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    cmdOk = buttons->button(QDialogButtonBox::Ok);
    cmdCancel = buttons->button(QDialogButtonBox::Cancel);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addSpacing(8);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

const LoadChoice& frmLoadOptions::choice() const {
    for (std::size_t i = 0; i < optLoadProfile.size(); ++i) {
        if (optLoadProfile[i]->isChecked()) return kLoadChoices[i];
    }
    return kLoadChoices.back();
}

} // namespace vistor
