// The one editor for the properties of every kind of display, driven by its table. In: the values as they
// stand. Out: every draft as it is edited, so that the instrument shows it at once.
#pragma once

#include "instruments/displays/PropertyStore.h"

#include <QDialog>

class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;

namespace vistor {

class PropertyModel;
class PropertyView;
struct SectionPlace;

class PropertySheet final : public QDialog {
    Q_OBJECT

public:
    explicit PropertySheet(const PropertyStore& start, QWidget* parent = nullptr);

    /// Moves beside a rectangle of the screen, so that what is edited can be seen.
    void placeBeside(const QRect& edited);

    void accept() override;
    /// Puts back the values of the start, or of the last Apply.
    void reject() override;

Q_SIGNALS:
    /// What the display is to show from now on.
    void changed(const PropertyStore& draft);
    /// A person took the draft over.
    void applied();

private:
    QWidget* makeSectionButtons();
    QWidget* makeDialogButtons();
    void apply();
    void draftEdited();
    void filter(const QString& text);
    void selectionMoved();
    SectionPlace selected() const;
    void addSection();
    void removeSection();
    void openBranch(const SectionPlace& place);

    PropertyStore m_kept; ///< what Cancel goes back to
    PropertyModel* m_model;
    QSortFilterProxyModel* m_filtered;
    PropertyView* m_view;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_apply = nullptr;
};

} // namespace vistor
