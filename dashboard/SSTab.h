// The tab strip of the dashboard: tab n shows page n. In: clicks, or `Tab` set by code. Out: the click
// signal, which alone tells the window that another page is in front. The strip stands below the pages.
#pragma once

#include <QPoint>
#include <QTabBar>

namespace vistor {

class SSTab : public QWidget {
    Q_OBJECT

public:
    explicit SSTab(QWidget* parent = nullptr);

    /// Number of tabs. New ones come at the end without a caption, and the last ones go.
    int Tabs() const { return m_bar->count(); }
    void Tabs(int count);
    /// The tab in front, from 0. Setting it raises Click; a number out of range is passed over.
    int Tab() const { return m_tab; }
    void Tab(int number);
    QString TabCaption(int number) const;
    void TabCaption(int number, const QString& caption);
    QStringList captions() const;
    /// The tab at a place in the window system's coordinates; -1 for none.
    int tabAt(const QPoint& place) const;

Q_SIGNALS:
    void Click();
    /// A button went down on the strip or beside it; the place is in the window system's coordinates.
    void MouseDown(Qt::MouseButton button, const QPoint& place);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void takeTab(int number);

    QTabBar* m_bar;
    int m_tab = 0; ///< kept here, since it is asked for at every value that reaches an instrument
};

} // namespace vistor
