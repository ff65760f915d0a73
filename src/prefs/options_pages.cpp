#include "prefs/options_pages.h"

#include "controls/make_control.h"
#include "controls/native_look.h"
#include "core/options.h"
#include "platform/prompts.h"
#include "platform/text_looks.h"
#include "prefs/caption_label.h"
#include "prefs/swatch.h"
#include "skin/clsSkinResourceNew.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPointer>
#include <QRadioButton>

namespace {

constexpr int margin = 8; // pixels
constexpr int captionGap = 8;
constexpr int rowGap = 4;
constexpr int columnGap = 18;

struct ColourOption
{
    ColourValue Options::*option;
    int row;
    const char *caption; ///< null: the row's own
    const char *name;    ///< what assistive programs call it
};

constexpr std::array rowCaptions = {QT_TRANSLATE_NOOP("ColoursPage", "My username -"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "My messages -"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "Chatters name -"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "Chatters messages -"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "Emotions -"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "Server messages:"),
                                    QT_TRANSLATE_NOOP("ColoursPage", "Special User highlight:")};

constexpr const char *textCaption = QT_TRANSLATE_NOOP("ColoursPage", "Text Color:");
constexpr const char *groundCaption = QT_TRANSLATE_NOOP("ColoursPage", "Backcolor:");

/// In the order of the swatches' numbers.
constexpr std::array colourOptions = {
    ColourOption{&Options::UNTC, 0, textCaption, QT_TRANSLATE_NOOP("ColoursPage", "My username text colour")},
    ColourOption{&Options::UNBC, 0, groundCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "My username background colour")},
    ColourOption{&Options::MMTC, 1, textCaption, QT_TRANSLATE_NOOP("ColoursPage", "My messages text colour")},
    ColourOption{&Options::MMBC, 1, groundCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "My messages background colour")},
    ColourOption{&Options::CNTC, 2, textCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "Chatters name text colour")},
    ColourOption{&Options::CNBC, 2, groundCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "Chatters name background colour")},
    ColourOption{&Options::CMTC, 3, textCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "Chatters messages text colour")},
    ColourOption{&Options::CMBC, 3, groundCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "Chatters messages background colour")},
    ColourOption{&Options::EMTC, 4, textCaption, QT_TRANSLATE_NOOP("ColoursPage", "Emotions text colour")},
    ColourOption{&Options::EMBC, 4, groundCaption,
                 QT_TRANSLATE_NOOP("ColoursPage", "Emotions background colour")},
    ColourOption{&Options::SNORMAL, 5, QT_TRANSLATE_NOOP("ColoursPage", "Normal:"),
                 QT_TRANSLATE_NOOP("ColoursPage", "Normal notice")},
    ColourOption{&Options::SWARNING, 5, QT_TRANSLATE_NOOP("ColoursPage", "Warning:"),
                 QT_TRANSLATE_NOOP("ColoursPage", "Warning notice")},
    ColourOption{&Options::SERROR, 5, QT_TRANSLATE_NOOP("ColoursPage", "Error:"),
                 QT_TRANSLATE_NOOP("ColoursPage", "Error notice")},
    ColourOption{&Options::HIGHLIGHT, 6, nullptr, QT_TRANSLATE_NOOP("ColoursPage", "Highlight")}};

constexpr std::size_t generalCaptions = 6; // the captions of the colours are numbered after them

template <typename Widget>
Widget *makeNumbered(QWidget &page, const char16_t *name, std::size_t number, const QString &accessibleName)
{
    auto *widget = makeControl<Widget>(page, name, accessibleName);
    widget->setObjectName(QString(widget->objectName() % u'_' % QString::number(number)));
    return widget;
}

/// "Ignore Color && Styles:" as a person would say it.
QString spoken(QString caption)
{
    caption.replace(QStringLiteral("&&"), QStringLiteral("&"));
    return caption.endsWith(u':') ? caption.chopped(1) : caption;
}

} // namespace

OptionsPage::OptionsPage(QWidget &window, const char16_t *name)
    : QFrame(&window), m_grid(new QGridLayout(this))
{
    setObjectName(QStringView(name).toString());
    m_grid->setContentsMargins(margin, margin, margin, margin);
    m_grid->setHorizontalSpacing(captionGap);
    m_grid->setVerticalSpacing(rowGap);
}

CaptionLabel *OptionsPage::makeCaption(std::size_t number, const QString &text, QWidget *control)
{
    auto *caption = makeNumbered<CaptionLabel>(*this, u"lblInfo", number, {});
    caption->setBuddy(control);
    caption->setText(text); // with a buddy "&&" is one "&"
    if (control != nullptr && control->accessibleName().isEmpty()) {
        control->setAccessibleName(spoken(text));
    }
    return caption;
}

void OptionsPage::dress(const clsSkinResourceNew &skin, QPalette palette)
{
    if (skin.isRead()) {
        palette.setColor(QPalette::Window, toColor(skin.Frame(FrameItem::BackColour).colour()));
    }
    setPalette(palette);
    setAutoFillBackground(skin.isRead());
    setFrameShape(skin.Frame(FrameItem::TopLeft).bitmap() == nullptr ? QFrame::StyledPanel : QFrame::NoFrame);
    for (QWidget *control : m_native) {
        control->setPalette(boxLook(skin, palette));
    }
}

