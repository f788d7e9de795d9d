#include "instruments/PropertySheet.h"

#include "instruments/PropertyEditors.h"
#include "instruments/PropertyModel.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include <algorithm>

namespace vistor {
namespace {

constexpr QSize kSheetSize(440, 560);
constexpr int kLabelColumnWidth = 220;

} // namespace

PropertySheet::PropertySheet(const PropertyStore& start, QWidget* parent)
    : QDialog(parent),
      m_kept(start),
      m_model(new PropertyModel(start, this)),
      m_filtered(new QSortFilterProxyModel(this)),
      m_view(new PropertyView(this)) {
    setWindowTitle(tr("Properties"));
    resize(kSheetSize);
    m_filtered->setSourceModel(m_model);
    m_filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_filtered->setRecursiveFilteringEnabled(true);
    m_filtered->setAutoAcceptChildRows(true);
    m_view->setModel(m_filtered);
    m_view->setColumnWidth(PropertyModel::LabelColumn, kLabelColumnWidth);
    m_view->expandToDepth(0);

    auto* filterBox = new QLineEdit;
    filterBox->setPlaceholderText(tr("Filter"));
    filterBox->setClearButtonEnabled(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(filterBox);
    layout->addWidget(m_view);
    layout->addWidget(makeSectionButtons());
    layout->addWidget(makeDialogButtons());

    connect(filterBox, &QLineEdit::textChanged, this, &PropertySheet::filter);
    connect(m_model, &PropertyModel::edited, this, &PropertySheet::draftEdited);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PropertySheet::selectionMoved);
    m_view->setFocus();
}

void PropertySheet::placeBeside(const QRect& edited) {
    constexpr int kDistance = 24;
    const QScreen* screen = QGuiApplication::screenAt(edited.center());
    if (!screen) return;
    const QRect room = screen->availableGeometry();
    int left = edited.right() + kDistance;
    if (left + width() > room.right()) left = edited.left() - kDistance - width();
    left = std::clamp(left, room.left(), std::max(room.right() - width(), room.left()));
    const int top = std::clamp(edited.top(), room.top(), std::max(room.bottom() - height(), room.top()));
    move(left, top);
}

QWidget* PropertySheet::makeSectionButtons() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    m_add = new QPushButton(tr("Add"));
    m_remove = new QPushButton(tr("Remove"));
    for (QPushButton* button : {m_add, m_remove}) {
        button->setAutoDefault(false);
        button->setEnabled(false);
        layout->addWidget(button);
    }
    layout->addStretch();
    connect(m_add, &QPushButton::clicked, this, &PropertySheet::addSection);
    connect(m_remove, &QPushButton::clicked, this, &PropertySheet::removeSection);
    bar->setVisible(!m_kept.table().sections().empty());
    return bar;
}

QWidget* PropertySheet::makeDialogButtons() {
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
    m_apply = buttons->button(QDialogButtonBox::Apply);
    m_apply->setEnabled(false);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(m_apply, &QPushButton::clicked, this, &PropertySheet::apply);
    connect(buttons, &QDialogButtonBox::accepted, this, &PropertySheet::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PropertySheet::reject);
    return buttons;
}

void PropertySheet::draftEdited() {
    m_apply->setEnabled(true);
    Q_EMIT changed(m_model->draft());
}

void PropertySheet::apply() {
    m_kept = m_model->draft();
    m_apply->setEnabled(false);
    Q_EMIT applied();
}

void PropertySheet::accept() {
    if (m_apply->isEnabled()) apply();
    QDialog::accept();
}

void PropertySheet::reject() {
    if (m_apply->isEnabled()) Q_EMIT changed(m_kept);
    QDialog::reject();
}

void PropertySheet::filter(const QString& text) {
    m_filtered->setFilterFixedString(text);
    if (text.isEmpty())
        m_view->expandToDepth(0);
    else
        m_view->expandAll();
}

SectionPlace PropertySheet::selected() const {
    return m_model->sectionPlace(m_filtered->mapToSource(m_view->currentIndex()));
}

void PropertySheet::selectionMoved() {
    const SectionPlace place = selected();
    const bool inList = place.block != 0;
    const QString name = inList ? QLatin1String(m_kept.table().sections()[place.block - 1].name) : QString();
    const bool room = inList && m_model->draft().sections(place.block) < PropertyStore::kMaximumSections;
    m_add->setEnabled(room);
    m_remove->setEnabled(inList && place.row >= 0);
    m_add->setText(inList ? tr("Add %1").arg(name) : tr("Add"));
    m_remove->setText(inList && place.row >= 0 ? tr("Remove %1 %2").arg(name).arg(place.row + 1)
                                               : tr("Remove"));
}

void PropertySheet::addSection() {
    const SectionPlace place = selected();
    m_model->addSection(place);
    const int row = place.row < 0 ? m_model->draft().sections(place.block) - 1 : place.row + 1;
    openBranch({place.block, row});
}

void PropertySheet::removeSection() {
    const SectionPlace place = selected();
    m_model->removeSection(place);
    openBranch({place.block, std::min(place.row, m_model->draft().sections(place.block) - 1)});
}

/// Opens the branch again that the change of the tree has closed.
void PropertySheet::openBranch(const SectionPlace& place) {
    m_view->expandToDepth(0);
    const QModelIndex index = m_filtered->mapFromSource(m_model->sectionIndex(place));
    m_view->setCurrentIndex(index);
    m_view->expand(index);
    m_view->scrollTo(index);
    selectionMoved();
}

} // namespace vistor
