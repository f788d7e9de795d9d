// The text tag's settings. In: what the tag shows. Out: the same as edited, when it is applied.
#pragma once

#include "platform/Prompts.h"

#include <QDialog>
#include <QPalette>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vistor {

class ColourBox;
class VXTEXTTAG;

class frmVXTextTagProp final : public QDialog {
    Q_OBJECT

public:
    explicit frmVXTextTagProp(VXTEXTTAG& tag);

private:
    void makeFields();
    void readTag();
    void cmdFont_Click();
    void cmdResetForeColour_Click();
    void cmdResetBackColour_Click();
    void cmdApply_Click();
    void showFont();
    void setColours(std::int32_t fore, std::int32_t back);

    VXTEXTTAG& VXControl;
    QPalette m_page; ///< the colours that system colours stand for
    FontChoice m_font;
    QLineEdit* txt;
    QComboBox* cmbAlign;
    QPushButton* cmdFont;
    ColourBox* picForeColour;
    ColourBox* picBackColour;
    QPushButton* cmdResetForeColour;
    QPushButton* cmdResetBackColour;
    QPushButton* cmdApply;
    QLabel* m_fontWords;
};

} // namespace vistor
