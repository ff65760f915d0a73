#include "app/skin_sheet.h"

#include "controls/SkinButton.h"
#include "controls/SkinFrame.h"
#include "controls/dressing.h"
#include "platform/rich_edit.h"
#include "platform/text_looks.h"
#include "room/message_board.h"
#include "skin/icon_list.h"
#include "skin/skin_chat_colours.h"
#include "skin/skin_in_use.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr int gap = 8;
constexpr int iconColumns = 8;
constexpr int boardHeight = 210;

struct NamedState
{
    ButtonState state;
    const char16_t *name;
};
constexpr std::array shownStates = {
    NamedState{ButtonState::Normal, u"Normal"},     NamedState{ButtonState::Over, u"Over"},
    NamedState{ButtonState::Clicked, u"Clicked"},   NamedState{ButtonState::Disabled, u"Disabled"},
    NamedState{ButtonState::HasFocus, u"HasFocus"}, NamedState{ButtonState::Down, u"Down"}};

QString text(const char16_t *utf16)
{
    return QStringView(utf16).toString();
}

QLabel *makeLabel(const QString &words, QWidget *parent, const QColor &colour)
{
    auto *label = new QLabel(words, parent);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    return label;
}

QLabel *makePicture(const QImage &image, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setPixmap(QPixmap::fromImage(image));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QColor formColour(SkinInUse &skin, FormItem item)
{
    return toColor(skin.description().FormDefaults(item).colour());
}

/// A panel in the skin's frame: the frame lies below, the control inside its borders.
QWidget *framed(QWidget *control, SkinInUse &skin)
{
    auto *panel = new QWidget;
    auto *frame = new SkinFrame(panel);
    dressFrame(*frame, skin.description());
    control->setParent(panel);
    const QSize size = control->size();
    const QPoint origin(frame->ClientArea(FrameMeasure::LeftWidth),
                        frame->ClientArea(FrameMeasure::TopHeight));
    control->setGeometry(QRect(origin, size));
    frame->Wrap(*control);
    panel->setFixedSize(frame->size());
    return panel;
}

struct NamedPair
{
    const char16_t *name;
    RoomItem text;
    RoomItem ground;
};
constexpr std::array boardColours = {
    NamedPair{u"Message", RoomItem::MessageForeColour, RoomItem::MessageBackColour},
    NamedPair{u"Username", RoomItem::UsernameForeColour, RoomItem::UsernameBackColour},
    NamedPair{u"Chatters Message", RoomItem::ChattersMessageForeColour, RoomItem::ChattersMessageBackColour},
    NamedPair{u"Chatters Name", RoomItem::ChattersNameForeColour, RoomItem::ChattersNameBackColour},
    NamedPair{u"Emotions", RoomItem::EmotionsForeColour, RoomItem::EmotionsBackColour},
    NamedPair{u"Server Message", RoomItem::ServerMessage, RoomItem::ChattersMessageBackColour},
    NamedPair{u"Server Message Warning", RoomItem::ServerMessageWarning, RoomItem::ChattersMessageBackColour},
    NamedPair{u"Server Message Error", RoomItem::ServerMessageError, RoomItem::ChattersMessageBackColour},
};

} // namespace

SkinSheet::SkinSheet(SkinInUse &skin, QWidget *parent)
    : QWidget(parent),
      m_skin(skin),
      m_rows(new QVBoxLayout(this)),
      m_colours(chatColoursOf(skin.description())),
      m_emoticons(QString())
{
    m_rows->setSpacing(gap);
    m_rows->setContentsMargins(2 * gap, gap, 2 * gap, 2 * gap);
    m_options.IGNORECOL = true;
    if (const auto font = skin.description().FormDefaults(FormItem::Font).font()) {
        setFont(*font);
    }
    addProgramIcons(m_icons, skin.description(), devicePixelRatioF());
    addHeading(tr("Buttons"));
    addButtons();
    addHeading(tr("Frames, the board and the member list"));
    addPanels();
    addHeading(tr("Colours of the board"));
    addColours();
    for (const SkinSection &section : skinCatalogue()) {
        if (section.group == SkinGroup::ProgramIcons && section.keys.size() > 1) {
            addHeading(section.name.toString());
            addIcons(section);
        }
    }
    m_rows->addStretch(1);
}

SkinSheet::~SkinSheet() = default;

