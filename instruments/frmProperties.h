// The small window that shows what is under the mouse in edit mode: an instrument's variables and main
// properties. In: labels, values and pins. Out: nothing; its place goes to the settings file.
#pragma once

#include "instruments/PinTable.h"

#include <QWidget>

#include <utility>
#include <vector>

class QTableWidget;

namespace vistor {

/// Two columns of texts.
using PropertyRows = std::vector<std::pair<QString, QString>>;

/// The rows of an instrument's variables: a head, then each bound pin, on a graph each bound axis of a track.
PropertyRows variableRows(const PinTable& pins);

class frmProperties final : public QWidget {
    Q_OBJECT

public:
    /// Floats over `owner`, at the place that the settings file tells, always on a screen.
    explicit frmProperties(QWidget* owner);

    void DisplayData(const QStringList& labels, const QStringList& values, const PinTable& pins,
                     const QString& name);
    void DisplayGraphData(const QStringList& labels, const QStringList& values, const PinTable& pins,
                          const QString& name);
    void DisplayTextData(const QStringList& labels, const QStringList& values, const QString& name);
    void ClearAll();

    /// Writes the window's place to the settings file.
    void Form_Unload() const;

Q_SIGNALS:
    /// A person closed the window.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void display(PropertyRows rows, const QStringList& labels, const QStringList& values,
                 const QString& name);
    void fill(PropertyRows rows);

    QTableWidget* grdProperties;
    PropertyRows m_rows;
};

} // namespace vistor
