#include "shell/frmHelp.h"

#include "dashboard/Pictures.h"
#include "platform/Prompts.h"
#include "platform/WholeFile.h"
#include "shell/HelpLook.h"

#include <QDir>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vistor {
namespace {

constexpr QSize kSize(1020, 720);
constexpr int kLeftWidth = 260;
constexpr int kRowHeight = 24;
constexpr double kTextSize = 10.5; ///< points
constexpr std::size_t kLongestHistory = 200;

constexpr int kPageRole = Qt::UserRole;
constexpr int kAnchorRole = Qt::UserRole + 1;
constexpr qint64 kLargestPicture = 16 << 20; ///< bytes

/// Shows pages, and of what they name plain files in their own folder and the folders in it.
class PageView final : public QTextBrowser {
public:
    QVariant loadResource(int, const QUrl& name) override {
        const QString folder = searchPaths().value(0);
        const QString file = QDir::cleanPath(folder + name.path());
        const bool inside = name.scheme().isEmpty() && file.startsWith(folder);
        return inside ? readWholeFile(file, kLargestPicture).bytes : QVariant();
    }
};

} // namespace

frmHelp::frmHelp(QWidget* parent)
    : QWidget(parent, Qt::Window),
      contents(new QTreeWidget),
      index(new QListWidget),
      indexFilter(new QLineEdit),
      page(new PageView),
      tabs(new QTabWidget) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Vistor Help"));
    contents->setHeaderHidden(true);
    contents->setFrameShape(QFrame::NoFrame);
    tabs->addTab(contents, QStringLiteral("&Contents"));
    tabs->addTab(makeIndex(), QStringLiteral("&Index"));
    page->setOpenLinks(false);
    page->setFrameShape(QFrame::NoFrame);
    auto* halves = new QSplitter;
    halves->addWidget(tabs);
    halves->addWidget(page);
    halves->setStretchFactor(1, 1);
    halves->setChildrenCollapsible(false);
    halves->setSizes({kLeftWidth, kSize.width() - kLeftWidth});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeToolbar());
    layout->addWidget(halves, 1);
    resize(kSize);
    connect(page, &QTextBrowser::anchorClicked, this, &frmHelp::follow);
    connect(contents, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) {
        showTopic(item->data(0, kPageRole).toString(), item->data(0, kAnchorRole).toString());
    });
    connect(contents, &QTreeWidget::itemActivated, contents, &QTreeWidget::itemClicked);
}

QToolBar* frmHelp::makeToolbar() {
    auto* bar = new QToolBar;
    bar->setIconSize({20, 20});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_back = bar->addAction(picture("back"), QStringLiteral("Back"), this, [this] { step(-1); });
    m_back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    m_forward = bar->addAction(picture("forward"), QStringLiteral("Forward"), this, [this] { step(1); });
    m_forward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    bar->addAction(picture("help"), QStringLiteral("First page"), this,
                   [this] { showTopic(QLatin1String(kFirstHelpPage), {}); });
    auto* close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    return bar;
}

QWidget* frmHelp::makeIndex() {
    auto* both = new QWidget;
    auto* layout = new QVBoxLayout(both);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(4);
    indexFilter->setPlaceholderText(QStringLiteral("Words to look for"));
    indexFilter->setClearButtonEnabled(true);
    index->setFrameShape(QFrame::NoFrame);
    layout->addWidget(indexFilter);
    layout->addWidget(index, 1);
    connect(indexFilter, &QLineEdit::textChanged, this, &frmHelp::filterIndex);
    const auto showItem = [this](const QListWidgetItem* item) {
        showTopic(item->data(kPageRole).toString(), item->data(kAnchorRole).toString());
    };
    connect(index, &QListWidget::itemClicked, this, showItem);
    connect(index, &QListWidget::itemActivated, this, showItem);
    return both;
}