void SkinSheet::addHeading(const QString &words)
{
    QLabel *heading = makeLabel(words, this, formColour(m_skin, FormItem::BoldForeColour));
    if (const auto font = m_skin.description().FormDefaults(FormItem::BoldFont).font()) {
        heading->setFont(*font);
    }
    heading->setContentsMargins(0, gap, 0, 0);
    m_rows->addWidget(heading);
}

SkinButton *SkinSheet::makeButton(const QString &caption)
{
    auto *button = new SkinButton(this);
    button->setCaption(caption);
    return button;
}

void SkinSheet::addButtons()
{
    clsSkinResourceNew &skin = m_skin.description();
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    int column = 2;
    for (const NamedState &state : shownStates) {
        grid->addWidget(makeLabel(text(state.name), this, formColour(m_skin, FormItem::ForeColour)), 0,
                        column++, Qt::AlignHCenter);
    }
    m_rows->addLayout(grid);

    SkinButton *ordinary = makeButton(tr("&Button"));
    dressButton(*ordinary, skin);
    addButtonRow(*grid, tr("Default Button"), ordinary);

    const auto roomRow = [&](const char16_t *name, RoomItem normal, RoomItem caption) {
        SkinButton *button = makeButton(text(name));
        dressRoomButton(*button, skin, normal, caption);
        addButtonRow(*grid, text(name), button);
    };
    roomRow(u"Send", RoomItem::NormalSend, RoomItem::SendText);
    roomRow(u"Menu", RoomItem::NormalMenu, RoomItem::MenuText);
    roomRow(u"Exit", RoomItem::NormalExit, RoomItem::ExitText);
    roomRow(u"Font", RoomItem::NormalFont, RoomItem::FontText);
    roomRow(u"Emotions", RoomItem::NormalEmotions, RoomItem::EmotionsText);

    const auto formatRow = [&](const char16_t *name, RoomItem overlay) {
        SkinButton *button = makeButton();
        button->setAccessibleName(text(name));
        dressFormatButton(*button, skin, overlay);
        connect(button, &QAbstractButton::clicked, button, [button] { button->setLatched(!button->Down()); });
        addButtonRow(*grid, text(name), button);
    };
    formatRow(u"Bold", RoomItem::BoldOverlay);
    formatRow(u"Italic", RoomItem::ItalicOverlay);
    formatRow(u"Underline", RoomItem::UnderlineOverlay);
    formatRow(u"Emoticons", RoomItem::EmoticonOverlay);

    skin.OptionsForm(OptionsItem::LoadSelectButton);
    SkinButton *select = makeButton(tr("Page"));
    dressSelectButton(*select, skin);
    connect(select, &QAbstractButton::clicked, select, [select] { select->setLatched(!select->Down()); });
    addButtonRow(*grid, tr("Select"), select);
    skin.OptionsForm(OptionsItem::ReleaseSelectButton);

    skin.MessagingForm(PrivateItem::AcquireInfoButton);
    SkinButton *info = makeButton(tr("User details"));
    dressInfoButton(*info, skin);
    addButtonRow(*grid, tr("Details"), info);
    skin.MessagingForm(PrivateItem::ReleaseInfoButton);
    grid->setColumnStretch(static_cast<int>(shownStates.size()) + 2, 1);
}

/// The live button first, then a picture of each state.
void SkinSheet::addButtonRow(QGridLayout &grid, const QString &name, SkinButton *button)
{
    const int row = grid.rowCount();
    button->setObjectName(QString(u"gallery" % name));
    grid.addWidget(makeLabel(name, this, formColour(m_skin, FormItem::ForeColour)), row, 0);
    grid.addWidget(button, row, 1, Qt::AlignCenter);
    int column = 2;
    for (const NamedState &state : shownStates) {
        const bool hasPicture = state.state != ButtonState::Down || !button->frame(state.state).isNull();
        if (hasPicture && button->isFinished()) {
            grid.addWidget(makePicture(button->picture(state.state, devicePixelRatioF()), this), row, column,
                           Qt::AlignCenter);
        }
        ++column;
    }
}

void SkinSheet::addPanels()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(framed(makeBoard(), m_skin), 0, Qt::AlignTop);
    row->addWidget(framed(makeMembers(), m_skin), 0, Qt::AlignTop);
    row->addStretch(1);
    m_rows->addLayout(row);
}

