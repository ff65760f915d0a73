#include "platform/font_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

#include <cmath>

namespace {

constexpr QSize sampleSize(320, 48);

QCheckBox *makeStyle(const QString &text, bool isOn)
{
    auto *box = new QCheckBox(text);
    box->setChecked(isOn);
    return box;
}

QListWidget *makeSizes(int smallest, int largest, int current)
{
    auto *sizes = new QListWidget;
    sizes->setAccessibleName(QDialog::tr("Size"));
    for (int size = smallest; size <= largest; ++size) {
        sizes->addItem(QString::number(size));
    }
    sizes->setCurrentRow(qBound(smallest, current, largest) - smallest);
    sizes->setFixedWidth(72);
    sizes->setFixedHeight(sizes->sizeHintForRow(0) * (largest - smallest + 1) + 2 * sizes->frameWidth());
    return sizes;
}

QLabel *makeSample()
{
    auto *sample = new QLabel(QDialog::tr("The quick brown fox"));
    sample->setFrameShape(QFrame::StyledPanel);
    sample->setAlignment(Qt::AlignCenter);
    sample->setMinimumSize(sampleSize);
    return sample;
}

} // namespace

FontDialog::FontDialog(const QFont &current, int smallest, int largest, QWidget *parent)
    : QDialog(parent),
      m_family(new QFontComboBox),
      m_sizes(makeSizes(smallest, largest, static_cast<int>(std::lround(current.pointSizeF())))),
      m_bold(makeStyle(tr("&Bold"), current.bold())),
      m_italic(makeStyle(tr("&Italic"), current.italic())),
      m_underline(makeStyle(tr("&Underline"), current.underline())),
      m_sample(makeSample())
{
    setWindowTitle(tr("Font"));
    m_family->setCurrentFont(current);
    m_family->setAccessibleName(tr("Font"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto *grid = new QGridLayout(this);
    grid->addWidget(m_family, 0, 0);
    grid->addWidget(m_bold, 1, 0);
    grid->addWidget(m_italic, 2, 0);
    grid->addWidget(m_underline, 3, 0);
    grid->addWidget(m_sizes, 0, 1, 4, 1);
    grid->addWidget(m_sample, 4, 0, 1, 2);
    grid->addWidget(buttons, 5, 0, 1, 2);
    grid->setColumnStretch(0, 1);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_family, &QFontComboBox::currentFontChanged, this, &FontDialog::showSample);
    connect(m_sizes, &QListWidget::currentRowChanged, this, &FontDialog::showSample);
    connect(m_sizes, &QListWidget::itemActivated, this, &QDialog::accept);
    for (const QCheckBox *style : {m_bold, m_italic, m_underline}) {
        connect(style, &QCheckBox::toggled, this, &FontDialog::showSample);
    }
    showSample();
}

QFont FontDialog::chosenFont() const
{
    QFont font(m_family->currentFont().family());
    if (const QListWidgetItem *size = m_sizes->currentItem()) {
        font.setPointSize(size->text().toInt());
    }
    font.setBold(m_bold->isChecked());
    font.setItalic(m_italic->isChecked());
    font.setUnderline(m_underline->isChecked());
    return font;
}

void FontDialog::showSample()
{
    m_sample->setFont(chosenFont());
}
