#include "instruments/frmVXTextTagProp.h"

#include "instruments/ColourBox.h"
#include "instruments/VXTEXTTAG.h"
#include "instruments/displays/PropertyStyles.h"
#include "instruments/displays/TextTagDisplay.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vistor {
namespace {

constexpr int kLongestCaption = 199; ///< what a profile keeps
constexpr int kDialogWidth = 380;

QString fontWords(const FontChoice& font) {
    const QString family = font.family.isEmpty() ? QFont().family() : font.family;
    QString words = QStringLiteral("%1, %2 pt").arg(family).arg(double(font.size));
    if (font.bold) words += QObject::tr(", bold");
    if (font.italic) words += QObject::tr(", italic");
    return words;
}

QHBoxLayout* pairOf(QWidget* wide, QWidget* button) {
    auto* pair = new QHBoxLayout;
    pair->addWidget(wide, 1);
    pair->addWidget(button);
    return pair;
}

} // namespace

frmVXTextTagProp::frmVXTextTagProp(VXTEXTTAG& tag)
    : QDialog(tag.window()),
      VXControl(tag),
      m_page(tag.lbl().palette()),
      txt(new QLineEdit),
      cmbAlign(new QComboBox),
      cmdFont(new QPushButton(tr("&Font..."))),
      picForeColour(new ColourBox),
      picBackColour(new ColourBox),
      cmdResetForeColour(new QPushButton(tr("Reset"))),
      cmdResetBackColour(new QPushButton(tr("Reset"))),
      cmdApply(new QPushButton(tr("Apply"))),
      m_fontWords(new QLabel) {
    setWindowTitle(tr("Text Tag Properties"));
    resize(kDialogWidth, sizeHint().height());
    makeFields();
    readTag();
    connect(cmdFont, &QPushButton::clicked, this, &frmVXTextTagProp::cmdFont_Click);
    connect(cmdResetForeColour, &QPushButton::clicked, this, &frmVXTextTagProp::cmdResetForeColour_Click);
    connect(cmdResetBackColour, &QPushButton::clicked, this, &frmVXTextTagProp::cmdResetBackColour_Click);
    connect(cmdApply, &QPushButton::clicked, this, &frmVXTextTagProp::cmdApply_Click);
}

void frmVXTextTagProp::makeFields() {
    const std::pair<QWidget*, const char*> names[] = {{txt, "txt"},
                                                      {cmbAlign, "cmbAlign"},
                                                      {cmdFont, "cmdFont"},
                                                      {picForeColour, "picForeColour"},
                                                      {picBackColour, "picBackColour"},
                                                      {cmdResetForeColour, "cmdResetForeColour"},
                                                      {cmdResetBackColour, "cmdResetBackColour"},
                                                      {cmdApply, "cmdApply"}};
    for (const auto& [widget, name] : names) widget->setObjectName(QLatin1String(name));
    txt->setMaxLength(kLongestCaption);
    m_fontWords->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    for (const char* word : kAlignmentWords) cmbAlign->addItem(QLatin1String(word));
    for (QPushButton* button : {cmdFont, cmdResetForeColour, cmdResetBackColour})
        button->setAutoDefault(false);
    cmdResetForeColour->setToolTip(tr("The colour of the page's labels"));
    cmdResetBackColour->setToolTip(tr("The colour of the page"));

    auto* form = new QFormLayout(this);
    form->addRow(tr("&Text"), txt);
    form->addRow(tr("&Alignment"), cmbAlign);
    form->addRow(tr("Font"), pairOf(m_fontWords, cmdFont));
    form->addRow(tr("Text colour"), pairOf(picForeColour, cmdResetForeColour));
    form->addRow(tr("Back colour"), pairOf(picBackColour, cmdResetBackColour));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->addButton(cmdApply, QDialogButtonBox::ApplyRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
    cmdApply->setDefault(true); // it has to stand in the dialog for that
}

void frmVXTextTagProp::readTag() {
    const PropertyStore& p = VXControl.lbl().properties();
    txt->setText(p.text(TagCaption));
    cmbAlign->setCurrentIndex(p.choice(TagAlignment));
    m_font = {.family = p.text(TagFontName),
              .size = float(p.number(TagFontSize)),
              .bold = p.flag(TagBold),
              .italic = p.flag(TagItalic),
              .underline = p.flag(TagUnderline),
              .strikeout = p.flag(TagStrikeOut)};
    setColours(p.integer(TagForeColour), p.integer(TagBackColour));
    showFont();
}

void frmVXTextTagProp::showFont() {
    m_fontWords->setText(fontWords(m_font));
    m_fontWords->setToolTip(m_fontWords->text());
}

void frmVXTextTagProp::setColours(std::int32_t fore, std::int32_t back) {
    picForeColour->setColour(fore, tagColour(fore, m_page));
    picBackColour->setColour(back, tagColour(back, m_page));
}

void frmVXTextTagProp::cmdFont_Click() {
    if (const auto picked = PickFont(m_font)) m_font = *picked;
    showFont();
}

void frmVXTextTagProp::cmdResetForeColour_Click() {
    setColours(kTagLabelColour, picBackColour->colour());
}

void frmVXTextTagProp::cmdResetBackColour_Click() {
    setColours(picForeColour->colour(), kTagPageColour);
}

void frmVXTextTagProp::cmdApply_Click() {
    // What the entries cannot show is kept where nobody touched them.
    const PropertyStore& p = VXControl.lbl().properties();
    const QString caption = txt->isModified() ? txt->text() : p.text(TagCaption);
    const int stored = p.integer(TagAlignment);
    const bool keeps = cmbAlign->currentIndex() == p.choice(TagAlignment) && stored >= 0 && stored <= 0xFF;
    const int alignment = keeps ? stored : cmbAlign->currentIndex();
    VXControl.AssignProperties(caption, m_font, static_cast<std::uint8_t>(alignment), picForeColour->colour(),
                               picBackColour->colour());
    accept();
}

} // namespace vistor