GeneralPage::GeneralPage(QWidget &window)
    : OptionsPage(window, u"picNormal"),
      cmbAccept(makeControl<QComboBox>(*this, u"cmbAccept")),
      chkEmoticons(makeControl<QCheckBox>(*this, u"chkEmoticons")),
      chkIgnoreColours(makeControl<QCheckBox>(*this, u"chkIgnoreColours"))
{
    cmbAccept->addItems(
        {tr("Manual"), tr("Auto Accept All"), tr("Auto Accept List"), tr("Auto Accept Pylox Users!")});
    QWidget *wordFilter = makeWordFilter();
    chkLeave = makeControl<QCheckBox>(*this, u"chkLeave");
    chkPyloxUsers = makeControl<QCheckBox>(*this, u"chkPyloxUsers");

    int row = 0;
    const auto add = [&](const QString &text, QWidget *control, QWidget *named) {
        m_grid->addWidget(makeCaption(static_cast<std::size_t>(row), text, named), row, 1, Qt::AlignRight);
        m_grid->addWidget(control, row, 2, Qt::AlignLeft | Qt::AlignVCenter);
        m_grid->setRowStretch(row++, 1);
    };
    add(tr("Accept new users:"), cmbAccept, cmbAccept);
    add(tr("Use Emoticons:"), chkEmoticons, chkEmoticons);
    add(tr("Ignore Color && Styles:"), chkIgnoreColours, chkIgnoreColours);
    add(tr("Word Filter:"), wordFilter, nullptr);
    add(tr("Tell me when people enter/leave room:"), chkLeave, chkLeave);
    add(tr("Tell me when my Pylox users are online:"), chkPyloxUsers, chkPyloxUsers);
    m_grid->setColumnStretch(0, 1); // in the middle, whatever the other page needs
    m_grid->setColumnStretch(3, 1);
    m_native = {cmbAccept,        chkEmoticons,     chkIgnoreColours, optWordFilter[0],
                optWordFilter[1], optWordFilter[2], chkLeave,         chkPyloxUsers};
    setFocusProxy(cmbAccept);
}

/// The three buttons with their captions.
QWidget *GeneralPage::makeWordFilter()
{
    const std::array captions = {tr("None"), tr("Cleaner"), tr("Cleanest")};
    auto *box = new QWidget(this);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(captionGap / 2);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto *button = makeNumbered<QRadioButton>(*box, u"optWordFilter", i, captions[i]);
        button->setAccessibleDescription(tr("Word Filter"));
        auto *caption = makeNumbered<CaptionLabel>(*box, u"lblWordFilter", i, {});
        caption->setText(captions[i]);
        caption->setBuddy(button);
        row->addWidget(button);
        row->addWidget(caption);
        row->addSpacing(captionGap);
        optWordFilter[i] = button;
    }
    return box;
}

void GeneralPage::fill(const Options &options)
{
    const int accept = static_cast<int>(options.AcceptMode);
    cmbAccept->setCurrentIndex(accept < cmbAccept->count() ? accept : 0);
    chkEmoticons->setChecked(options.EMOTICONS);
    chkIgnoreColours->setChecked(options.IGNORECOL);
    optWordFilter[qMin<std::size_t>(options.WORDFILER, 2)]->setChecked(true);
    chkLeave->setChecked(options.ShowEnterLeave);
    chkPyloxUsers->setChecked(options.ShowFriendOnline);
}

void GeneralPage::writeTo(Options &options) const
{
    options.ShowFriendOnline = chkPyloxUsers->isChecked();
    options.ShowEnterLeave = chkLeave->isChecked();
    options.IGNORECOL = chkIgnoreColours->isChecked();
    options.EMOTICONS = chkEmoticons->isChecked();
    options.WORDFILER = optWordFilter[0]->isChecked() ? 0 : optWordFilter[1]->isChecked() ? 1 : 2;
    options.AcceptMode = static_cast<enum AcceptMode>(cmbAccept->currentIndex());
}

ColoursPage::ColoursPage(QWidget &window, Prompts &prompts)
    : OptionsPage(window, u"picColours"), m_prompts(prompts)
{
    std::array<int, rowCaptions.size()> columns{}; // taken, by row
    std::size_t captions = generalCaptions;
    for (std::size_t i = 0; i < lblColour.size(); ++i) {
        const ColourOption &entry = colourOptions[i];
        auto *swatch = makeNumbered<Swatch>(*this, u"lblColour", i, tr(entry.name));
        connect(swatch, &QAbstractButton::clicked, this, [this, swatch] { choose(swatch); });
        lblColour[i] = swatch;

        int &column = columns[static_cast<std::size_t>(entry.row)];
        if (column == 0) {
            const char *text = rowCaptions[static_cast<std::size_t>(entry.row)];
            QWidget *named = entry.caption == nullptr ? swatch : nullptr;
            m_grid->addWidget(makeCaption(captions++, tr(text), named), entry.row, column);
        }
        if (entry.caption != nullptr) {
            m_grid->addWidget(makeCaption(captions++, tr(entry.caption), swatch), entry.row, column + 2);
        }
        m_grid->addWidget(swatch, entry.row, column + 3);
        m_grid->setColumnMinimumWidth(column + 1, columnGap);
        m_grid->setRowStretch(entry.row, 1);
        column += 3;
    }
    m_grid->setColumnStretch(m_grid->columnCount(), 1);
    setFocusProxy(lblColour[0]);
}

void ColoursPage::fill(const Options &options)
{
    for (std::size_t i = 0; i < lblColour.size(); ++i) {
        lblColour[i]->setColour(options.*colourOptions[i].option);
    }
}

void ColoursPage::writeTo(Options &options) const
{
    for (std::size_t i = 0; i < lblColour.size(); ++i) {
        options.*colourOptions[i].option = lblColour[i]->colour();
    }
}

void ColoursPage::choose(Swatch *swatch)
{
    const QPointer<Swatch> held(swatch);
    const auto chosen = m_prompts.ShowColor(swatch->shownColour());
    if (held != nullptr && chosen) {
        held->setColour(*chosen);
    }
}