QWidget *SkinSheet::makeBoard()
{
    auto *board = new RichEdit;
    board->setReadOnly(true);
    board->setFrameShape(QFrame::NoFrame);
    board->resize(460, boardHeight);
    board->setTextColour(toColor(m_colours.chattersMessage.text));
    board->setBackgroundColour(toColor(m_colours.chattersMessage.background));
    m_messages = std::make_unique<MessageBoard>(*board, m_options, m_colours, m_emoticons, m_icons);
    clsSkinResourceNew &skin = m_skin.description();
    m_messages->setInputBox(skin.FormDefaults(FormItem::InputFont).font().value_or(font()),
                            {skin.FormDefaults(FormItem::InputForeColour).colour(),
                             skin.FormDefaults(FormItem::InputBackColour).colour()});
    const auto say = [&](const QString &words, MessageKind kind, const QString &name = {},
                         bool marked = false) { m_messages->AddMessage(words, kind, name, {}, marked); };
    say(tr("You are now chatting in Lobby"), MessageKind::Normal);
    say(tr("Good morning, everyone :)"), MessageKind::Own, tr("Robin"));
    say(tr("Hello Robin! Have you seen https://example.org/?"), MessageKind::Member, tr("Kim"));
    say(tr("Not yet (H)"), MessageKind::Own, tr("Robin"));
    say(tr("waves at everyone"), MessageKind::Emotion, tr("Sam"));
    say(tr("Kim has marked this"), MessageKind::Member, tr("Kim"), true);
    say(tr("Sam has left the room"), MessageKind::Warning);
    say(tr("The room could not be found"), MessageKind::Error);
    return board;
}

QWidget *SkinSheet::makeMembers()
{
    const clsSkinResourceNew &skin = m_skin.description();
    auto *list = new QWidget;
    list->resize(170, boardHeight);
    const auto fill = [](QWidget *widget, const QColor &ground, const QColor &ink) {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::WindowText, ink);
        widget->setPalette(palette);
        widget->setAutoFillBackground(true);
    };
    const auto colour = [&](ListItem item) { return toColor(skin.ContactList(item).colour()); };
    fill(list, colour(ListItem::BackColour), colour(ListItem::ForeColour));
    auto *rows = new QVBoxLayout(list);
    rows->setSpacing(0);
    rows->setContentsMargins(0, 0, 0, 0);
    const auto addRow = [&](const QString &words, ListItem ground, ListItem ink, bool heading) {
        auto *label = new QLabel(words, list);
        label->setContentsMargins(heading ? 6 : 18, 3, 6, 3);
        if (auto font = skin.ContactList(ListItem::Font).font()) {
            font->setPointSizeF(font->pointSizeF() + (heading ? 1 : 0));
            label->setFont(*font);
        }
        fill(label, colour(ground), colour(ink));
        rows->addWidget(label);
    };
    addRow(tr("Owner"), ListItem::HeadingBackColour, ListItem::HeadingForeColour, true);
    addRow(tr("Robin"), ListItem::BackColour, ListItem::OnlineForeColour, false);
    addRow(tr("Online"), ListItem::HeadingBackColour, ListItem::HeadingForeColour, true);
    addRow(tr("Kim"), ListItem::HighlightBackColour, ListItem::HighlightForeColour, false);
    addRow(tr("Sam"), ListItem::BackColour, ListItem::OnlineForeColour, false);
    addRow(tr("Someone away"), ListItem::BackColour, ListItem::OfflineForeColour, false);
    rows->addStretch(1);
    return list;
}

void SkinSheet::addColours()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(gap);
    int place = 0;
    for (const NamedPair &pair : boardColours) {
        const clsSkinResourceNew &skin = m_skin.description();
        QLabel *label = makeLabel(text(pair.name), this, toColor(skin.ChatRoom(pair.text).colour()));
        QPalette palette = label->palette();
        palette.setColor(QPalette::Window, toColor(skin.ChatRoom(pair.ground).colour()));
        label->setPalette(palette);
        label->setAutoFillBackground(true);
        label->setContentsMargins(gap, 4, gap, 4);
        grid->addWidget(label, place / 4, place % 4);
        ++place;
    }
    m_rows->addLayout(grid);
}

void SkinSheet::addIcons(const SkinSection &section)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    int place = 0;
    for (const SkinKey &key : section.keys) {
        const QString name = key.name.toString();
        const QImage image = m_icons.image(name);
        if (image.isNull()) {
            continue;
        }
        auto *cell = new QHBoxLayout;
        cell->setSpacing(6);
        cell->addWidget(makePicture(image, this));
        cell->addWidget(makeLabel(name, this, formColour(m_skin, FormItem::ForeColour)));
        cell->addStretch(1);
        grid->addLayout(cell, place / iconColumns, place % iconColumns);
        ++place;
    }
    m_rows->addLayout(grid);
}
