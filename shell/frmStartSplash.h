// The window in the shape of a picture: the splash of start-up and the about box. In: a picture in the
// program folder, if there is one. Out: nothing; a press closes it.
#pragma once

#include <QDialog>

class QLabel;

namespace vistor {

class frmStartSplash : public QDialog {
    Q_OBJECT

public:
    explicit frmStartSplash(QWidget* parent = nullptr);

    QLabel* picSkin;

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Form_Load();
    void centre();
};

} // namespace vistor