bool frmHelp::open(const QString& folder, HelpCommand command) {
    HelpPages pages = readHelpPages(folder);
    if (pages.contents.empty()) {
        MsgBox(QStringLiteral("The help pages cannot be found in %1").arg(QDir::toNativeSeparators(folder)));
        return false;
    }
    m_pages = std::move(pages);
    fillContents();
    fillIndex();
    tabs->setCurrentIndex(command == HelpCommand::Contents ? 0 : 1);
    if (m_history.empty())
        showTopic(QLatin1String(kFirstHelpPage), {});
    else
        markInContents(m_history[m_place]);
    QWidget::show();
    raise();
    activateWindow();
    (command == HelpCommand::Contents ? static_cast<QWidget*>(contents) : indexFilter)->setFocus();
    return true;
}

void frmHelp::fillContents() {
    contents->clear();
    QTreeWidgetItem* parent = nullptr;
    for (const HelpTopic& topic : m_pages.contents) {
        auto* item = topic.isPage || !parent ? new QTreeWidgetItem(contents) : new QTreeWidgetItem(parent);
        item->setText(0, topic.title);
        item->setToolTip(0, topic.title);
        item->setSizeHint(0, {0, kRowHeight});
        item->setData(0, kPageRole, topic.page);
        item->setData(0, kAnchorRole, topic.anchor);
        if (topic.isPage) parent = item;
    }
}

void frmHelp::fillIndex() {
    index->clear();
    for (const HelpWord& word : m_pages.index) {
        auto* item = new QListWidgetItem(word.word, index);
        item->setToolTip(word.topic.title);
        item->setSizeHint({0, kRowHeight});
        item->setData(kPageRole, word.topic.page);
        item->setData(kAnchorRole, word.topic.anchor);
    }
    filterIndex(indexFilter->text());
}

void frmHelp::filterIndex(const QString& text) {
    for (int row = 0; row < index->count(); ++row) {
        QListWidgetItem* item = index->item(row);
        item->setHidden(!item->text().contains(text.trimmed(), Qt::CaseInsensitive));
    }
}

void frmHelp::follow(const QUrl& link) {
    const QString name = link.path().isEmpty() && !m_history.empty() ? m_history[m_place].page : link.path();
    if (link.scheme().isEmpty()) showTopic(name, link.fragment());
}

void frmHelp::showTopic(const QString& name, const QString& anchor) {
    const Place place{name, anchor};
    if (!helpPageText(m_pages.folder, name)) return;
    if (m_history.empty() || m_history[m_place] != place) {
        if (!m_history.empty()) m_history.resize(m_place + 1);
        if (m_history.size() >= kLongestHistory) m_history.erase(m_history.begin());
        m_history.push_back(place);
        m_place = m_history.size() - 1;
    }
    show(place);
}

void frmHelp::step(int places) {
    m_place += static_cast<std::size_t>(places);
    show(m_history[m_place]);
}

void frmHelp::show(const Place& place) {
    QFont font = this->font();
    font.setPointSizeF(kTextSize);
    page->document()->setDefaultFont(font);
    page->setSearchPaths({m_pages.folder});
    page->document()->setMarkdown(helpPageText(m_pages.folder, place.page).value_or(QString()));
    layOutHelpPage(*page->document(), palette());
    page->moveCursor(QTextCursor::Start);
    scrollTo(place.anchor);
    markInContents(place);
    m_back->setEnabled(m_place > 0);
    m_forward->setEnabled(m_place + 1 < m_history.size());
}

void frmHelp::scrollTo(const QString& anchor) {
    for (QTextBlock block = page->document()->begin(); !anchor.isEmpty() && block.isValid();
         block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || helpAnchor(block.text()) != anchor) continue;
        // From the end upward, so that the heading comes to stand at the top.
        page->moveCursor(QTextCursor::End);
        page->setTextCursor(QTextCursor(block));
        return;
    }
}

void frmHelp::markInContents(const Place& place) {
    for (QTreeWidgetItemIterator it(contents); *it; ++it) {
        const Place stands{(*it)->data(0, kPageRole).toString(), (*it)->data(0, kAnchorRole).toString()};
        if (stands == place) return contents->setCurrentItem(*it);
    }
    contents->setCurrentItem(nullptr);
}

void frmHelp::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_history.empty()) show(m_history[m_place]);
}

} // namespace vistor
