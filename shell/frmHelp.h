// The help window: contents and index on the left, the page on the right. In: the delivered pages, clicks.
// Out: nothing.
#pragma once

#include "shell/HelpPages.h"

#include <QWidget>

class QAction;
class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;
class QToolBar;
class QTreeWidget;

namespace vistor {

enum class HelpCommand { Contents = 1, Index = 2 };

class frmHelp : public QWidget {
    Q_OBJECT

public:
    explicit frmHelp(QWidget* parent = nullptr);

    /// Reads the pages and shows the window on its contents or its index. False where there are no pages; the
    /// person has been told.
    bool open(const QString& folder, HelpCommand command);
    /// Shows a page, from a heading on; what is not there is passed over.
    void showTopic(const QString& page, const QString& anchor);

    QTreeWidget* contents;
    QListWidget* index;
    QLineEdit* indexFilter;
    QTextBrowser* page;
    QTabWidget* tabs;

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Place {
        QString page;
        QString anchor;
        bool operator==(const Place&) const = default;
    };

    QToolBar* makeToolbar();
    QWidget* makeIndex();
    void fillContents();
    void fillIndex();
    void filterIndex(const QString& text);
    void follow(const QUrl& link);
    void step(int places);
    void show(const Place& place);
    void scrollTo(const QString& anchor);
    void markInContents(const Place& place);

    HelpPages m_pages;
    std::vector<Place> m_history;
    std::size_t m_place = 0; ///< in the history
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
};

} // namespace vistor
